#pragma once

#include <QString>

namespace spreadsheet {

struct BookData;
struct XlsxSource;

/// Adds the texts that the file shares among its cells to those of the book, unless that is done already. False with
/// an error when the part is damaged.
bool loadSharedTexts(XlsxSource &source, BookData &book, QString *error);

} // namespace spreadsheet
