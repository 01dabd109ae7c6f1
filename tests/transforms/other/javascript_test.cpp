#include "support/grid.h"
#include "support/runon.h"

#include <gtest/gtest.h>

namespace {

QStringList scripted(const QString &script, const Dataset &input)
{
    const Dataset result = runOn("Javascript", {{"Script", script}}, input);
    return result.columnValues(result.lastColumn());
}

} // namespace

TEST(TransformJavascript, WritesWhatTheScriptReturns)
{
    const struct
    {
        const char *what;
        QString script;
        QString cell;
    } cases[] = {
        {"a text", "return \"Hello world!\";", "Hello world!"},
        {"text beyond ASCII", "return 'Zoë €' + String.fromCodePoint(0x1F600);", "Zoë €😀"},
        {"nothing", "return;", "undefined"},
        {"no return at all", "var x = 1;", "undefined"},
        {"null", "return null;", "null"},
        {"a number in the script's form", "return 3 / 2;", "1.5"},
        {"a whole number without a point", "return 4 / 2;", "2"},
        {"not a number", "return 0 / 0;", "NaN"},
        {"infinity", "return 1 / 0;", "Infinity"},
        {"a boolean", "return 1 < 2;", "true"},
        {"a list", "return [1, 'a', 2];", "1,a,2"},
        {"a thrown text is no error object", "throw 'bad';", "bad"},
        {"a number column comes as a number", "return $(n) + 1;", "8.5"},
        {"a boolean column comes as a boolean", "return $(b) ? 'yes' : 'no';", "yes"},
        {"any other column comes as a string", "return $(t) + 1;", " x 1"},
        {"by number", "return $(1) * 2;", "15"},
        {"a variable used twice", "return $(n) * $(n);", "56.25"},
        {"names go before numbers", "return $(2);", "named two"},
        {"several columns, in whatever order", "return $(t) + $(b) + $(n);", " x true7.5"},
        {"a place marker of messages is plain text", "return '%1%2';", "%1%2"},
        {"several lines and a comment", "var x = 1; // one\nreturn x + 1;", "2"},
    };
    const Dataset input = grid({"n|t|b|2", "7.5| x |true|named two"});
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Javascript", {{"Script", c.script}}, {input});
        EXPECT_EQ(run.result.value(RowIndex(0), ColumnIndex(4)), c.cell);
        EXPECT_EQ(run.resultText(), "1 evaluated, 0 Javascript errors");
        EXPECT_EQ(run.warnings(), QStringList());
    }
}

TEST(TransformJavascript, AddsANamedColumn)
{
    const Dataset input = grid({"a|b", "1|2"});
    EXPECT_EQ(runOn("Javascript", {}, input).header(), (QStringList{"a", "b", "Javascript"}));
    EXPECT_EQ(runOn("Javascript", {{"New_Name", "N"}}, input).header(), (QStringList{"a", "b", "N"}));
    EXPECT_EQ(rows(runOn("Javascript", {}, input)), QStringList{"1|2|Hello world!"});
    const TransformRun none = runTransform("Javascript", {}, {grid({"a|b"})});
    EXPECT_EQ(none.result.columnCount(), 3);
    EXPECT_EQ(none.resultText(), "0 evaluated, 0 Javascript errors");
}

TEST(TransformJavascript, TypesColumnsByTheirContents)
{
    const Dataset input = grid({"n|b|t|unused", "1|true|x|1", "2|false|y|1"});
    const QString script = "return typeof $(n) + typeof $(b) + typeof $(t);";
    const TransformRun typed = runTransform("Javascript", {{"Script", script}}, {input});
    EXPECT_EQ(rows(typed.result).first(), "1|true|x|1|numberbooleanstring");
    EXPECT_EQ(typed.infos(),
        (QStringList{"Column 'n' passed as Javascript Number type", "Column 'b' passed as Javascript Boolean type",
            "Column 't' passed as Javascript String type"}));
    const TransformRun texts = runTransform("Javascript", {{"Script", script}, {"Type_As", "String"}}, {input});
    EXPECT_EQ(rows(texts.result).first(), "1|true|x|1|stringstringstring");
    EXPECT_EQ(texts.infos().first(), "Column 'n' passed as Javascript String type");
}

