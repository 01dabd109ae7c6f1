#pragma once

#include "graph/flowlayout.h"

/// The layers of one flow while it is arranged: its items, and a stand-in for each connection in every layer that the
/// connection passes, so that it has a way of its own.
class FlowLayers
{
public:
    /// `members` are numbers of `items` that hang together.
    FlowLayers(const QVector<FlowLayout::Item> &items, const QVector<int> &members);

    /// Orders each layer so that few connections cross.
    void order();
    /// Gives each member a row; false when the order of the layers contradicts that of somebody's inputs.
    bool assignRows();
    /// Orders each layer as the items were numbered, which contradicts nothing.
    void orderAsNumbered();

    int layerOf(int item) const { return m_slots[m_slotOf[item]].layer; }
    int rowOf(int item) const { return m_slots[m_slotOf[item]].row; }
    /// Rows that the flow takes.
    int height() const { return m_height; }

private:
    struct Slot
    {
        int item = -1; ///< a stand-in has that of the item that its connection comes from
        bool isStandIn = false;
        int layer = 0;
        int place = 0; ///< in its layer
        int row = 0;
        QVector<int> before; ///< slots of the layer to the left that lead here
        QVector<int> after;
        QVector<int> under; ///< slots of this layer that must stay above
    };

    void findLayers(const QVector<int> &members);
    void addStandIns(const QVector<int> &members);
    void keepInputsInOrder(const QVector<int> &chains);
    int addSlot(int item, int layer, bool isStandIn);
    void sortLayer(QVector<int> &layer, QVector<int> Slot::*neighbours);
    void number(const QVector<int> &layer);
    int crossings() const;
    void alignLayer(const QVector<int> &layer, QVector<int> Slot::*neighbours);
    int distance(const Slot &upper, const Slot &lower) const;
    bool settle();
    void moveToTop();

    const QVector<FlowLayout::Item> &m_items;
    QVector<Slot> m_slots;
    QVector<int> m_slotOf; ///< by item
    QVector<QVector<int>> m_layers;
    QVector<QPair<int, int>> m_aboveBelow; ///< slots of inputs of one item, the first of which must be higher
    int m_height = 0;
};
