#include "support/grid.h"
#include "support/runon.h"
#include "transforms/format/regexreplacer.h"
#include "transforms/options/records.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

enum Mode { Text, Exact, Regex, Empty, Letters, Digits, Punctuation, Symbols, Whitespace, Currency, NonAscii };

QVariant terms(const QList<ReplaceTerm> &list)
{
    return QVariant::fromValue(list);
}

struct ReplaceCase
{
    const char *what;
    QList<ReplaceTerm> terms;
    bool caseSensitive;
    QString cell;
    QString replaced;
};

TransformRun replace(const QList<ReplaceTerm> &list, const Dataset &input, bool caseSensitive = true)
{
    return runTransform(
        "Replace_Multi", {{"Columns", 1}, {"Replace", terms(list)}, {"Case_Sensitive", caseSensitive}}, {input});
}

} // namespace

TEST(TransformReplaceMulti, ReplacesByTerm)
{
    const ReplaceCase cases[] = {
        {"every occurrence of a text", {{Text, "a", "bc"}}, true, "banana", "bbcnbcnbc"},
        {"case counts", {{Text, "A", "b"}}, true, "banana", "banana"},
        {"unless told otherwise", {{Text, "A", "b"}}, false, "banana", "bbnbnb"},
        {"terms chain", {{Text, "a", "b"}, {Text, "b", "c"}}, true, "a", "c"},
        {"a term without a find text is skipped", {{Text, "", "x"}, {Text, "a", "b"}}, true, "a", "b"},
        {"the whole value", {{Exact, "ab", "x"}}, true, "ab", "x"},
        {"not a part of it", {{Exact, "ab", "x"}}, true, "abc", "abc"},
        {"the whole value in any case", {{Exact, "ÄB", "x"}}, false, "äb", "x"},
        {"an exact text is tested against the cell as it was", {{Text, "a", "b"}, {Exact, "b", "x"}}, true, "a", "b"},
        {"and then takes the place of all", {{Text, "a", "b"}, {Exact, "a", "x"}}, true, "a", "x"},
        {"a regular expression with groups", {{Regex, "(\\w+)@(\\w+)", "\\2 at \\1"}}, true, "me@home", "home at me"},
        {"a regular expression in any case", {{Regex, "[A-Z]+", "-"}}, false, "ab12cd", "-12-"},
        {"a group that isn't there is text", {{Regex, "(a)", "\\2\\0"}}, true, "a", "\\2\\0"},
        {"empty matches", {{Regex, "x*", "-"}}, true, "axb", "-a--b-"},
        {"line beginnings", {{Regex, "(?m)^", "> "}}, true, "a\nb", "> a\n> b"},
        {"an expression that doesn't compile changes nothing", {{Regex, "(a", "x"}, {Text, "b", "c"}}, true, "(ab",
            "(ac"},
        {"an empty value", {{Empty, "", "none"}}, true, "", "none"},
        {"a value that became empty", {{Text, "a", ""}, {Empty, "", "none"}}, true, "aa", "none"},
        {"a blank isn't empty", {{Empty, "", "none"}}, true, " ", " "},
        {"letters of any script", {{Letters, "", ""}}, true, "a1äЖ中\U0001D400-", "1-"},
        {"digits of any script", {{Digits, "", ""}}, true, "a1٣९b½", "ab½"},
        {"each digit on its own", {{Digits, "", "#"}}, true, "a12", "a##"},
        {"punctuation", {{Punctuation, "", " "}}, true, "a,b!c+", "a b c+"},
        {"symbols", {{Symbols, "", ""}}, true, "a+b€😀,", "ab,"},
        {"whitespace", {{Whitespace, "", "_"}}, true, "a \t\u00a0b", "a___b"},
        {"currency symbols", {{Currency, "", ""}}, true, "$1€2£3+", "123+"},
        {"characters above 255; one of two units counts once", {{NonAscii, "", "?"}}, true, "aéЖ😀", "aé??"},
        {"the find text of other types is ignored", {{Digits, "a", ""}}, true, "a1", "a"},
        {"the replacement isn't looked at again", {{Text, "a", "aa"}}, true, "aa", "aaaa"},
    };
    for (const ReplaceCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(rows(replace(c.terms, plainGrid({c.cell}), c.caseSensitive).result), QStringList(c.replaced));
    }
}

TEST(TransformReplaceMulti, CountsCells)
{
    const Dataset input = grid({"a|b", "x|x", "y|x", "x|z"});
    const TransformRun run = runTransform(
        "Replace_Multi", {{"Columns", QVariantList{1, 2}}, {"Replace", terms({{Text, "x", "w"}})}}, {input});
    EXPECT_EQ(rows(run.result), QStringList({"w|w", "y|w", "w|z"}));
    EXPECT_EQ(run.resultText(), "4 changed, 2 unchanged");
    EXPECT_EQ(replace({{Text, "q", "w"}}, input).resultText(), "No changes");
}

