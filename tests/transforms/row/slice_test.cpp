#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

TEST(TransformSlice, KeepsARunOfRows)
{
    const Dataset input = grid({"word|n", "a|0", "b|1", "x|2", "d|3", "x|4", "f|5"});
    const OptionSettings firstX{{"From_Mode", "First row where"}, {"From_Column", "word"}, {"From_Value", "x"}};
    const OptionSettings lastX{{"From_Mode", "Last row where"}, {"From_Column", "word"}, {"From_Value", "x"}};
    const OptionSettings toNextX{{"To_Mode", "Next row where"}, {"To_Column", "word"}, {"To_Value", "x"}};
    const OptionSettings toLastX{{"To_Mode", "Last row where"}, {"To_Column", "word"}, {"To_Value", "x"}};
    const OptionSettings toNextNone{{"To_Mode", "Next row where"}, {"To_Value", "no such"}};
    const OptionSettings exclusiveFrom{{"From_Include_First", false}};
    const OptionSettings exclusiveTo{{"To_Include_Last", false}};
    const struct
    {
        const char *what;
        OptionSettings options;
        QString kept; // the numbers
    } cases[] = {
        {"everything unless told otherwise", {}, "012345"},
        {"from behind the start", {{"From_Mode", "Start plus"}, {"From_Plus", 2}}, "2345"},
        {"from the first row on without it", exclusiveFrom, "12345"},
        {"from behind the end", {{"From_Mode", "Start plus"}, {"From_Plus", 6}}, ""},
        {"from the first match", firstX, "2345"},
        {"from the last match", lastX, "45"},
        {"from behind a match", firstX + exclusiveFrom, "345"},
        {"to before the end", {{"To_Mode", "End minus"}, {"To_Minus", 2}}, "0123"},
        {"to no further than the first row", {{"To_Mode", "End minus"}, {"To_Minus", 20}}, "0"},
        {"to the last row without it", exclusiveTo, "01234"},
        {"to the next match", toNextX, "012"},
        {"to before the next match", toNextX + exclusiveTo, "01"},
        {"to the last match", toLastX, "01234"},
        {"from a match to the next", firstX + toNextX, "234"},
        {"between matches", firstX + exclusiveFrom + toNextX + exclusiveTo, "3"},
        {"the next match can't be the first row", lastX + toNextX, ""},
        {"the last match can", lastX + toLastX, "4"},
        {"a search to the end finds nothing", toNextNone, ""},
        {"a search from the start finds nothing", {{"From_Mode", "First row where"}, {"From_Value", "no such"}}, ""},
        {"any column", {{"From_Mode", "First row where"}, {"From_Value", "4"}}, "45"},
        {"an empty text on a text operator is in every row", {{"From_Mode", "First row where"}}, "012345"},
        {"also from the end", {{"From_Mode", "Last row where"}}, "5"},
        {"with an operator",
            {{"From_Mode", "First row where"}, {"From_Column", "n"}, {"From_Operation", ">   Greater than"},
                {"From_Value", "3"}},
            "45"},
        {"with a variable",
            {{"From_Mode", "First row where"}, {"From_Column", "word"}, {"From_Operation", "=   Equal to"},
                {"From_Value", "$(1)"}},
            "012345"},
        {"with case", {{"From_Mode", "First row where"}, {"From_Value", "F"}}, ""},
        {"without case", {{"From_Mode", "First row where"}, {"From_Value", "F"}, {"Case_Sensitive", false}}, "5"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QString kept = runOn("Slice", c.options, input).columnValues(ColumnIndex(1)).join(QString());
        EXPECT_EQ(kept, c.kept);
        QString others = "012345";
        for (const QChar number : kept) {
            others.remove(number);
        }
        const Dataset rest = runOn("Slice", c.options + OptionSettings{{"Keep_Remove", "Remove"}}, input);
        EXPECT_EQ(rest.columnValues(ColumnIndex(1)).join(QString()), others);
        EXPECT_EQ(rest.header(), input.header());
    }
}

TEST(TransformSlice, NoSliceBehindAMatchOnTheLastRow)
{
    const OptionSettings options{{"From_Mode", "First row where"}, {"From_Value", "b"}, {"From_Include_First", false}};
    const TransformRun kept = runTransform("Slice", options, {column({"a", "b"})});
    EXPECT_EQ(kept.result.rowCount(), 0);
    EXPECT_EQ(kept.result.columnNames(), QStringList("Value"));
    EXPECT_EQ(kept.resultText(), "2 rows removed");
    const TransformRun removed = runTransform(
        "Slice", options + OptionSettings{{"Keep_Remove", "Remove"}}, {column({"a", "b"})});
    EXPECT_EQ(rows(removed.result), (QStringList{"a", "b"}));
    EXPECT_EQ(removed.resultText(), "No changes");
}

TEST(TransformSlice, TellsHowManyRowsWent)
{
    const OptionSettings options{{"From_Mode", "Start plus"}, {"From_Plus", 1}};
    EXPECT_EQ(runTransform("Slice", options, {column({"a", "b"})}).resultText(), "1 row removed");
    EXPECT_EQ(runTransform("Slice", options, {column(QStringList())}).resultText(), "No changes");
}

TEST(TransformSlice, SearchesNothingInAColumnThatHasGone)
{
    TransformRun run = runTransform("Slice", {{"From_Mode", "First row where"}, {"From_Value", "a"}}, {column("a")});
    EXPECT_EQ(run.result.rowCount(), 1) << "no column means any";
    run.transform->parameter("From_Column")->setValue(QVariant::fromValue(ColumnId(1, 9)));
    EXPECT_EQ(run.transform->run({run.sources.front().get()}, &run.hasIssues).rowCount(), 0);
}

TEST(TransformSlice, ReportsInThreeStretches)
{
    Dataset input = column(QStringList());
    for (int i = 0; i < 2500; ++i) {
        input.appendRow({i == 2400 ? "x" : "a"});
    }
    const TransformRun run = runTransform("Slice",
        {{"From_Mode", "First row where"}, {"From_Value", "x"}, {"To_Mode", "Last row where"}, {"To_Value", "a"}},
        {input});
    const QVector<double> expected{0, 0.33 * 0.4, 0.33 * 0.8, 0.33, 0.67, 0.67 + 0.33 * 0.4, 0.67 + 0.33 * 0.8};
    ASSERT_EQ(run.progress.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        EXPECT_DOUBLE_EQ(run.progress.at(i), expected.at(i));
    }
}

TEST(TransformSlice, AsksOnlyForWhatApplies)
{
    EXPECT_TRUE(runTransform("Slice", {}, {column("a")}).warnings().isEmpty());
    const OptionSettings search{{"From_Mode", "First row where"}};
    EXPECT_EQ(runTransform("Slice", search, {column("a")}).warnings(), QStringList("1 option not set ('Value')"));
    const OptionSettings emptySearch = search
                                       + OptionSettings{{"From_Operation", QString(QChar(0x2205)) + "   Is empty"}};
    EXPECT_TRUE(runTransform("Slice", emptySearch, {column("a")}).warnings().isEmpty());
}

} // namespace
