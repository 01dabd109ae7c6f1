#pragma once

#include <QStringList>

namespace spreadsheet {
class Book;
}

/// Sheets to choose from, in the order of the workbook.
struct ExcelSheetEntry
{
    QStringList names;
    QStringList displayTexts; ///< name and size of each
};

/// The worksheets of a workbook that have cells. None when there are no such sheets or the file can't be read, which
/// `message` then tells the user.
ExcelSheetEntry listExcelSheets(int fileType, const QString &path, QString *message);

/// The names of the worksheets with cells that match a wildcard in any case, all of them for "*".
QStringList matchingSheets(spreadsheet::Book &book, const QString &pattern);
/// The same from a file; none when it can't be read.
QStringList matchingSheets(int fileType, const QString &path, const QString &pattern);
