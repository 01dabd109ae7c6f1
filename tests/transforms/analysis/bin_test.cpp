#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/analysis/bins.h"

#include <gtest/gtest.h>

namespace {

const QPair<QString, QVariant> integers{"Type", "Integer"};

OptionSettings thresholds(const char *type, const QVariant &lower, const QVariant &upper)
{
    OptionSettings options{{"Type", type == QLatin1String("Int") ? "Integer" : "Real"}};
    if (lower.isValid()) {
        options += {{"Use_Lower_Threshold", true}, {QString("Lower_Threshold_") + type, lower}};
    }
    if (upper.isValid()) {
        options += {{"Use_Upper_Threshold", true}, {QString("Upper_Threshold_") + type, upper}};
    }
    return options;
}

} // namespace

TEST(TransformBin, PutsNumbersIntoRanges)
{
    const QVariant none;
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList cells;
        QStringList rows;
    } cases[] = {
        {"empty ranges between others are listed", {integers}, {"3", "27"}, {"0-9|1", "10-19|0", "20-29|1"}},
        {"a number on the edge goes up", {integers}, {"9", "10", "10"}, {"0-9|1", "10-19|2"}},
        {"a negative number", {integers}, {"-1"}, {"-10--1|1"}},
        {"around zero", {integers}, {"-10", "-11", "0"}, {"-20--11|1", "-10--1|1", "0-9|1"}},
        {"ranges of one number", {integers, {"Bin_Size_Int", 1}}, {"5", "7"}, {"5|1", "6|0", "7|1"}},
        {"another delimiter", {integers, {"Range_Delimiter", " to "}}, {"3"}, {"0 to 9|1"}},
        {"the largest integers", {integers, {"Bin_Size_Int", 214748364}}, {"2147483647", "-2147483648"},
            {"-2362232004--2147483641|1", "-2147483640--1932735277|0", "-1932735276--1717986913|0",
                "-1717986912--1503238549|0", "-1503238548--1288490185|0", "-1288490184--1073741821|0",
                "-1073741820--858993457|0", "-858993456--644245093|0", "-644245092--429496729|0",
                "-429496728--214748365|0", "-214748364--1|0", "0-214748363|0", "214748364-429496727|0",
                "429496728-644245091|0", "644245092-858993455|0", "858993456-1073741819|0", "1073741820-1288490183|0",
                "1288490184-1503238547|0", "1503238548-1717986911|0", "1717986912-1932735275|0",
                "1932735276-2147483639|0", "2147483640-2362232003|1"}},
        {"from a lower bound on", thresholds("Int", 5, none), {"3", "5", "14", "15"}, {"<5|1", "5-14|2", "15-24|1"}},
        {"up to an upper bound", thresholds("Int", none, 15), {"3", "14", "15", "99"}, {"0-9|1", "10-14|1", "≥15|2"}},
        {"an upper bound leaves one number", thresholds("Int", none, 11), {"10"}, {"10|1"}},
        {"between bounds", thresholds("Int", 0, 20), {"-1", "5", "20"}, {"<0|1", "0-9|1", "≥20|1"}},
        {"all within the bounds", thresholds("Int", 0, 20), {"5"}, {"0-9|1"}},
        {"all beyond the bounds", thresholds("Int", 0, 20), {"-5", "21"}, {"<0|1", "≥20|1"}},
        {"real numbers", {}, {"3", "9.99", "10"}, {"0-<10|2", "10-<20|1"}},
        {"small ranges", {{"Bin_Size_Real", 0.25}}, {"0.3", "-0.1", "0.5"},
            {"-0.25-<0|1", "0-<0.25|0", "0.25-<0.5|1", "0.5-<0.75|1"}},
        {"grouped and with a currency", {}, {"$1,005"}, {"1000-<1010|1"}},
        {"long numbers are written short", {{"Bin_Size_Real", 1e7}}, {"12345678"}, {"1e+07-<2e+07|1"}},
        {"real numbers between bounds", thresholds("Real", 0.5, 15.5), {"0.4", "0.5", "10.5", "15.5"},
            {"<0.5|1", "0.5-<10.5|1", "10.5-<15.5|1", "≥15.5|1"}},
        {"nothing", {}, {}, {}},
    };
    const ScopedLocale american("en_US");
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Bin", c.options, {column(c.cells)});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.result.header(), (QStringList{"Value", "Count Value"}));
        EXPECT_EQ(run.resultText(), QString("%1 bins from %2 rows").arg(c.rows.size()).arg(c.cells.size()));
        EXPECT_EQ(run.warnings(), QStringList());
    }
}

TEST(TransformBin, TellsOfTextsThatAreNoNumbers)
{
    const TransformRun real = runTransform("Bin", {}, {column({"a", "1", "", "nan", "$nan", "1x", "-inf"})});
    EXPECT_EQ(rows(real.result), QStringList("0-<10|1"));
    EXPECT_EQ(real.warnings(),
        (QStringList{"'a' is not a real value in row 1", "'' is not a real value in row 3",
            "'nan' is not a real value in row 4", "'$nan' is not a real value in row 5", "+ 2 others"}));
    EXPECT_EQ(real.resultText(), "1 bins from 1 rows");

    const TransformRun integer = runTransform(
        "Bin", {integers}, {column({"1.5", "2.00", "2147483648", "%1", "x", "y"})});
    EXPECT_EQ(rows(integer.result), QStringList("0-9|1"));
    EXPECT_EQ(integer.warnings(),
        (QStringList{"'1.5' is not a integer value in row 1", "'2147483648' is not a integer value in row 3",
            "'%1' is not a integer value in row 4", "'x' is not a integer value in row 5", "+ 1 other"}));
}

