#include "graph/boxindex.h"

#include "graph/node.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double cellWidth = 2 * NodeBox::boxWidth;
constexpr double cellHeight = 4 * NodeBox::boxHeight;
constexpr double mostCells = 1e6; // keeps numbers of cells far from the limits of int

QPair<int, int> cellAt(const QPointF &place)
{
    const auto number = [](double position, double size) {
        return static_cast<int>(std::clamp(std::floor(position / size), -mostCells, mostCells));
    };
    return {number(place.x(), cellWidth), number(place.y(), cellHeight)};
}

} // namespace

void BoxIndex::put(const Node *node)
{
    if (node->type() == ItemType::Note) {
        return; // notes lie loosely among the items
    }
    remove(node);
    const QRectF box = node->mapRectToScene(node->boxRect());
    const Place place = cellAt(box.topLeft());
    m_cells[place].append({node, box});
    m_placeOfNode.insert(node, place);
}

void BoxIndex::remove(const Node *node)
{
    const auto place = m_placeOfNode.find(node);
    if (place == m_placeOfNode.end()) {
        return;
    }
    Cell &cell = m_cells[*place];
    cell.erase(std::find_if(cell.begin(), cell.end(), [=](const Entry &entry) { return entry.node == node; }));
    if (cell.isEmpty()) {
        m_cells.remove(*place);
    }
    m_placeOfNode.erase(place);
}

QVector<QRectF> BoxIndex::boxesIn(const QRectF &area, const Node *notThis, const Node *notThat) const
{
    QVector<QRectF> boxes;
    const auto take = [&](const Cell &cell) {
        for (const Entry &entry : cell) {
            if (entry.node != notThis && entry.node != notThat && entry.box.intersects(area)) {
                boxes.append(entry.box);
            }
        }
    };
    // A box that begins left of or above the area may reach into it.
    const Place first = cellAt(area.topLeft() - QPointF(NodeBox::boxWidth, NodeBox::boxHeight));
    const Place last = cellAt(area.bottomRight());
    const double cells = (last.first - first.first + 1.0) * (last.second - first.second + 1.0);
    if (cells > m_cells.size()) {
        for (auto cell = m_cells.cbegin(); cell != m_cells.cend(); ++cell) {
            take(*cell);
        }
        return boxes;
    }
    for (int y = first.second; y <= last.second; ++y) {
        for (int x = first.first; x <= last.first; ++x) {
            const auto cell = m_cells.constFind(qMakePair(x, y));
            if (cell != m_cells.cend()) {
                take(*cell);
            }
        }
    }
    return boxes;
}
