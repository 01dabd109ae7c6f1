#include "support/grid.h"
#include "support/runon.h"

#include <gtest/gtest.h>

namespace {

struct MergeCase
{
    const char *what;
    const char *kind;
    OptionSettings options;
    QVector<Dataset> inputs;
    QStringList header;
    QStringList rows;
    const char *resultText;
};

const OptionSettings keys{{"Column_1", 1}, {"Column_2", 1}};
const OptionSettings diffKeys{{"By", "Key columns"}, {"Top_Key_Column", 1}, {"Bottom_Key_Column", 1}};

} // namespace

TEST(MergingTransforms, GiveTheseTables)
{
    const QStringList differences{"Change", "Column", "Top row", "Bottom row", "Top value", "Bottom value"};
    const QStringList keyDifferences{"Change", "Column", "Key", "Top row", "Bottom row", "Top value", "Bottom value"};
    const Dataset names = grid({"k|n", "a|1", "b|2", "a|3", "c|4"});
    const Dataset filter = grid({"k", "a", "A", "x"});
    const MergeCase cases[] = {
        {"keeps rows with a partner", "Intersect", keys, {names, filter}, {"k", "n"}, {"a|1", "a|3"},
            "2 rows with keys in both, 2 top only, 2 bottom only"},
        {"no partner at all", "Intersect", keys, {names, grid({"k", "z"})}, {"k", "n"}, {}, "0 intersecting rows"},
        {"removes all rows with a partner", "Subtract", keys, {names, filter}, {"k", "n"}, {"b|2", "c|4"},
            "2 row(s) removed"},
        {"removes one row a partner from the front", "Subtract", keys + OptionSettings{{"Match", "First match"}},
            {names, filter}, {"k", "n"}, {"b|2", "a|3", "c|4"}, "1 row(s) removed"},
        {"removes one row a partner from the back", "Subtract", keys + OptionSettings{{"Match", "Last match"}},
            {names, filter}, {"k", "n"}, {"a|1", "b|2", "c|4"}, "1 row(s) removed"},
        {"nothing to remove", "Subtract", keys, {names, grid({"k", "z"})}, {"k", "n"}, {"a|1", "b|2", "a|3", "c|4"},
            "No changes"},
        {"columns go under equal names, then under looser ones", "Stack", {},
            {grid({"id|Name", "1|x"}), grid({" NAME|id|id", "y|2|3"})}, {"id", "Name", "id"}, {"1|x|", "2|y|3"},
            "2 inputs stacked"},
        {"a separator fills columns that come later", "Stack", {{"Add_Separators", true}},
            {grid({"a", "1"}), grid({"b", "2"})}, {"a", "b"}, {"1|", "---|---", "|2"}, "2 inputs stacked"},
        {"only the top table's columns by number", "Stack",
            {{"Align_Cols", "Column number"}, {"Only_First_Cols", true}}, {grid({"a", "1"}), grid({"b|c", "2|3"})},
            {"a"}, {"1", "2"}, "2 inputs stacked"},
        {"names of added columns bring a header", "Stack", {}, {plainGrid({"1|2"}), grid({"1|extra", "3|4"})},
            {"1", "2", "extra"}, {"1|2|", "3||4"}, "2 inputs stacked"},
        {"added columns without names bring none", "Stack", {}, {plainGrid({"1"}), plainGrid({"2|3"})}, {},
            {"1|", "2|3"}, "2 inputs stacked"},
        {"one input", "Stack", {}, {grid({"a", "1"})}, {"a"}, {"1"}, "1 input stacked"},
        {"the last input changes fastest", "Cross", {}, {grid({"a", "1", "2"}), plainGrid({"x", "y"})}, {"a", "1"},
            {"1|x", "1|y", "2|x", "2|y"}, "Crossed 2 inputs"},
        {"no rows in one input give none", "Cross", {}, {grid({"a", "1"}), grid({"b"})}, {"a", "b"}, {}, "No changes"},
        {"equal tables", "Difference", {}, {names, names}, differences, {}, "No differences"},
        {"columns, cells and rows that differ", "Difference", {},
            {grid({"a|b|c", "1|2|3", "4|5|6"}), grid({"a|B", "1|x"})}, differences,
            {"Column in top only|c|N/A|N/A|N/A|N/A", "Column renamed|b|N/A|N/A|b|B", "Value change|b|1|1|2|x",
                "Row in top only|N/A|2|N/A|4, 5, 6|N/A"},
            "4 differences"},
        {"a row of empty cells is empty", "Difference", {}, {grid({"a", "1", ""}), grid({"a", "1"})}, differences,
            {"Row in top only|N/A|2|N/A||N/A"}, "1 differences"},
        {"a value that became empty", "Difference", {}, {grid({"a", "1"}), grid({"a", ""})}, differences,
            {"Value change|a|1|1|1|"}, "1 differences"},
        {"without keys rows aren't compared", "Difference", {{"By", "Key columns"}}, {names, names}, keyDifferences, {},
            "Rows not compared"},
        {"stops when there are enough", "Difference", {{"Max_Diffs", 1}}, {grid({"a", "1", "2"}), grid({"a", "x"})},
            differences, {"Value change|a|1|1|1|x", "Stopped after 1 difference(s)|N/A|N/A|N/A|N/A|N/A"},
            "1 differences"},
        {"rows of a key are paired in order", "Difference", diffKeys,
            {grid({"k|v", "b|1", "a|2", "b|3"}), grid({"k|v", "a|2", "b|1", "c|9"})}, keyDifferences,
            {"Row in top only|N/A|b|3|N/A|b, 3|N/A", "Row in bottom only|N/A|c|N/A|3|N/A|c, 9"}, "2 differences"},
        {"in the order of numeric keys", "Difference", diffKeys + OptionSettings{{"Sort_by_Key", true}},
            {grid({"k|v", "10|1", "9|1"}), grid({"k|v", "10|2", "9|2"})}, keyDifferences,
            {"Value change|v|9|2|2|1|2", "Value change|v|10|1|1|1|2"}, "2 differences"},
    };
    for (const MergeCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(c.kind, c.options, c.inputs);
        EXPECT_EQ(run.result.header(), c.header);
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), QString(c.resultText));
    }
}

