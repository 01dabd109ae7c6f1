#include "graph/flowlayout.h"

#include "graph/flowlayers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int fewestSinglesInARow = 4;

/// Numbers of items that hang together, each group in their order, and the groups in that of their first items.
QVector<QVector<int>> flowsOf(const QVector<FlowLayout::Item> &items)
{
    QVector<QVector<int>> neighbours(items.size());
    for (int i = 0; i < items.size(); ++i) {
        for (const int input : items[i].inputs) {
            neighbours[i].append(input);
            neighbours[input].append(i);
        }
    }
    QVector<QVector<int>> flows;
    QVector<bool> isSeen(items.size(), false);
    for (int start = 0; start < items.size(); ++start) {
        if (isSeen[start]) {
            continue;
        }
        QVector<int> flow{start};
        isSeen[start] = true;
        for (int next = 0; next < flow.size(); ++next) {
            for (const int neighbour : qAsConst(neighbours[flow[next]])) {
                if (!isSeen[neighbour]) {
                    isSeen[neighbour] = true;
                    flow.append(neighbour);
                }
            }
        }
        std::sort(flow.begin(), flow.end());
        flows.append(flow);
    }
    return flows;
}

/// Arranges one flow below `row`; gives the first row under it.
int arrangeFlow(const QVector<FlowLayout::Item> &items, const QVector<int> &flow, int row, QVector<QPoint> &cells)
{
    FlowLayers layers(items, flow);
    layers.order();
    if (!layers.assignRows()) {
        layers.orderAsNumbered();
        layers.assignRows();
    }
    for (const int item : flow) {
        cells[item] = QPoint(layers.layerOf(item), row + layers.rowOf(item));
    }
    return row + layers.height();
}

void arrangeSingles(
    const QVector<FlowLayout::Item> &items, const QVector<int> &singles, int row, QVector<QPoint> &cells)
{
    const int across = std::max(
        fewestSinglesInARow, static_cast<int>(std::ceil(std::sqrt(static_cast<double>(singles.size())))));
    for (int first = 0; first < singles.size(); first += across) {
        const QVector<int> line = singles.mid(first, across);
        int above = 0;
        int below = 0;
        for (const int item : line) {
            above = std::max(above, items[item].above);
            below = std::max(below, items[item].below);
        }
        row += above;
        for (int column = 0; column < line.size(); ++column) {
            cells[line[column]] = QPoint(column, row);
        }
        row += below + 1;
    }
}

/// Parts the columns where notes stand beside items.
void makeRoomBetweenColumns(const QVector<FlowLayout::Item> &items, QVector<QPoint> &cells)
{
    QVector<int> left;
    QVector<int> right;
    for (int i = 0; i < items.size(); ++i) {
        const int column = cells[i].x();
        left.resize(std::max(left.size(), column + 1));
        right.resize(left.size());
        left[column] = std::max(left[column], items[i].left);
        right[column] = std::max(right[column], items[i].right);
    }
    QVector<int> places;
    for (int column = 0; column < left.size(); ++column) {
        places.append(left[column] + (column == 0 ? 0 : places.last() + right[column - 1] + 1));
    }
    for (QPoint &cell : cells) {
        cell.setX(places[cell.x()]);
    }
}

} // namespace

QVector<QPoint> FlowLayout::arrange(const QVector<Item> &items)
{
    QVector<QPoint> cells(items.size());
    QVector<int> singles;
    int row = 0;
    for (const QVector<int> &flow : flowsOf(items)) {
        if (flow.size() == 1) {
            singles += flow;
        } else {
            row = arrangeFlow(items, flow, row, cells);
        }
    }
    arrangeSingles(items, singles, row, cells);
    makeRoomBetweenColumns(items, cells);
    return cells;
}
