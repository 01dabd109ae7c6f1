#include "graph/flowlayers.h"

#include <QHash>

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

constexpr int sweeps = 8;
/// With more than these the connections get no ways of their own, so that a huge tangle is arranged quickly too.
constexpr int mostStandIns = 20000;

/// Where there are as many above as below there are two in the middle: an item takes the upper of its neighbours' rows,
/// so that it is level with one of them, and a block the lower of its wishes, so that its first item stays.
enum class MiddleOfTwo { Less, More };

int median(QVector<int> values, MiddleOfTwo which)
{
    const auto middle = values.begin() + (values.size() - (which == MiddleOfTwo::Less ? 1 : 0)) / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Counts the pairs that stand in the wrong order, while it sorts (merge sort).
qint64 inversions(QVector<int> &values, QVector<int> &scratch, int from, int to)
{
    if (to - from < 2) {
        return 0;
    }
    const int middle = (from + to) / 2;
    qint64 count = inversions(values, scratch, from, middle) + inversions(values, scratch, middle, to);
    for (int left = from, right = middle, out = from; out < to; ++out) {
        if (right == to || (left < middle && values[left] <= values[right])) {
            scratch[out] = values[left++];
        } else {
            count += middle - left;
            scratch[out] = values[right++];
        }
    }
    std::copy(scratch.begin() + from, scratch.begin() + to, values.begin() + from);
    return count;
}

/// Neighbouring slots that touch each other, and so move as one.
struct Block
{
    QVector<int> wishes; ///< rows of the block's first slot that its slots would like
    int row;
    int size;
};

} // namespace

FlowLayers::FlowLayers(const QVector<FlowLayout::Item> &items, const QVector<int> &members)
    : m_items(items)
    , m_slotOf(items.size(), -1)
{
    findLayers(members);
    addStandIns(members);
}

int FlowLayers::addSlot(int item, int layer, bool isStandIn)
{
    Slot slot;
    slot.item = item;
    slot.layer = layer;
    slot.isStandIn = isStandIn;
    m_slots.append(slot);
    if (m_layers.size() <= layer) {
        m_layers.resize(layer + 1);
    }
    m_layers[layer].append(m_slots.size() - 1);
    return m_slots.size() - 1;
}

void FlowLayers::findLayers(const QVector<int> &members)
{
    // Without recursion, since a flow may be as long as the document.
    QVector<int> layers(m_items.size(), -1);
    for (const int member : members) {
        QVector<int> stack{member};
        while (!stack.isEmpty()) {
            const int item = stack.last();
            int layer = 0;
            bool isReady = true;
            for (const int input : m_items[item].inputs) {
                if (layers[input] < 0) {
                    stack.append(input);
                    isReady = false;
                } else {
                    layer = std::max(layer, layers[input] + 1);
                }
            }
            if (isReady) {
                layers[item] = layer;
                stack.removeLast();
            }
        }
    }
    for (const int member : members) {
        m_slotOf[member] = addSlot(member, layers[member], false);
    }
}

void FlowLayers::addStandIns(const QVector<int> &members)
{
    qint64 count = 0;
    for (const int member : members) {
        for (const int input : m_items[member].inputs) {
            count += layerOf(member) - layerOf(input) - 1;
        }
    }
    for (const int member : members) {
        const int target = m_slotOf[member];
        QVector<int> chains; // for each input in turn, its slots from left to right
        for (const int input : m_items[member].inputs) {
            int from = m_slotOf[input];
            chains.append(from);
            const int end = count <= mostStandIns ? m_slots[target].layer : 0;
            for (int layer = m_slots[from].layer + 1; layer < end; ++layer) {
                const int standIn = addSlot(input, layer, true);
                m_slots[from].after.append(standIn);
                m_slots[standIn].before.append(from);
                from = standIn;
                chains.append(from);
            }
            m_slots[from].after.append(target);
            m_slots[target].before.append(from);
        }
        keepInputsInOrder(chains);
    }
}

