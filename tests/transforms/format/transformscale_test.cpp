#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

TEST(TransformScale, ScalesGroups)
{
    const Dataset table = grid({"a|b|name", "1|10|x", "1|20|y", "2|30|z"});
    const QVariantList both{1, 2};
    struct
    {
        const char *what;
        OptionSettings options;
        Dataset input;
        QStringList rows;
        const char *resultText;
    } const cases[] = {
        {"a share of the sum", {{"Columns", "a"}}, table, {"25|10|x", "25|20|y", "50|30|z"},
            "3 changed, 0 unchanged, 0 non-numeric"},
        {"from 0 to 1", {{"Columns", "b"}, {"By", "Minimum & Maximum"}, {"To", 1}}, table,
            {"1|0|x", "1|0.5|y", "2|1|z"}, "3 changed, 0 unchanged, 0 non-numeric"},
        {"from a negative end to the other", {{"Columns", "b"}, {"By", "Minimum & Maximum"}, {"From", -30}, {"To", 30}},
            table, {"1|-30|x", "1|0|y", "2|30|z"}, "2 changed, 1 unchanged, 0 non-numeric"},
        {"a range that is turned round", {{"Columns", "b"}, {"By", "Minimum & Maximum"}, {"From", 2}, {"To", 1}}, table,
            {"1|2|x", "1|1.5|y", "2|1|z"}, "3 changed, 0 unchanged, 0 non-numeric"},
        {"all values together", {{"Columns", both}, {"By", "Maximum"}, {"To", 3}}, table,
            {"0.1|1|x", "0.1|2|y", "0.2|3|z"}, "6 changed, 0 unchanged, 0 non-numeric"},
        {"each column by itself", {{"Columns", both}, {"By", "Maximum"}, {"To", 6}, {"Of", "Each column"}}, table,
            {"3|2|x", "3|4|y", "6|6|z"}, "6 changed, 0 unchanged, 0 non-numeric"},
        {"each row by itself", {{"Columns", both}, {"Of", "Each row"}}, grid({"a|b", "1|3", "x|7", "5|-5"}),
            {"25|75", "Error: number expected|100", "Error: divide by 0|Error: divide by 0"},
            "5 changed, 0 unchanged, 1 non-numeric"},
        {"the offset counts only between two ends", {{"Columns", "a"}, {"By", "Maximum"}, {"From", 7}}, table,
            {"50|10|x", "50|20|y", "100|30|z"}, "3 changed, 0 unchanged, 0 non-numeric"},
        {"currency symbols and blanks", {{"Columns", 1}}, column(QStringList{" $1", "3.0"}), {"25", "75"},
            "2 changed, 0 unchanged, 0 non-numeric"},
        {"numbers at their end already", {{"Columns", 1}}, column(QStringList{"40", "60"}), {"40", "60"}, "No changes"},
        {"no numbers at all", {{"Columns", 1}}, column(""), {"Error: number expected"},
            "0 changed, 0 unchanged, 1 non-numeric"},
        {"no column", {}, table, {"1|10|x", "1|20|y", "2|30|z"}, "No changes"},
        {"no rows", {{"Columns", 1}, {"Of", "Each row"}}, column(QStringList()), {}, "No changes"},
        {"a product too large", {{"Columns", 1}, {"By", "Maximum"}}, column(QStringList{"1e308", "5e307"}),
            {"100", "50"}, "2 changed, 0 unchanged, 0 non-numeric"},
        {"a sum too large", {{"Columns", 1}}, column(QStringList{"1e308", "1e308"}), {"NaN", "NaN"},
            "2 changed, 0 unchanged, 0 non-numeric"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Scale", c.options, {c.input});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), c.resultText);
    }
}

TEST(TransformScale, ListsWhatItCouldNotScale)
{
    const TransformRun sum = runTransform(
        "Scale", {{"Columns", QVariantList{1, 2}}}, {grid({"a|b", "x|-1", "2|%1", "|1", "-2|y", "z|u", "|"})});
    EXPECT_EQ(rows(sum.result).at(0), "Error: number expected|Error: divide by 0");
    EXPECT_EQ(sum.warnings(),
        (QStringList{"8 non-numeric values:\n'x' at column 'a' row 1\n'%1' at column 'b' row 2\n'' at column 'a' row "
                     "3\n'y' at column 'b' row 4\n'z' at column 'a' row 5\n+ 3 others",
            "4 divide by 0 values:\n'-1' divided by 0 at column 'b' row 1\n'2' divided by 0 at column 'a' row 2\n'1' "
            "divided by 0 at column 'b' row 3\n'-2' divided by 0 at column 'a' row 4",
            "2 negative values:\n'-1' at column 'b' row 1\n'-2' at column 'a' row 4"}));
    const TransformRun range = runTransform("Scale", {{"Columns", 1}, {"By", "Minimum & Maximum"}}, {column("-1")});
    EXPECT_EQ(rows(range.result), QStringList{"Error: divide by 0"});
    EXPECT_EQ(range.warnings(), QStringList{"1 divide by 0 value:\n'-1' divided by 0 at column 'Value' row 1"});
}

TEST(TransformScale, TakesAFromOnlyForTwoEnds)
{
    const TransformRun run = runTransform("Scale", {}, {column("1")});
    EXPECT_TRUE(run.transform->parameterStates().contains({"From", false}));
    setOption(*run.transform, "By", "Minimum & Maximum");
    EXPECT_TRUE(run.transform->parameterStates().contains({"From", true}));
    EXPECT_EQ(run.transform->parameter("From")->minInt(), -2147483647);
    EXPECT_EQ(run.transform->parameter("To")->minInt(), 1);
}
