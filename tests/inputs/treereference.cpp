#include "inputs/treereference.h"

#include "data/controlspace.h"

QString ReferenceTable::cleaned(QString text) const
{
    if (m_options.trim) {
        text = text.trimmed();
    }
    if (m_options.simplify) {
        simplifyControlSpace(text);
    }
    return text;
}

void ReferenceTable::add(const ReferenceNode &record, bool topLevelObject)
{
    Rows rows{QStringList()};
    if (!topLevelObject) {
        flatten(record, {}, rows);
        store(rows);
        return;
    }
    QList<Rows> objects;
    bool hasOwnValues = false;
    for (const ReferenceNode &member : record.children) {
        if (member.kind == ReferenceNode::Object) {
            Rows own{QStringList()};
            set(QStringLiteral("_ObjectName_"), member.key, own);
            flattenChildren(member, {}, own);
            objects.append(own);
        } else {
            hasOwnValues = hasOwnValues || member.kind == ReferenceNode::Leaf || !member.children.isEmpty();
            flatten(member, {member.key}, rows);
        }
    }
    if (hasOwnValues || objects.isEmpty()) {
        store(rows);
    }
    for (const Rows &own : objects) {
        store(own);
    }
}

void ReferenceTable::flatten(const ReferenceNode &node, const QStringList &keys, Rows &rows)
{
    if (node.kind == ReferenceNode::Leaf) {
        QStringList parts = keys;
        parts.removeAll(QString());
        set(parts.join(QLatin1Char('.')), node.value, rows);
    } else if (node.kind == ReferenceNode::Array && m_longArrays && !node.children.isEmpty()) {
        const Rows before = rows;
        rows.clear();
        for (const ReferenceNode &child : node.children) {
            Rows copy = before;
            flatten(child, keys, copy);
            rows += copy;
        }
    } else {
        flattenChildren(node, keys, rows);
    }
}

void ReferenceTable::flattenChildren(const ReferenceNode &node, const QStringList &keys, Rows &rows)
{
    int position = 0;
    for (const ReferenceNode &child : node.children) {
        const QString key = node.kind == ReferenceNode::Array ? QString::number(position++) : child.key;
        flatten(child, keys + QStringList(key), rows);
    }
}

void ReferenceTable::set(const QString &name, const QString &value, Rows &rows)
{
    int column = m_header.indexOf(name);
    if (column < 0) {
        column = m_header.size();
        m_header.append(name);
    }
    for (QStringList &row : rows) {
        while (row.size() < m_header.size()) {
            row.append(QString());
        }
        row[column] = value;
    }
}

void ReferenceTable::store(const Rows &rows)
{
    for (const QStringList &row : rows) {
        if (m_options.ignoreEmptyRows && row.join(QString()).isEmpty()) {
            ++m_emptyRows;
        } else {
            m_rows.append(row);
        }
    }
}

QStringList ReferenceTable::rows() const
{
    QStringList lines;
    for (QStringList row : m_rows) {
        while (row.size() < m_header.size()) {
            row.append(QString());
        }
        if (!m_header.isEmpty()) {
            lines.append(row.join(QLatin1Char('|')));
        }
    }
    return lines;
}
