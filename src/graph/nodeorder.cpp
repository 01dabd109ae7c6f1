#include "graph/nodeorder.h"

#include "graph/node.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr double levelTolerance = 1.0;

using Coordinate = double (QPointF::*)() const;

std::tuple<double, double, int> key(const Node *node, Coordinate major, Coordinate minor)
{
    const QPointF point = node->pos();
    return {(point.*major)(), (point.*minor)(), node->id()};
}

void sortByPosition(QList<Node *> &nodes, Coordinate major, Coordinate minor)
{
    if (nodes.size() < 2) {
        return;
    }
    const auto less = [](Coordinate first, Coordinate second) {
        return [=](const Node *a, const Node *b) { return key(a, first, second) < key(b, first, second); };
    };
    std::sort(nodes.begin(), nodes.end(), less(major, minor));
    for (auto level = nodes.begin(); level != nodes.end();) {
        const double start = ((*level)->pos().*major)();
        const auto end = std::find_if(
            level, nodes.end(), [=](const Node *node) { return (node->pos().*major)() - start >= levelTolerance; });
        std::sort(level, end, less(minor, major));
        level = end;
    }
}

} // namespace

void NodeOrder::sortTopToBottom(QList<Node *> &nodes)
{
    sortByPosition(nodes, &QPointF::y, &QPointF::x);
}

void NodeOrder::sortLeftToRight(QList<Node *> &nodes)
{
    sortByPosition(nodes, &QPointF::x, &QPointF::y);
}

void NodeOrder::sortById(QList<Node *> &nodes)
{
    std::sort(nodes.begin(), nodes.end(), [](const Node *a, const Node *b) { return a->id() < b->id(); });
}
