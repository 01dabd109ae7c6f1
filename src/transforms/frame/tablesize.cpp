#include "transforms/frame/tablesize.h"

#include "data/cell.h"
#include "settings/settings.h"
#include "transforms/frame/messages.h"

#include <climits>

/// At eight bytes a cell.
static qint64 mostCells()
{
    constexpr double bytesPerGiB = 1024.0 * 1024.0 * 1024.0;
    return static_cast<qint64>(Settings::current().maxMemoryUsage() * bytesPerGiB / sizeof(Cell));
}
/// What a column takes besides its cells, in cells.
static constexpr qint64 columnOverhead = 64;

bool TableSize::isPossible(qint64 rows, qint64 columns)
{
    constexpr qint64 mostRows = INT_MAX / static_cast<int>(sizeof(Cell)); // of one column
    return rows <= mostRows && columns < INT_MAX && columns * (rows + columnOverhead) <= mostCells();
}

bool TableSize::isPossibleText(qint64 texts, qint64 bytes)
{
    return texts == 0 || (bytes < INT_MAX && bytes <= mostCells() * static_cast<qint64>(sizeof(Cell)) / texts);
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
