#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

QString moving(const QStringList &values, const OptionSettings &options)
{
    return runOn("Moving", options, column(values)).columnValues(ColumnIndex(1)).join('|');
}

TEST(TransformMoving, CalculatesWindows)
{
    const QStringList five{"1", "2", "6", "4", "10"};
    const char *const calculate = "Calculate from available";
    const struct
    {
        const char *what;
        QStringList values;
        OptionSettings options;
        QString expected;
    } cases[] = {
        {"incomplete windows stay empty", five, {{"Interval", 3}}, "||3|4|6.66666666666667"},
        {"incomplete windows from what there is", five, {{"Interval", 3}, {"Incomplete", calculate}},
            "1|1.5|3|4|6.66666666666667"},
        {"centred", five, {{"Interval", 3}, {"Offset", 1}}, "|3|4|6.66666666666667|"},
        {"centred, cut at both ends", five, {{"Interval", 3}, {"Offset", 1}, {"Incomplete", calculate}},
            "1.5|3|4|6.66666666666667|7"},
        {"wholly above", five, {{"Interval", 2}, {"Offset", -2}, {"Calculation", "Sum"}}, "|||3|8"},
        {"wholly outside", five, {{"Offset", -999999}, {"Incomplete", calculate}}, "||||"},
        {"wholly below", five, {{"Offset", 999999}, {"Incomplete", calculate}}, "||||"},
        {"wider than the table", five, {{"Interval", 999999}, {"Calculation", "Sum"}}, "||||"},
        {"cumulative", five, {{"Interval", 999999}, {"Calculation", "Sum"}, {"Incomplete", calculate}}, "1|3|9|13|23"},
        {"median of odd and even counts", five, {{"Interval", 3}, {"Calculation", "Median"}, {"Incomplete", calculate}},
            "1|1.5|2|4|6"},
        {"least", five, {{"Interval", 2}, {"Calculation", "Minimum"}}, "|1|2|4|4"},
        {"largest", five, {{"Interval", 2}, {"Calculation", "Maximum"}}, "|2|6|6|10"},
        {"range", five, {{"Interval", 2}, {"Calculation", "Range"}}, "|1|4|2|6"},
        {"one row", {"0.1", "-3"}, {{"Interval", 1}, {"Calculation", "Range"}}, "0|0"},
        {"gaps are left out of complete windows", {"1", "x", "", "7", "9"}, {{"Interval", 2}}, "|1||7|8"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(moving(c.values, c.options), c.expected);
    }
}

TEST(TransformMoving, TellsWhatItCalculatedAndWhatItCouldNot)
{
    const TransformRun run = runTransform(
        "Moving", {{"Interval", 1}}, {column({"1", "a", "b", "c", "d", "e", "f", "2"})});
    EXPECT_EQ(run.resultText(), "2 values calculated");
    EXPECT_EQ(run.warnings(),
        (QStringList{"'a' is not a numerical value in row 2", "'b' is not a numerical value in row 3",
            "'c' is not a numerical value in row 4", "'d' is not a numerical value in row 5", "+ 2 others"}));
    EXPECT_EQ(run.result.header(), (QStringList{"Value", "Moving Average Value"}));
    const TransformRun unset = runTransform("Moving", {{"Calculation", "Sum"}}, {grid({"a|b", "1|2"})});
    EXPECT_EQ(unset.result.header(), (QStringList{"a", "b", "Moving Sum"}));
    EXPECT_EQ(rows(unset.result), QStringList("1|2|"));
    EXPECT_EQ(unset.resultText(), "0 values calculated");
    EXPECT_EQ(runOn("Moving", {{"Auto_New_Name", false}}, column("1")).header(), (QStringList{"Value", "Moving"}));
}

} // namespace
