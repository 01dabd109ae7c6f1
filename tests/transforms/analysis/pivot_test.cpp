#include "data/valuesummary.h"
#include "support/grid.h"
#include "support/randomtext.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/options/parameter.h"

#include <QMap>
#include <gtest/gtest.h>

namespace {

// The option "Columns" holds the columns that make the pivot's rows.
const OptionSettings byRegionAndYear{{"Columns", "region"}, {"Rows", "year"}, {"Sum", "n"}};
const OptionSettings byRegion{{"Columns", "region"}, {"Sum", "n"}};
const OptionSettings byYear{{"Rows", "year"}, {"Sum", "n"}};

Dataset sales()
{
    return grid({"region|year|n", "north|2024|1", "south|2023|2", "north|2024|4", "north|2023|8.5", "east|2024|-1"});
}

OptionSettings operator|(const OptionSettings &a, const OptionSettings &b)
{
    return a + b;
}

QList<int> sources(const Dataset &dataset, int row, int column)
{
    QList<int> rows;
    for (RowIndex source : dataset.drilldownRows(RowIndex(row), ColumnIndex(column))) {
        rows.append(source.toInt());
    }
    return rows;
}

} // namespace

TEST(TransformPivot, MakesACrossTable)
{
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList header;
        QStringList rows;
    } cases[] = {
        {"rows, columns and all totals", byRegionAndYear, {"region", "2023", "2024", "Grand Sum"},
            {"east|0|-1|-1", "north|8.5|5|13.5", "south|2|0|2", "Grand Sum|10.5|4|14.5"}},
        {"totals of rows", byRegionAndYear | OptionSettings{{"Total_Type", "Rows"}},
            {"region", "2023", "2024", "Grand Sum"}, {"east|0|-1|-1", "north|8.5|5|13.5", "south|2|0|2"}},
        {"totals of columns", byRegionAndYear | OptionSettings{{"Total_Type", "Columns"}}, {"region", "2023", "2024"},
            {"east|0|-1", "north|8.5|5", "south|2|0", "Grand Sum|10.5|4"}},
        {"no totals", byRegionAndYear | OptionSettings{{"Totals", false}}, {"region", "2023", "2024"},
            {"east|0|-1", "north|8.5|5", "south|2|0"}},
        {"empty where there is nothing", byRegionAndYear | OptionSettings{{"Totals", false}, {"Non_Calc", "Empty"}},
            {"region", "2023", "2024"}, {"east||-1", "north|8.5|5", "south|2|"}},
        {"rows only", byRegion, {"region", "Grand Sum"}, {"east|-1", "north|13.5", "south|2", "Grand Sum|14.5"}},
        {"rows only, without total", byRegion | OptionSettings{{"Totals", false}}, {"region", "Grand Sum"},
            {"east|-1", "north|13.5", "south|2"}},
        {"rows only, whatever is totalled", byRegion | OptionSettings{{"Total_Type", "Rows"}}, {"region", "Grand Sum"},
            {"east|-1", "north|13.5", "south|2", "Grand Sum|14.5"}},
        {"columns only", byYear, {"year", "2023", "2024", "Grand Sum"}, {"Grand Sum|10.5|4|14.5"}},
        {"columns only, without total", byYear | OptionSettings{{"Totals", false}}, {"year", "2023", "2024"},
            {"Grand Sum|10.5|4"}},
        {"averages of all values, not of averages", byRegionAndYear | OptionSettings{{"Summarize_As", "Average"}},
            {"region", "2023", "2024", "Grand Average"},
            {"east|0|-1|-1", "north|8.5|2.5|4.5", "south|2|0|2", "Grand Average|5.25|1.33333333333333|2.9"}},
        {"counts", byRegionAndYear | OptionSettings{{"Summarize_As", "Count"}},
            {"region", "2023", "2024", "Grand Count"},
            {"east|0|1|1", "north|1|2|3", "south|1|0|1", "Grand Count|2|3|5"}},
        {"smallest", byRegion | OptionSettings{{"Summarize_As", "Minimum"}}, {"region", "Grand Minimum"},
            {"east|-1", "north|1", "south|2", "Grand Minimum|-1"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Pivot", c.options, {sales()});
        EXPECT_EQ(run.result.header(), c.header);
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), "Pivot table created");
    }
}

