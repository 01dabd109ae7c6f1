#include "support/grid.h"
#include "support/randomtext.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

// Gather, Spread and Reshape: the same cells in another shape.

namespace {

const OptionSettings spreadKV{{"Key_Column", "k"}, {"Value_Column", "v"}};

Dataset sample()
{
    return grid({"id|name|q1|q2", "1|Ann|10|20", "2|Bob||5", "3|Cy|7|a text of some length"});
}

} // namespace

TEST(TransformGather, TurnsColumnsIntoRows)
{
    const OptionSettings names{{"Key_Column", "quarter"}, {"Value_Column", "value"}};
    const struct
    {
        const char *what;
        QVariantList columns;
        QStringList header;
        QStringList rows;
        QString text;
    } cases[] = {
        {"two of four columns", {"q2", "q1"}, {"id", "name", "quarter", "value"},
            {"1|Ann|q1|10", "1|Ann|q2|20", "2|Bob|q1|", "2|Bob|q2|5", "3|Cy|q1|7", "3|Cy|q2|a text of some length"},
            "3 rows added"},
        {"one column", {"name"}, {"id", "q1", "q2", "quarter", "value"},
            {"1|10|20|name|Ann", "2||5|name|Bob", "3|7|a text of some length|name|Cy"}, "1 col added"},
        {"all columns", {1, 2, 3, 4}, {"quarter", "value"},
            {"id|1", "name|Ann", "q1|10", "q2|20", "id|2", "name|Bob", "q1|", "q2|5", "id|3", "name|Cy", "q1|7",
                "q2|a text of some length"},
            "2 cols removed, 9 rows added"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(
            "Gather", names + OptionSettings{{"Columns", QVariant(c.columns)}}, {sample()});
        EXPECT_EQ(run.result.header(), c.header);
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), c.text);
    }
}

TEST(TransformGather, KeepsColumnsApart)
{
    const TransformRun run = runTransform("Gather", {{"Columns", 1}}, {plainGrid({"a|b|c"})});
    EXPECT_EQ(run.result.header(), (QStringList{"2", "3", "", ""}));
    EXPECT_EQ(run.result.columnIds(), (QList<ColumnId>{{1, 2}, {1, 3}, {}, {}}));
    EXPECT_EQ(rows(run.result), QStringList("b|c|1|a"));
    EXPECT_EQ(run.warnings(), QStringList("2 options not set ('Key column name','Value column name')"));
}

TEST(TransformGather, HasNothingToGather)
{
    const TransformRun unset = runTransform("Gather", {{"Key_Column", "k"}}, {grid({"a|b", "1|2"})});
    EXPECT_EQ(rows(unset.result), QStringList("1|2||"));
    EXPECT_EQ(unset.result.header(), (QStringList{"a", "b", "", ""}));
    EXPECT_EQ(unset.resultText(), "2 cols added");
    const TransformRun empty = runTransform("Gather", {{"Columns", "a"}}, {grid({"a|b"})});
    EXPECT_EQ(empty.result.columnCount(), 0);
    EXPECT_EQ(empty.resultText(), "2 cols removed");
}

