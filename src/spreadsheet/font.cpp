#include "spreadsheet/font.h"

#include "spreadsheet/palette.h"

namespace spreadsheet {

void Font::setColor(int index)
{
    m_style.color = paletteColor(index);
}

} // namespace spreadsheet
