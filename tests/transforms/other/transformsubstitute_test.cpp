#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"

#include <gtest/gtest.h>

namespace {

QStringList lastColumn(const QString &script, const Dataset &input)
{
    const Dataset result = runOn("Substitute", {{"Script", script}}, input);
    return result.columnValues(result.lastColumn());
}

} // namespace

TEST(TransformSubstitute, PutsValuesIntoText)
{
    struct ScriptCase
    {
        const char *what;
        QString script;
        QStringList texts;
    };
    const Dataset input = grid({"Name|2| Age ", "Ann|x|7", "$(2)|y|$(Name)"});
    const ScriptCase cases[] = {
        {"the default text", "First column value is $(1)", {"First column value is Ann", "First column value is y"}},
        {"by name and by number, as often as they occur", "$(Name)$(1)-$(Age)", {"AnnAnn-7", "yy-$(Name)"}},
        {"a name goes before a number", "$(2)$(3)", {"x7", "y$(Name)"}},
        {"a later column's variable in a value is replaced, an earlier one's stays", "$(Name)/$(Age)",
            {"Ann/7", "y/$(Name)"}},
        {"names match by case", "$(name)", {"$(name)", "$(name)"}},
        {"no variable", "text", {"text", "text"}},
        {"no text", "", {"", ""}},
    };
    for (const ScriptCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(lastColumn(c.script, input), c.texts);
    }
}

TEST(TransformSubstitute, WarnsOfAmbiguousNames)
{
    const ScopedLocale locale("en_US");
    const Dataset input = grid({"A|B|A|B|A", "1|2|3|4|5"});
    const TransformRun run = runTransform("Substitute", {{"Script", "$(A)$(A)+$(B)+$(4)"}}, {input});
    EXPECT_EQ(rows(run.result), QStringList("1|2|3|4|5|11+2+4"));
    EXPECT_EQ(run.warnings(), QStringList("Ambiguous column name(s): A, B, first column with name used"));
    EXPECT_EQ(run.resultText(), "1 evaluated");
    EXPECT_EQ(run.result.header().last(), "Substitute");
    EXPECT_EQ(runTransform("Substitute", {{"Script", "$(1)"}}, {input}).warnings(), QStringList());
    EXPECT_EQ(runTransform("Substitute", {{"Script", "$(A)"}}, {grid({"A|A"})}).warnings(), QStringList());
}

TEST(TransformSubstitute, AddsTheColumnToEmptyTables)
{
    const TransformRun run = runTransform("Substitute", {{"New_Name", "T"}}, {grid({"a|b"})});
    EXPECT_EQ(run.result.header(), QStringList({"a", "b", "T"}));
    EXPECT_EQ(run.resultText(), "0 evaluated");
    EXPECT_EQ(runOn("Substitute", {{"New_Name", ""}}, grid({"a|b", "1|2"})).header().last(), "");
    EXPECT_EQ(lastColumn("$(2)$(1)", plainGrid({"x|y"})), QStringList("yx")) << "without a header, by number";
}
