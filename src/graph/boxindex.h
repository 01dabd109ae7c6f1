#pragma once

#include <QHash>
#include <QPair>
#include <QRectF>
#include <QVector>

class Node;

/// Finds the boxes of nodes by place, by a grid of cells; cheap to keep while boxes move. Notes are none.
class BoxIndex
{
public:
    /// Enters the node, or moves it to where it stands now.
    void put(const Node *node);
    /// Does nothing for one that isn't entered.
    void remove(const Node *node);
    /// The boxes, in scene coordinates, that meet `area`, without those of two nodes.
    QVector<QRectF> boxesIn(const QRectF &area, const Node *notThis, const Node *notThat) const;

private:
    struct Entry
    {
        const Node *node;
        QRectF box;
    };
    using Place = QPair<int, int>; // column and row of the grid
    using Cell = QVector<Entry>;

    QHash<Place, Cell> m_cells; // by where a box's top left corner lies
    QHash<const Node *, Place> m_placeOfNode;
};