TEST(MergingTransforms, AskForASecondTable)
{
    for (const char *kind : {"Intersect", "Subtract", "Difference"}) {
        SCOPED_TRACE(kind);
        EXPECT_EQ(runTransform(kind, {}, {grid({"a", "1"})}).resultText(), "Connect a second dataset");
    }
}

TEST(TransformIntersect, ReportsOnBothTables)
{
    const TransformRun run = runTransform("Intersect", keys, {grid({"k", "a", "a", "b"}), grid({"k", "a", "c "})});
    EXPECT_EQ(run.infos(),
        (QStringList{"2 rows have keys in both datasets", "1 unique keys appear in both datasets",
            "1 miss in the Top key column:\n'b' at row 3", "1 miss in the Bottom key column:\n'c ' at row 2",
            "1 duplicated key in the Top key column:\n'a' occurs 2 times",
            "1 values with leading or trailing whitespace in the Bottom key column:\n'c ' at row 2\n"
            "(keys are whitespace and case sensitive)"}));
}

TEST(TransformSubtract, ListsTheFirstRowsRemoved)
{
    const TransformRun run = runTransform(
        "Subtract", keys, {column(QStringList{"a", "a", "a", "a", "a", "a", "a"}), column("a")});
    EXPECT_EQ(run.infos().first(), "Subtracted row 1 with key 'a'");
    EXPECT_EQ(run.infos().at(5), "+ 2 others");
}

