#include "support/grid.h"
#include "support/runon.h"

#include <gtest/gtest.h>

namespace {

struct InsertCase
{
    const char *what;
    OptionSettings options;
    QStringList result;
    const char *resultText;
};

} // namespace

TEST(TransformInsert, PutsTextInFrontOrBehind)
{
    const QStringList table{"name|unit", "a|kg", "|t"};
    const InsertCase cases[] = {
        {"in front", {{"Columns", "name"}, {"Insert", "x-"}}, {"x-a|kg", "x-|t"}, "2 changed"},
        {"behind", {{"Columns", "name"}, {"Insert", "-x"}, {"With", "End"}}, {"a-x|kg", "-x|t"}, "2 changed"},
        {"each row has its own value", {{"Columns", "name"}, {"Insert", "$(2) "}}, {"kg a|kg", "t |t"}, "2 changed"},
        {"by name", {{"Columns", "name"}, {"Insert", "$(unit)"}, {"With", "End"}}, {"akg|kg", "t|t"}, "2 changed"},
        {"a cell changed before in the row isn't seen",
            {{"Columns", QStringList{"name", "unit"}}, {"Insert", "$(name)+"}}, {"a+a|a+kg", "+|+t"}, "4 changed"},
        {"an insertion that comes to nothing doesn't count", {{"Columns", "unit"}, {"Insert", "$(name)"}},
            {"a|akg", "|t"}, "1 changed"},
        {"an unknown variable stays as text", {{"Columns", "unit"}, {"Insert", "$(x)"}}, {"a|$(x)kg", "|$(x)t"},
            "2 changed"},
        {"nothing to insert", {{"Columns", "name"}}, {"a|kg", "|t"}, "No changes"},
        {"no column", {{"Insert", "x"}}, {"a|kg", "|t"}, "No changes"},
    };
    for (const InsertCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Insert", c.options, {grid(table)});
        EXPECT_EQ(rows(run.result), c.result);
        EXPECT_EQ(run.resultText(), c.resultText);
    }
}

TEST(TransformInsert, JoinsTheHalvesOfACharacter)
{
    const QString smiley = QString::fromUcs4(U"\U0001F600", 1);
    const Dataset input = column(smiley.right(1) + "!");
    const Dataset result = runOn("Insert", {{"Insert", "x" + smiley.left(1)}}, input);
    EXPECT_TRUE(result.cell(RowIndex(0), ColumnIndex(0))
                    .sameText(column("x" + smiley + "!").cell(RowIndex(0), ColumnIndex(0))));
}
