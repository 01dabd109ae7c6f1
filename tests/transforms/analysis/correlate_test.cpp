#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedsettings.h"

#include <gtest/gtest.h>

namespace {

const OptionSettings all{{"Columns", QStringList{"a", "b"}}};

} // namespace

TEST(TransformCorrelate, CorrelatesPairsOfColumns)
{
    const struct
    {
        const char *what;
        QStringList rows;
        QString coefficient;
        QStringList warnings;
    } cases[] = {
        {"equal columns", {"1|1", "2|2", "4|4"}, "1", {}},
        {"a falling line", {"1|6", "2|4", "3|2"}, "-1", {}},
        {"nothing in common", {"1|1", "2|0", "3|1"}, "0", {}},
        {"something between, worked out by hand", {"1|1", "2|3", "3|2", "4|5"}, "0.8315218406203", {}},
        {"currency symbols don't matter", {"$1|1", "$2|2", "$4|4"}, "1", {}},
        {"numbers whose squares are beyond the largest number", {"1e300|1", "2e300|2", "4e300|4"}, "1", {}},
        {"numbers whose squares are below the smallest number", {"1e-300|1", "2e-300|2", "4e-300|4"}, "1", {}},
        {"pairs with a gap are left out", {"1|1", "|9", "2|2", "x|7", "4|4"}, "1",
            {"'' is not a numerical value in column 'a' row 2", "'x' is not a numerical value in column 'a' row 4"}},
        {"a constant column", {"5|1", "5|2"}, "", {"Standard deviation for 'a' is 0, causing divided by 0"}},
        {"a constant whose mean is rounded", {"0.1|1", "0.1|2", "0.1|4"}, "",
            {"Standard deviation for 'a' is 0, causing divided by 0"}},
        {"a single pair", {"1|2"}, "",
            {"Standard deviation for 'a' is 0, causing divided by 0",
                "Standard deviation for 'b' is 0, causing divided by 0"}},
        {"no pair", {"1|x", "y|2"}, "",
            {"'y' is not a numerical value in column 'a' row 2", "'x' is not a numerical value in column 'b' row 1",
                "No valid pairs of values for columns 'a' and 'b'"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Correlate", all, {grid(QStringList{"a|b"} + c.rows)});
        EXPECT_EQ(rows(run.result), (QStringList{"a|1|" + c.coefficient, "b|" + c.coefficient + "|1"}));
        EXPECT_EQ(run.result.header(), (QStringList{"Correlation", "a", "b"}));
        EXPECT_EQ(run.warnings(), c.warnings);
        EXPECT_EQ(run.resultText(), "Correlation table created");
    }
}

TEST(TransformCorrelate, TakesEachPairOnItsOwn)
{
    const Dataset input = grid({"a|skip|b|c", "1|x|1|5", "2|x|2|5", "3|x||5", "9|x|4|5"});
    const TransformRun run = runTransform("Correlate", {{"Columns", QStringList{"c", "a", "b"}}}, {input});
    EXPECT_EQ(rows(run.result), (QStringList{"a|1|0.97622103992743|", "b|0.97622103992743|1|", "c|||1"}));
    EXPECT_EQ(run.warnings(), (QStringList{"'' is not a numerical value in column 'b' row 3",
                                  "Standard deviation for 'c' is 0, causing divided by 0"}));
}

TEST(TransformCorrelate, NeedsColumnsAndRows)
{
    const TransformRun one = runTransform("Correlate", {{"Columns", "a"}}, {grid({"a|b", "1|2"})});
    EXPECT_FALSE(one.result.hasColumns());
    EXPECT_EQ(one.warnings(), QStringList{"Expected at least 2 columns to be selected"});
    const TransformRun none = runTransform("Correlate", all, {grid({"a|b"})});
    EXPECT_FALSE(none.result.hasColumns());
    EXPECT_EQ(none.warnings(), QStringList{"No data"});
    EXPECT_EQ(none.resultText(), "No changes");
}

TEST(TransformCorrelate, RefusesWhatMemoryCannotHold)
{
    ScopedSettings settings;
    settings->setMaxMemoryUsage(200.0 / (1024 * 1024 * 1024));
    const TransformRun run = runTransform("Correlate", all, {grid({"a|b", "1|2"})});
    EXPECT_FALSE(run.result.hasColumns());
    EXPECT_EQ(run.warnings(), QStringList{"Too many cells (3 cols x 2 rows)"});
    EXPECT_EQ(run.resultText(), "Too many cells");
}

TEST(TransformCorrelate, CutsTheListOfOtherTexts)
{
    QStringList lines{"a|b"};
    for (int i = 0; i < 4; ++i) {
        lines.append("x|y");
    }
    const TransformRun run = runTransform("Correlate", all, {grid(lines)});
    EXPECT_EQ(run.warnings().mid(4), (QStringList{"'y' is not a numerical value in column 'b' row 1", "+ 3 others",
                                         "No valid pairs of values for columns 'a' and 'b'"}));
}

TEST(TransformCorrelate, CutsTheListOfFaultyPairs)
{
    const TransformRun run = runTransform(
        "Correlate", {{"Columns", QVariantList{1, 2, 3, 4}}}, {grid({"a|b|c|d", "1|||", "2|||"})});
    EXPECT_EQ(run.warnings().mid(6),
        (QStringList{"No valid pairs of values for columns 'a' and 'b'",
            "No valid pairs of values for columns 'a' and 'c'", "No valid pairs of values for columns 'a' and 'd'",
            "No valid pairs of values for columns 'b' and 'c'", "No valid pairs of values for columns 'b' and 'd'",
            "+ 1 other"}));
}
