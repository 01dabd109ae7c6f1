#pragma once

#include <QString>

namespace spreadsheet {

struct BookData;
class ZipArchive;

/// Reads the cell formats of a styles part into the book, under their own numbers. An empty name of a part stands for
/// none. False with an error when the styles are damaged.
bool readStyles(
    ZipArchive &archive, const QString &stylesPart, const QString &themePart, BookData &book, QString *error);

} // namespace spreadsheet
