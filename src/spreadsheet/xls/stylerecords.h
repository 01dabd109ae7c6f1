#pragma once

#include "spreadsheet/cellstyle.h"

#include <QByteArray>

namespace spreadsheet {

class XlsPalette;

/// Size of a font that isn't stated, in points.
constexpr double usualFontSize = 10.0;

/// Data of a FONT record.
QByteArray fontRecord(const FontStyle &font, XlsPalette &palette);
/// Data of a FORMAT record.
QByteArray numberFormatRecord(int number, const QString &code);
/// Data of an XF record of cells.
QByteArray cellFormatRecord(const CellStyle &style, unsigned font, unsigned numberFormat, XlsPalette &palette);
/// Data of an XF record that a named style is based on.
QByteArray baseFormatRecord(unsigned font, bool isNormal);

} // namespace spreadsheet
