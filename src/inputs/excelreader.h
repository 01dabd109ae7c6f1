#pragma once

#include "data/dataset.h"
#include "inputs/excelcells.h"
#include "spreadsheet/book.h"
#include "text/cappedlist.h"

#include <memory>

/// What came of reading a sheet.
struct ExcelReadResult
{
    Dataset dataset;
    QString sheetName; ///< as the workbook has it
    int hiddenRowCount = 0;
    int hiddenColumnCount = 0;
    int emptyRowCount = 0;
    CappedList unknownDates; ///< see ExcelCells
    QString error;           ///< empty when all went well, and for a file that isn't there
};

/// A workbook that nothing was loaded into yet, .xls for FileType::ExcelXls and .xlsx for all other types; null for an
/// empty path.
std::unique_ptr<spreadsheet::Book> openExcelBook(int fileType, const QString &path);

/// A workbook that `path` was loaded into; null with a text for the user in `error` when that can't be done.
std::unique_ptr<spreadsheet::Book> loadExcelBook(int fileType, const QString &path, QString *error);

/// Reads a sheet, which is a name in any case, else a 1-based number; the first one when empty. Texts, numbers, dates
/// (as "2024-01-31", with a time where the column has any) and booleans give text, all else is empty. False when it
/// can't be read. `path` is for messages; `progress` may be null.
bool readExcelSheet(spreadsheet::Book &book, const QString &path, const QString &sheet, const ExcelReadOptions &options,
    const std::function<void(double)> &progress, ExcelReadResult *result);
/// The same from a file.
bool readExcelSheet(int fileType, const QString &path, const QString &sheet, const ExcelReadOptions &options,
    const std::function<void(double)> &progress, ExcelReadResult *result);
