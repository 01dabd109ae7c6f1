#include "graph/nodecopies.h"

#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/transformnode.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

NodeCopies::NodeCopies(const QList<Node *> &originals, Ids ids)
    : m_originals(originals)
    , m_ids(ids)
{
    for (const Node *original : originals) {
        Node *copy = original->clone();
        if (ids == Ids::New) {
            copy->setId(-1);
            copy->takeColumnsAsText(*original);
        }
        m_copies.insert(original, copy);
    }
}

QList<Node *> NodeCopies::all() const
{
    QList<Node *> copies;
    for (const Node *original : m_originals) {
        copies.append(of(original));
    }
    return copies;
}

void NodeCopies::insertInto(GraphScene &scene, const QPointF &offset)
{
    for (const Node *original : m_originals) {
        scene.insertNode(of(original), original->pos() + offset);
    }
    for (const Node *original : m_originals) {
        for (const Connection *connection : original->connections(Direction::Outgoing)) {
            if (Node *target = of(connection->to())) {
                scene.insertConnection(of(original), target);
            }
        }
    }
}

void NodeCopies::bindOptions()
{
    for (const Node *original : m_originals) {
        const auto *copy = qobject_cast<const TransformNode *>(of(original));
        if (!copy) {
            continue;
        }
        const QList<Node *> upstream = copy->upstreamNodes(false);
        for (Parameter *parameter : copy->transform()->parameters()) {
            auto *bound = static_cast<Node *>(parameter->node());
            Node *source = of(bound);
            if (source) {
                parameter->setNode(source);
            } else if (bound && !upstream.contains(bound)) {
                parameter->clearNode();
            }
        }
    }
}
