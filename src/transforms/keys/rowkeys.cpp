#include "transforms/keys/rowkeys.h"

#include "data/rowsorter.h"
#include "transforms/keys/keyindex.h"

static QVector<CellColumn> columnsOf(const Dataset &dataset, const QVector<ColumnIndex> &columns)
{
    QVector<CellColumn> result;
    for (ColumnIndex column : columns) {
        result.append(dataset.column(column));
    }
    return result;
}

static QVector<CellColumn> folded(const QVector<CellColumn> &columns, bool caseSensitive)
{
    QVector<CellColumn> result;
    for (const CellColumn &column : columns) {
        result.append(keyColumn(column, caseSensitive));
    }
    return result;
}

std::vector<const Cell *> RowKeys::cellsOf(const QVector<CellColumn> &columns)
{
    std::vector<const Cell *> cells;
    for (const CellColumn &column : columns) {
        cells.push_back(column.cells.constData());
    }
    return cells;
}

RowKeys::RowKeys(const Dataset &dataset, const QVector<ColumnIndex> &columns, bool caseSensitive)
    : m_columns(columnsOf(dataset, columns))
    , m_keys(folded(m_columns, caseSensitive))
    , m_index(cellsOf(m_keys))
    , m_numbers(static_cast<size_t>(dataset.rowCount()), -1)
{
}

void RowKeys::sortByText()
{
    if (m_columns.isEmpty()) {
        return;
    }
    QVector<int> firstRows(count());
    for (int key = 0; key < count(); ++key) {
        firstRows[key] = m_index.firstRow(key);
    }
    std::vector<RowSortKey> sortKeys;
    for (const CellColumn &column : qAsConst(m_columns)) {
        sortKeys.emplace_back(column.gathered(firstRows), RowSortKey::Text, QString(), RowSortKey::TextRules(), false);
    }
    const QVector<int> order = RowSorter(sortKeys).sorted();
    std::vector<int> rankOf(static_cast<size_t>(count()));
    m_ranked.resize(count());
    for (int rank = 0; rank < count(); ++rank) {
        rankOf[static_cast<size_t>(order.at(rank))] = rank;
        m_ranked[rank] = firstRows.at(order.at(rank));
    }
    for (int &number : m_numbers) {
        if (number >= 0) {
            number = rankOf[static_cast<size_t>(number)];
        }
    }
}