TEST(TransformSpread, TurnsRowsIntoColumns)
{
    const struct
    {
        const char *what;
        OptionSettings options;
        Dataset input;
        QStringList header;
        QStringList rows;
        QString text;
    } cases[] = {
        {"keys and rows in the order in which they come", spreadKV,
            grid({"a|k|v|b", "x|k2|1|y", "z|k1|2|y", "x|k1|3|y"}), {"a", "b", "k2", "k1"}, {"x|y|1|3", "z|y||2"},
            "1 row removed"},
        {"a text for what is missing", spreadKV + OptionSettings{{"Missing_Value", "(nothing at all)"}},
            grid({"a|k|v", "1|p|x", "2|q|"}), {"a", "p", "q"}, {"1|x|(nothing at all)", "2|(nothing at all)|"},
            "Changed"},
        {"several values", spreadKV, grid({"a|k|v", "1|p|x", "1|p|x", "1|q|y", "1|p|z"}), {"a", "p", "q"},
            {"1|Error: multiple values|y"}, "3 rows removed"},
        {"texts aren't joined", spreadKV, grid({"a|b|k|v", "x|yz|p|1", "xy|z|q|2"}), {"a", "b", "p", "q"},
            {"x|yz|1|", "xy|z||2"}, "Changed"},
        {"an empty key", spreadKV, grid({"a|k|v", "1||x", "1|q|y"}), {"a", "", "q"}, {"1|x|y"}, "1 row removed"},
        {"key and value are one column", {{"Key_Column", "k"}, {"Value_Column", "k"}},
            grid({"a|k|b", "1|p|x", "1|q|x", "2|p|x"}), {"a", "b", "p", "q"}, {"1|x|p|q", "2|x|p|"},
            "1 col added, 1 row removed"},
        {"blank names are numbers, and it gets no narrower", spreadKV, grid({"k|v|", "p|1|x"}), {"3", "p", ""},
            {"x|1|"}, "Changed"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Spread", c.options, {c.input});
        EXPECT_EQ(run.result.header(), c.header);
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), c.text);
        EXPECT_EQ(run.warnings(), QStringList());
    }
}

TEST(TransformSpread, LeavesOtherTablesAlone)
{
    const TransformRun unset = runTransform("Spread", {{"Key_Column", "k"}}, {grid({"a|k|v", "1|p|x"})});
    EXPECT_EQ(rows(unset.result), QStringList("1|p|x"));
    EXPECT_EQ(unset.resultText(), "No changes");
    EXPECT_EQ(unset.warnings(), QStringList("1 option not set ('Value column')"));
    const TransformRun noRows = runTransform("Spread", spreadKV, {grid({"a|k|v"})});
    EXPECT_EQ(noRows.result.columnCount(), 3);
    EXPECT_EQ(noRows.resultText(), "No changes");
    const TransformRun narrow = runTransform("Spread", spreadKV, {grid({"k|v", "p|x"})});
    EXPECT_EQ(narrow.result.columnCount(), 0);
    EXPECT_EQ(narrow.resultText(), "2 cols removed, 1 row removed");
    const TransformRun same = runTransform(
        "Spread", spreadKV + OptionSettings{{"Min_New_Cols", 0}}, {grid({"a|k|v", "1|k|x", "2|v|y"})});
    EXPECT_EQ(rows(same.result), (QStringList{"1|x|", "2||y"}));
    EXPECT_EQ(same.resultText(), "Changed");
}

