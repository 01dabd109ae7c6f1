#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

const QStringList fiveAndOne{"1", "2", "3", "4", "5", "100"};
const QPair<QString, QVariant> byQuartiles{"Score_By", "Inter Quartile Range"};

} // namespace

TEST(TransformOutliers, ActsOnOutliers)
{
    // Quartiles 2 and 5, range 3, fences -2.5 and 9.5.
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList rows;
        QString text;
    } cases[] = {
        {"changed to the fence", {}, {"1", "2", "3", "4", "5", "9.5"}, "1 changed"},
        {"kept alone", {{"Action", "Keep outlier rows"}}, {"100"}, "5 rows removed"},
        {"removed", {{"Action", "Remove outlier rows"}}, {"1", "2", "3", "4", "5"}, "1 row removed"},
        {"set", {{"Action", "Set value"}, {"New_Value", "?"}}, {"1", "2", "3", "4", "5", "?"}, "1 changed"},
        {"emptied", {{"Action", "Set value"}}, {"1", "2", "3", "4", "5", ""}, "1 changed"},
        {"set to what is there", {{"Action", "Set value"}, {"New_Value", "100"}}, fiveAndOne, "No changes"},
        {"a threshold too high", {{"Threshold", 50.0}}, fiveAndOne, "No changes"},
        {"none to keep", {{"Threshold", 50.0}, {"Action", "Keep outlier rows"}}, {}, "6 rows removed"},
        {"with scores", {{"Add_Scores", true}},
            {"1|-0.333333333333333", "2|0", "3|0", "4|0", "5|0", "9.5|31.6666666666667"}, "1 changed, 1 col added"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(
            "Outliers", OptionSettings{byQuartiles} + c.options, {column(fiveAndOne)});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), c.text);
        EXPECT_EQ(run.warnings(), QStringList());
        EXPECT_EQ(
            run.infos(), (QStringList{"6 numeric values", "Quartile 1=2", "Quartile 3=5", "Inter Quartile Range=3",
                             c.options.contains({"Threshold", 50.0}) ? "Lower fence=-148" : "Lower fence=-2.5",
                             c.options.contains({"Threshold", 50.0}) ? "Upper fence=155" : "Upper fence=9.5"}));
    }
}

TEST(TransformOutliers, ScoresByStandardDeviation)
{
    const TransformRun run = runTransform(
        "Outliers", {{"Threshold", 1.0}, {"Add_Scores", true}}, {column({"2", "4", "4", "4", "6"})});
    EXPECT_EQ(run.infos(), (QStringList{"5 numeric values", "Average (mean)=4", "Standard deviation=1.4142135623731"}));
    EXPECT_EQ(run.result.header(), (QStringList{"Value", "Score"}));
    EXPECT_EQ(rows(run.result),
        (QStringList{"2.58578643762691|-1.41421356237309", "4|0", "4|0", "4|0", "5.41421356237309|1.41421356237309"}));
    EXPECT_EQ(run.resultText(), "2 changed, 1 col added");
}

TEST(TransformOutliers, LeavesTheMiddleOutOfTheQuartiles)
{
    const TransformRun run = runTransform("Outliers", {byQuartiles}, {column({"5", "3", "1", "2", "4"})});
    EXPECT_EQ(run.infos().mid(1, 3), (QStringList{"Quartile 1=1.5", "Quartile 3=4.5", "Inter Quartile Range=3"}));
}

