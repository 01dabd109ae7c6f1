#pragma once

#include <QHash>
#include <QList>
#include <QPointF>

class GraphScene;
class Node;

/// Copies of items, connected as the originals are among each other, with options that look at the copies. They have
/// no data and need processing.
class NodeCopies
{
public:
    enum class Ids {
        Kept, ///< for another scene of the same document
        New   ///< for the scene of the originals; columns are found anew by their places
    };

    NodeCopies(const QList<Node *> &originals, Ids ids);
    Q_DISABLE_COPY(NodeCopies)

    /// Puts the copies into `scene`, each `offset` away from its original, and connects them.
    void insertInto(GraphScene &scene, const QPointF &offset);
    /// The copy of an item, null for one that isn't among the originals.
    Node *of(const Node *original) const { return m_copies.value(original); }
    /// In the order of the originals.
    QList<Node *> all() const;
    /// Binds column options to the copies of what the originals are bound to. An item outside of the originals stays
    /// bound where it is connected to the copy as well, else the option lets go of it.
    void bindOptions();

private:
    const QList<Node *> m_originals;
    const Ids m_ids;
    QHash<const Node *, Node *> m_copies;
};
