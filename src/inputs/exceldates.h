#pragma once

#include <QVector>

namespace spreadsheet {
class Book;
class Sheet;
struct DateParts;
} // namespace spreadsheet

/// How dates of workbooks become text, such as "2024-01-31T08:30".
namespace ExcelDates {

/// How much of the time of day the dates of a column show.
enum Precision { Unknown = 0, DateOnly = 1, Minutes = 2, Seconds = 3, Milliseconds = 4 };

/// Most bytes that write() writes.
constexpr int capacity = 32;

/// The text of a date at `out`; returns its size. A precision of Unknown shows all.
int write(const spreadsheet::DateParts &parts, Precision precision, char *out);

/// What each column of the used area needs, by the first dates among its first rows from `firstRow` on.
QVector<Precision> precisions(const spreadsheet::Book &book, const spreadsheet::Sheet &sheet, int firstRow);

} // namespace ExcelDates
