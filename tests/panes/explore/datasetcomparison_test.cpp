#include "panes/explore/datasetcomparison.h"

#include "panes/explore/keyoverlap.h"
#include "panes/explore/namescomparison.h"
#include "support/grid.h"

#include <gtest/gtest.h>

namespace {

/// "0-1" for a pair of rows, "-" for a row that isn't there, "!" for a pair that differs.
QString pairsText(const DatasetComparison &comparison)
{
    QStringList pairs;
    const auto row = [](int number) { return number < 0 ? QString() : QString::number(number); };
    for (int pair = 0; pair < comparison.pairCount(); ++pair) {
        pairs.append(row(comparison.leftRows().at(pair)) + '-' + row(comparison.rightRows().at(pair))
                     + (comparison.differentPairs().contains(pair) ? "!" : ""));
    }
    return pairs.join(' ');
}

TEST(DatasetComparison, RowsPair)
{
    struct Case
    {
        const char *sentence;
        QStringList left;
        QStringList right;
        RowPairing pairing;
        bool caseSensitive;
        bool sortByKey;
        const char *pairs;
        int rowDifferences;
        int headerDifferences;
    };
    const RowPairing byNumber = RowPairing::RowNumbers;
    const RowPairing byKey = RowPairing::KeyColumns;
    const QStringList none{"k|v"};
    const Case cases[] = {
        {"by number", {"k|v", "a|1", "b|2"}, {"k|v", "a|1", "b|3"}, byNumber, true, false, "0-0 1-1!", 1, 0},
        {"by number, the left one longer", {"k|v", "a|1", "b|2"}, {"k|v", "a|1"}, byNumber, true, false, "0-0 1-!", 1,
            0},
        {"a row of empty cells isn't a missing one", {"k|v", "|"}, none, byNumber, true, false, "0-!", 1, 0},
        {"cells are told apart by case and blanks", {"k|v", "a|x", "b|y"}, {"k|v", "a|X", "b|y "}, byNumber, false,
            false, "0-0! 1-1!", 2, 0},
        {"a column more is compared with empty cells", {"k", "a", "b"}, {"k|v", "a|", "b|2"}, byNumber, true, false,
            "0-0 1-1!", 1, 1},
        {"names are no cells", {"k|v", "a|1"}, {"K|w", "a|1"}, byNumber, true, false, "0-0", 0, 2},
        {"by key, in the order of the left and then of the right", {"k|v", "b|1", "a|2"}, {"k|v", "c|9", "a|2", "b|7"},
            byKey, true, false, "0-2! 1-1 -0!", 2, 0},
        {"sorted by key", {"k|v", "b|1", "a|2"}, {"k|v", "c|9", "a|2", "b|7"}, byKey, true, true, "1-1 0-2! -0!", 2, 0},
        {"repeated keys one by one", {"k|v", "a|1", "b|5", "a|2", "a|3"}, {"k|v", "a|1", "a|9", "b|5"}, byKey, true,
            false, "0-0 2-1! 3-! 1-2", 2, 0},
        {"keys differ by case", {"k|v", "A|1"}, {"k|v", "a|1"}, byKey, true, false, "0-! -0!", 2, 0},
        {"keys regardless of case, cells not", {"k|v", "A|1", "\u00c4|2"}, {"k|v", "\u00e4|2", "a|1"}, byKey, false,
            false, "0-1! 1-0!", 2, 0},
        {"empty keys pair too", {"k|v", "|1"}, {"k|v", "|1"}, byKey, true, false, "0-0", 0, 0},
        {"keys too long for a cell", {"k|v", "a long key, one|1", "a long key, two|2"},
            {"k|v", "a long key, two|2", "a long key, one|1"}, byKey, true, true, "0-1 1-0", 0, 0},
        {"no common keys", {"k|v", "a|1"}, {"k|v", "b|1"}, byKey, true, false, "0-! -0!", 2, 0},
        {"an empty side", {"k|v", "a|1"}, none, byKey, true, true, "0-!", 1, 0},
        {"two empty sides", none, none, byKey, true, true, "", 0, 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        DatasetComparison comparison(grid(c.left), grid(c.right));
        ASSERT_TRUE(comparison.compare({c.pairing, ColumnIndex(0), ColumnIndex(0), c.caseSensitive, c.sortByKey}));
        EXPECT_EQ(pairsText(comparison), c.pairs);
        EXPECT_EQ(comparison.rowDifferences(), c.rowDifferences);
        EXPECT_EQ(comparison.headerDifferences(), c.headerDifferences);
    }
}

TEST(DatasetComparison, ShowsSomePairsAndKeepsTheCount)
{
    DatasetComparison comparison(grid({"k", "a", "b", "c"}), grid({"k", "a", "x", "c", "d"}));
    ASSERT_TRUE(comparison.compare({}));
    comparison.show(ComparedPairs::OnlyMatches);
    EXPECT_EQ(pairsText(comparison), "0-0 2-2");
    EXPECT_EQ(comparison.rowDifferences(), 2);
    comparison.show(ComparedPairs::OnlyDifferences);
    EXPECT_EQ(pairsText(comparison), "1-1! -3!");
    comparison.show(ComparedPairs::All);
    EXPECT_EQ(pairsText(comparison), "0-0 1-1! 2-2 -3!");
}

TEST(DatasetComparison, WithoutKeysOrStoppedThereAreNoPairs)
{
    DatasetComparison comparison(grid({"k", "a"}), grid({"k", "a"}));
    EXPECT_FALSE(comparison.compare({RowPairing::KeyColumns, ColumnIndex(0), ColumnIndex()}));
    EXPECT_EQ(comparison.pairCount(), 0);
    EXPECT_FALSE(comparison.compare(
        {RowPairing::KeyColumns, ColumnIndex(0), ColumnIndex(0)}, [](double fraction) { return fraction < 0.5; }));
    EXPECT_EQ(comparison.pairCount(), 0);
    EXPECT_TRUE(comparison.compare({RowPairing::KeyColumns, ColumnIndex(0), ColumnIndex(0)}));
    EXPECT_EQ(comparison.pairCount(), 1);
}

TEST(DatasetComparison, GoesFromDifferenceToDifferenceBothWays)
{
    struct Case
    {
        const char *sentence;
        QStringList left;
        QStringList right;
        const char *places; ///< row:column
    };
    const Case cases[] = {
        {"cells, row by row", {"a|b|c", "1|2|3", "1|2|3", "1|2|3"}, {"a|b|c", "1|9|9", "1|2|3", "9|2|3"},
            "0:1 0:2 2:0"},
        {"a missing row is one", {"a|b", "1|2", "1|2"}, {"a|b", "1|9"}, "0:1 1:0"},
        {"a missing row of one column", {"a", "1", "2"}, {"a"}, "0:0 1:0"},
        {"columns of one side alone", {"a", "1"}, {"a|b|c", "1||9"}, "0:2"},
        {"none", {"a", "1"}, {"a", "1"}, ""},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        DatasetComparison comparison(grid(c.left), grid(c.right));
        ASSERT_TRUE(comparison.compare({}));
        QStringList forwards;
        DatasetComparison::Place last;
        for (auto place = comparison.differenceAfter({}); place.isValid(); place = comparison.differenceAfter(place)) {
            forwards.append(QStringLiteral("%1:%2").arg(place.pair).arg(place.column));
            last = place;
        }
        EXPECT_EQ(forwards.join(' '), c.places);
        QStringList backwards;
        const DatasetComparison::Place end{comparison.pairCount(), 0};
        for (auto place = comparison.differenceBefore(end); place.isValid();
             place = comparison.differenceBefore(place)) {
            backwards.prepend(QStringLiteral("%1:%2").arg(place.pair).arg(place.column));
        }
        EXPECT_EQ(backwards.join(' '), c.places);
    }
}

TEST(NamesComparison, ByNameAndByPosition)
{
    const QVector<QStringList> names{{"Name", "city", "Zip", "city"}, {"city", "Name", "zip"}, {"Name", "", "Zip"}};
    const NamesComparison byName(names, HeaderPairing::ColumnName);
    QStringList rows;
    for (const NamesComparison::Row &row : byName.rows(ComparedPairs::All)) {
        rows.append(row.title + ": " + row.cells.join('|') + (row.isDifferent ? "!" : ""));
    }
    EXPECT_EQ(rows, (QStringList{": ||2!", "city: 2, 4|1|!", "Name: 1|2|1!", "Zip: 3||3!", "zip: |3|!"}));
    EXPECT_EQ(byName.differenceCount(), 5);
    EXPECT_EQ(byName.columnCounts().cells, (QStringList{"4", "3", "3"}));
    EXPECT_TRUE(byName.columnCounts().isDifferent);

    const NamesComparison byPosition({{"a", "b"}, {"a", "x", ""}}, HeaderPairing::ColumnIndex);
    const QVector<NamesComparison::Row> different = byPosition.rows(ComparedPairs::OnlyDifferences);
    ASSERT_EQ(different.size(), 2);
    EXPECT_EQ(different.at(0).title, "2");
    EXPECT_EQ(different.at(0).cells, (QStringList{"b", "x"}));
    EXPECT_EQ(different.at(1).title, "3") << "a column without a name is one all the same";
    EXPECT_EQ(byPosition.rows(ComparedPairs::OnlyMatches).size(), 1);
}

TEST(KeyOverlap, CountsKeysOfBothSides)
{
    struct Case
    {
        const char *sentence;
        bool caseSensitive;
        ExploredKeys which;
        bool duplicates;
        const char *top; ///< keys with the rows on this and on the other side
        const char *bottom;
    };
    const Case cases[] = {
        {"all", true, ExploredKeys::All, true, "b 2/1, a 1/0, - 1/2", "- 2/1, b 1/2, A 1/0"},
        {"regardless of case", false, ExploredKeys::All, true, "b 2/1, a 1/1, - 1/2", "- 2/1, b 1/2, A 1/1"},
        {"that match", true, ExploredKeys::OnlyMatching, true, "b 2/1, - 1/2", "- 2/1, b 1/2"},
        {"that don't", true, ExploredKeys::OnlyNonMatching, true, "a 1/0", "A 1/0"},
        {"of one row", true, ExploredKeys::All, false, "a 1/0, - 1/2", "b 1/2, A 1/0"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        const KeyOverlap overlap(column(QStringList{"b", "a", "b", ""}), ColumnIndex(0),
            column(QStringList{"", "b", "", "A"}), ColumnIndex(0), c.caseSensitive);
        const auto text = [&](KeyOverlap::Side side, KeyOverlap::Side other) {
            QStringList keys;
            for (const int key : overlap.keys(side, c.which, c.duplicates)) {
                const QString name = overlap.text(key, side);
                keys.append(QStringLiteral("%1 %2/%3")
                                .arg(name.isEmpty() ? QStringLiteral("-") : name)
                                .arg(overlap.count(key, side))
                                .arg(overlap.count(key, other)));
            }
            return keys.join(", ");
        };
        EXPECT_EQ(text(KeyOverlap::Top, KeyOverlap::Bottom), c.top);
        EXPECT_EQ(text(KeyOverlap::Bottom, KeyOverlap::Top), c.bottom);
        EXPECT_EQ(overlap.figures(KeyOverlap::Top).rows, 4);
        EXPECT_EQ(overlap.figures(KeyOverlap::Top).keys, 3);
        EXPECT_EQ(overlap.figures(KeyOverlap::Top).duplicates, 1);
        EXPECT_EQ(overlap.figures(KeyOverlap::Top).matching, c.caseSensitive ? 2 : 3);
    }
}

} // namespace
