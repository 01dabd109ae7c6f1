#pragma once

#include "outputs/cellrows.h"

#include <QStringList>

/// How the cells of a row nest in formats of named elements: each point in a column's name leads one level down. The
/// shape is the same for all rows, so it is laid out once from the names; goTo() then says which of its nodes a row
/// has.
///
/// For each column in turn, its name is followed part by part from the row's own node, by the first child of that
/// name where there is one. The last part always makes a new node, which holds the cell: columns of one name give
/// siblings, and `a` followed by `a.b` gives a node with a value and a child.
class OutputTree
{
public:
    struct Node
    {
        QString name;
        int valueColumn = -1; ///< the column whose cells are the node's values; -1 for none
        int column = -1;      ///< the last column whose name led through the node
        int depth = 0;
        int parent = -1;
        int end = 0; ///< the number behind those of its descendants
    };

    /// A file grows with the square of the levels, so nobody is to write names that nest deeper.
    static constexpr int maxLevels = 1000;
    /// The first name that nests deeper than that; null for none.
    static QString tooDeep(const QStringList &names);

    /// The dataset outlives the tree, unchanged. With `removeEmpty`, rows lack the nodes that have neither a value nor
    /// children left.
    OutputTree(const Dataset &dataset, bool removeEmpty);

    /// Parents before their children, siblings as they came to be; the row's own node, without a name, is the first.
    const std::vector<Node> &nodes() const { return m_nodes; }
    int rowCount() const { return m_cells.rowCount(); }
    /// Moves to a row; false when nothing is left of it.
    bool goTo(int row);

    // Of the present row
    /// False for nodes that the row lacks.
    bool has(int node) const { return m_states[static_cast<size_t>(node)] != 0; }
    /// True when the row has none of the node's children.
    bool isLeaf(int node) const { return !(m_states[static_cast<size_t>(node)] & HasChild); }
    /// Empty for a node without a column of its own.
    const Cell &value(int node) const;

private:
    enum State : uchar { HasValue = 1, HasChild = 2 };

    void assumeAll();

    CellRows m_cells;
    std::vector<Node> m_nodes;
    std::vector<uchar> m_states;
    bool m_removeEmpty;
    int m_row = 0;
};

/// The tree of a dataset's rows.
OutputTree buildOutputTree(const Dataset &dataset, bool removeEmpty);
