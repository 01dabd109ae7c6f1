#include "data/dataset.h"
#include "data/variabletemplate.h"

void Dataset::setHeader(const QStringList &names)
{
    m_header = names;
    m_hasHeader = !names.isEmpty();
}

void Dataset::setHeaderValue(ColumnIndex column, const QString &name)
{
    if (m_header.isEmpty()) {
        m_header = columnNames();
    }
    if (column.isValid() && column.toInt() < m_header.size()) {
        m_header[column.toInt()] = name;
    }
    m_hasHeader = true;
}

void Dataset::setHasHeader(bool on)
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

QString Dataset::columnName(ColumnIndex column) const
{
    const int at = column.toInt();
    if (m_hasHeader && at >= 0 && at < m_header.size() && !m_header.at(at).isEmpty()) {
        return m_header.at(at);
    }
    return QString::number(at + 1);
}

QStringList Dataset::columnNames() const
{
    QStringList names;
    names.reserve(columnCount());
    for (int i = 0; i < columnCount(); ++i) {
        names.append(columnName(ColumnIndex(i)));
    }
    return names;
}

ColumnIndex Dataset::columnIndexOfName(const QString &name) const
{
    for (int i = 0; i < columnCount(); ++i) {
        if (columnName(ColumnIndex(i)) == name) {
            return ColumnIndex(i);
        }
    }
    return ColumnIndex();
}

// Variables

QHash<QString, ColumnIndex> Dataset::columnVariables() const
{
    QHash<QString, ColumnIndex> variables;
    const auto addNew = [&](const QString &key, int column) {
        if (!variables.contains(key)) {
            variables.insert(key, ColumnIndex(column));
        }
    };
    for (int i = 0; i < columnCount(); ++i) {
        addNew(columnName(ColumnIndex(i)).trimmed(), i);
    }
    for (int i = 0; i < columnCount(); ++i) {
        addNew(QString::number(i + 1), i);
    }
    return variables;
}

QString Dataset::substituteVariables(
    const QHash<QString, ColumnIndex> &variables, RowIndex row, const QString &text) const
{
    return text.contains(QLatin1String("$(")) ? VariableTemplate(variables, columnCount(), text).text(*this, row)
                                              : text;
}

QString Dataset::variableForColumn(ColumnIndex column) const
{
    return QLatin1String("$(") + QString::number(toNumber(column).toInt()) + QLatin1Char(')');
}

QString Dataset::variableForName(const QString &name) const
{
    return QLatin1String("$(") + name.trimmed() + QLatin1Char(')');
}