TEST(TransformJavascript, CountsCellsThatDontFitTheType)
{
    QStringList cells;
    for (int i = 0; i < 100; ++i) {
        cells.append(QString::number(i));
    }
    cells += QStringList{"abc", "", "1,000", "x", "y", "z", "5"};
    const TransformRun run = runTransform("Javascript", {{"Script", "return $(Value);"}}, {column(cells)});
    const QStringList values = run.result.columnValues(run.result.lastColumn());
    EXPECT_EQ(values.mid(98),
        (QStringList{"98", "99", "undefined", "undefined", "undefined", "undefined", "undefined", "undefined", "5"}));
    EXPECT_EQ(run.warnings(),
        (QStringList{"6 type error(s):", "Cannot convert value 'abc' in column 'Value' row 101 to Number",
            "Cannot convert value '' in column 'Value' row 102 to Number",
            "Cannot convert value '1,000' in column 'Value' row 103 to Number",
            "Cannot convert value 'x' in column 'Value' row 104 to Number",
            "Cannot convert value 'y' in column 'Value' row 105 to Number", "..."}));
    EXPECT_EQ(run.resultText(), "107 evaluated, 0 Javascript errors");

    const TransformRun booleans = runTransform(
        "Javascript", {{"Script", "return $(Value);"}}, {column({" true ", "False", "false"})});
    EXPECT_EQ(rows(booleans.result), (QStringList{" true |true", "False|undefined", "false|false"}));
    EXPECT_EQ(booleans.warnings(),
        (QStringList{"1 type error(s):", "Cannot convert value 'False' in column 'Value' row 2 to Boolean"}));
}

TEST(TransformJavascript, ListsErrorsOfTheScript)
{
    const TransformRun one = runTransform(
        "Javascript", {{"Script", "if ($(Value) == 2)\n  return nothing;\nreturn 'ok';"}}, {column({"1", "2", "3"})});
    EXPECT_EQ(rows(one.result), (QStringList{"1|ok", "2|ReferenceError: nothing is not defined", "3|ok"}));
    EXPECT_EQ(one.warnings(), (QStringList{"1 Javascript error(s)",
                                  "ReferenceError: nothing is not defined at script line 2 for dataset row 2"}));
    EXPECT_EQ(one.resultText(), "3 evaluated, 1 Javascript errors");

    const TransformRun many = runTransform(
        "Javascript", {{"Script", "throw new Error('E' + $(Value));"}}, {column({"1", "2", "3", "4", "5", "6", "7"})});
    EXPECT_EQ(many.warnings().size(), 7);
    EXPECT_EQ(many.warnings().first(), "7 Javascript error(s)");
    EXPECT_EQ(many.warnings().at(5), "Error: E5 at script line 1 for dataset row 5");
    EXPECT_EQ(many.warnings().last(), "...");
}

TEST(TransformJavascript, SurvivesHostileScripts)
{
    const struct
    {
        const char *what;
        QString script;
        QString start;
    } cases[] = {
        {"a syntax error", "return (;", "SyntaxError: "},
        {"an unknown variable stays as it is", "return $(unknown);", "ReferenceError: "},
        {"an unknown variable of two words", "return $(un known);", "SyntaxError: "},
        {"endless recursion", "function f() { return f(); } return f();", "RangeError: "},
        {"a result that can't become text", "return { toString: function() { throw new Error('no'); } };", ""},
        {"a symbol", "return Symbol('s');", ""},
        {"a script that closes its own function", "}, function() { return 7;", "7"},
        {"a script that is no function at all", "}), 7, ({", ""},
        {"a null character", QString("return 'a") + QChar(0) + "b'.length;", "3"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QStringList cells = scripted(c.script, column({"1", "2"}));
        ASSERT_EQ(cells.size(), 2);
        EXPECT_TRUE(cells.at(1).startsWith(c.start)) << cells.at(1).toStdString();
    }
    EXPECT_EQ(runTransform("Javascript", {{"Script", "return (;"}}, {column({"1", "2"})}).resultText(),
        "2 evaluated, 2 Javascript errors");
}

TEST(TransformJavascript, WarnsOfAmbiguousNames)
{
    const Dataset input = grid({"A|B|A|B", "1|2|3|4"});
    const TransformRun run = runTransform("Javascript", {{"Script", "return $(A) + $(B) + $(3);"}}, {input});
    EXPECT_EQ(rows(run.result), QStringList{"1|2|3|4|6"});
    EXPECT_EQ(run.warnings(), QStringList{"Ambiguous column name(s): A, B, first column with name used"});
}

TEST(TransformJavascript, KeepsGlobalsForLaterRunsOfTheSameItem)
{
    const QString script = "count = typeof count == 'undefined' ? 1 : count + 1; return count;";
    TransformRun run = runTransform("Javascript", {{"Script", script}}, {column({"a", "b"})});
    EXPECT_EQ(rows(run.result), (QStringList{"a|1", "b|2"}));
    const QList<DataSource *> sources{run.sources.front().get()};
    EXPECT_EQ(rows(run.transform->run(sources, nullptr)), (QStringList{"a|3", "b|4"}));
    const std::unique_ptr<Transform> copy(run.transform->clone());
    EXPECT_EQ(rows(copy->run(sources, nullptr)), (QStringList{"a|1", "b|2"})) << "a copy starts anew";
}
