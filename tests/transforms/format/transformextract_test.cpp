#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>

namespace {

struct ExtractCase
{
    const char *what;
    const char *cell;
    OptionSettings options;
    QString piece;
};

} // namespace

TEST(TransformExtract, TakesAPieceByPosition)
{
    const ExtractCase cases[] = {
        {"the first ten characters", "0123456789ab", {}, "0123456789"},
        {"from an offset", "abcdef", {{"Length", 2}, {"Offset", 3}}, "de"},
        {"what is left when it is shorter", "abc", {{"Length", 5}, {"Offset", 1}}, "bc"},
        {"an offset past the end gives nothing", "abc", {{"Length", 5}, {"Offset", 9}}, ""},
        {"from the end", "abcdef", {{"Length", 2}, {"From", "End"}}, "ef"},
        {"from the end with an offset", "abcdef", {{"Length", 2}, {"From", "End"}, {"Offset", 1}}, "de"},
        {"a start before the text shortens the piece", "abc", {{"Length", 3}, {"From", "End"}, {"Offset", 1}}, "ab"},
        {"a piece wholly before the text is empty", "abc", {{"Length", 2}, {"From", "End"}, {"Offset", 5}}, ""},
        {"characters, not bytes", "äöüß", {{"Length", 2}, {"Offset", 1}}, "öü"},
        {"the largest numbers", "abc", {{"Length", 999999999}, {"From", "End"}, {"Offset", 999999999}}, ""},
        {"a length of 0 clears the cell", "abc", {{"Length", 0}}, ""},
    };
    for (const ExtractCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(rows(runOn("Extract", c.options, column(c.cell))), QStringList(c.piece));
    }
}

TEST(TransformExtract, TakesAPieceByExpression)
{
    const ExtractCase cases[] = {
        {"the default takes a line", "abc", {}, "abc"},
        {"the whole match without a group", "a12b", {{"Matching", "[0-9]+"}}, "12"},
        {"the first group when there is one", "10-20", {{"Matching", "([0-9]+)-([0-9]+)"}}, "10"},
        {"the whole match when no group took part", "b", {{"Matching", "(a)?b"}}, "b"},
        {"an empty first group when a later one took part", "b", {{"Matching", "(a)?(b)"}}, ""},
        {"no match clears the cell", "abc", {{"Matching", "[0-9]"}}, ""},
        {"case counts", "ABC", {{"Matching", "abc"}}, ""},
        {"unless told otherwise", "ABC", {{"Matching", "abc"}, {"Case_Sensitive", false}}, "ABC"},
        {"a pattern that doesn't compile matches nothing", "abc", {{"Matching", "(abc"}}, ""},
    };
    for (const ExtractCase &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options = OptionSettings{{"Using", "Regex"}} + c.options;
        EXPECT_EQ(rows(runOn("Extract", options, column(c.cell))), QStringList(c.piece));
    }
}

TEST(TransformExtract, ShowsTheOptionsOfTheChosenWay)
{
    using States = QList<QPair<QString, bool>>;
    const auto states = [](bool text) {
        return States{
            {"Length", text}, {"From", text}, {"Offset", text}, {"Matching", !text}, {"Case_Sensitive", !text}};
    };
    EXPECT_EQ(runTransform("Extract", {}, {column("a")}).transform->parameterStates(), states(true));
    EXPECT_EQ(runTransform("Extract", {{"Using", "Regex"}}, {column("a")}).transform->parameterStates(), states(false));
    EXPECT_EQ(runTransform("Extract", {{"Matching", ""}}, {column("a")}).warnings(), QStringList());
    EXPECT_EQ(runTransform("Extract", {{"Using", "Regex"}, {"Matching", ""}}, {column("a")}).warnings(),
        QStringList("1 option not set ('Matching')"));
}
