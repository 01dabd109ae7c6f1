#include "inputs/exceldates.h"

#include "spreadsheet/book.h"
#include "spreadsheet/datesystem.h"

namespace {

constexpr int sampleRows = 1000;
constexpr int sampleDates = 20; // of a column

char *writeDigits(int value, int width, char *out)
{
    for (int i = width; i-- > 0; value /= 10) {
        out[i] = static_cast<char>('0' + value % 10);
    }
    return out + width;
}

ExcelDates::Precision precisionOf(const spreadsheet::DateParts &parts)
{
    if (parts.millisecond > 0) {
        return ExcelDates::Milliseconds;
    }
    if (parts.second > 0) {
        return ExcelDates::Seconds;
    }
    if (parts.hour > 0 || parts.minute > 0) {
        return ExcelDates::Minutes;
    }
    return parts.year > 0 || parts.month > 0 || parts.day > 0 ? ExcelDates::DateOnly : ExcelDates::Unknown;
}

} // namespace

int ExcelDates::write(const spreadsheet::DateParts &parts, Precision precision, char *out)
{
    char *p = writeDigits(parts.year, 4, out);
    *p++ = '-';
    p = writeDigits(parts.month, 2, p);
    *p++ = '-';
    p = writeDigits(parts.day, 2, p);
    if (precision == DateOnly) {
        return static_cast<int>(p - out);
    }
    *p++ = 'T';
    p = writeDigits(parts.hour, 2, p);
    *p++ = ':';
    p = writeDigits(parts.minute, 2, p);
    if (precision != Minutes) {
        *p++ = ':';
        p = writeDigits(parts.second, 2, p);
    }
    if (precision == Milliseconds || precision == Unknown) {
        *p++ = '.';
        p = writeDigits(parts.millisecond, 3, p);
    }
    return static_cast<int>(p - out);
}

QVector<ExcelDates::Precision> ExcelDates::precisions(
    const spreadsheet::Book &book, const spreadsheet::Sheet &sheet, int firstRow)
{
    const int firstColumn = sheet.firstCol();
    const int columns = sheet.lastCol() - firstColumn;
    const qint64 end = qMin<qint64>(qint64(firstRow) + sampleRows, sheet.lastRow());
    QVector<Precision> found(columns, Unknown);
    QVector<int> seen(columns, 0);
    for (const auto &[row, cells] : sheet.cells()) {
        if (row < firstRow) {
            continue;
        }
        if (row >= end) {
            break;
        }
        for (const spreadsheet::CellRecord &cell : cells.cells) {
            const int column = cell.column - firstColumn;
            if (seen.at(column) == sampleDates || !book.isDate(cell)) {
                continue;
            }
            ++seen[column];
            spreadsheet::DateParts parts;
            if (book.dateUnpack(cell.number, &parts)) {
                found[column] = qMax(found.at(column), precisionOf(parts));
            }
        }
    }
    return found;
}
