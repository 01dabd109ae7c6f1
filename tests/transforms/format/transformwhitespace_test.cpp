#include "support/grid.h"
#include "support/runon.h"

#include <gtest/gtest.h>

namespace {

const char *const allSteps[] = {
    "Trim", "Line_Feed", "Tab", "Non_Standard_Spaces", "Carriage_Return", "Consecutive_Spaces", "Non_Printable"};

/// Everything off but `steps`.
OptionSettings onlyDoing(const QStringList &steps)
{
    OptionSettings options;
    for (const char *step : allSteps) {
        options.append({step, steps.contains(step)});
    }
    return options;
}

struct WhitespaceCase
{
    const char *what;
    QStringList steps;
    QString cell;
    QString tidied;
};

const QStringList everything{
    "Trim", "Line_Feed", "Tab", "Non_Standard_Spaces", "Carriage_Return", "Consecutive_Spaces", "Non_Printable"};

} // namespace

TEST(TransformWhitespace, TidiesInTheOrderOfItsOptions)
{
    const QString smiley = QString::fromUcs4(U"\U0001F600", 1);
    const WhitespaceCase cases[] = {
        {"trims blanks of any kind", {"Trim"}, QString(" \t a b\u00A0\n"), "a b"},
        {"trims a cell to nothing", {"Trim"}, " \t ", ""},
        {"line feeds", {"Line_Feed"}, "a\nb\r\n\t", "a b\r \t"},
        {"tabs", {"Tab"}, "a\tb\n", "a b\n"},
        {"other spaces, vertical tab and form feed among them", {"Non_Standard_Spaces"},
            QString("a\u00A0b\u2009c\vd\fe\tf\ng\r"), "a b c d e\tf\ng\r"},
        {"carriage returns go", {"Carriage_Return"}, "a\r\nb\r", "a\nb"},
        {"runs of spaces, but not of other blanks", {"Consecutive_Spaces"}, "a   b\t\t c  ", "a b\t\t c "},
        {"control characters", {"Non_Printable"}, QString("a\tb\u0007c\u007Fd\u0085é"), "abcdé"},
        {"no-break spaces are kept as printable", {"Non_Printable"}, QString("a\u200Bb"), "ab"},
        {"a character of two units is one", {"Non_Printable"}, "a" + smiley + "b", "a" + smiley + "b"},
        {"half a character isn't printable", {"Non_Printable"}, "a" + smiley.left(1) + "b", "ab"},
        {"all: a line end is trimmed away", everything, "a\n", "a"},
        {"all: trimming comes first", everything, QString("\u0007 a"), " a"},
        {"all: a carriage return between spaces leaves one", everything, "a \r b", "a b"},
        {"all: spaces round a control character both stay", everything, QString("a \u0007 b"), "a  b"},
        {"all: a line break becomes one space", everything, "a\r\n b", "a b"},
        {"all: nothing to do", everything, "a b", "a b"},
        {"nothing checked", {}, " \t\r\n  \u0007", " \t\r\n  \u0007"},
    };
    for (const WhitespaceCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(rows(runOn("Whitespace", onlyDoing(c.steps), column(c.cell))), QStringList(c.tidied));
        // The same beside a letter that isn't ASCII, which takes another way.
        EXPECT_EQ(rows(runOn("Whitespace", onlyDoing(c.steps), column("ж" + c.cell + "ж"))),
            rows(runOn("Whitespace", onlyDoing(c.steps), column(QString("x" + c.cell + "x"))))
                .replaceInStrings("x", "ж"));
    }
}

TEST(TransformWhitespace, DoesEverythingUnlessTold)
{
    EXPECT_EQ(rows(runOn("Whitespace", {}, column(" a\t\t\u0007b\r"))), QStringList("a b"));
    EXPECT_EQ(runTransform("Whitespace", onlyDoing({}), {column(" a ")}).resultText(), "No changes");
}
