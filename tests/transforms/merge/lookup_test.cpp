#include "support/grid.h"
#include "support/runon.h"

#include <gtest/gtest.h>

namespace {

OptionSettings lookup(OptionSettings more = {})
{
    return OptionSettings{{"Top_Lookup_Column", 1}, {"Bottom_Lookup_Column", 1}, {"Bottom_Value_Column", 2}} + more;
}

struct LookupCase
{
    const char *what;
    QStringList top; ///< keys
    QStringList bottom;
    OptionSettings options;
    QStringList found; ///< the new column
    const char *resultText;
};

} // namespace

TEST(TransformLookup, FindsValues)
{
    const LookupCase cases[] = {
        {"the first value of a key", {"b", "a", "b"}, {"k|v", "a|1", "b|2", "b|3"}, {}, {"2", "1", "2"},
            "3 matched, 0 unmatched"},
        {"all values of a key, each once", {"b"}, {"k|v", "b|2", "b|3", "b|2", "b|"},
            {{"Bottom_Values_Used", "All"}, {"Delim", " / "}}, {"2 / 3 / "}, "1 matched, 0 unmatched"},
        {"an empty key finds an empty key", {""}, {"k|v", "|none"}, {}, {"none"}, "1 matched, 0 unmatched"},
        {"a key whose values are all empty is a miss when those are ignored", {"a", "b"}, {"k|v", "a|", "b|", "b|2"},
            {{"Empty_Values", true}}, {"", "2"}, "1 matched, 1 unmatched"},
        {"without case", {"ABC", "É"}, {"k|v", "abc|1", "é|2"}, {{"Case_Sensitive", false}}, {"1", "2"},
            "2 matched, 0 unmatched"},
        {"a miss takes a text with the row's own values", {"x"}, {"k|v", "a|1"}, {{"Non_Matching_Value", "$(1) n/a"}},
            {"x n/a"}, "0 matched, 1 unmatched"},
        {"a miss may keep the key", {"X "}, {"k|v", "a|1"},
            {{"If_No_Match", "Leave unchanged"}, {"Case_Sensitive", false}}, {"X "}, "0 matched, 1 unmatched"},
        {"equal goes by number and date, exact doesn't", {"1.50", "x"}, {"k|v", "1.5|n", "X|t"},
            {{"Match_Type", "Equal"}, {"Case_Sensitive", false}}, {"n", "t"}, "2 matched, 0 unmatched"},
        {"not exact takes the first other key", {"a"}, {"k|v", "a|1", "b|2", "c|3"}, {{"Match_Type", "Not exact"}},
            {"2"}, "1 matched, 0 unmatched"},
        {"greater by number", {"5"}, {"k|v", "10|ten", "4|four", "50|fifty"},
            {{"Match_Type", "Bottom greater than top"}, {"Bottom_Values_Used", "All"}}, {"ten,fifty"},
            "1 matched, 0 unmatched"},
        {"a pattern that doesn't compile matches nothing", {"abc"}, {"k|v", "([|bad", "^a.c$|good"},
            {{"Match_Type", "Top matches bottom regex"}}, {"good"}, "1 matched, 0 unmatched"},
        {"a match whose value is ignored still counts", {"a"}, {"k|v", "xa|"},
            {{"Match_Type", "Bottom contains top"}, {"Empty_Values", true}}, {""}, "1 matched, 0 unmatched"},
        {"the closest key, of equals the first", {"abcde"}, {"k|v", "abcxx|0", "abcdf|1", "abcdg|2", "abcde|3"},
            {{"Match_Type", "Fuzzy"}}, {"3"}, "1 matched, 0 unmatched"},
        {"all equally close keys", {"abcde"}, {"k|v", "abcdf|1", "abcdg|2", "abcdh|1"},
            {{"Match_Type", "Fuzzy"}, {"Fuzzy_Bottom_Values_Used", "All best"}}, {"1,2"}, "1 matched, 0 unmatched"},
        {"all keys that are close enough", {"abcde"}, {"k|v", "abcdf|1", "abcde|2", "zzzzz|3"},
            {{"Match_Type", "Fuzzy"}, {"Fuzzy_Bottom_Values_Used", "All"}}, {"1,2"}, "1 matched, 0 unmatched"},
    };
    for (const LookupCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Lookup", lookup(c.options), {column(c.top), grid(c.bottom)});
        EXPECT_EQ(run.result.columnValues(run.result.lastColumn()), c.found);
        EXPECT_EQ(run.resultText(), QString(c.resultText));
        EXPECT_EQ(run.result.header(), (QStringList{"Value", "Lookup v"}));
    }
}

TEST(TransformLookup, ReportsMissesAndDuplicates)
{
    const TransformRun run = runTransform("Lookup", lookup({{"Auto_New_Name", false}, {"New_Name", "Who"}}),
        {column(QStringList{"1", "2", "3", "4", "5", "6", "7", "a "}), grid({"k|v", "a |x", "a |y"})});
    EXPECT_EQ(run.result.header().last(), "Who");
    EXPECT_EQ(run.warnings(), QStringList{"1 duplicated key in the Bottom key column:\n'a ' occurs 2 times"});
    EXPECT_EQ(run.infos().first(),
        "7 misses in the Bottom key column:\n'1' at row 1\n'2' at row 2\n'3' at row 3\n'4' at row 4\n'5' at row 5\n"
        "+ 2 other misses");
    EXPECT_EQ(run.infos().size(), 3);
}

TEST(TransformLookup, LeavesTheColumnEmptyWithoutASecondTableOrKeys)
{
    const TransformRun alone = runTransform("Lookup", {}, {column("x")});
    EXPECT_EQ(rows(alone.result), QStringList{"x|"});
    EXPECT_EQ(alone.result.header(), (QStringList{"Value", "Lookup"}));
    EXPECT_EQ(alone.resultText(), "Connect a second dataset");

    const TransformRun unset = runTransform("Lookup", {}, {column("x y"), grid({"k|v|w", "a b|1|2"})});
    EXPECT_EQ(unset.resultText(), "No changes");
    EXPECT_EQ(unset.result.columnCount(), 2);
}

TEST(TransformLookup, SuggestsTheColumnsOfATableOfTwo)
{
    const TransformRun run = runTransform("Lookup", {}, {column("x"), grid({"k|v", "x|1"})});
    EXPECT_EQ(rows(run.result).size(), 1);
    EXPECT_EQ(run.sources.at(1)->dataset().columnCount(), 2);
    EXPECT_EQ(run.resultText(), "No changes") << "the top key is too little known to be suggested";
}

TEST(TransformLookup, ClearsTheValueColumnWhenInputsChangePlaces)
{
    TransformRun run = runTransform("Lookup", lookup(), {grid({"a|b", "x|1"}), grid({"k|v", "x|p"})});
    FakeSource &top = *run.sources.at(0);
    FakeSource &bottom = *run.sources.at(1);
    top.setPosition({0, 300});
    EXPECT_TRUE(run.transform->updateInputOrder({&bottom, &top}));
    bool issues = false;
    run.transform->clearMessages();
    run.transform->run({&bottom, &top}, &issues);
    EXPECT_EQ(run.resultText(), "No changes") << "the value column must be chosen again";
}
