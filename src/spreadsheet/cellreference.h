#pragma once

#include <QByteArray>
#include <string_view>

namespace spreadsheet {

/// A rectangle of cells, 0-based, both ends included.
struct CellRange
{
    int rowFirst = 0, rowLast = 0, columnFirst = 0, columnLast = 0;
};

/// Reads "B7", with or without "$", into 0-based numbers. False for anything else and for places beyond the largest
/// sheet there is (1,048,576 rows, 16,384 columns).
bool parseCellReference(std::string_view text, int *row, int *column);
/// Reads "B7" or "A1:C3", the ends in any order, and whole columns "A:C" and rows "1:3".
bool parseRange(std::string_view text, CellRange *range);
/// Letters of a 0-based column.
QByteArray columnLetters(int column);
QByteArray cellReference(int row, int column);
/// "B7" for a single cell, otherwise "A1:C3".
QByteArray rangeReference(const CellRange &range);

} // namespace spreadsheet
