#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

TransformRun interpolate(const Dataset &top, const Dataset &bottom, const char *type, const OptionSettings &more = {})
{
    const OptionSettings options{{"Top_Sample_Column", 1}, {"Bottom_Sample_Column", 1}, {"Bottom_Value_Column", 2},
        {"Interpolation_Type", type}};
    return runTransform("Interpolate", options + more, {top, bottom});
}

} // namespace

TEST(TransformInterpolate, ReadsValuesFromACurve)
{
    const QStringList ramp{"s|v", "10|100", "0|0"};
    struct
    {
        const char *what;
        QStringList bottom;
        const char *x;
        const char *piecewise;
        const char *linear;
    } const cases[] = {
        {"between two samples that aren't in order", ramp, "2.5", "0", "25"},
        {"a tie takes the lower neighbour", ramp, "5", "0", "50"},
        {"nearer to the upper one", ramp, "5.01", "100", "50.1"},
        {"a sample itself", ramp, "10", "100", "100"},
        {"above all samples", ramp, "20", "100", "100"},
        {"below all samples", ramp, "-1", "0", "0"},
        {"the last of equal samples counts above them", {"s|v", "0|0", "5|1", "5|3", "10|8"}, "6", "3", "4"},
        {"at equal samples", {"s|v", "0|0", "5|1", "5|3", "10|8"}, "5", "3", "3"},
        {"one point is a curve", {"s|v", "3|7.50"}, "99", "7.5", "7.5"},
        {"differences too large for a double", {"s|v", "-1e308|1", "1.5e308|2"}, "0", "1", "1.4"},
        {"currency symbols", {"s|v", "$0|$0", "$10|$100"}, "$4", "0", "40"},
        {"no point at all", {"s|v", "x|1", "1|"}, "1", "", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const Dataset top = grid({"x", c.x});
        EXPECT_EQ(rows(interpolate(top, grid(c.bottom), "Linear").result).at(0), QString(c.x) + '|' + c.linear);
        EXPECT_EQ(rows(interpolate(top, grid(c.bottom), "Piecewise").result).at(0), QString(c.x) + '|' + c.piecewise);
    }
}

TEST(TransformInterpolate, TellsWhatItDid)
{
    const Dataset bottom = grid({"s|v", "0|0", "a|1", "1|b", "c|d", "10|100"});
    const TransformRun run = interpolate(grid({"x", "20", "p", "", "-1", "4", "%1", "q", "r", "s"}), bottom, "Linear");
    EXPECT_EQ(run.result.header(), (QStringList{"x", "Interpolate v"}));
    EXPECT_EQ(run.result.columnValues(ColumnIndex(1)), (QStringList{"100", "", "", "0", "40", "", "", "", ""}));
    EXPECT_EQ(run.resultText(), "3 values interpolated");
    EXPECT_EQ(run.warnings(),
        (QStringList{"2 non-numeric values in s:\n'a' at row 2\n'c' at row 4",
            "2 non-numeric values in v:\n'b' at row 3\n'd' at row 4",
            "6 non-numeric values in x:\n'p' at row 2\n'' at row 3\n'%1' at row 6\n'q' at row 7\n'r' at row 8\n+ 1 "
            "other",
            "2 values in x outside value range in s:\n'20' at row 1\n'-1' at row 4"}));
}

TEST(TransformInterpolate, NeedsTwoInputsAndThreeColumns)
{
    const Dataset top = grid({"x|", "1|"});
    const OptionSettings named{{"Auto_New_Name", false}, {"New_Name", "y"}};
    const TransformRun alone = runTransform("Interpolate", named, {top});
    EXPECT_EQ(alone.resultText(), "Connect a second dataset");
    EXPECT_EQ(alone.result.header(), (QStringList{"x", "2", "y"}));
    EXPECT_EQ(rows(alone.result), QStringList{"1||"});

    const TransformRun unset = runTransform("Interpolate", {{"Top_Sample_Column", 1}}, {top, grid({"s|v", "1|2"})});
    EXPECT_EQ(unset.resultText(), "No changes");
    EXPECT_EQ(rows(unset.result), QStringList{"1||"});
    EXPECT_EQ(unset.warnings(), QStringList{"2 options not set ('Bottom sample column','Bottom value column')"});
    EXPECT_EQ(interpolate(top, grid({"s|v", "1|2"}), "Linear", named).result.header(), (QStringList{"x", "2", "y"}));
}

TEST(TransformInterpolate, FollowsItemsThatChangePlaces)
{
    TransformRun run = interpolate(grid({"x", "1"}), grid({"s|v", "1|2"}), "Linear");
    QList<DataSource *> sources{run.sources.at(0).get(), run.sources.at(1).get()};
    EXPECT_FALSE(run.transform->updateInputOrder(sources));
    run.sources.at(0)->setPosition(QPointF(0, 999));
    EXPECT_TRUE(run.transform->updateInputOrder(sources));
    EXPECT_EQ(run.transform->parameter("Top_Sample_Column")->node(), run.sources.at(1).get());
    EXPECT_EQ(run.transform->parameter("Bottom_Value_Column")->node(), run.sources.at(0).get());
    EXPECT_TRUE(run.transform->parameter("Bottom_Value_Column")->isUnset());
}