TEST(TransformOutliers, TreatsOtherTexts)
{
    const Dataset input = column({"1", "x", "2", "3", "", "4", "5", "$100"});
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList rows;
        QString text;
        bool areLeft;
    } cases[] = {
        {"left by the threshold", {}, {"1", "x", "2", "3", "", "4", "5", "9.5"}, "1 changed, 2 non-numeric", true},
        {"removed as outliers", {{"Action", "Remove outlier rows"}}, {"1", "2", "3", "4", "5"},
            "3 rows removed, 2 non-numeric", false},
        {"kept as no outliers", {{"Action", "Remove outlier rows"}, {"Non_Numeric", "Treat as not outlier"}},
            {"1", "x", "2", "3", "", "4", "5"}, "1 row removed, 2 non-numeric", false},
        {"kept as outliers", {{"Action", "Keep outlier rows"}}, {"x", "", "$100"}, "5 rows removed, 2 non-numeric",
            false},
        {"set, with empty scores", {{"Action", "Set value"}, {"New_Value", "0"}, {"Add_Scores", true}},
            {"1|-0.333333333333333", "0|", "2|0", "3|0", "0|", "4|0", "5|0", "0|31.6666666666667"},
            "3 changed, 1 col added, 2 non-numeric", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Outliers", OptionSettings{byQuartiles} + c.options, {input});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), c.text);
        QStringList warnings{"2 non-numeric values:", "'x' at row 2", "'' at row 5"};
        if (c.areLeft) {
            warnings.prepend("Can't change non-numeric values to threshold");
        }
        EXPECT_EQ(run.warnings(), warnings);
    }
    const TransformRun many = runTransform(
        "Outliers", {byQuartiles}, {column({"1", "2", "3", "a", "b", "c", "d", "e", "f", "g"})});
    EXPECT_EQ(many.warnings().last(), "+ 2 others");
}

TEST(TransformOutliers, StopsWithoutASpread)
{
    const struct
    {
        const char *what;
        QStringList cells;
        bool quartiles;
        QString warning;
    } cases[] = {
        {"two numbers", {"1", "2", "x"}, false, "Insufficient numeric values to calculate outliers"},
        {"no rows", {}, true, "Insufficient numeric values to calculate outliers"},
        {"equal numbers", {"5", "5", "5"}, false, "Standard deviation = 0"},
        {"equal numbers whose mean is rounded", {"0.1", "0.1", "0.1"}, false, "Standard deviation = 0"},
        {"equal numbers, by quartiles", {"5", "5", "5"}, true, "Inter quartile range = 0"},
        {"an equal bulk", {"5", "5", "5", "5", "9"}, true, "Inter quartile range = 2"},
        {"sums beyond the largest number", {"1e308", "1e308", "-1e308"}, false,
            "Could not calculate standard deviation"},
        {"a range beyond the largest number", {"1.7e308", "0", "-1.7e308"}, true,
            "Could not calculate quartile values"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options{
            {"Score_By", c.quartiles ? "Inter Quartile Range" : "Standard Deviation"}, {"Add_Scores", true}};
        const TransformRun run = runTransform("Outliers", options, {column(c.cells)});
        if (c.warning.endsWith("= 2")) {
            EXPECT_EQ(run.warnings(), QStringList()) << "the upper half 5, 9 has the median 7";
            continue;
        }
        EXPECT_EQ(rows(run.result), c.cells);
        EXPECT_EQ(run.warnings(), QStringList{c.warning});
        EXPECT_EQ(run.resultText(), "No changes");
    }
}

TEST(TransformOutliers, ReadsAndWritesByTheLocale)
{
    const ScopedLocale german("de_DE");
    EXPECT_EQ(rows(runOn("Outliers", {byQuartiles}, column({"1", "2", "3", "4", "5", "1.000,5"}))).last(), "9,5");
}

TEST(TransformOutliers, OptionsFollowTheAction)
{
    const TransformRun run = runTransform("Outliers", {}, {column(fiveAndOne)});
    using States = QList<QPair<QString, bool>>;
    EXPECT_EQ(run.transform->parameterStates(), (States{{"New_Value", false}, {"Non_Numeric", false}}));
    setOption(*run.transform, "Action", "Set value");
    EXPECT_EQ(run.transform->parameterStates(), (States{{"New_Value", true}, {"Non_Numeric", true}}));
    setOption(*run.transform, "Action", "Keep outlier rows");
    EXPECT_EQ(run.transform->parameterStates(), (States{{"New_Value", false}, {"Non_Numeric", true}}));
}
