#include "panes/widgets/columnchecksmodel.h"

ColumnChecksModel::ColumnChecksModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

void ColumnChecksModel::setColumns(const ColumnList &columns)
{
    if (columns != m_columns) {
        beginResetModel();
        m_columns = columns;
        endResetModel();
    }
}

void ColumnChecksModel::setChecked(const QList<ColumnId> &ids)
{
    m_checked = QSet<ColumnId>(ids.cbegin(), ids.cend());
    tellAllChanged();
}

QList<ColumnId> ColumnChecksModel::checkedInOrder() const
{
    QList<ColumnId> ids;
    for (const ColumnId id : m_columns.ids) {
        if (m_checked.contains(id)) {
            ids.append(id);
        }
    }
    return ids;
}

void ColumnChecksModel::tellAllChanged()
{
    if (rowCount() > 0) {
        emit dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
    }
}

void ColumnChecksModel::check(const QVector<int> &rows, bool on)
{
    for (const int row : rows) {
        const ColumnId id = m_columns.ids.value(row);
        on ? static_cast<void>(m_checked.insert(id)) : static_cast<void>(m_checked.remove(id));
    }
    tellAllChanged();
    emit edited();
}

void ColumnChecksModel::invert(const QVector<int> &rows)
{
    for (const int row : rows) {
        const ColumnId id = m_columns.ids.value(row);
        if (!m_checked.remove(id)) {
            m_checked.insert(id);
        }
    }
    tellAllChanged();
    emit edited();
}

int ColumnChecksModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns.size();
}

QVariant ColumnChecksModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return m_columns.names.value(index.row());
    case Qt::CheckStateRole:
        return m_checked.contains(m_columns.ids.value(index.row())) ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool ColumnChecksModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !index.isValid()) {
        return false;
    }
    check({index.row()}, value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags ColumnChecksModel::flags(const QModelIndex &) const
{
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable;
}
