#pragma once

#include "spreadsheet/book.h"

/// What writing to workbooks has in common.
namespace ExcelBook {

/// XLS for that file type, XLSX for every other.
spreadsheet::FileKind kindOf(int fileType);
/// Position of the sheet of that name, -1 when there is none.
int indexOfSheet(const spreadsheet::Book &book, const QString &name, Qt::CaseSensitivity cs);

} // namespace ExcelBook
