#include "spreadsheet/cellreference.h"

#include "spreadsheet/sizes.h"

#include <algorithm>

namespace spreadsheet {

bool parseCellReference(std::string_view text, int *row, int *column)
{
    size_t i = !text.empty() && text[0] == '$' ? 1 : 0;
    int letters = 0;
    for (; i < text.size(); ++i) {
        const char c = static_cast<char>(text[i] & ~0x20);
        if (c < 'A' || c > 'Z') {
            break;
        }
        letters = letters * 26 + (c - 'A' + 1);
        if (letters > maxColumns(FileKind::Xlsx)) {
            return false;
        }
    }
    if (letters == 0) {
        return false;
    }
    if (i < text.size() && text[i] == '$') {
        ++i;
    }
    int number = 0;
    const size_t digits = i;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        number = number * 10 + (text[i] - '0');
        if (number > maxRows(FileKind::Xlsx)) {
            return false;
        }
    }
    if (i != text.size() || i == digits || number == 0) {
        return false;
    }
    *row = number - 1;
    *column = letters - 1;
    return true;
}

bool parseRange(std::string_view text, CellRange *range)
{
    const size_t colon = text.find(':');
    if (!parseCellReference(text.substr(0, colon), &range->rowFirst, &range->columnFirst)) {
        return false;
    }
    if (colon == std::string_view::npos) {
        range->rowLast = range->rowFirst;
        range->columnLast = range->columnFirst;
        return true;
    }
    if (!parseCellReference(text.substr(colon + 1), &range->rowLast, &range->columnLast)) {
        return false;
    }
    if (range->rowLast < range->rowFirst) {
        std::swap(range->rowFirst, range->rowLast);
    }
    if (range->columnLast < range->columnFirst) {
        std::swap(range->columnFirst, range->columnLast);
    }
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
