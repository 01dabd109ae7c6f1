#include "support/grid.h"
#include "support/runon.h"

#include <gtest/gtest.h>

TEST(TransformList, DoesWhatTheOperationSays)
{
    struct
    {
        const char *operation;
        const char *cell;
        const char *outcome;
    } const cases[] = {
        {"Count", "", "1"},
        {"Count", "a,,b", "3"},
        {"CountDistinct", "a,b,a,", "3"},
        {"Average", "1,x,2", "1.5"},
        {"Average", "x,", ""},
        {"Sum", "1, 2 ,-4", "-1"},
        {"Product", "2,3,x", "6"},
        {"Maximum", "9,10", "10"},
        {"Minimum", "10,9", "9"},
        {"Median", "3,1,2,10", "2.5"},
        {"First", "b,a", "b"},
        {"Last", "b,a", "a"},
        {"First", "", ""},
        {"Dedupe", "b,a,b,A", "b,a,A"},
        {"RemoveEmpty", "", ""},
        {"RemoveEmpty", "a,, ,b", "a, ,b"},
        {"RemoveEven", "a,b,c", "a,c"},
        {"RemoveOdd", "a,b,c", "b"},
        {"RemoveFirst", "a,b,c", "b,c"},
        {"RemoveLast", "a,b,c", "a,b"},
        {"RemoveLast", "a", ""},
        {"ReverseItems", "abc,𝄞x", "cba,x𝄞"},
        {"ReverseOrder", "a,b,c", "c,b,a"},
        {"SortAscending", "10,9,b,a", "9,10,a,b"},
        {"SortDescending", "10,9,b,a", "b,a,10,9"},
        {"Tidy", " b ,, a", "a,b"},
        {"Trim", " b ,, a", "b,,a"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.operation) + " of " + c.cell);
        const TransformRun run = runTransform(
            "List", {{"Column", 1}, {"Delimiter", ","}, {"Operation", c.operation}}, {column(c.cell)});
        EXPECT_EQ(run.result.value(RowIndex(0), ColumnIndex(1)), QString(c.outcome));
        EXPECT_EQ(run.result.header().last(), QStringLiteral("%1(Value)").arg(c.operation));
        EXPECT_EQ(run.resultText(), "1 col added");
    }
}

TEST(TransformList, JoinsAgainWithTheOutputDelimiter)
{
    const Dataset result = runOn("List",
        {{"Column", 1}, {"Delimiter_Type", "Regex delimiter"}, {"Delimiter", "\\s*[;,]\\s*"},
            {"Operation", "ReverseOrder"}, {"Output_Delimiter", "+"}, {"Auto_New_Name", false}, {"New_Name", "back"}},
        column("a ;b, c"));
    EXPECT_EQ(result.value(RowIndex(0), ColumnIndex(1)), "c+b+a");
    EXPECT_EQ(result.header().last(), "back");
}

TEST(TransformList, TakesAnExpressionThatDoesNotCompileForNone)
{
    const Dataset result = runOn(
        "List", {{"Column", 1}, {"Delimiter_Type", "Regex delimiter"}, {"Delimiter", "(["}}, column("a,b"));
    EXPECT_EQ(result.value(RowIndex(0), ColumnIndex(1)), "1");
}

TEST(TransformList, LeavesTheColumnEmptyWithoutASource)
{
    const TransformRun run = runTransform("List", {{"Delimiter", ","}}, {grid({"a|b", "1|2"})});
    EXPECT_EQ(rows(run.result), QStringList{"1|2|"});
    EXPECT_EQ(run.resultText(), "No changes");
}