TEST(TransformBin, RefusesWhatMakesNoSense)
{
    const ScopedLocale american("en_US");
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList cells;
        QString warning;
    } cases[] = {
        {"bounds the wrong way round", thresholds("Int", 10, 5), {"1"}, "Lower threshold >= upper threshold"},
        {"bounds that are the same", thresholds("Real", 5.0, 5.0), {"1"}, "Lower threshold >= upper threshold"},
        {"ranges without end", {{"Bin_Size_Real", 0.01}}, {"0", "1000"},
            "Too many bins (100,001), maximum allowed is 10,000"},
        {"one range too many", {integers, {"Bin_Size_Int", 1}}, {"0", "10000"},
            "Too many bins (10,001), maximum allowed is 10,000"},
        {"far more", {}, {"0", "1e300"}, "Too many bins (1e+299), maximum allowed is 10,000"},
        {"a number beyond all ranges", {{"Bin_Size_Real", 0.01}}, {"1.7e308"},
            "Too many bins (inf), maximum allowed is 10,000"},
        {"from one end to the other", {}, {"-1.7e308", "1.7e308"},
            "Too many bins (3.4e+307), maximum allowed is 10,000"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(
            "Bin", c.options + OptionSettings{{"Drilldown", true}}, {column(c.cells)});
        EXPECT_EQ(run.result.rowCount(), 0);
        EXPECT_FALSE(run.result.hasDrilldown());
        EXPECT_EQ(run.warnings(), QStringList(c.warning));
        EXPECT_TRUE(run.resultText().startsWith("0 bins from ")) << run.resultText().toStdString();
    }
    EXPECT_EQ(runOn("Bin", {integers, {"Bin_Size_Int", 1}}, column({"0", "9999"})).rowCount(), 10000);
}

TEST(TransformBin, NamesItsColumns)
{
    const Dataset input = grid({"a|b", "1|2"});
    const TransformRun unset = runTransform("Bin", {}, {input});
    EXPECT_EQ(unset.result.header(), (QStringList{"<None selected>", "Count"}));
    EXPECT_EQ(unset.result.rowCount(), 0);
    EXPECT_EQ(unset.warnings(), QStringList("1 option not set ('Column')"));
    const OptionSettings named{{"Auto_New_Name", false}, {"New_Name", "N"}};
    EXPECT_EQ(runOn("Bin", named, input).header(), (QStringList{"<None selected>", "N"}));
    EXPECT_EQ(runOn("Bin", named + OptionSettings{{"Column", "b"}}, input).header(), (QStringList{"b", "N"}));
}

TEST(TransformBin, FollowsTheLocale)
{
    const ScopedLocale german("de_DE");
    EXPECT_EQ(rows(runOn("Bin", {{"Bin_Size_Real", 0.5}}, column({"1,25", "1000,5"}))).first(), "1-<1,5|1");
}

TEST(TransformBin, RecordsTheRowsBehindEachRow)
{
    const OptionSettings options = thresholds("Int", 0, 20) + OptionSettings{{"Drilldown", true}};
    const Dataset result = runOn("Bin", options, column({"15", "x", "-1", "25", "12"}));
    EXPECT_EQ(rows(result), (QStringList{"<0|1", "10-19|2", "≥20|1"}));
    const QList<QList<RowIndex>> sources{{RowIndex(2)}, {RowIndex(0), RowIndex(4)}, {RowIndex(3)}};
    for (int row = 0; row < sources.size(); ++row) {
        EXPECT_TRUE(result.drilldownRows(RowIndex(row), ColumnIndex(0)) == sources.at(row)) << row;
    }
}

TEST(TransformBin, OffersWhatApplies)
{
    const auto active = [](const OptionSettings &options) {
        QStringList keys;
        for (const auto &state : runTransform("Bin", options, {column("1")}).transform->parameterStates()) {
            if (state.second) {
                keys.append(state.first);
            }
        }
        return keys;
    };
    EXPECT_EQ(active({}), QStringList("Bin_Size_Real"));
    EXPECT_EQ(active({{"Auto_New_Name", false}, integers}), (QStringList{"New_Name", "Bin_Size_Int"}));
    EXPECT_EQ(active(thresholds("Real", 1.0, 2.0)),
        (QStringList{"Bin_Size_Real", "Lower_Threshold_Real", "Upper_Threshold_Real"}));
    EXPECT_EQ(active(thresholds("Int", 1, QVariant())), (QStringList{"Bin_Size_Int", "Lower_Threshold_Int"}));
}

TEST(Bins, TellWhereEachNumberWent)
{
    Bins bins({false, 10.0, 0.0, 100.0, "-"});
    for (double value : {150.0, 25.0, -3.0, 5.0, 99.0}) {
        bins.add(value);
    }
    EXPECT_EQ(bins.rangeCount(), 10);
    EXPECT_EQ(bins.list().size(), 12);
    EXPECT_EQ(bins.places(), (std::vector<int>{11, 3, 0, 1, 10}));
}
