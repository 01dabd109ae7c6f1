#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedsettings.h"
#include "transforms/options/parameter.h"

#include <QMap>
#include <gtest/gtest.h>

namespace {

// Total

TEST(TransformTotal, KeepsRunningSums)
{
    const struct
    {
        const char *what;
        QStringList input;
        OptionSettings options;
        QStringList expected;
        QStringList warnings;
        QString text;
    } cases[] = {
        {"one sum; a text repeats it", {"a|n", "x|1.5", "y|two", "x|$3", "x|"}, {{"Column", "n"}},
            {"1.5", "1.5", "4.5", "4.5"},
            {"'two' is not a numerical value in row 2", "'' is not a numerical value in row 4"}, "2 rows totalled"},
        {"one for each value, case and blanks counted", {"a|n", "x|1", "X|10", "x|2", " x|5", "X|ten", "X|20"},
            {{"Column", "n"}, {"By", "a"}}, {"1", "10", "3", "5", "10", "30"},
            {"'ten' is not a numerical value in row 5"}, "5 rows totalled"},
        {"five failures are named", {"a|n", "x|a", "x|b", "x|c", "x|d", "x|e", "x|f", "x|7"}, {{"Column", "n"}},
            {"0", "0", "0", "0", "0", "0", "7"},
            {"'a' is not a numerical value in row 1", "'b' is not a numerical value in row 2",
                "'c' is not a numerical value in row 3", "'d' is not a numerical value in row 4",
                "'e' is not a numerical value in row 5", "+ 1 other"},
            "1 row totalled"},
        {"no column", {"a|n", "x|1"}, {}, {""}, {"1 option not set ('Column')"}, "0 rows totalled"},
        {"sums past the largest number", {"a|n", "x|1e308", "x|1e308"}, {{"Column", "n"}},
            {"1" + QString(308, '0'), "NaN"}, {}, "2 rows totalled"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Total", c.options, {grid(c.input)});
        const QStringList sums = run.result.columnValues(run.result.lastColumn());
        EXPECT_EQ(sums.size(), c.expected.size());
        for (int i = 0; i < sums.size(); ++i) {
            EXPECT_EQ(sums.at(i).left(1), c.expected.at(i).left(1));
            EXPECT_TRUE(sums.at(i).size() > 300 || sums.at(i) == c.expected.at(i)) << sums.at(i).toStdString();
        }
        EXPECT_EQ(run.warnings(), c.warnings);
        EXPECT_EQ(run.resultText(), c.text);
    }
}

TEST(TransformTotal, NamesItsColumn)
{
    const struct
    {
        const char *what;
        Dataset input;
        OptionSettings options;
        QStringList names;
    } cases[] = {
        {"by itself", grid({"a|n", "1|2"}), {{"Column", "n"}}, {"a", "n", "Total n"}},
        {"without a header", plainGrid({"1|2"}), {{"Column", 2}}, {"1", "2", "Total 2"}},
        {"without a column", grid({"a|n", "1|2"}), {}, {"a", "n", "Total"}},
        {"by the user", grid({"a|n", "1|2"}), {{"Auto_New_Name", false}, {"New_Name", "Sum"}}, {"a", "n", "Sum"}},
        {"by nothing", grid({"a|", "1|2"}), {{"Auto_New_Name", false}, {"New_Name", ""}}, {"a", "2", "3"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(runOn("Total", c.options, c.input).header(), c.names);
    }
}

// Stats

QString statOf(const QStringList &numbers, const OptionSettings &options)
{
    const Dataset result = runOn("Stats", options, column(numbers));
    return result.value(result.lastRow(), ColumnIndex(0));
}

TEST(TransformStats, CalculatesEachStatistic)
{
    const struct
    {
        const char *what;
        const char *calculation;
        QStringList numbers;
        QString expected;
    } cases[] = {
        {"nothing adds up to 0", "Sum", {"x"}, "0"},
        {"a sum", "Sum", {"1", "x", "2.5"}, "3.5"},
        {"the least", "Minimum", {"3", "-1", "2"}, "-1"},
        {"the largest", "Maximum", {"3", "-1", "2"}, "3"},
        {"none", "Maximum", {}, "N/A"},
        {"a mean", "Average", {"1", "2"}, "1.5"},
        {"no mean", "Average", {""}, "N/A"},
        {"the middle of three", "Median", {"9", "1", "5"}, "5"},
        {"the mean of two in the middle", "Median", {"9", "1", "5", "6"}, "5.5"},
        {"two modes", "Mode", {"2", "1", "1", "2", "3"}, "1,2"},
        {"all are modes", "Mode", {"3", "2", "1"}, "1,2,3"},
        {"no mode", "Mode", {"x"}, "N/A"},
        {"of a sample", "Standard deviation", {"2", "4", "4", "4", "5", "5", "7", "9"}, "2.1380899352994"},
        {"of one number", "Standard deviation", {"2"}, "N/A"},
        {"its square", "Variance", {"1", "2", "3", "4", "5"}, "2.5"},
        {"of one number", "Variance", {"2"}, "N/A"},
        {"the middle is in neither half", "Q1", {"5", "4", "3", "2", "1"}, "1.5"},
        {"the middle is in neither half", "Q3", {"5", "4", "3", "2", "1"}, "4.5"},
        {"even halves", "Q1", {"1", "2", "3", "4"}, "1.5"},
        {"a single value", "Q3", {"8"}, "8"},
        {"the distance of quartiles", "IQR", {"1", "2", "3", "4", "5"}, "3"},
        {"of a single value", "IQR", {"8"}, "0"},
        {"skewed to the right", "Skew", {"1", "1", "4"}, "1.73205080756888"},
        {"of a constant", "Skew", {"3", "3"}, "N/A"},
        {"of one number", "Skew", {"3"}, "N/A"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(statOf(c.numbers, {{"Columns", "Value"}, {"Calculation", c.calculation}}), c.expected)
            << c.calculation;
    }
}

TEST(TransformStats, InterpolatesPercentiles)
{
    const struct
    {
        const char *what;
        const char *calculation;
        int percentile;
        QStringList numbers;
        QString expected;
    } cases[] = {
        {"between two", "Percentile (inclusive)", 50, {"4", "3", "2", "1"}, "2.5"},
        {"near the top", "Percentile (inclusive)", 99, {"1", "2"}, "1.99"},
        {"of one", "Percentile (inclusive)", 10, {"7"}, "7"},
        {"of none", "Percentile (inclusive)", 10, {"x"}, "N/A"},
        {"past the last", "Percentile (exclusive)", 90, {"1", "2", "3", "4"}, "N/A"},
        {"before the first", "Percentile (exclusive)", 10, {"1", "2", "3", "4"}, "N/A"},
        {"between two", "Percentile (exclusive)", 50, {"1", "2", "3", "4"}, "2.5"},
        {"the last itself", "Percentile (exclusive)", 75, {"1", "2", "3"}, "3"},
        {"of none", "Percentile (exclusive)", 50, {}, "N/A"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options{
            {"Columns", "Value"}, {"Calculation", c.calculation}, {"Percentile", c.percentile}};
        EXPECT_EQ(statOf(c.numbers, options), c.expected) << c.calculation;
    }
}

TEST(TransformStats, AddsARowAndAColumn)
{
    const QStringList input{"name|a|b", "x|1|10", "y|2|?", "z|3|30"};
    const QStringList columns{"a", "b"};
    const QString failure = "'?' is not a numerical value in column 'b' row 2";
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList expected;
        QStringList warnings;
        QString text;
    } cases[] = {
        {"a row, with its name where nothing is selected", {{"Columns", columns}, {"Calculation", "Average"}},
            {"x|1|10", "y|2|?", "z|3|30", "Average|2|20"}, {failure}, "Average row added"},
        {"a row below the first column", {{"Columns", "name"}, {"Calculation", "Minimum"}},
            {"x|1|10", "y|2|?", "z|3|30", "N/A||"},
            {"Invalid results for 1 column", "'x' is not a numerical value in column 'name' row 1",
                "'y' is not a numerical value in column 'name' row 2",
                "'z' is not a numerical value in column 'name' row 3"},
            "Minimum row added"},
        {"a column", {{"Columns", columns}, {"On", "Rows"}}, {"x|1|10|11", "y|2|?|2", "z|3|30|33"}, {failure},
            "Sum col added"},
        {"a column of invalid results", {{"Columns", columns}, {"On", "Rows"}, {"Calculation", "Variance"}},
            {"x|1|10|40.5", "y|2|?|N/A", "z|3|30|364.5"}, {"Invalid results for 1 row", failure}, "Variance col added"},
        {"both, with all in the corner", {{"Columns", columns}, {"On", "Columns and rows"}},
            {"x|1|10|11", "y|2|?|2", "z|3|30|33", "Sum|6|40|46"}, {failure, failure}, "Sum col and row added"},
        {"nothing selected", {}, {"x|1|10", "y|2|?", "z|3|30"}, {"1 option not set ('Columns')"}, "No changes"},
        {"nothing selected for a column", {{"On", "Rows"}}, {"x|1|10|", "y|2|?|", "z|3|30|"},
            {"1 option not set ('Columns')"}, "No changes"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Stats", c.options, {grid(input)});
        EXPECT_EQ(rows(run.result), c.expected);
        EXPECT_EQ(run.warnings(), c.warnings);
        EXPECT_EQ(run.resultText(), c.text);
    }
}

TEST(TransformStats, NamesTheColumnOnlyBesideOthers)
{
    const OptionSettings options{{"Columns", 1}, {"On", "Rows"}, {"Calculation", "IQR"}};
    EXPECT_EQ(runOn("Stats", options, grid({"a", "1"})).header(), (QStringList{"a", "IQR"}));
    EXPECT_FALSE(runOn("Stats", options, plainGrid({"1"})).hasHeader());
}

TEST(TransformStats, CountsFailuresBeyondFour)
{
    const QStringList warnings = runTransform("Stats", {}, {column({"a", "b", "c", "d", "e", "f"})}).warnings();
    EXPECT_EQ(warnings.size(), 5);
    EXPECT_EQ(warnings.last(), "+ 2 others");
}

TEST(TransformStats, PercentileAppliesToPercentiles)
{
    const TransformRun sum = runTransform("Stats", {}, {column("1")});
    EXPECT_TRUE(sum.transform->parameterStates().contains({"Percentile", false}));
    const TransformRun percentile = runTransform("Stats", {{"Calculation", "Percentile (exclusive)"}}, {column("1")});
    EXPECT_TRUE(percentile.transform->parameterStates().contains({"Percentile", true}));
}

// Summary

QMap<QString, QString> summaryOf(const QStringList &values, bool dates = false, bool statistics = false)
{
    const Dataset result = runOn("Summary", {{"Check_For_Dates", dates}, {"Check_Stats", statistics}}, column(values));
    QMap<QString, QString> metrics;
    for (int row = 0; row < result.rowCount(); ++row) {
        metrics.insert(result.value(RowIndex(row), ColumnIndex(0)), result.value(RowIndex(row), ColumnIndex(1)));
    }
    return metrics;
}

TEST(TransformSummary, ProfilesValues)
{
    const QStringList mixed{"", "7", "7.0", "7", "$-2.5", "TRUE", " ", "nan", "Zoë", "\U0001F600"};
    const struct
    {
        const char *what;
        QStringList values;
        QMap<QString, QString> expected;
    } cases[] = {
        {"values of all kinds", mixed,
            {{"Empty values", "1"}, {"Non-empty values", "9"}, {"Numeric values", "4"}, {"Integer values", "3"},
                {"Real values", "1"}, {"Boolean values", "1"}, {"Text values", "4"}, {"Distinct values", "9"},
                {"Unique values", "8"}, {"Duplicated values", "1"}, {"Min length inc empty", "0"},
                {"Min length ex empty", "1"}, {"Max length", "5"}, {"Average length inc empty", "2.3"},
                {"Average length ex empty", "2.55555555555556"}, {"Min numeric", "-2.5"}, {"Max numeric", "7"},
                {"Range numeric", "9.5"}, {"Negative numeric", "1"}, {"Zero numeric", "0"}, {"Positive numeric", "3"},
                {"Most frequent", "7"}}},
        {"only texts have no numbers", {"b", "a", "b"},
            {{"Min numeric", "N/A"}, {"Range numeric", "N/A"}, {"Zero numeric", "0"}, {"Max length", "1"},
                {"Most frequent", "b"}}},
        {"only empty values", {"", ""},
            {{"Min length inc empty", "0"}, {"Min length ex empty", "N/A"}, {"Max length", "0"},
                {"Average length inc empty", "0"}, {"Average length ex empty", "N/A"}, {"Distinct values", "1"},
                {"Most frequent", "(empty)"}}},
        {"no values", {},
            {{"Empty values", "0"}, {"Min length inc empty", "N/A"}, {"Max length", "N/A"},
                {"Average length inc empty", "N/A"}, {"Most frequent", "N/A"}}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QMap<QString, QString> metrics = summaryOf(c.values);
        EXPECT_EQ(metrics.size(), 22);
        for (auto it = c.expected.cbegin(); it != c.expected.cend(); ++it) {
            EXPECT_EQ(metrics.value(it.key()), it.value()) << it.key().toStdString();
        }
    }
}

TEST(TransformSummary, AddsStatistics)
{
    const struct
    {
        const char *what;
        QStringList values;
        QMap<QString, QString> expected;
    } cases[] = {
        {"of numbers among others", {"1", "x", "2", "3", "4", "5", "3"},
            {{"Sum numeric", "18"}, {"Average numeric", "3"}, {"Median numeric", "3"}, {"Mode numeric", "3"},
                {"Stddev numeric", "1.4142135623731"}, {"Variance numeric", "2"}, {"Q1 numeric", "2"},
                {"Q3 numeric", "4"}, {"IQR numeric", "2"}, {"Skew numeric", "0"}}},
        {"of fractions", {"0.1", "2.25"}, {{"Sum numeric", "2.35"}, {"Average numeric", "1.175"}}},
        {"of one number", {"5"},
            {{"Stddev numeric", "N/A"}, {"Variance numeric", "N/A"}, {"Q1 numeric", "5"}, {"Skew numeric", "N/A"}}},
        {"of none", {"x"}, {{"Sum numeric", "0"}, {"Median numeric", "N/A"}, {"Mode numeric", "N/A"}}},
        {"of many modes", {"1", "2", "3", "4", "5", "6", "7"}, {{"Mode numeric", "1,2,3,4,5 + 2 more"}}},
        {"of five modes", {"1", "2", "3", "4", "5"}, {{"Mode numeric", "1,2,3,4,5"}}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QMap<QString, QString> metrics = summaryOf(c.values, false, true);
        EXPECT_EQ(metrics.size(), 32);
        for (auto it = c.expected.cbegin(); it != c.expected.cend(); ++it) {
            EXPECT_EQ(metrics.value(it.key()), it.value()) << it.key().toStdString();
        }
    }
}

TEST(TransformSummary, AddsDates)
{
    ScopedSettings settings;
    Settings::current().setDateFormats({"d/M/yyyy", "yyyyMMdd"});
    const QStringList values{"3/1/2024", "1/1/2024", "03/01/2024", "7", "true", "31/2/2024", "6/1/2024"};
    QMap<QString, QString> metrics = summaryOf(values, true);
    EXPECT_EQ(metrics.size(), 29);
    const QMap<QString, QString> expected{{"Date values", "4"}, {"Text values", "1"}, {"Boolean values", "1"},
        {"Format date", "d/M/yyyy"}, {"Min date", "1/1/2024"}, {"Max date", "6/1/2024"}, {"Range date", "6 days"},
        {"Distinct dates", "3"}, {"Missing dates", "3"}};
    for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
        EXPECT_EQ(metrics.value(it.key()), it.value()) << it.key().toStdString();
    }
    EXPECT_EQ(summaryOf({"5/6/2024"}, true).value("Range date"), "1 day");
    metrics = summaryOf({"20240105", "20240106"}, true);
    EXPECT_EQ(metrics.value("Numeric values"), "2");
    EXPECT_EQ(metrics.value("Date values"), "0");
    EXPECT_EQ(metrics.value("Min date"), "N/A");
    EXPECT_EQ(summaryOf({"x"}, true).value("Format date"), "N/A");
}

TEST(TransformSummary, HasAColumnForEachSelected)
{
    const Dataset input = grid({"a|b|c", "1|x|", "2|y|"});
    const TransformRun run = runTransform(
        "Summary", {{"Columns", QStringList{"c", "a"}}, {"Check_For_Dates", true}, {"Check_Stats", true}}, {input});
    EXPECT_EQ(run.result.header(), (QStringList{"Metric", "a", "c"}));
    EXPECT_EQ(run.resultText(), "Summary created");
    EXPECT_EQ(run.result.columnValues(ColumnIndex(0)),
        (QStringList{"Empty values", "Non-empty values", "Numeric values", "Integer values", "Real values",
            "Boolean values", "Date values", "Text values", "Distinct values", "Unique values", "Duplicated values",
            "Min length inc empty", "Min length ex empty", "Max length", "Average length inc empty",
            "Average length ex empty", "Min numeric", "Max numeric", "Range numeric", "Negative numeric",
            "Zero numeric", "Positive numeric", "Sum numeric", "Average numeric", "Median numeric", "Mode numeric",
            "Stddev numeric", "Variance numeric", "Q1 numeric", "Q3 numeric", "IQR numeric", "Skew numeric",
            "Format date", "Min date", "Max date", "Range date", "Distinct dates", "Missing dates", "Most frequent"}));
    EXPECT_EQ(rows(run.result).first(), "Empty values|0|2");
    EXPECT_EQ(runOn("Summary", {}, input).columnCount(), input.columnCount() + 1) << "a new item takes all columns";
    EXPECT_EQ(runOn("Summary", {{"Columns", QStringList()}}, input).columnCount(), 0);
}

} // namespace
