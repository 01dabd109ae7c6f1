#include "graph/connectionlayout.h"

#include "graph/connection.h"
#include "graph/node.h"

#include <QSet>
#include <algorithm>
#include <tuple>

namespace {

/// Orders the ends at one edge by the height of the boxes that they lead to, so that lines don't cross there.
void spread(const Node *node, Direction side)
{
    const Direction other = side == Direction::Outgoing ? Direction::Incoming : Direction::Outgoing;
    QList<Connection *> ends = node->connections(side);
    const auto key = [=](const Connection *connection) {
        const Node *far = connection->otherEnd(other);
        return far ? std::make_tuple(far->y(), far->x(), far->id()) : std::make_tuple(0.0, 0.0, 0);
    };
    std::sort(ends.begin(), ends.end(), [=](const Connection *a, const Connection *b) { return key(a) < key(b); });
    for (int i = 0; i < ends.size(); ++i) {
        const double offset = (i + 1.0) / (ends.size() + 1.0);
        if (side == Direction::Outgoing) {
            ends.at(i)->setFromOffset(offset);
        } else {
            ends.at(i)->setToOffset(offset);
        }
    }
}

} // namespace

void ConnectionLayout::layOut(const QList<Node *> &nodes)
{
    QSet<Node *> outSides;
    QSet<Node *> inSides;
    for (Node *node : nodes) {
        outSides.insert(node);
        inSides.insert(node);
        for (Node *source : node->upstreamNodes(false)) {
            outSides.insert(source);
        }
        for (Node *target : node->downstreamNodes(false)) {
            inSides.insert(target);
        }
    }
    QSet<Connection *> affected;
    const auto spreadSide = [&](const QSet<Node *> &sides, Direction side) {
        for (const Node *node : sides) {
            spread(node, side);
            for (Connection *connection : node->connections(side)) {
                affected.insert(connection);
            }
        }
    };
    spreadSide(outSides, Direction::Outgoing);
    spreadSide(inSides, Direction::Incoming);
    for (Connection *connection : qAsConst(affected)) {
        connection->setRoute(connection->route());
    }
}