TEST(TransformReplaceMulti, DoesNothingWhenNoTermCan)
{
    struct IdleCase
    {
        const char *what;
        QList<ReplaceTerm> terms;
    };
    const IdleCase cases[] = {
        {"the default term", {ReplaceTerm()}},
        {"no term", {}},
        {"a text by itself", {{Text, "a", "a"}}},
        {"an exact text by itself, in any case", {{Exact, "A", "A"}}},
        {"an empty expression", {{Regex, "", "x"}}},
    };
    for (const IdleCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = replace(c.terms, column({"a", "A", ""}), false);
        EXPECT_EQ(run.resultText(), "No changes");
        EXPECT_EQ(rows(run.result), QStringList({"a", "A", ""}));
    }
}

TEST(TransformReplaceMulti, TakesVariablesOfTheRow)
{
    const Dataset input = grid({"text|find|with", "a-b|a|1", "a-b|b|$(find)", "a.b||9"});
    EXPECT_EQ(rows(replace({{Text, "$(find)", "$(3)"}}, input).result),
        QStringList({"1-b|a|1", "a-$(find)|b|$(find)", "a.b||9"}))
        << "nothing to look for is found nowhere; longer names are replaced first";
    EXPECT_EQ(rows(replace({{Exact, "$(2)-b", "x"}}, input).result), QStringList({"x|a|1", "a-b|b|$(find)", "a.b||9"}));
    EXPECT_EQ(rows(replace({{Regex, "[$(find).]", "<\\0$(with)>"}}, input).result).first(), "<\\01>-b|a|1");
    EXPECT_EQ(rows(replace({{Empty, "", "$(1)"}, {Digits, "", "$(find)"}}, grid({"v|find", "|z", "1|y"})).result),
        QStringList({"|z", "y|y"}));
}

TEST(TransformReplaceMulti, SeesTheRowAsItWas)
{
    const TransformRun run = runTransform("Replace_Multi",
        {{"Columns", QVariantList{1, 2}}, {"Replace", terms({{Text, "x", "$(1)$(2)"}})}}, {grid({"a|b", "x|xy"})});
    EXPECT_EQ(rows(run.result), QStringList({"xxy|xxyy"}));
}

TEST(TransformReplaceMulti, TellsOfBadExpressions)
{
    const TransformRun bad = replace({{Regex, "(a", "x"}}, column({"a", "b"}));
    EXPECT_EQ(bad.resultText(), "No changes");
    ASSERT_EQ(bad.warnings().size(), 1);
    EXPECT_TRUE(bad.warnings().first().startsWith("Not a valid regular expression: '(a' ("));

    QStringList cells;
    for (int i = 0; i < 400; ++i) {
        cells.append(QString(40, 'a') + QString::number(i) + "b");
    }
    cells.append("aa");
    const TransformRun hard = replace({{Regex, "^(a+)+$", "x"}}, column(cells));
    EXPECT_EQ(rows(hard.result).first(), cells.first());
    EXPECT_EQ(rows(hard.result).last(), "x") << "easy values are still replaced";
    EXPECT_EQ(hard.warnings(), QStringList("Regular expression '^(a+)+$' is too complex for 400 values, treated as not "
                                           "matching. E.g. '"
                                           + cells.first() + "'"));
}

TEST(RegexReplacer, ReplacesAsQtDoes)
{
    const QStringList patterns{"a", "a*", "(a)(b)?", "b|", "(?=a)", "\\b", "(a|b)+", "[^a]", "$", "(?<=a)b", "ä+",
        "(.)(.)(.)(.)(.)(.)(.)(.)(.)(.)", "\\Ka", "(?=(a))", "a\\Kb"};
    const QStringList replacements{"", "x", "\\1", "\\2\\1", "<\\10>", "\\", "\\\\1", "\\9\\0", "a\\1\\", "\\12"};
    const QString letters = QStringLiteral("aabbä \n1");
    QRandomGenerator random(7);
    for (const QString &pattern : patterns) {
        RegexReplacer replacer(pattern, true);
        const QRegularExpression expression(pattern);
        for (int i = 0; i < 400; ++i) {
            QString text;
            for (int length = random.bounded(14); length > 0; --length) {
                text.append(letters.at(random.bounded(letters.size())));
            }
            const QString with = replacements.at(random.bounded(replacements.size()));
            QString expected = text;
            expected.replace(expression, with);
            QString replaced = text;
            EXPECT_TRUE(replacer.replace(replaced, with));
            ASSERT_EQ(replaced, expected)
                << pattern.toStdString() << " in '" << text.toStdString() << "' by '" << with.toStdString() << "'";
        }
    }
}

TEST(RegexReplacer, LeavesTextsThatAreNotWellFormed)
{
    RegexReplacer replacer("a", true);
    QString text = QStringLiteral("a") + QChar(0xD800);
    const QString before = text;
    EXPECT_FALSE(replacer.replace(text, "b"));
    EXPECT_EQ(text, before);
}

TEST(TransformReplaceMulti, TextsTooLongForACellEndTheItemAlone)
{
    const TransformRun run = replace({{Text, "x", QString(1100, 'y')}}, column({QString(1 << 20, 'x')}));
    EXPECT_FALSE(run.result.hasColumns());
    EXPECT_EQ(run.warnings(), QStringList{"The result is larger than a table or a cell can hold"});
    EXPECT_EQ(run.resultText(), "Too much text");
}
