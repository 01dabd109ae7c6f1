#include "support/fakesource.h"

FakeSource::FakeSource(const Dataset &dataset, int id)
    : m_dataset(dataset)
    , m_id(id)
{
    m_dataset.assignColumnIds(id);
}

QString FakeSource::columnsDescription(const QList<ColumnId> &ids, int maxNames) const
{
    QStringList names;
    for (ColumnId columnId : ids) {
        if (names.size() == maxNames) {
            names.append(QStringLiteral("..."));
            break;
        }
        const ColumnIndex column = m_dataset.columnIndexOfId(columnId);
        if (column.isValid()) {
            names.append(m_dataset.columnName(column));
        }
    }
    return names.join(QStringLiteral(", "));
}
