#include "data/columntable.h"

void ColumnTable::setHeader(const QStringList &names)
{
    m_header = names;
    m_hasHeader = !names.isEmpty();
}

void ColumnTable::setHeaderValue(ColumnIndex column, const QString &name)
{
    if (m_header.isEmpty()) {
        m_header = columnNames();
    }
    if (column.isValid() && column.toInt() < m_header.size()) {
        m_header[column.toInt()] = name;
    }
    m_hasHeader = true;
}

void ColumnTable::setHasHeader(bool on)
{
    if (on == m_hasHeader) {
        return;
    }
    m_hasHeader = on;
    if (!on) {
        if (!m_header.isEmpty()) {
            prependRow(m_header);
            m_header.clear();
        }
    } else if (hasRows()) {
        m_header = row(RowIndex(0));
        removeRow(RowIndex(0));
    }
}

QString ColumnTable::columnName(ColumnIndex column) const
{
    const int at = column.toInt();
    if (m_hasHeader && at >= 0 && at < m_header.size() && !m_header.at(at).isEmpty()) {
        return m_header.at(at);
    }
    return QString::number(at + 1);
}

QStringList ColumnTable::columnNames() const
{
    QStringList names;
    names.reserve(columnCount());
    for (int i = 0; i < columnCount(); ++i) {
        names.append(columnName(ColumnIndex(i)));
    }
    return names;
}

ColumnIndex ColumnTable::columnIndexOfName(const QString &name) const
{
    for (int i = 0; i < columnCount(); ++i) {
        if (columnName(ColumnIndex(i)) == name) {
            return ColumnIndex(i);
        }
    }
    return ColumnIndex();
}