void FlowLayers::keepInputsInOrder(const QVector<int> &chains)
{
    QHash<int, int> last; // slot by layer
    int lastInput = -1;
    for (const int slot : chains) {
        Slot &here = m_slots[slot];
        const auto above = last.constFind(here.layer);
        if (above != last.constEnd()) {
            here.under.append(*above);
        }
        last.insert(here.layer, slot);
        if (!here.isStandIn) {
            if (lastInput >= 0) {
                m_aboveBelow.append({lastInput, slot});
            }
            lastInput = slot;
        }
    }
}

void FlowLayers::number(const QVector<int> &layer)
{
    for (int place = 0; place < layer.size(); ++place) {
        m_slots[layer[place]].place = place;
    }
}

void FlowLayers::sortLayer(QVector<int> &layer, QVector<int> Slot::*neighbours)
{
    QVector<double> middles(m_slots.size());
    for (const int slot : qAsConst(layer)) {
        const QVector<int> &near = m_slots[slot].*neighbours;
        const double sum = std::accumulate(
            near.begin(), near.end(), 0.0, [this](double s, int other) { return s + m_slots[other].place; });
        middles[slot] = near.isEmpty() ? m_slots[slot].place : sum / near.size();
    }
    std::stable_sort(layer.begin(), layer.end(), [&](int a, int b) { return middles[a] < middles[b]; });
    // A slot that must stay under others waits for them.
    QVector<int> sorted;
    QVector<bool> isDone(m_slots.size(), false);
    while (sorted.size() < layer.size()) {
        const auto next = std::find_if(layer.begin(), layer.end(), [&](int slot) {
            const QVector<int> &under = m_slots[slot].under;
            return !isDone[slot] && std::all_of(under.begin(), under.end(), [&](int other) { return isDone[other]; });
        });
        if (next == layer.end()) {
            break; // the inputs of several items contradict each other in stand-ins; any order will do
        }
        isDone[*next] = true;
        sorted.append(*next);
    }
    std::copy_if(layer.begin(), layer.end(), std::back_inserter(sorted), [&](int slot) { return !isDone[slot]; });
    layer = sorted;
    number(layer);
}

