#include "transforms/tablesize.h"

#include "transforms/messages.h"

#include <climits>

/// At eight bytes a cell.
static constexpr qint64 mostCells = 1LL << 31;
/// What a column takes besides its cells, in cells.
static constexpr qint64 columnOverhead = 64;

bool TableSize::isPossible(qint64 rows, qint64 columns)
{
    return rows < INT_MAX && columns < INT_MAX && columns * (rows + columnOverhead) <= mostCells;
}

QString TableSize::resultText()
{
    return QStringLiteral("Too many cells");
}

QString TableSize::warning(qint64 rows, qint64 columns)
{
    return QStringLiteral("Too many cells (%1 %2 x %3 %4)")
        .arg(Messages::count(columns), Messages::cols(columns), Messages::count(rows), Messages::rows(rows));
}
