#include "inputs/excelreader.h"

#include "files/excelmessages.h"
#include "files/filesheet.h"
#include "inputs/readmessages.h"
#include "settings/filetypes.h"
#include "settings/settings.h"

#include <QFileInfo>
#include <new>

using spreadsheet::Book;
using spreadsheet::Sheet;

namespace {

/// Position of the sheet, -1 for none.
int findSheet(const Book &book, const QString &sheet)
{
    if (sheet.isEmpty()) {
        for (int i = 0; i < book.sheetCount(); ++i) {
            if (book.sheetType(i) == 0) {
                return i;
            }
        }
        return -1;
    }
    const QString lower = sheet.toLower();
    for (int i = 0; i < book.sheetCount(); ++i) {
        if (book.getSheetName(i).toLower() == lower) {
            return i;
        }
    }
    for (int i = 0; i < book.sheetCount(); ++i) {
        if (QString::number(i + 1) == sheet) {
            return i;
        }
    }
    return -1;
}

/// Bytes that the memory ceiling leaves to a table, whatever else there is.
qint64 byteLimit()
{
    constexpr double bytesInGiB = 1024.0 * 1024.0 * 1024.0;
    return static_cast<qint64>(qBound(0.0, Settings::current().maxMemoryUsage(), 1e6) * bytesInGiB);
}

/// Returns the number of rows that went.
int removeHiddenRows(const Sheet &sheet, int ignoredRows, Dataset &dataset)
{
    QVector<int> kept;
    int next = 0;
    for (const auto &[number, row] : sheet.cells()) {
        const int at = number - ignoredRows;
        if (!row.hidden || at < 0 || at >= dataset.rowCount()) {
            continue;
        }
        while (next < at) {
            kept.append(next++);
        }
        next = at + 1;
    }
    while (next < dataset.rowCount()) {
        kept.append(next++);
    }
    const int removed = dataset.rowCount() - kept.size();
    if (removed > 0) {
        dataset = dataset.withRows(kept);
    }
    return removed;
}

/// Returns the number of columns that went.
int removeHiddenColumns(const Sheet &sheet, Dataset &dataset)
{
    QVector<ColumnIndex> kept;
    for (int i = 0; i < dataset.columnCount(); ++i) {
        if (!sheet.colHidden(sheet.firstCol() + i)) {
            kept.append(ColumnIndex(i));
        }
    }
    const int removed = dataset.columnCount() - kept.size();
    if (removed > 0) {
        dataset = dataset.withColumns(kept);
    }
    return removed;
}

void readSheet(const Book &book, const Sheet &sheet, const ExcelReadOptions &options,
    const std::function<void(double)> &progress, ExcelReadResult *result)
{
    Dataset &dataset = result->dataset;
    ExcelCells cells(book, sheet, options, byteLimit());
    cells.read(progress, &dataset);
    result->unknownDates = cells.unknownDates();
    if (options.ignoreHiddenRows) {
        result->hiddenRowCount = removeHiddenRows(sheet, options.ignoredRows, dataset);
    }
    if (options.ignoreHiddenColumns) {
        result->hiddenColumnCount = removeHiddenColumns(sheet, dataset);
    }
    if (options.ignoreEmptyRows) {
        result->emptyRowCount = dataset.removeEmptyRows();
    }
}

} // namespace

std::unique_ptr<Book> openExcelBook(int fileType, const QString &path)
{
    if (path.isEmpty()) {
        return nullptr;
    }
    const bool isXls = fileType == FileType::ExcelXls;
    return std::make_unique<Book>(isXls ? spreadsheet::FileKind::Xls : spreadsheet::FileKind::Xlsx);
}

std::unique_ptr<Book> loadExcelBook(int fileType, const QString &path, QString *error)
{
    const QFileInfo file(path);
    if (path.trimmed().isEmpty() || !file.exists()) {
        return nullptr;
    }
    try {
        std::unique_ptr<Book> book = openExcelBook(fileType, path);
        // A device might have no end.
        if (file.isFile() && book->load(path)) {
            return book;
        }
        *error = ExcelMessages::notLoaded(path, book->errorMessage());
    } catch (const std::bad_alloc &) {
        *error = tooBigToRead(absoluteNativePath(path));
    }
    return nullptr;
}

bool readExcelSheet(Book &book, const QString &path, const QString &sheet, const ExcelReadOptions &options,
    const std::function<void(double)> &progress, ExcelReadResult *result)
{
    *result = ExcelReadResult();
    const int position = findSheet(book, sheet);
    if (position < 0 || book.sheetType(position) != 0) {
        result->error = QStringLiteral("Sheet '%1' not found.").arg(sheet);
        return false;
    }
    try {
        const Sheet *found = book.getSheet(position);
        if (!found) {
            result->error = ExcelMessages::notLoaded(path, book.errorMessage());
            return false;
        }
        result->sheetName = book.getSheetName(position);
        readSheet(book, *found, options, progress, result);
    } catch (const std::bad_alloc &) {
        *result = ExcelReadResult();
        result->error = tooBigToRead(absoluteNativePath(path));
        return false;
    }
    book.releaseSheet(position);
    return true;
}

bool readExcelSheet(int fileType, const QString &path, const QString &sheet, const ExcelReadOptions &options,
    const std::function<void(double)> &progress, ExcelReadResult *result)
{
    *result = ExcelReadResult();
    const std::unique_ptr<Book> book = loadExcelBook(fileType, path, &result->error);
    return book && readExcelSheet(*book, path, sheet, options, progress, result);
}
