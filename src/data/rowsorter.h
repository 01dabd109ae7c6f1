#pragma once

#include "data/rowsortkey.h"

#include <QVector>

/// Sorts row numbers by keys, the first key first; rows that are the same by all keys stay in their order.
class RowSorter
{
public:
    /// The keys, all of the same number of rows, outlive the sorter.
    explicit RowSorter(const std::vector<RowSortKey> &keys);

    /// The rows in their new order. Ends with all rows in it even where the order of pairs has cycles.
    QVector<int> sorted();

private:
    struct Item
    {
        quint64 number;
        int row;
    };
    /// Rows that are the same by all keys before `key` and in the parts of its texts before `part`.
    struct Group
    {
        int begin;
        int end;
        size_t key;
        RowSortKey::Part part;
    };
    bool comesBefore(int a, int b, size_t firstKey) const;
    void sortByParts();
    void sortGroup(const Group &group);
    void sortSmallGroup(const Group &group);
    void sortItems(size_t count);
    void sortItemsByDigits(size_t count, quint64 differing);
    void pushGroups(const Group &group);
    void sortByPairs();

    const std::vector<RowSortKey> &m_keys;
    QVector<int> m_rows;
    std::vector<Group> m_groups; ///< still to be sorted
    std::vector<Item> m_items;
    std::vector<Item> m_otherItems;
};