TEST(TransformPivot, NamesAndSortsKeys)
{
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList input;
        QStringList header;
        QStringList rows;
    } cases[] = {
        {"by text and not by number", {{"Columns", "k"}, {"Sum", "n"}, {"Totals", false}},
            {"k|n", "2|1", "10|1", "9|1"}, {"k", "Grand Sum"}, {"10|1", "2|1", "9|1"}},
        {"an empty key comes first and has a name", {{"Columns", "k"}, {"Rows", "l"}, {"Sum", "n"}, {"Totals", false}},
            {"k|l|n", "a||1", "||2", "|b|3"}, {"k", "(Empty)", "b"}, {"(Empty)|2|3", "a|1|0"}},
        {"keys of several parts",
            {{"Columns", QStringList{"b", "a"}}, {"Rows", QStringList{"c", "d"}}, {"Sum", "n"}, {"Totals", false}},
            {"a|b|c|d|n", "1|x|p|q|1", "|x|p||2", "|||q|4", "||||8"},
            {"b/a", "(Empty)/(Empty)", "(Empty)/q", "p/(Empty)", "p/q"},
            {"(Empty)|8|4|0|0", "x/(Empty)|0|0|2|0", "x/1|0|0|0|1"}},
        {"another delimiter", {{"Columns", QStringList{"a", "b"}}, {"Sum", "n"}, {"Delimiter", " - "}},
            {"a|b|n", "1|x|5"}, {"a - b", "Grand Sum"}, {"1 - x|5", "Grand Sum|5"}},
        {"a delimiter in a text doesn't join keys",
            {{"Columns", QStringList{"a", "b"}}, {"Sum", "n"}, {"Totals", false}}, {"a|b|n", "x/y|z|1", "x|y/z|2"},
            {"a/b", "Grand Sum"}, {"x/y/z|2", "x/y/z|1"}},
        {"by code unit", {{"Columns", "k"}, {"Sum", "n"}, {"Totals", false}}, {"k|n", "é|1", "b|1", "B|1", "z|1"},
            {"k", "Grand Sum"}, {"B|1", "b|1", "z|1", "é|1"}},
        {"blank names are numbers", {{"Columns", 1}, {"Sum", 2}, {"Totals", false}}, {"|", "a|1"}, {"1", "Grand Sum"},
            {"a|1"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const Dataset result = runOn("Pivot", c.options, grid(c.input));
        EXPECT_EQ(result.header(), c.header);
        EXPECT_EQ(rows(result), c.rows);
    }
}

TEST(TransformPivot, TellsOfTextsThatAreNoNumbers)
{
    const Dataset input = grid({"region|year|n", "a|1|x", "a|2|3", "b|3|", "a|2|y", "c|1|", "c|4|z", "a|1|nan"});
    const TransformRun run = runTransform("Pivot", byRegionAndYear | OptionSettings{{"Non_Calc", "Empty"}}, {input});
    EXPECT_EQ(run.warnings(),
        (QStringList{"'x' is not a numerical value in column 'n' at row 1",
            "'' is not a numerical value in column 'n' at row 3", "'y' is not a numerical value in column 'n' at row 4",
            "'' is not a numerical value in column 'n' at row 5", "+ 2 others"}));
    EXPECT_EQ(run.result.header(), (QStringList{"region", "1", "2", "4", "Grand Sum"}))
        << "rows without a value take no part";
    EXPECT_EQ(rows(run.result), (QStringList{"a|0|3||3", "c|||0|0", "Grand Sum|0|3|0|3"}))
        << "texts that aren't numbers do, though they sum up to 0";

    const TransformRun average = runTransform(
        "Pivot", byRegion | OptionSettings{{"Summarize_As", "Average"}}, {input.withRows({0, 1})});
    EXPECT_EQ(rows(average.result), (QStringList{"a|3", "Grand Average|3"}));
    EXPECT_EQ(average.warnings().size(), 1 + 1) << "and the option that isn't set";

    const TransformRun count = runTransform(
        "Pivot", byRegionAndYear | OptionSettings{{"Summarize_As", "Count distinct"}}, {input});
    EXPECT_EQ(count.warnings(), QStringList());
    EXPECT_EQ(rows(count.result), (QStringList{"a|2|2|0|4", "c|0|0|1|1", "Grand Count distinct|2|2|1|5"}));
}

TEST(TransformPivot, ComesOutEmptyWithoutValues)
{
    for (const OptionSettings &options :
        {OptionSettings(), OptionSettings{{"Columns", "region"}}, OptionSettings{{"Sum", "n"}}}) {
        const TransformRun run = runTransform("Pivot", options, {sales()});
        EXPECT_EQ(run.result.columnCount(), 0);
        EXPECT_EQ(run.resultText(), "Pivot table created");
    }
    const Dataset none = sales().withoutRows();
    const Dataset crossed = runOn("Pivot", byRegionAndYear, none);
    EXPECT_EQ(crossed.header(), (QStringList{"region", "Grand Sum"}));
    EXPECT_EQ(rows(crossed), QStringList("Grand Sum|0"));
    const Dataset byRows = runOn("Pivot", byRegion | OptionSettings{{"Non_Calc", "Empty"}}, none);
    EXPECT_EQ(byRows.header(), (QStringList{"region", "Grand Sum"}));
    EXPECT_EQ(rows(byRows), QStringList("Grand Sum|"));
    const Dataset byColumns = runOn("Pivot", byYear, none);
    EXPECT_EQ(byColumns.header(), (QStringList{"year", "Grand Sum"}));
    EXPECT_EQ(byColumns.rowCount(), 0);
}

TEST(TransformPivot, RecordsTheRowsBehindEachCell)
{
    const Dataset result = runOn("Pivot", byRegionAndYear | OptionSettings{{"Drilldown", true}}, sales());
    EXPECT_EQ(sources(result, 1, 2), (QList<int>{0, 2})) << "a pair";
    EXPECT_EQ(sources(result, 0, 1), QList<int>()) << "no pair";
    EXPECT_EQ(sources(result, 1, 0), QList<int>()) << "a label";
    EXPECT_EQ(sources(result, 1, 3), (QList<int>{0, 2, 3})) << "the total of a row";
    EXPECT_EQ(sources(result, 3, 1), (QList<int>{1, 3})) << "the total of a column";
    EXPECT_EQ(sources(result, 3, 3), QList<int>()) << "the grand total";
    const OptionSettings rowsOnly = byRegion | OptionSettings{{"Drilldown", true}};
    EXPECT_EQ(sources(runOn("Pivot", rowsOnly, sales()), 3, 1), (QList<int>{0, 1, 2, 3, 4}));
    EXPECT_FALSE(runOn("Pivot", byRegionAndYear, sales()).hasDrilldown());
}

TEST(TransformPivot, OffersWhatApplies)
{
    const auto states = [](const OptionSettings &options) {
        return runTransform("Pivot", options, {sales()}).transform->parameterStates();
    };
    const auto expected = [](bool type, bool delimiter) {
        return QList<QPair<QString, bool>>{{"Total_Type", type}, {"Delimiter", delimiter}};
    };
    EXPECT_EQ(states(byRegionAndYear), expected(true, false));
    EXPECT_EQ(states(byRegionAndYear | OptionSettings{{"Totals", false}}), expected(false, false));
    EXPECT_EQ(states(byRegion), expected(false, false));
    EXPECT_EQ(states({{"Rows", QStringList{"region", "year"}}}), expected(false, true));
    const TransformRun run = runTransform("Pivot", {}, {sales()});
    EXPECT_EQ(run.transform->parameter("Rows")->label(), "Pivot columns");
    EXPECT_TRUE(run.transform->parameter("Columns")->hideSortOrder());
    EXPECT_EQ(run.warnings(), QStringList("3 options not set ('Pivot columns','Pivot rows','Values')"));
}

TEST(TransformPivot, RefusesTablesThatAreTooLarge)
{
    const ScopedLocale american("en_US");
    Dataset input = grid({"k|n"});
    for (int row = 0; row < 50000; ++row) {
        input.appendRow({QString::number(row), "1"});
    }
    const TransformRun run = runTransform("Pivot", {{"Columns", "k"}, {"Rows", "k"}, {"Sum", "n"}}, {input});
    EXPECT_EQ(run.result.columnCount(), 0);
    EXPECT_EQ(run.resultText(), "Too many cells");
    EXPECT_EQ(run.warnings(), QStringList("Too many cells (50,002 cols x 50,001 rows)"));
}

TEST(TransformPivot, SumsUpEachGroupInTheOrderOfTheInput)
{
    RandomText random(23);
    Dataset input = grid({"a|b|n"});
    QMap<QString, QMap<QString, QStringList>> pairs;
    QMap<QString, QStringList> byRow;
    QMap<QString, QStringList> byColumn;
    QStringList all;
    for (int row = 0; row < 3000; ++row) {
        const QString a = "row " + QString::number(random.below(25));
        const QString b = "column number " + QString::number(random.below(30));
        const QString n = random.chance(5) ? "no number" : QString::number(random.below(100000) / 7.0, 'g', 17);
        input.appendRow({a, b, n});
        pairs[a][b].append(n);
        byRow[a].append(n);
        byColumn[b].append(n);
        all.append(n);
    }
    const QStringList kinds = runTransform("Pivot", {}, {input}).transform->parameter("Summarize_As")->choices();
    ASSERT_EQ(kinds.size(), 9);
    for (int i = 0; i < kinds.size(); ++i) {
        SCOPED_TRACE(kinds.at(i).toStdString());
        const auto kind = static_cast<SummaryKind>(i);
        QStringList expected;
        for (const QString &a : byRow.keys()) {
            QStringList cells{a};
            for (const QString &b : byColumn.keys()) {
                cells.append(pairs[a].contains(b) ? summarizeValues(kind, pairs[a][b]) : QString("0"));
            }
            expected.append((cells << summarizeValues(kind, byRow[a])).join('|'));
        }
        QStringList totals{"Grand " + kinds.at(i)};
        for (const QStringList &values : byColumn) {
            totals.append(summarizeValues(kind, values));
        }
        expected.append((totals << summarizeValues(kind, all)).join('|'));
        const OptionSettings options{{"Columns", "a"}, {"Rows", "b"}, {"Sum", "n"}, {"Summarize_As", kinds.at(i)}};
        EXPECT_EQ(rows(runOn("Pivot", options, input)), expected);
    }
}
