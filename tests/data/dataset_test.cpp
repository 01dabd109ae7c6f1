#include "data/dataset.h"
#include "support/grid.h"

#include <gtest/gtest.h>

namespace {

const RowIndex row0(0);
const ColumnIndex column0(0);
const ColumnIndex column1(1);

Dataset people()
{
    return grid({"name|town", "Ann|A town with a long name", "Bob|", "|"});
}

TEST(Dataset, StartsEmpty)
{
    const Dataset dataset;
    EXPECT_TRUE(dataset.isEmpty());
    EXPECT_FALSE(dataset.hasColumns());
    EXPECT_FALSE(dataset.lastRow().isValid());
    EXPECT_FALSE(dataset.lastColumn().isValid());
    EXPECT_EQ(dataset.columnName(column0), "1");
}

TEST(Dataset, CopiesDoNotSeeEachOthersChanges)
{
    Dataset first = people();
    Dataset second = first;
    second.setValue(row0, column0, "A longer name than before");
    second.appendRow({"Cid", "x"});
    first.setValue(row0, column1, "Elsewhere, also a long text");
    EXPECT_EQ(rows(first), QStringList({"Ann|Elsewhere, also a long text", "Bob|", "|"}));
    EXPECT_EQ(rows(second), QStringList({"A longer name than before|A town with a long name", "Bob|", "|", "Cid|x"}));
    first = Dataset();
    EXPECT_EQ(second.value(row0, column1), "A town with a long name");
}

TEST(Dataset, MovedFromIsEmpty)
{
    Dataset first = people();
    const Dataset second = std::move(first);
    EXPECT_EQ(second.rowCount(), 3);
    EXPECT_EQ(first.rowCount(), 0); // NOLINT: what is left is the point
    EXPECT_FALSE(first.hasHeader());
    first = second;
    EXPECT_EQ(rows(first), rows(second));
}

struct SizeCase
{
    const char *what;
    int rows;
    int columns;
    QStringList expectedRows;
    QStringList expectedHeader;
};

TEST(Dataset, SetSizeCutsAndPads)
{
    const SizeCase cases[] = {
        {"nothing changes", 2, 2, {"a|b", "c|d"}, {"x", "y"}},
        {"new columns are named by their 0-based position", 2, 4, {"a|b||", "c|d||"}, {"x", "y", "2", "3"}},
        {"columns go from the end", 2, 1, {"a", "c"}, {"x"}},
        {"rows go from the end", 1, 2, {"a|b"}, {"x", "y"}},
        {"both grow", 3, 3, {"a|b|", "c|d|", "||"}, {"x", "y", "2"}},
        {"no columns, no table", 2, 0, {}, {}},
    };
    for (const SizeCase &c : cases) {
        SCOPED_TRACE(c.what);
        Dataset dataset = grid({"x|y", "a|b", "c|d"});
        dataset.setSize(c.rows, c.columns);
        EXPECT_EQ(rows(dataset), c.expectedRows);
        EXPECT_EQ(dataset.header(), c.expectedHeader);
        EXPECT_EQ(dataset.columnIds().size(), c.columns);
    }
}

TEST(Dataset, RowsCannotBeWithoutColumns)
{
    Dataset dataset;
    dataset.setRowCount(5);
    EXPECT_EQ(dataset.rowCount(), 0);
    dataset = people();
    dataset.removeColumn(column0);
    EXPECT_EQ(dataset.rowCount(), 3);
    dataset.removeColumn(column0);
    EXPECT_EQ(dataset.rowCount(), 0);
    EXPECT_FALSE(dataset.hasHeader());
    EXPECT_TRUE(dataset.columnIds().isEmpty());
}

struct AppendCase
{
    const char *what;
    QStringList start;
    QStringList row;
    bool adjust;
    bool prepend;
    QStringList expected;
};

TEST(Dataset, AppendsAndPrependsByWidth)
{
    const AppendCase cases[] = {
        {"a short row is padded", {"a|b"}, {"c"}, true, false, {"a|b", "c|"}},
        {"a long row is cut", {"a|b"}, {"c", "d", "e"}, true, false, {"a|b", "c|d"}},
        {"unadjusted, a short row is dropped", {"a|b"}, {"c"}, false, false, {"a|b"}},
        {"unadjusted, a row of the right width is taken", {"a|b"}, {"c", "d"}, false, false, {"a|b", "c|d"}},
        {"unadjusted, the first row sets the width", {}, {"c", "d"}, false, false, {"c|d"}},
        {"in front, padded", {"a|b"}, {"c"}, true, true, {"c|", "a|b"}},
        {"in front, unadjusted, dropped even from an empty table", {}, {"c"}, false, true, {}},
    };
    for (const AppendCase &c : cases) {
        SCOPED_TRACE(c.what);
        Dataset dataset = plainGrid(c.start);
        c.prepend ? dataset.prependRow(c.row, c.adjust) : dataset.appendRow(c.row, c.adjust);
        EXPECT_EQ(rows(dataset), c.expected);
    }
}

TEST(Dataset, RemovesRowsAndColumnsWithoutText)
{
    Dataset dataset = grid({"a|b|c", "||", "1|| ", "||", " ||"});
    EXPECT_EQ(dataset.removeEmptyRows(), 2);
    EXPECT_EQ(rows(dataset), QStringList({"1|| ", " ||"}));
    EXPECT_EQ(dataset.removeEmptyColumns(), 1);
    EXPECT_EQ(dataset.header(), QStringList({"a", "c"}));
    dataset.removeRow(RowIndex(7));
    dataset.removeRow(RowIndex());
    dataset.removeColumn(ColumnIndex(7));
    EXPECT_EQ(rows(dataset), QStringList({"1| ", " |"}));
    Dataset blank = grid({"a|b", "|"});
    EXPECT_EQ(blank.removeEmptyColumns(), 2);
    EXPECT_FALSE(blank.hasColumns());
}

TEST(Dataset, InsertsEmptyColumnsWithEmptyNames)
{
    Dataset dataset = grid({"a|b", "1|2"});
    dataset.insertEmptyColumn(column1);
    dataset.appendEmptyColumn();
    dataset.prependEmptyColumn();
    EXPECT_EQ(rows(dataset), QStringList({"|1||2|"}));
    EXPECT_EQ(dataset.header(), QStringList({"", "a", "", "b", ""}));
    EXPECT_EQ(dataset.columnNames(), QStringList({"1", "a", "3", "b", "5"}));
}

TEST(Dataset, PooledTextsFollowTheirColumns)
{
    for (bool maximumSpeed : {false, true}) {
        SCOPED_TRACE(maximumSpeed);
        Dataset::setMaximumSpeed(maximumSpeed);
        Dataset dataset = grid({"a|b", "first long text|second long text"});
        dataset.removeColumn(column0);
        dataset.insertEmptyColumn(column0);
        dataset.appendRow({"second long text", "first long text"});
        const Dataset copy = dataset;
        dataset.releaseValuePools();
        dataset.setColumnCount(1);
        dataset.appendRow({"first long text"});
        EXPECT_EQ(rows(dataset), QStringList({"", "second long text", "first long text"}));
        EXPECT_EQ(rows(copy), QStringList({"|second long text", "second long text|first long text"}));
    }
    Dataset::setMaximumSpeed(false);
}

TEST(Dataset, MovesWholeColumnsAndRows)
{
    const Dataset source = people();
    Dataset result = source.withRows({2, 1, -1, 0});
    EXPECT_EQ(rows(result), QStringList({"|", "Bob|", "|", "Ann|A town with a long name"}));
    result.setColumn(column0, result.column(column1));
    result.appendColumn(source.withRows({0, 0, 0, 0}).column(column0), "again", ColumnId(4, 2));
    EXPECT_EQ(rows(result).constLast(), "A town with a long name|A town with a long name|Ann");
    EXPECT_EQ(result.header(), QStringList({"name", "town", "again"}));
    EXPECT_EQ(result.columnIndexOfId(ColumnId(4, 2)), ColumnIndex(2));
}

TEST(Dataset, HeaderComesFromTheFirstRowAndGoesBack)
{
    Dataset dataset = plainGrid({"a|b", "1|2"});
    dataset.setHasHeader(true);
    EXPECT_EQ(dataset.header(), QStringList({"a", "b"}));
    EXPECT_EQ(rows(dataset), QStringList({"1|2"}));
    dataset.setHasHeader(false);
    dataset.setHasHeader(false);
    EXPECT_EQ(rows(dataset), QStringList({"a|b", "1|2"}));
    Dataset empty;
    empty.setColumnCount(2);
    empty.setHasHeader(true);
    EXPECT_TRUE(empty.hasHeader());
    EXPECT_EQ(empty.columnNames(), QStringList({"1", "2"}));
}

TEST(Dataset, HeaderNames)
{
    Dataset dataset = plainGrid({"1|2|3"});
    EXPECT_EQ(dataset.columnNames(), QStringList({"1", "2", "3"}));
    dataset.setHeaderValue(column1, "name");
    EXPECT_EQ(dataset.header(), QStringList({"1", "name", "3"}));
    dataset.setHeaderValue(ColumnIndex(9), "nowhere");
    dataset.setHeaderValue(ColumnIndex(2), "name");
    EXPECT_EQ(dataset.header(), QStringList({"1", "name", "name"}));
    EXPECT_EQ(dataset.columnIndexOfName("name"), column1);
    EXPECT_FALSE(dataset.columnIndexOfName("Name").isValid());
    dataset.setHeader({});
    EXPECT_FALSE(dataset.hasHeader());
}

TEST(Dataset, ColumnIdsSurviveAndAreFilled)
{
    Dataset dataset = grid({"a|b|c|d"});
    dataset.setColumnIds({ColumnId(1, 1), ColumnId(), ColumnId(1, 1), ColumnId()});
    EXPECT_EQ(dataset.columnIndexOfId(ColumnId(1, 1)), ColumnIndex(2)); // the later of equal ids
    dataset.clearDuplicateColumnIds();
    EXPECT_EQ(dataset.columnIndexOfId(ColumnId(1, 1)), column0);
    dataset.assignColumnIds(7);
    const QList<ColumnId> expected{ColumnId(1, 1), ColumnId(7, 1), ColumnId(7, 2), ColumnId(7, 3)};
    EXPECT_EQ(dataset.columnIds(), expected);
    dataset.assignColumnIds(7);
    EXPECT_EQ(dataset.columnIds(), expected);
    dataset.removeColumn(column0);
    EXPECT_EQ(dataset.columnIndexOfId(ColumnId(7, 3)), ColumnIndex(2));
    EXPECT_FALSE(dataset.columnIndexOfId(ColumnId(1, 1)).isValid());
    EXPECT_FALSE(dataset.columnIndexOfId(ColumnId()).isValid());
    EXPECT_TRUE(dataset.columnId(ColumnIndex(9)).isNull());
    dataset.setColumnId(ColumnIndex(9), ColumnId(1, 2));
    EXPECT_EQ(dataset.columnIds().size(), 3);
}

TEST(Dataset, DrilldownGivesRowsOfTheWholeRowFirst)
{
    Dataset dataset = people();
    dataset.addDrilldownRows(row0, column1, {RowIndex(5)});
    dataset.addDrilldownRow(row0, ColumnIndex(), RowIndex(9));
    EXPECT_EQ(dataset.drilldownRows(row0, column1), QList<RowIndex>({RowIndex(9), RowIndex(5)}));
    EXPECT_EQ(dataset.drilldownRows(row0, ColumnIndex()), QList<RowIndex>({RowIndex(9)}));
    EXPECT_TRUE(dataset.drilldownRows(RowIndex(1), column1).isEmpty());
    const Dataset copy = dataset;
    dataset.addDrilldownRows(row0, column1, {RowIndex(3), RowIndex(4)});
    dataset.addDrilldownRow(RowIndex(1), column1, RowIndex(1));
    EXPECT_EQ(
        dataset.drilldownRows(row0, column1), QList<RowIndex>({RowIndex(9), RowIndex(5), RowIndex(3), RowIndex(4)}));
    EXPECT_EQ(copy.drilldownRows(row0, column1).size(), 2);
    dataset.clearDrilldown();
    EXPECT_FALSE(dataset.hasDrilldown());
}

struct FindCase
{
    const char *what;
    QString cell;
    QString text;
    Qt::CaseSensitivity cs;
    bool found;
};

TEST(Dataset, FindsTextWithinCells)
{
    const FindCase cases[] = {
        {"a part", "Springfield", "field", Qt::CaseSensitive, true},
        {"case counts", "Springfield", "spring", Qt::CaseSensitive, false},
        {"case doesn't count", "Springfield", "SPRING", Qt::CaseInsensitive, true},
        {"an empty text is always found", "", "", Qt::CaseSensitive, true},
        {"longer than the cell", "a", "aa", Qt::CaseInsensitive, false},
        {"letters beyond ASCII", "\u00c4rger", "\u00e4R", Qt::CaseInsensitive, true},
        {"the Kelvin sign is a k", "5 \u212a", "k", Qt::CaseInsensitive, true},
        {"half of a pair", "\U0001F600", QString(QChar(0xD83D)), Qt::CaseSensitive, true},
    };
    for (const FindCase &c : cases) {
        SCOPED_TRACE(c.what);
        const Dataset dataset = column({"other", c.cell});
        EXPECT_EQ(dataset.columnContains(column0, c.text, c.cs), c.found);
        EXPECT_EQ(dataset.rowContains(RowIndex(1), c.text, c.cs), c.found);
        EXPECT_EQ(dataset.contains(c.text, c.cs), c.found);
    }
    EXPECT_TRUE(Dataset().contains("", Qt::CaseSensitive));
    EXPECT_TRUE(people().headerContains("OWN", Qt::CaseInsensitive));
    EXPECT_FALSE(people().headerContains("OWN", Qt::CaseSensitive));
}

TEST(Dataset, ComparesColumnsAndRows)
{
    const Dataset a = grid({"x|y", "a long text, stored apart|2", "3|2"});
    const Dataset b = grid({"z|w", "2|a long text, stored apart", "2|3"});
    EXPECT_TRUE(a.columnEquals(column0, &b, column1));
    EXPECT_FALSE(a.columnEquals(column0, &b, column0));
    EXPECT_FALSE(a.columnEquals(column0, nullptr, column0));
    EXPECT_FALSE(a.columnEquals(ColumnIndex(2), &b, column0));
    EXPECT_FALSE(a.columnEquals(column0, &b, ColumnIndex()));
    const Dataset shorter = a.withRows({0});
    EXPECT_FALSE(a.columnEquals(column0, &shorter, column0));
    EXPECT_TRUE(a.rowEquals(row0, &shorter, row0));
    EXPECT_FALSE(a.rowEquals(RowIndex(1), &shorter, row0));
    EXPECT_FALSE(a.rowEquals(row0, &shorter, RowIndex(1)));
    const Dataset narrow = column("a long text, stored apart");
    EXPECT_FALSE(a.rowEquals(row0, &narrow, row0));
}

TEST(Dataset, WalksAllCellsForthAndBack)
{
    const Dataset dataset = grid({"a|b", "1|2", "3|4"});
    RowIndex row(0);
    ColumnIndex column(0);
    QString walked = dataset.value(row, column);
    while (dataset.nextCell(row, column)) {
        walked += dataset.value(row, column);
    }
    while (dataset.previousCell(row, column)) {
        walked += dataset.value(row, column);
    }
    EXPECT_EQ(walked, "1234321");
    RowIndex none;
    ColumnIndex before;
    EXPECT_FALSE(grid({"a|b"}).nextCell(none, before));
    EXPECT_FALSE(grid({"a|b"}).nextCell(row, column));
    EXPECT_FALSE(grid({"a|b"}).previousCell(row, column));
    EXPECT_EQ(dataset.allColumns(), QList<ColumnIndex>({column0, column1}));
    EXPECT_EQ(dataset.allRows(), QList<RowIndex>({row0, RowIndex(1)}));
    EXPECT_EQ(Dataset::toIndexes({ColumnNumber(2), ColumnNumber(1)}), QList<ColumnIndex>({column1, column0}));
}

TEST(Dataset, IssuesKeepTheHighestLevelAndTellTheRules)
{
    Dataset dataset = people();
    EXPECT_FALSE(dataset.hasIssues());
    dataset.addCellIssue(row0, column1, 2, 15);
    dataset.addCellIssue(row0, column1, 0, 7);
    dataset.addCellIssue(RowIndex(1), column1, 1, 7);
    dataset.addColumnIssue(column0, 1, 0);
    dataset.addDatasetColumnIssue(column1, 0, 0);
    dataset.addDatasetRowIssue(RowIndex(2), 1, 5);
    EXPECT_EQ(dataset.issueLevel(row0, column1), 2);
    EXPECT_EQ(dataset.issueLevel(RowIndex(), column1), 2);
    EXPECT_EQ(dataset.issueLevel(RowIndex(1), ColumnIndex()), 1);
    EXPECT_EQ(dataset.issueLevel(RowIndex(1), column0), 3);
    EXPECT_EQ(dataset.issueText(row0, column1),
        "Column rule fail: No empty values (1)\nColumn rule fail: Minimum characters (1)\n"
        "Dataset rule fail: No duplicate col names (1)\nColumn rule fail: No empty values (2)\n"
        "Column rule fail: Minimum characters (1)\nColumn rule fail: No empty values\nColumn rule fail:\u2026");
    EXPECT_EQ(dataset.issueText(RowIndex(), column0), "Column rule fail: Match column name (1)");
    EXPECT_EQ(dataset.issueText(RowIndex(2), ColumnIndex()), "Dataset rule fail: No empty rows (1)");
    EXPECT_EQ(dataset.issueText(RowIndex(1), ColumnIndex()), "Column rule fail: No empty values (1)");
    dataset.addCellIssue(RowIndex(1), column1, 2, 15);
    EXPECT_EQ(dataset.issueLevel(RowIndex(1), ColumnIndex()), 2);
    dataset.clearIssues();
    EXPECT_FALSE(dataset.hasIssues());
}

} // namespace
