#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedsettings.h"

#include <gtest/gtest.h>

namespace {

struct JoinCase
{
    const char *what;
    QStringList top;
    QStringList bottom;
    OptionSettings options;
    QStringList header;
    QStringList rows;
    const char *resultText;
    QStringList infos;
};

OptionSettings keys(OptionSettings more = {})
{
    return OptionSettings{{"Column_1", 1}, {"Column_2", 1}} + more;
}

const OptionSettings both{{"Include_Non_Matching_1", true}, {"Include_Non_Matching_2", true}};

} // namespace

TEST(TransformJoin, PairsRows)
{
    const JoinCase cases[] = {
        {"every bottom row with the key, in ascending order", {"k|a", "x|1", "y|2"}, {"k|b", "y|p", "x|q", "y|r"},
            keys(), {"k", "a", "b"}, {"x|1|q", "y|2|p", "y|2|r"}, "3 rows joined",
            {"3 rows have keys in both datasets"}},
        {"keys are exact text", {"k", "1", "abc"}, {"k|b", "1.0|p", "abc |q"}, keys(), {"k", "b"}, {}, "0 rows joined",
            {"0 rows have keys in both datasets"}},
        {"an empty key is a key", {"k|a", "|1"}, {"k|b", "|p"}, keys(), {"k", "a", "b"}, {"|1|p"}, "1 row joined",
            {"1 rows have keys in both datasets"}},
        {"without case both spellings stay", {"k|a", "Émile|1"}, {"k|b", "éMILE|p"}, keys({{"Case_Sensitive", false}}),
            {"k", "a", "b"}, {"Émile|1|p"}, "1 row joined", {"1 rows have keys in both datasets"}},
        {"rows without a partner follow, the bottom's with their key on top", {"k|a", "x|1", "z|3"},
            {"b|k", "p|y", "q|x"}, OptionSettings{{"Column_1", 1}, {"Column_2", 2}} + both, {"k", "a", "b"},
            {"x|1|q", "z|3|", "y||p"}, "3 rows joined", {"1 rows have keys in both datasets"}},
        {"row numbers without options end with the shorter table", {"a", "1", "2", "3"}, {"b", "x"},
            {{"By", "Row number"}}, {"a", "b"}, {"1|x"}, "1 row joined",
            {"1 row used from 3 in top dataset", "1 row used from 1 in bottom dataset"}},
        {"row numbers with both options end with the longer table", {"a", "1"}, {"b", "x", "y"},
            OptionSettings{{"By", "Row number"}} + both, {"a", "b"}, {"1|x", "|y"}, "2 rows joined",
            {"1 row used from 1 in top dataset", "2 rows used from 2 in bottom dataset"}},
    };
    for (const JoinCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Join", c.options, {grid(c.top), grid(c.bottom)});
        EXPECT_EQ(run.result.header(), c.header);
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), QString(c.resultText));
        EXPECT_EQ(run.infos(), c.infos);
    }
}

TEST(TransformJoin, GivesOneTableBackWhenItCanNotJoin)
{
    const TransformRun alone = runTransform("Join", {}, {grid({"a", "1"})});
    EXPECT_EQ(rows(alone.result), QStringList{"1"});
    EXPECT_EQ(alone.resultText(), "Connect a second dataset");

    const TransformRun unset = runTransform("Join", {}, {grid({"a b", "x y"}), grid({"c", "x"})});
    EXPECT_EQ(rows(unset.result), QStringList{"x y"});
    EXPECT_EQ(unset.resultText(), "No changes");
}

TEST(TransformJoin, NumbersColumnsOfATableWithoutHeader)
{
    const Dataset joined = runOn("Join", keys(), grid({"k|a", "x|1"}), plainGrid({"x|p|q"}));
    EXPECT_EQ(joined.header(), (QStringList{"k", "a", "2", "3"}));
}

TEST(TransformJoin, ReportsInDetail)
{
    const TransformRun run = runTransform("Join", keys({{"Detailed_Report", true}}),
        {grid({"k", "x", "x", "y ", "z"}), grid({"k|b", "x|1", "w|2", "w|3"})});
    EXPECT_EQ(run.infos(), (QStringList{"2 rows have keys in both datasets",
                               "2 misses in the Top key column:\n'y ' at row 3\n'z' at row 4",
                               "2 misses in the Bottom key column:\n'w' at row 2\n'w' at row 3",
                               "1 unique keys appear in both datasets", "2 top only", "2 bottom only",
                               "1 values with leading or trailing whitespace in the Top key column:\n'y ' at row 3\n"
                               "(keys are whitespace and case sensitive)"}));
    EXPECT_EQ(run.warnings(), (QStringList{"1 duplicated key in the Top key column:\n'x' occurs 2 times",
                                  "1 duplicated key in the Bottom key column:\n'w' occurs 2 times"}));
}

TEST(TransformJoin, FollowsTheInputsOnTheCanvas)
{
    TransformRun run = runTransform("Join", keys(), {grid({"k|a", "x|1"}), grid({"k|b", "x|p"})});
    FakeSource &top = *run.sources.at(0);
    FakeSource &bottom = *run.sources.at(1);
    top.setPosition({0, 0});
    bottom.setPosition({0, 100});
    EXPECT_FALSE(run.transform->updateInputOrder({&top, &bottom}));
    top.setPosition({0, 200});
    EXPECT_TRUE(run.transform->updateInputOrder({&bottom, &top}));
    bool issues = false;
    const Dataset swapped = run.transform->run({&bottom, &top}, &issues);
    EXPECT_EQ(rows(swapped), QStringList{"x|p|1"});
}

TEST(TransformJoin, StopsWhereMemoryEnds)
{
    ScopedSettings settings;
    settings->setMaxMemoryUsage(1.0 / 64);
    QStringList lines{"k"};
    for (int i = 0; i < 2048; ++i) {
        lines.append("1");
    }
    const OptionSettings byKey{{"Column_1", 1}, {"Column_2", 1}};
    const TransformRun pairs = runTransform("Join", byKey, {grid(lines), grid(lines)});
    EXPECT_FALSE(pairs.result.hasColumns());
    EXPECT_EQ(pairs.warnings(), QStringList{"Too many cells (2 cols x 1,048,576 rows)"}) << "of 4,194,304 rows";
    EXPECT_EQ(pairs.resultText(), "Too many rows");

    Dataset wide;
    wide.setColumnCount(2000);
    wide.appendRow({"x"});
    const OptionSettings byRow{
        {"By", "Row number"}, {"Include_Non_Matching_1", true}, {"Include_Non_Matching_2", true}};
    const TransformRun rows = runTransform("Join", byRow, {wide, grid(lines)});
    EXPECT_EQ(rows.warnings(), QStringList{"Too many cells (2,001 cols x 2,048 rows)"});
}
