#pragma once

#include <QString>

namespace spreadsheet {

class Sheet;
struct BookData;
struct XlsxSource;

/// Reads a sheet of the file, by its position there, into an empty one; the shared texts are read before. False with an
/// error for a part that is missing or damaged.
bool readSheetPart(XlsxSource &source, int index, BookData &book, Sheet &sheet, QString *error);
/// Reads on up to the first used cell.
bool hasUsedCell(XlsxSource &source, int index, BookData &book, bool *found, QString *error);

} // namespace spreadsheet
