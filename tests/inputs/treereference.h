#pragma once

#include "inputs/treeread.h"

#include <QList>
#include <QStringList>

/// The tree of one record, made without thought of speed.
struct ReferenceNode
{
    enum Kind { Leaf, Object, Array };

    QString key;
    QString value;
    Kind kind = Leaf;
    QList<ReferenceNode> children;
};

/// Rows and header by the plainest reading of the rules, to compare the readers with.
class ReferenceTable
{
public:
    ReferenceTable(const TreeReadOptions &options, bool longArrays)
        : m_options(options)
        , m_longArrays(longArrays)
    {
    }

    /// `text` as the options have keys and values.
    QString cleaned(QString text) const;
    /// Adds the rows of a record; the members of a top-level object may be records too.
    void add(const ReferenceNode &record, bool topLevelObject);

    const QStringList &header() const { return m_header; }
    /// All of the header's width, '|' between cells.
    QStringList rows() const;
    qint64 emptyRows() const { return m_emptyRows; }

private:
    using Rows = QList<QStringList>;
    void flatten(const ReferenceNode &node, const QStringList &keys, Rows &rows);
    void flattenChildren(const ReferenceNode &node, const QStringList &keys, Rows &rows);
    void set(const QString &name, const QString &value, Rows &rows);
    void store(const Rows &rows);

    const TreeReadOptions m_options;
    const bool m_longArrays;
    QStringList m_header;
    Rows m_rows;
    qint64 m_emptyRows = 0;
};
