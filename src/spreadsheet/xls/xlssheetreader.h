#pragma once

#include "spreadsheet/xls/xlssource.h"

namespace spreadsheet {

class Sheet;
struct BookData;

/// Reads a sheet's part of a workbook stream into an empty sheet. False with a text in `error` when a cell can't be
/// read.
bool readXlsSheet(
    const XlsSource &source, const XlsSource::SheetPart &part, BookData &book, Sheet &sheet, QString *error);
/// True when the part has a record of a cell.
bool hasXlsCells(const XlsSource &source, const XlsSource::SheetPart &part);

} // namespace spreadsheet
