#include "transforms/keys/rowkeys.h"

#include "support/grid.h"
#include "support/randomtext.h"
#include "transforms/keys/rowgroups.h"

#include <QMap>
#include <gtest/gtest.h>
#include <numeric>

namespace {

std::vector<int> addAll(RowKeys &keys, const Dataset &dataset)
{
    for (int row = 0; row < dataset.rowCount(); ++row) {
        keys.add(row);
    }
    return keys.numbers();
}

std::vector<int> listed(const RowGroups::Rows &rows)
{
    return {rows.begin(), rows.end()};
}

/// The order of keys as lists of texts.
bool comesBefore(const QStringList &a, const QStringList &b)
{
    return std::lexicographical_compare(a.cbegin(), a.cend(), b.cbegin(), b.cend());
}

} // namespace

TEST(RowKeys, NumbersKeysAsTheyCome)
{
    const Dataset dataset = grid({"a|b", "x|yz", "xy|z", "|", "x|yz", "X|yz", "|"});
    const ColumnIndex a(0);
    const ColumnIndex b(1);
    const struct
    {
        const char *what;
        QVector<ColumnIndex> columns;
        bool caseSensitive;
        std::vector<int> numbers;
    } cases[] = {
        {"the texts aren't joined, empty ones are keys", {a, b}, true, {0, 1, 2, 0, 3, 2}},
        {"without regard to case", {a, b}, false, {0, 1, 2, 0, 0, 2}},
        {"one column", {b}, true, {0, 1, 2, 0, 0, 2}},
        {"a column twice", {a, a}, true, {0, 1, 2, 0, 3, 2}},
        {"no column", {}, true, {0, 0, 0, 0, 0, 0}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        RowKeys keys(dataset, c.columns, c.caseSensitive);
        EXPECT_EQ(addAll(keys, dataset), c.numbers);
        EXPECT_EQ(keys.count(), *std::max_element(c.numbers.cbegin(), c.numbers.cend()) + 1);
        EXPECT_EQ(keys.firstRow(0), 0);
    }
}

TEST(RowKeys, LeavesRowsOut)
{
    const Dataset dataset = column({"a", "b", "a", "c"});
    RowKeys keys(dataset, {ColumnIndex(0)});
    keys.add(3);
    keys.add(2);
    EXPECT_EQ(keys.numbers(), (std::vector<int>{-1, -1, 1, 0}));
    keys.sortByText();
    EXPECT_EQ(keys.numbers(), (std::vector<int>{-1, -1, 0, 1}));
    EXPECT_EQ(keys.firstRow(0), 2);
    RowKeys none(dataset, {});
    none.sortByText();
    EXPECT_EQ(none.count(), 0);
}

TEST(RowKeys, SortsByTheTextsOfTheFirstRows)
{
    const Dataset dataset = column({"b", "B", "a", "A", "C", "c"});
    RowKeys keys(dataset, {ColumnIndex(0)}, false);
    addAll(keys, dataset);
    keys.sortByText();
    EXPECT_EQ(keys.numbers(), (std::vector<int>{2, 2, 1, 1, 0, 0})) << "C, a, b";
}

TEST(RowKeys, SortsAsListsOfTextsAreSorted)
{
    RandomText random(11);
    Dataset dataset = grid({"a|b|c"});
    for (int row = 0; row < 3000; ++row) {
        dataset.appendRow(
            {random.text(3), random.text(9), random.chance(50) ? "same beginning " + random.text(2) : ""});
    }
    RowKeys keys(dataset, {ColumnIndex(2), ColumnIndex(0), ColumnIndex(1)});
    addAll(keys, dataset);
    keys.sortByText();
    QMap<int, QStringList> texts;
    for (int row = 0; row < dataset.rowCount(); ++row) {
        const QStringList key = dataset.rowValues(RowIndex(row), {ColumnIndex(2), ColumnIndex(0), ColumnIndex(1)});
        QStringList &known = texts[keys.numberOf(row)];
        EXPECT_TRUE(known.isEmpty() || known == key);
        EXPECT_TRUE(!known.isEmpty() || keys.firstRow(keys.numberOf(row)) == row);
        known = key;
    }
    const QList<QStringList> sorted = texts.values();
    EXPECT_EQ(sorted.size(), keys.count());
    EXPECT_TRUE(std::is_sorted(sorted.cbegin(), sorted.cend(), comesBefore));
    EXPECT_EQ(std::adjacent_find(sorted.cbegin(), sorted.cend()), sorted.cend());
}

TEST(RowGroups, PutsRowsTogether)
{
    const RowGroups groups({2, 0, -1, 2, 0, 2}, 4);
    EXPECT_EQ(groups.count(), 4);
    EXPECT_EQ(listed(groups.rows(0)), (std::vector<int>{1, 4}));
    EXPECT_TRUE(groups.rows(1).isEmpty());
    EXPECT_EQ(listed(groups.rows(2)), (std::vector<int>{0, 3, 5}));
    EXPECT_EQ(groups.rows(2).first(), 0);
    EXPECT_EQ(groups.rows(2).last(), 5);
    EXPECT_EQ(groups.rows(3).size(), 0);
    EXPECT_EQ(listed(groups.all()), (std::vector<int>{1, 4, 0, 3, 5}));
    EXPECT_EQ(RowGroups({}, 0).count(), 0);
    EXPECT_TRUE(RowGroups({}, 1).rows(0).isEmpty());
}

TEST(RowGroups, KeepsAGivenOrder)
{
    const std::vector<int> order{5, 3, 1, 0};
    const RowGroups groups({0, 1, 1, 0, 1, 0}, 2, {order.data(), order.data() + order.size()});
    EXPECT_EQ(listed(groups.rows(0)), (std::vector<int>{5, 3, 0}));
    EXPECT_EQ(listed(groups.rows(1)), (std::vector<int>{1}));
}
