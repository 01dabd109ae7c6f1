#pragma once

#include <QPoint>
#include <QVector>

/// Arranges a flow in layers from left to right with few crossings. It knows cells of a grid only, no items.
namespace FlowLayout {

/// One item. Items are numbered in their present order from top to bottom, which decides wherever nothing else does.
struct Item
{
    QVector<int> inputs; ///< numbers of the items that feed it, in the order of its inputs
    // Cells beside it that must stay free, for its notes
    int left = 0;
    int right = 0;
    int above = 0;
    int below = 0;
};

/// The cell of each item, columns and rows from 0 on. Items of one flow stand in the column of their longest way from
/// an input; flows follow each other downwards, and single items come last, side by side. The inputs of each item keep
/// their order: the first is always above the second. The connections must make no circle.
QVector<QPoint> arrange(const QVector<Item> &items);

} // namespace FlowLayout
