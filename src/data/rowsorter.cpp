#include "data/rowsorter.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace {

constexpr int smallGroup = 16;          ///< up to so many rows are sorted by comparing pairs
constexpr size_t sortedByDigits = 4096; ///< from so many rows on digits are faster than comparisons

} // namespace

RowSorter::RowSorter(const std::vector<RowSortKey> &keys)
    : m_keys(keys)
    , m_rows(keys.empty() ? 0 : keys.front().size())
{
    std::iota(m_rows.begin(), m_rows.end(), 0);
}

QVector<int> RowSorter::sorted()
{
    const bool isOrder = std::all_of(
        m_keys.cbegin(), m_keys.cend(), [](const RowSortKey &key) { return key.isOrder(); });
    if (isOrder) {
        sortByParts();
    } else {
        sortByPairs();
    }
    return m_rows;
}

bool RowSorter::comesBefore(int a, int b, size_t firstKey) const
{
    for (size_t key = firstKey; key < m_keys.size(); ++key) {
        const int order = m_keys[key].compare(a, b);
        if (order != 0) {
            return order < 0;
        }
    }
    return false;
}

// Where the keys are orders, rows are sorted by one number after another: first all by the first number of the first
// key, then those that have it in common by the next, and so on.

void RowSorter::sortByParts()
{
    m_items.resize(static_cast<size_t>(m_rows.size()));
    m_otherItems.resize(m_items.size());
    m_groups.push_back({0, m_rows.size(), 0, 0});
    while (!m_groups.empty()) {
        const Group group = m_groups.back();
        m_groups.pop_back();
        if (group.end - group.begin <= smallGroup) {
            sortSmallGroup(group);
        } else {
            sortGroup(group);
        }
    }
}

void RowSorter::sortSmallGroup(const Group &group)
{
    int *rows = m_rows.data();
    for (int i = group.begin + 1; i < group.end; ++i) {
        const int row = rows[i];
        int at = i;
        for (; at > group.begin && comesBefore(row, rows[at - 1], group.key); --at) {
            rows[at] = rows[at - 1];
        }
        rows[at] = row;
    }
}

void RowSorter::sortGroup(const Group &group)
{
    const RowSortKey &key = m_keys[group.key];
    int *rows = m_rows.data() + group.begin;
    const auto count = static_cast<size_t>(group.end - group.begin);
    for (size_t i = 0; i < count; ++i) {
        m_items[i] = {key.partOf(rows[i], group.part), rows[i]};
    }
    sortItems(count);
    for (size_t i = 0; i < count; ++i) {
        rows[i] = m_items[i].row;
    }
    pushGroups(group);
}

void RowSorter::sortItems(size_t count)
{
    quint64 differing = 0;
    bool isSorted = true;
    for (size_t i = 1; i < count; ++i) {
        differing |= m_items[i].number ^ m_items[0].number;
        isSorted = isSorted && m_items[i - 1].number <= m_items[i].number;
    }
    if (isSorted) {
        return;
    }
    if (count >= sortedByDigits) {
        sortItemsByDigits(count, differing);
        return;
    }
    // Rows of a group are in ascending order, so their numbers keep those with equal keys in place.
    std::sort(m_items.begin(), m_items.begin() + static_cast<qptrdiff>(count),
        [](const Item &a, const Item &b) { return a.number != b.number ? a.number < b.number : a.row < b.row; });
}

/// Radix sort from the last digit to the first, without the digits that all items have in common.
void RowSorter::sortItemsByDigits(size_t count, quint64 differing)
{
    constexpr int digitBits = 11;
    constexpr quint64 digitMask = (1U << digitBits) - 1;
    for (int shift = 0; shift < 64; shift += digitBits) {
        if ((differing >> shift & digitMask) == 0) {
            continue;
        }
        std::array<quint32, digitMask + 1> starts{};
        for (size_t i = 0; i < count; ++i) {
            ++starts[m_items[i].number >> shift & digitMask];
        }
        quint32 start = 0;
        for (quint32 &entry : starts) {
            const quint32 items = entry;
            entry = start;
            start += items;
        }
        for (size_t i = 0; i < count; ++i) {
            m_otherItems[starts[m_items[i].number >> shift & digitMask]++] = m_items[i];
        }
        m_items.swap(m_otherItems);
    }
}

/// Finds the rows of a sorted group that still have to be told apart; m_items are those of the group.
void RowSorter::pushGroups(const Group &group)
{
    const RowSortKey &key = m_keys[group.key];
    const int count = group.end - group.begin;
    for (int begin = 0; begin < count;) {
        const quint64 number = m_items[static_cast<size_t>(begin)].number;
        int end = begin + 1;
        while (end < count && m_items[static_cast<size_t>(end)].number == number) {
            ++end;
        }
        const bool continues = key.continues(number, group.part);
        if (end - begin > 1 && (continues || group.key + 1 < m_keys.size())) {
            m_groups.push_back({group.begin + begin, group.begin + end, continues ? group.key : group.key + 1,
                continues ? group.part + 1 : 0});
        }
        begin = end;
    }
}

// A merge sort needs nothing of the order: every row is placed once in each round.
void RowSorter::sortByPairs()
{
    const int count = m_rows.size();
    QVector<int> merged(count);
    for (qint64 width = 1; width < count; width *= 2) {
        const int *from = m_rows.constData();
        int *to = merged.data();
        for (qint64 begin = 0; begin < count; begin += 2 * width) {
            const int *left = from + begin;
            const int *const middle = from + std::min<qint64>(begin + width, count);
            const int *const end = from + std::min<qint64>(begin + 2 * width, count);
            const int *right = middle;
            while (left < middle && right < end) {
                *to++ = comesBefore(*right, *left, 0) ? *right++ : *left++;
            }
            to = std::copy(left, middle, to);
            to = std::copy(right, end, to);
        }
        m_rows.swap(merged);
    }
}
