#include "spreadsheet/cellreference.h"

#include "spreadsheet/sizes.h"

#include <algorithm>

namespace spreadsheet {
namespace {

void skipDollar(std::string_view *text)
{
    text->remove_prefix(!text->empty() && text->front() == '$' ? 1 : 0);
}

/// Takes letters from the front; below 0 when there are none or no sheet has such a column.
int takeColumn(std::string_view *text)
{
    skipDollar(text);
    int number = 0;
    for (; !text->empty(); text->remove_prefix(1)) {
        const char c = static_cast<char>(text->front() & ~0x20);
        if (c < 'A' || c > 'Z') {
            break;
        }
        number = number * 26 + (c - 'A' + 1);
        if (number > maxColumns(FileKind::Xlsx)) {
            return -1;
        }
    }
    return number - 1;
}

/// Takes digits from the front; below 0 when there are none or no sheet has such a row.
int takeRow(std::string_view *text)
{
    skipDollar(text);
    int number = 0;
    for (; !text->empty() && text->front() >= '0' && text->front() <= '9'; text->remove_prefix(1)) {
        number = number * 10 + (text->front() - '0');
        if (number > maxRows(FileKind::Xlsx)) {
            return -1;
        }
    }
    return number - 1;
}

/// Reads one kind of end on both sides of the colon.
bool parseEnds(std::string_view first, std::string_view last, int (*take)(std::string_view *), int *from, int *to)
{
    const int found = take(&first), foundLast = take(&last);
    if (found < 0 || foundLast < 0 || !first.empty() || !last.empty()) {
        return false;
    }
    *from = found;
    *to = foundLast;
    return true;
}

} // namespace

bool parseCellReference(std::string_view text, int *row, int *column)
{
    const int foundColumn = takeColumn(&text);
    const int foundRow = foundColumn < 0 ? -1 : takeRow(&text);
    if (foundRow < 0 || !text.empty()) {
        return false;
    }
    *row = foundRow;
    *column = foundColumn;
    return true;
}

bool parseRange(std::string_view text, CellRange *range)
{
    const size_t colon = text.find(':');
    const std::string_view first = text.substr(0, colon);
    const std::string_view last = colon == std::string_view::npos ? first : text.substr(colon + 1);
    CellRange found{0, maxRows(FileKind::Xlsx) - 1, 0, maxColumns(FileKind::Xlsx) - 1};
    const bool isRange = (parseCellReference(first, &found.rowFirst, &found.columnFirst)
                             && parseCellReference(last, &found.rowLast, &found.columnLast))
                         || (colon != std::string_view::npos
                             && (parseEnds(first, last, takeColumn, &found.columnFirst, &found.columnLast)
                                 || parseEnds(first, last, takeRow, &found.rowFirst, &found.rowLast)));
    if (!isRange) {
        return false;
    }
    *range = {std::min(found.rowFirst, found.rowLast), std::max(found.rowFirst, found.rowLast),
        std::min(found.columnFirst, found.columnLast), std::max(found.columnFirst, found.columnLast)};
    return true;
}

QByteArray columnLetters(int column)
{
    QByteArray letters;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
        letters.prepend(static_cast<char>('A' + (rest - 1) % 26));
    }
    return letters;
}

QByteArray cellReference(int row, int column)
{
    return columnLetters(column) + QByteArray::number(row + 1);
}

QByteArray rangeReference(const CellRange &range)
{
    const QByteArray first = cellReference(range.rowFirst, range.columnFirst);
    if (range.rowFirst == range.rowLast && range.columnFirst == range.columnLast) {
        return first;
    }
    return first + ':' + cellReference(range.rowLast, range.columnLast);
}

} // namespace spreadsheet