TEST(TransformSpread, KeepsItsColumnsInBounds)
{
    const ScopedSettings settings;
    Dataset input = grid({"a|k|v"});
    for (int i = 0; i < 150; ++i) {
        input.appendRow({"x", QString("k%1").arg(i), QString::number(i)});
    }
    const struct
    {
        const char *what;
        int least;
        int most;
        int columns;
        QStringList warnings;
    } cases[] = {
        {"at most 100 more than the input has", 0, 100, 103, {}},
        {"all of them", 0, 1000, 151, {}},
        {"padded", 160, 200, 163, {}},
        {"the minimum goes before the maximum", 10, 5, 13, {"'Max. new cols' < 'Min. new cols'"}},
        {"no new ones", 0, 0, 3, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings limits{{"Min_New_Cols", c.least}, {"Max_New_Cols", c.most}};
        const TransformRun run = runTransform("Spread", spreadKV + limits, {input});
        EXPECT_EQ(run.result.columnCount(), c.columns);
        EXPECT_EQ(run.warnings(), c.warnings);
        EXPECT_EQ(run.result.header().mid(0, 3), (QStringList{"a", "k0", "k1"}));
        const QString last = c.columns > 151 ? QString() : QString("k%1").arg(c.columns - 2);
        EXPECT_EQ(run.result.header().last(), last);
        EXPECT_EQ(run.result.value(RowIndex(0), run.result.lastColumn()), last.mid(1));
    }
    const TransformRun huge = runTransform("Spread", spreadKV + OptionSettings{{"Min_New_Cols", 999999999}}, {input});
    EXPECT_EQ(huge.result.columnCount(), 0);
    EXPECT_EQ(huge.resultText(), "Too many cells");
    EXPECT_EQ(huge.warnings().size(), 2);
}

TEST(TransformSpread, UndoesGather)
{
    RandomText random(5);
    Dataset input = grid({"id|a|b|c|d"});
    for (int row = 0; row < 200; ++row) {
        input.appendRow({QString::number(row), random.text(3), random.text(12), random.text(1), random.text(20)});
    }
    const Dataset gathered = runOn(
        "Gather", {{"Columns", QStringList{"b", "c", "d"}}, {"Key_Column", "k"}, {"Value_Column", "v"}}, input);
    EXPECT_EQ(gathered.rowCount(), 600);
    const Dataset spread = runOn("Spread", spreadKV, gathered);
    EXPECT_EQ(spread.header(), input.header());
    EXPECT_EQ(rows(spread), rows(input));
}

TEST(TransformReshape, CutsRowsAnew)
{
    const Dataset wide = grid({"a|b|c|d", "1|2|3|4", "5|6|7|8", "9|10|11|a text of some length"});
    const struct
    {
        const char *what;
        int size;
        QStringList header;
        QStringList rows;
        QString text;
    } cases[] = {
        {"wider, the end stays empty", 5, {"a", "b", "c", "d", "5"},
            {"1|2|3|4|5", "6|7|8|9|10", "11|a text of some length|||"}, "Changed to 5 cols x 3 rows"},
        {"narrower", 3, {"a", "b", "c"}, {"1|2|3", "4|5|6", "7|8|9", "10|11|a text of some length"},
            "Changed to 3 cols x 4 rows"},
        {"one column", 1, {"a"}, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "a text of some length"},
            "Changed to 1 cols x 12 rows"},
        {"wider than all cells", 14, {"a", "b", "c", "d", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14"},
            {"1|2|3|4|5|6|7|8|9|10|11|a text of some length||"}, "Changed to 14 cols x 1 rows"},
        {"the same size", 4, {"a", "b", "c", "d"}, rows(wide), "No changes"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Reshape", {{"New_Size", c.size}}, {wide});
        EXPECT_EQ(run.result.header(), c.header);
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), c.text);
        EXPECT_EQ(run.result.columnId(ColumnIndex(0)), ColumnId(1, 1));
        EXPECT_TRUE(c.size < 5 || run.result.columnId(ColumnIndex(4)).isNull());
    }
}

TEST(TransformReshape, TakesTablesAsTheyAre)
{
    EXPECT_FALSE(runOn("Reshape", {{"New_Size", 1}}, plainGrid({"1|2"})).hasHeader());
    EXPECT_EQ(runOn("Reshape", {{"New_Size", 3}}, grid({"a||c|d", "1|2|3|4"})).header(), (QStringList{"a", "", "c"}))
        << "blank names stay";
    EXPECT_EQ(runTransform("Reshape", {{"New_Size", 1}}, {grid({"a|b"})}).resultText(), "No changes");
    const TransformRun run = runTransform("Reshape", {}, {grid({"a|b|c", "1|2|3"})});
    EXPECT_EQ(run.transform->parameter("New_Size")->toInt(), 3) << "the input's width is the default";
    EXPECT_EQ(runTransform("Reshape", {}, {}).transform->parameter("New_Size")->toInt(), 2);
}

TEST(TransformReshape, RefusesTablesThatAreTooLarge)
{
    const ScopedLocale american("en_US");
    const TransformRun run = runTransform("Reshape", {{"New_Size", 999999999}}, {grid({"a|b", "1|2"})});
    EXPECT_EQ(run.result.columnCount(), 0);
    EXPECT_EQ(run.resultText(), "Too many cells");
    EXPECT_EQ(run.warnings(), QStringList("Too many cells (999,999,999 cols x 1 row)"));
}
