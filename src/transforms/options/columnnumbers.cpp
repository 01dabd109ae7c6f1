#include "transforms/options/columnnumbers.h"

#include "data/dataset.h"
#include "data/datasource.h"

// No table has columns of this node.
static constexpr int unknownNode = -1;

ColumnIndex ColumnNumbers::indexOf(ColumnId id) const
{
    return m_source && !id.isNull() ? m_source->datasetConst().columnIndexOfId(id) : ColumnIndex();
}

bool ColumnNumbers::hasGone(ColumnId id) const
{
    return !id.isNull() && !indexOf(id).isValid();
}

int ColumnNumbers::numberOf(ColumnId id) const
{
    if (id.nodeId() == unknownNode) {
        return id.serial();
    }
    const ColumnIndex column = indexOf(id);
    return column.isValid() ? toNumber(column).toInt() : -1;
}

ColumnId ColumnNumbers::idOf(int number) const
{
    if (number > 0 && m_source && number <= m_source->datasetConst().columnCount()) {
        return m_source->datasetConst().columnId(ColumnIndex(number - 1));
    }
    return ColumnId(unknownNode, qMax(-1, number));
}

QList<ColumnId> ColumnNumbers::ids() const
{
    return m_source ? m_source->datasetConst().columnIds() : QList<ColumnId>();
}
