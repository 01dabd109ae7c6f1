#include "inputs/excelsheets.h"

#include "data/values.h"
#include "files/filesheet.h"
#include "inputs/excelreader.h"
#include "inputs/readmessages.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <new>

using spreadsheet::Book;
using spreadsheet::Sheet;

namespace {

ExcelSheetEntry usableSheets(Book &book)
{
    ExcelSheetEntry entry;
    for (int i = 0; i < book.sheetCount(); ++i) {
        // The cheap question first: sheets without cells needn't be read.
        const Sheet *sheet = book.sheetType(i) == 0 && book.sheetHasCells(i) ? book.getSheet(i) : nullptr;
        if (!sheet || sheet->lastRow() <= 0 || sheet->lastCol() <= 0) {
            continue;
        }
        const QString name = book.getSheetName(i);
        entry.names.append(name);
        entry.displayTexts.append(QStringLiteral("%1 (%2 cols x %3 rows)")
                                      .arg(name, formatInteger(sheet->lastCol() - sheet->firstCol(), true),
                                          formatInteger(sheet->lastRow() - sheet->firstRow(), true)));
        book.releaseSheet(i);
    }
    return entry;
}

ExcelSheetEntry sheetsOfFile(int fileType, const QString &path, const QString &shownPath, QString *message)
{
    const std::unique_ptr<Book> book = openExcelBook(fileType, path);
    if (!book) {
        *message = QStringLiteral("Unable to open Excel document '%1'.").arg(shownPath);
        return {};
    }
    if (!QFileInfo(path).isFile() || !book->load(path)) {
        *message = QStringLiteral("Unable to get sheets from '%1'.").arg(shownPath);
        if (!book->errorMessage().isEmpty()) {
            *message += QStringLiteral("\nError: %1").arg(book->errorMessage());
            qDebug("Error=%s", qUtf8Printable(book->errorMessage()));
        }
        return {};
    }
    const ExcelSheetEntry entry = usableSheets(*book);
    if (entry.names.isEmpty()) {
        *message = QStringLiteral(
            "Can't import any sheets. The spreadsheet may be empty or the sheets might be too large to import - check "
            "you don't have thousands of empty rows or columns.");
    }
    return entry;
}

} // namespace

ExcelSheetEntry listExcelSheets(int fileType, const QString &path, QString *message)
{
    message->clear();
    const QFileInfo file(path);
    const QString shownPath = absoluteNativePath(path);
    if (!file.exists()) {
        *message = QStringLiteral("File '%1' not found.").arg(shownPath);
        return {};
    }
    if (file.size() == 0) {
        *message = QStringLiteral("Unable to open Excel document '%1' as size is 0.").arg(shownPath);
        return {};
    }
    try {
        return sheetsOfFile(fileType, path, shownPath, message);
    } catch (const std::bad_alloc &) {
        *message = tooBigToRead(shownPath);
        return {};
    }
}

QStringList matchingSheets(Book &book, const QString &pattern)
{
    const bool takesAll = pattern == QLatin1String("*");
    const QRegularExpression wildcard(
        QRegularExpression::wildcardToRegularExpression(pattern), QRegularExpression::CaseInsensitiveOption);
    QStringList names;
    if (!wildcard.isValid()) {
        return names;
    }
    for (int i = 0; i < book.sheetCount(); ++i) {
        const QString name = book.getSheetName(i);
        if (book.sheetType(i) == 0 && !name.isEmpty() && (takesAll || wildcard.match(name).hasMatch())
            && book.sheetHasCells(i)) {
            names.append(name);
        }
    }
    return names;
}

QStringList matchingSheets(int fileType, const QString &path, const QString &pattern)
{
    QString error;
    const std::unique_ptr<Book> book = loadExcelBook(fileType, path, &error);
    return book ? matchingSheets(*book, pattern) : QStringList();
}
