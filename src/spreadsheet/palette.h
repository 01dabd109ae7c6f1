#pragma once

#include "spreadsheet/cellstyle.h"

namespace spreadsheet {

/// Colour of the standard palette: 0 to 7 and 8 to 63; unset for any other index, which stand for system colours.
StyleColor paletteColor(int index);

} // namespace spreadsheet
