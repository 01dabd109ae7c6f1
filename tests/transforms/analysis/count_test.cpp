#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

TEST(TransformCount, CountsAndSorts)
{
    const QStringList texts{"b", "a", "10", "b", "", "9", "a", "Z"};
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList rows;
    } cases[] = {
        {"most frequent first, texts ascending within a count", {}, {"a|2", "b|2", "|1", "10|1", "9|1", "Z|1"}},
        {"least frequent first, texts ascending all the same", {{"Order", "Ascending"}},
            {"|1", "10|1", "9|1", "Z|1", "a|2", "b|2"}},
        {"by text, by code unit", {{"Sort", "Text"}, {"Order", "Ascending"}},
            {"|1", "10|1", "9|1", "Z|1", "a|2", "b|2"}},
        {"by text, backwards", {{"Sort", "Text"}}, {"b|2", "a|2", "Z|1", "9|1", "10|1", "|1"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Count", c.options, {column(texts)});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.result.header(), (QStringList{"Value", "Count Value"}));
        EXPECT_EQ(run.resultText(), "6 counted from 8 rows");
    }
}

TEST(TransformCount, MayIgnoreCase)
{
    const Dataset input = column({"Äb", "a", "äB", "A", "b", "ÄB"});
    EXPECT_EQ(rows(runOn("Count", {{"Case_Sensitive", false}}, input)), (QStringList{"Äb|3", "a|2", "b|1"}));
    EXPECT_EQ(rows(runOn("Count", {}, input)), (QStringList{"A|1", "a|1", "b|1", "ÄB|1", "Äb|1", "äB|1"}));
    EXPECT_EQ(rows(runOn("Count", {{"Case_Sensitive", false}, {"Sort", "Text"}, {"Order", "Ascending"}},
                  column({"b", "C", "a", "c"}))),
        (QStringList{"C|2", "a|1", "b|1"}))
        << "sorted by the spelling that came first";
}

TEST(TransformCount, NamesTheNewColumn)
{
    const auto header = [](const OptionSettings &options, const Dataset &input) {
        return runOn("Count", options, input).header();
    };
    const Dataset input = grid({"a| b |", "1|2|3"});
    EXPECT_EQ(header({{"Column", "a"}}, input), (QStringList{"a", "Count a"}));
    EXPECT_EQ(header({{"Column", 2}}, input), (QStringList{" b ", "Count  b"}));
    EXPECT_EQ(header({{"Column", 3}}, input), (QStringList{"3", "Count 3"}));
    EXPECT_EQ(header({{"Column", "a"}, {"Auto_New_Name", false}, {"New_Name", "N"}}, input), (QStringList{"a", "N"}));
    EXPECT_EQ(runTransform("Count", {}, {input}).transform->parameter("New_Name")->toText(), "Count");
}

TEST(TransformCount, HasNothingToCount)
{
    const TransformRun unset = runTransform("Count", {}, {grid({"a|b", "1|2"})});
    EXPECT_EQ(unset.result.header(), (QStringList{"<None selected>", "Count"}));
    EXPECT_EQ(unset.result.rowCount(), 0);
    EXPECT_EQ(unset.resultText(), "0 counted from 0 rows");
    EXPECT_EQ(unset.warnings(), QStringList("1 option not set ('Column')"));
    const TransformRun named = runTransform("Count", {{"Auto_New_Name", false}, {"New_Name", "N"}}, {grid({"a|b"})});
    EXPECT_EQ(named.result.header(), (QStringList{"<None selected>", "N"}));
    const TransformRun empty = runTransform("Count", {}, {column(QStringList())});
    EXPECT_EQ(empty.result.header(), (QStringList{"Value", "Count Value"}));
    EXPECT_EQ(empty.resultText(), "0 counted from 0 rows");
}

TEST(TransformCount, RecordsTheRowsBehindEachRow)
{
    const Dataset result = runOn("Count", {{"Drilldown", true}}, column({"b", "a", "b"}));
    EXPECT_EQ(rows(result), (QStringList{"b|2", "a|1"}));
    EXPECT_TRUE(result.drilldownRows(RowIndex(0), ColumnIndex(1)) == (QList<RowIndex>{RowIndex(0), RowIndex(2)}));
    EXPECT_TRUE(result.drilldownRows(RowIndex(1), ColumnIndex()) == QList<RowIndex>{RowIndex(1)});
    EXPECT_FALSE(runOn("Count", {}, column({"b"})).hasDrilldown());
}

TEST(TransformCount, WritesPlainCountsInCellsAndGroupedOnesInWords)
{
    const ScopedLocale american("en_US");
    Dataset input = column(QStringList());
    for (int row = 0; row < 1234; ++row) {
        input.appendRow({"a"});
    }
    const TransformRun run = runTransform("Count", {}, {input});
    EXPECT_EQ(rows(run.result), QStringList("a|1234"));
    EXPECT_EQ(run.resultText(), "1 counted from 1,234 rows");
    EXPECT_EQ(run.progress, (QVector<qreal>{0, 1000.0 / 1234}));
}
