#pragma once

#include <QByteArray>
#include <vector>

namespace spreadsheet {

struct EmptyBookPart
{
    const char *name;
    QByteArray text;
};

/// The parts of a workbook that has no sheets, formats and texts yet, in the order of the archive.
const std::vector<EmptyBookPart> &emptyBookParts();
/// A sheet without cells; the first of a new workbook is the one that is shown.
QByteArray emptySheet(bool isShown);
/// Shared texts, none yet.
QByteArray emptyTexts();
/// Formats, none yet.
QByteArray emptyStyles();

extern const char sheetContentType[];
extern const char textsContentType[];
extern const char stylesContentType[];

} // namespace spreadsheet