int FlowLayers::crossings() const
{
    qint64 count = 0;
    for (const QVector<int> &layer : m_layers) {
        QVector<int> ends;
        for (const int slot : layer) {
            const int first = ends.size();
            for (const int next : m_slots[slot].after) {
                ends.append(m_slots[next].place);
            }
            std::sort(ends.begin() + first, ends.end());
        }
        QVector<int> scratch(ends.size());
        count += inversions(ends, scratch, 0, ends.size());
    }
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

void FlowLayers::order()
{
    orderAsNumbered();
    QVector<QVector<int>> best = m_layers;
    int fewest = crossings();
    for (int sweep = 0; sweep < sweeps && fewest > 0; ++sweep) {
        if (sweep % 2 == 0) {
            std::for_each(m_layers.begin(), m_layers.end(), [this](auto &layer) { sortLayer(layer, &Slot::before); });
        } else {
            std::for_each(m_layers.rbegin(), m_layers.rend(), [this](auto &layer) { sortLayer(layer, &Slot::after); });
        }
        const int count = crossings();
        if (count < fewest) {
            fewest = count;
            best = m_layers;
        }
    }
    m_layers = best;
    std::for_each(m_layers.cbegin(), m_layers.cend(), [this](const auto &layer) { number(layer); });
}

void FlowLayers::orderAsNumbered()
{
    for (QVector<int> &layer : m_layers) {
        std::stable_sort(
            layer.begin(), layer.end(), [this](int a, int b) { return m_slots[a].item < m_slots[b].item; });
        number(layer);
    }
}

int FlowLayers::distance(const Slot &upper, const Slot &lower) const
{
    const int notes = (upper.isStandIn ? 0 : m_items[upper.item].below)
                      + (lower.isStandIn ? 0 : m_items[lower.item].above);
    return 1 + notes;
}

void FlowLayers::alignLayer(const QVector<int> &layer, QVector<int> Slot::*neighbours)
{
    // Each slot wishes to be level with the middle of its neighbours. Where that would bring two too near or out of
    // order they become one block, which takes the middle of its wishes (isotonic regression by absolute distance).
    QVector<Block> blocks;
    QVector<int> offsets; // of each slot from the first of the layer, packed
    for (int i = 0; i < layer.size(); ++i) {
        const Slot &slot = m_slots[layer[i]];
        offsets.append(i == 0 ? 0 : offsets.last() + distance(m_slots[layer[i - 1]], slot));
        QVector<int> rows;
        for (const int other : slot.*neighbours) {
            rows.append(m_slots[other].row);
        }
        const int wish = (rows.isEmpty() ? slot.row : median(rows, MiddleOfTwo::Less)) - offsets.last();
        blocks.append({{wish}, wish, 1});
        while (blocks.size() > 1 && blocks[blocks.size() - 2].row > blocks.last().row) {
            const Block merged = blocks.takeLast();
            blocks.last().wishes += merged.wishes;
            blocks.last().row = median(blocks.last().wishes, MiddleOfTwo::More);
            blocks.last().size += merged.size;
        }
    }
    int i = 0;
    for (const Block &block : qAsConst(blocks)) {
        for (const int end = i + block.size; i < end; ++i) {
            m_slots[layer[i]].row = block.row + offsets[i];
        }
    }
}

bool FlowLayers::assignRows()
{
    for (const QVector<int> &layer : qAsConst(m_layers)) {
        for (int i = 0; i < layer.size(); ++i) {
            Slot &slot = m_slots[layer[i]];
            slot.row = i == 0 ? 0 : m_slots[layer[i - 1]].row + distance(m_slots[layer[i - 1]], slot);
        }
    }
    const auto align = [this](QVector<int> Slot::*neighbours) {
        return [=](const QVector<int> &layer) { alignLayer(layer, neighbours); };
    };
    std::for_each(m_layers.cbegin(), m_layers.cend(), align(&Slot::before));
    std::for_each(m_layers.crbegin(), m_layers.crend(), align(&Slot::after));
    std::for_each(m_layers.cbegin(), m_layers.cend(), align(&Slot::before));
    const bool isSettled = settle();
    moveToTop();
    return isSettled;
}

bool FlowLayers::settle()
{
    // Moves down what is too high until nothing is; with n slots in a consistent order that takes at most n rounds.
    bool changed = true;
    for (int round = 0; changed && round <= m_slots.size(); ++round) {
        changed = false;
        const auto lower = [&](Slot &slot, int least) {
            changed = changed || slot.row < least;
            slot.row = std::max(slot.row, least);
        };
        for (const QPair<int, int> &pair : qAsConst(m_aboveBelow)) {
            lower(m_slots[pair.second], m_slots[pair.first].row + 1);
        }
        for (const QVector<int> &layer : qAsConst(m_layers)) {
            for (int i = 1; i < layer.size(); ++i) {
                const Slot &upper = m_slots[layer[i - 1]];
                lower(m_slots[layer[i]], upper.row + distance(upper, m_slots[layer[i]]));
            }
        }
    }
    return !changed;
}

void FlowLayers::moveToTop()
{
    int top = std::numeric_limits<int>::max();
    int bottom = std::numeric_limits<int>::min();
    for (const Slot &slot : qAsConst(m_slots)) {
        top = std::min(top, slot.row - (slot.isStandIn ? 0 : m_items[slot.item].above));
        bottom = std::max(bottom, slot.row + (slot.isStandIn ? 0 : m_items[slot.item].below));
    }
    for (Slot &slot : m_slots) {
        slot.row -= top;
    }
    m_height = bottom - top + 1;
}
