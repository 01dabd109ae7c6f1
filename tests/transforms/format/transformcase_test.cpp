#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

struct CaseCase
{
    const char *what;
    const char *to;
    bool keepUpper;
    QString cell;
    QString result;
};

} // namespace

TEST(TransformCase, ChangesCase)
{
    const CaseCase cases[] = {
        {"an empty cell stays", "Lower case", false, "", ""},
        {"lower", "Lower case", false, "ÄB-C1", "äb-c1"},
        {"upper", "Upper case", false, "aé1", "AÉ1"},
        {"upper case may be longer", "Upper case", false, "straße", "STRASSE"},
        {"title lowers the rest of a word", "Title case", false, "ACME inc", "Acme Inc"},
        {"title keeps capitals when asked", "Title case", true, "ACME inc", "ACME Inc"},
        {"a digit doesn't start a word, so the letter behind it does", "Title case", false, "1st", "1St"},
        {"an apostrophe starts no word", "Title case", false, "o'neil", "O'neil"},
        {"nor lowers what is behind it", "Title case", false, "O'NEIL", "O'Neil"},
        {"a combining mark starts no word", "Title case", false, QString("e\u0301a"), QString("E\u0301a")},
        {"umlauts are letters", "Title case", false, "über ÄRGER", "Über Ärger"},
        {"hyphens part words", "Title case", false, "mary-ann", "Mary-Ann"},
        {"sentence begins with the first letter", "Sentence case", false, "  hello. WORLD", "  Hello. world"},
        {"sentence keeps capitals when asked", "Sentence case", true, "the USA", "The USA"},
        {"sentence of no letters", "Sentence case", false, "12-3", "12-3"},
        {"lower camel", "Lower camel case", false, " First NAME of\tall ", "firstNameOfAll"},
        {"lower camel lowers the whole first word", "Lower camel case", false, "ÄÖ-X y", "äö-xY"},
        {"upper camel", "Upper camel case", false, "first NAME", "FirstName"},
        {"a single word", "Upper camel case", false, "first", "First"},
        {"kebab joins runs of blanks and leaves letters", "Kebab case", false, "Two  Words", "Two-Words"},
        {"kebab at the ends too", "Kebab case", false, " a\n", "-a-"},
        {"snake", "Snake case", false, "Two \t Words é", "Two_Words_é"},
        {"inverted", "Inverted case", false, "aBÉé1", "AbéÉ1"},
    };
    for (const CaseCase &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options{{"Case", c.to}, {"Keep_Upper", c.keepUpper}};
        EXPECT_EQ(rows(runOn("Case", options, column(c.cell))), QStringList(c.result));
    }
}

TEST(TransformCase, ExplainsEveryChoiceByItself)
{
    const TransformRun run = runTransform("Case", {}, {column("a")});
    EXPECT_EQ(run.transform->parameter("Case")->toolTip(), "Select the new case. E.g.:\n"
                                                           "Lower case -> lower case\n"
                                                           "Upper case -> UPPER CASE\n"
                                                           "Title case -> Title Case\n"
                                                           "Sentence case -> Sentence case\n"
                                                           "Lower camel case -> lowerCamelCase\n"
                                                           "Upper camel case -> UpperCamelCase\n"
                                                           "Kebab case -> Kebab-case\n"
                                                           "Snake case -> Snake_case\n"
                                                           "Inverted case -> iNVERTED CASE\n"
                                                           "Click the ? button for more details.");
}

TEST(TransformCase, KeepUpperAppliesToTitleAndSentence)
{
    for (const QString &choice : runTransform("Case", {}, {column("a")}).transform->parameter("Case")->choices()) {
        SCOPED_TRACE(choice.toStdString());
        const auto states = runTransform("Case", {{"Case", choice}}, {column("a")}).transform->parameterStates();
        const bool active = choice == "Title case" || choice == "Sentence case";
        EXPECT_EQ(states, (QList<QPair<QString, bool>>{{"Keep_Upper", active}}));
    }
}
