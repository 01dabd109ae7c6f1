#include "spreadsheet/format.h"

#include "spreadsheet/font.h"
#include "spreadsheet/numberformats.h"

namespace spreadsheet {

void Format::setFont(const Font *font)
{
    m_style.font = font->style();
}

void Format::setNumFormat(int number)
{
    m_style.numberFormat = number;
    m_style.numberCode.clear();
    m_isDate = -1;
}

bool Format::isDate() const
{
    if (m_isDate < 0) {
        m_isDate = isDateFormat(m_style.numberFormat, m_style.numberCode) ? 1 : 0;
    }
    return m_isDate == 1;
}

} // namespace spreadsheet
