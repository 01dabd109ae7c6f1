#include "spreadsheet/format.h"

#include "spreadsheet/font.h"

namespace spreadsheet {

void Format::setFont(const Font *font)
{
    m_style.font = font->style();
}

void Format::setNumFormat(int number)
{
    m_style.numberFormat = number;
    m_style.numberCode.clear();
    m_isMeaningKnown = false;
}

NumberMeaning Format::meaning() const
{
    if (!m_isMeaningKnown) {
        m_meaning = numberMeaning(m_style.numberFormat, m_style.numberCode);
        m_isMeaningKnown = true;
    }
    return m_meaning;
}

} // namespace spreadsheet