TEST(TransformStack, SaysWhereColumnsWent)
{
    const TransformRun run = runTransform("Stack", {}, {grid({"id|name|x", "1|a|b"}), grid({"NAME|y|y", "c|d|e"})});
    EXPECT_EQ(run.infos(),
        (QStringList{"Input 1 (1 row, 3 cols):", "Added 'id' (column 1)", "Added 'name' (column 2)",
            "Added 'x' (column 3)", "Input 2 (1 row, 3 cols):", "Aligned 'NAME' (column 1) under 'name' (column 2)",
            "Added 'y' (column 2) from dataset 2", "Added 'y' (column 3) from dataset 2",
            "No match for 'id' (column 1)", "No match for 'x' (column 3)"}));
    EXPECT_EQ(run.warnings(), (QStringList{"2 column(s) named 'y' in input datatset 2",
                                  "Input 1 (1 row, 3 cols) missing 2 column(s) in the final dataset:\ny\ny",
                                  "Input 2 (1 row, 3 cols) missing 2 column(s) in the final dataset:\nid\nx"}));
    EXPECT_EQ(rows(run.result), (QStringList{"1|a|b||", "|c||d|e"}));
}

TEST(TransformStack, WarnsOfOtherNamesUnderANumber)
{
    const TransformRun run = runTransform(
        "Stack", {{"Align_Cols", "Column number"}}, {grid({"a|b", "1|2"}), grid({"A", "3"})});
    EXPECT_EQ(run.infos().mid(3), (QStringList{"Input 2 (1 row, 1 col):", "Aligned 'A' under 'a' (column 1)",
                                      "Not enough columns for 'b' (column 2)"}));
    EXPECT_EQ(run.warnings(), (QStringList{"Input 2 (1 row, 1 col) aligned 'A' under 'a' (column 1)",
                                  "Input 2 (1 row, 1 col) has 1 column(s) less than the final dataset"}));
}

TEST(TransformCross, RefusesWhatWouldNotFit)
{
    Dataset large = grid({"a", "x"});
    large.setRowCount(60000);
    const TransformRun run = runTransform("Cross", {}, {large, large});
    EXPECT_EQ(run.resultText(), "Too many rows");
    EXPECT_EQ(run.result.rowCount(), 0);
}

TEST(InputOrder, IsNoticedByTransformsWithoutKeys)
{
    for (const char *kind : {"Stack", "Cross"}) {
        SCOPED_TRACE(kind);
        TransformRun run = runTransform(kind, {}, {grid({"a", "1"}), grid({"a", "2"})});
        FakeSource *top = run.sources.at(0).get();
        FakeSource *bottom = run.sources.at(1).get();
        EXPECT_FALSE(run.transform->updateInputOrder({top, bottom}));
        EXPECT_TRUE(run.transform->updateInputOrder({bottom, top}));
        EXPECT_FALSE(run.transform->updateInputOrder({bottom, top}));
    }
}

TEST(TransformCompare, TestsOneColumnAgainstAnother)
{
    const Dataset input = grid({"a|b", "10|9", "x|X", "5|5.0"});
    struct
    {
        const char *what;
        OptionSettings options;
        QStringList values;
        const char *name;
        const char *resultText;
    } const cases[] = {
        {"equal by value", {}, {"false", "false", "true"}, "a =   Equal to b", "1 true, 2 false"},
        {"greater by value", {{"Comparison", ">   Greater than"}}, {"true", "true", "false"}, "a >   Greater than b",
            "2 true, 1 false"},
        {"without case, with a name", {{"Case_Sensitive", false}, {"Auto_New_Name", false}, {"New_Name", "same"}},
            {"false", "true", "true"}, "same", "2 true, 1 false"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(
            "Compare_Cols", OptionSettings{{"Column1", 1}, {"Column2", 2}} + c.options, {input});
        EXPECT_EQ(run.result.columnValues(ColumnIndex(2)), c.values);
        EXPECT_EQ(run.result.header().last(), QString(c.name));
        EXPECT_EQ(run.resultText(), QString(c.resultText));
    }
    EXPECT_EQ(runTransform("Compare_Cols", {}, {input}).result.columnCount(), 2) << "unset columns change nothing";
}
