#pragma once

#include <QString>

namespace spreadsheet {

struct BookData;
struct XlsxSource;

/// Finds the parts of the opened archive and reads the list of sheets and the date system. False with an error for a
/// file that is no workbook.
bool readWorkbook(XlsxSource &source, BookData &book, QString *error);

} // namespace spreadsheet
