#include "panes/actions/transformsearch.h"

#include <gtest/gtest.h>

TEST(TransformSearch, SplitsWhatIsTyped)
{
    EXPECT_EQ(TransformSearch::wordsOf("  Date,Format-x "), QStringList({"date", "format", "x"}));
    EXPECT_TRUE(TransformSearch::wordsOf(" ,- ").isEmpty());
}

TEST(TransformSearch, ShowsThoseThatMatchTheMostWords)
{
    const QVector<QSet<QString>> keywords{{"date", "format"}, {"date", "time"}, {"number"}};
    const struct
    {
        const char *typed;
        QVector<bool> shown;
    } cases[] = {
        {"", {true, true, true}}, {"date", {true, true, false}}, {"DA", {true, true, false}},
        {"date form", {true, false, false}}, // both words outrank one
        {"date,zzz", {true, true, false}}, {"zzz", {false, false, false}},
        {"ate", {false, false, false}}, // words begin so, they don't only hold it
    };
    for (const auto &c : cases) {
        EXPECT_EQ(TransformSearch::matches(keywords, QString::fromLatin1(c.typed)), c.shown) << c.typed;
    }
}

TEST(TransformSearch, EnterMeansTheNameThatWasTyped)
{
    const QStringList names{"Concat Cols", "Joined", "Join", "Cross-Join"};
    const struct
    {
        const char *typed;
        int best;
    } cases[] = {
        {"join", 2},       // the same name, though an earlier one begins so
        {"JOI", 1},        // the first that begins so
        {"cross join", 3}, // a dash counts as a blank
        {"merge", 0},      // found by keywords only: the first
        {" ,- ", -1},      // no word
        {"", -1},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(TransformSearch::bestName(names, QString::fromLatin1(c.typed)), c.best) << c.typed;
    }
    EXPECT_EQ(TransformSearch::bestName({}, QStringLiteral("join")), -1);
}
