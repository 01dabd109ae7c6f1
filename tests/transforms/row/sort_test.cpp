#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"

#include <gtest/gtest.h>

namespace {

TEST(TransformSort, SortsAndReports)
{
    const Dataset input = grid({"name|n", "b|10", "A|9", "a|100"});
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList rows;
        QStringList infos;
        QString text;
    } cases[] = {
        {"by text", {{"Columns", "name"}}, {"A|9", "a|100", "b|10"}, {"Column 'name' sorted ascending as Text"},
            "Sorted"},
        {"descending by number", {{"Columns", "-n"}}, {"a|100", "b|10", "A|9"},
            {"Column 'n' sorted descending as Numeric"}, "Sorted"},
        {"numbers as text", {{"Columns", "n"}, {"Intelligent_Sort", false}}, {"b|10", "a|100", "A|9"},
            {"Column 'n' sorted ascending as Text"}, "Sorted"},
        {"two columns", {{"Columns", QStringList{"name", "-n"}}, {"Case_Sensitive", false}}, {"a|100", "A|9", "b|10"},
            {"Column 'name' sorted ascending as Text\nColumn 'n' sorted descending as Numeric"}, "Sorted"},
        {"no column", {}, {"b|10", "A|9", "a|100"}, {}, "No changes"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Sort", c.options, {input});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.infos(), c.infos);
        EXPECT_EQ(run.resultText(), c.text);
        EXPECT_EQ(run.result.header(), input.header());
    }
}

TEST(TransformSort, TellsWhenNothingMoves)
{
    const Dataset input = column({"1", "2", "2", "10"});
    EXPECT_EQ(runTransform("Sort", {{"Columns", "Value"}}, {input}).resultText(), "No changes");
    EXPECT_EQ(runTransform("Sort", {{"Columns", "Value"}, {"Rank_Add", true}}, {input}).resultText(), "Sorted");
}

TEST(TransformSort, AddsRanks)
{
    const Dataset input = grid({"team|score", "x|3", "y|5", "x|9", "y|5"});
    const OptionSettings ranked{{"Columns", "-score"}, {"Rank_Add", true}};
    EXPECT_EQ(rows(runOn("Sort", ranked, input)), (QStringList{"x|9|1", "y|5|2", "y|5|2", "x|3|4"}));
    const OptionSettings byTeam = ranked + OptionSettings{{"Rank_By", "team"}, {"Rank_Types", "Average"}};
    EXPECT_EQ(rows(runOn("Sort", byTeam, input)), (QStringList{"x|9|1", "y|5|1.5", "y|5|1.5", "x|3|2"}));
    EXPECT_EQ(runOn("Sort", ranked, input).columnNames(), (QStringList{"team", "score", "Rank"}));
}

TEST(TransformSort, LeavesRanksEmptyWithoutSortColumns)
{
    const TransformRun run = runTransform("Sort", {{"Rank_Add", true}}, {column({"b", "a"})});
    EXPECT_EQ(rows(run.result), (QStringList{"b|", "a|"}));
    EXPECT_EQ(run.resultText(), "Sorted");
    EXPECT_EQ(run.warnings(), QStringList("1 option not set ('Sorting')"));
}

TEST(TransformSort, SortsByTheLocale)
{
    const ScopedLocale swedish(QStringLiteral("sv_SE"));
    const Dataset input = column({"ö", "z", "a"});
    const OptionSettings options{{"Columns", "Value"}, {"Locale_Aware_Sort", true}};
    EXPECT_EQ(rows(runOn("Sort", options, input)), (QStringList{"a", "z", "ö"}));
    const ScopedLocale german(QStringLiteral("de_DE"));
    EXPECT_EQ(rows(runOn("Sort", options, input)), (QStringList{"a", "ö", "z"}));
}

TEST(TransformSort, RanksOnlyWhenAsked)
{
    const auto states = [](bool on) { return QList<QPair<QString, bool>>{{"Rank_Types", on}, {"Rank_By", on}}; };
    EXPECT_EQ(runTransform("Sort", {}, {column("a")}).transform->parameterStates(), states(false));
    EXPECT_EQ(runTransform("Sort", {{"Rank_Add", true}}, {column("a")}).transform->parameterStates(), states(true));
}

} // namespace
