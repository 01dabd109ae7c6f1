#include "panes/explore/duplicategroups.h"

#include "support/grid.h"
#include "support/printers.h"
#include "support/scopedlocale.h"
#include "transforms/row/dedupeprogress.h"

#include <gtest/gtest.h>

namespace {

DuplicateGroups search(const Dataset &dataset, int closeness)
{
    DedupeProgress progress;
    DuplicateSearch search(dataset, {ColumnIndex(0)}, KeyFolding(), progress);
    if (closeness < 100) {
        search.runSimilarly(&progress, closeness, DuplicateSearch::ClosestGroup);
    } else {
        search.runExactly(&progress);
    }
    return DuplicateGroups(search.places());
}

QStringList cells(const Dataset &dataset, int row)
{
    QStringList texts;
    for (int column = 0; column < dataset.columnCount(); ++column) {
        texts.append(dataset.value(RowIndex(row), ColumnIndex(column)));
    }
    return texts;
}

} // namespace

TEST(DuplicateGroups, PutsTheClosestBehindTheFirstAndNamesItsRow)
{
    const Dataset names = grid({"name", "Catherine", "Bob", "Katherina", "Catherine", "Catharine"});
    const DuplicateGroups groups = search(names, 70);
    EXPECT_EQ(groups.rows(), (QVector<int>{0, 3, 4, 2, 1}));
    EXPECT_EQ(groups.rowsWithDuplicates(), (QVector<int>{0, 3, 4, 2}));
    EXPECT_EQ(groups.duplicates(), (std::vector<bool>{false, false, true, true, true}));
    const Dataset table = groups.describe(names);
    EXPECT_EQ(table.columnNames(), (QStringList{"name", "Closeness", "Matches", "Occurrences"}));
    EXPECT_EQ(cells(table, 0), (QStringList{"Catherine", "", "", "4"}));
    EXPECT_EQ(cells(table, 1), (QStringList{"Bob", "", "", "1"}));
    EXPECT_EQ(cells(table, 2), (QStringList{"Katherina", "77", "1", "4"}));
    EXPECT_EQ(cells(table, 3), (QStringList{"Catherine", "100", "1", "4"}));
    EXPECT_EQ(cells(table, 4), (QStringList{"Catharine", "88", "1", "4"}));
}

TEST(DuplicateGroups, LeavesRowsEmptyThatWereNotSearched)
{
    const Dataset letters = grid({"letter", "a", "a", "b"});
    const DuplicateGroups groups(std::vector<DuplicateSearch::Place>{{0, 0}, {0, 100}});
    EXPECT_EQ(groups.rows(), (QVector<int>{0, 1}));
    EXPECT_EQ(groups.duplicateCount(), 1);
    EXPECT_EQ(cells(groups.describe(letters), 2), (QStringList{"b", "", "", ""}));
}

TEST(DuplicateGroups, SumsUpInTheRightNumber)
{
    struct Row
    {
        const char *what;
        QStringList lines;
        int closeness;
        QStringList summary;
    };
    const Row rows[] = {
        {"no rows, no lines", {"name"}, 100, {}},
        {"one of each", {"name", "a", "a"}, 100,
            {"1 duplicate row matched with 100% closeness.", "1 non-duplicate row with 1 duplicate."}},
        {"many of each, the closest first",
            {"name", "abcdefghij", "abcdefghij", "abcdefghiX", "abcdefghiY", "1", "2", "3", "3"}, 80,
            {"2 duplicate rows matched with 100% closeness.", "2 duplicate rows matched with 90% closeness.",
                "2 non-duplicate rows with 0 duplicates.", "1 non-duplicate row with 1 duplicate.",
                "1 non-duplicate row with 3 duplicates."}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(search(grid(row.lines), row.closeness).summary(), row.summary);
    }
}
