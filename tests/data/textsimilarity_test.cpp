#include "data/textsimilarity.h"

#include "data/similarkeys.h"
#include "data/textpattern.h"
#include "support/plaindistance.h"
#include "support/randomtext.h"

#include <gtest/gtest.h>

namespace {

TEST(TextSimilarity, ScoresPairsOfTexts)
{
    const struct
    {
        const char *what;
        const char *a;
        const char *b;
        int threshold;
        int score;
    } cases[] = {
        {"one of five units differs", "abcde", "abcdf", 80, 80},
        {"four units at 80 % leave no room for an edit", "abcd", "abxy", 80, -1},
        {"two empty texts are the same", "", "", 99, 100},
        {"an empty text has nothing of another", "", "ab", 1, -1},
        {"at 0 % all goes", "", "ab", 0, 0},
        {"the same text", "Müller", "Müller", 99, 100},
        {"five units at 99 % must be the same", "abcde", "abcdx", 99, -1},
        {"an insertion counts against the longer text", "abc", "abcd", 75, 75},
        {"a swap of neighbours is two edits", "abcd", "abdc", 50, 50},
        {"the percentage is rounded down", "abc", "abd", 60, 66},
        {"a character outside the first plane is two units", "\xF0\x9F\x98\x80", "ab", 0, 0},
        {"two such characters may share a unit", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x81", 50, 50},
        {"above 100 % only empty texts match", "a", "a", 101, -1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(fuzzyScore(QString::fromUtf8(c.a), QString::fromUtf8(c.b), c.threshold), c.score);
        EXPECT_EQ(fuzzyScore(QString::fromUtf8(c.b), QString::fromUtf8(c.a), c.threshold), c.score);
    }
}

TEST(TextSimilarity, TakesAllTextsOfAKeyTogether)
{
    const struct
    {
        const char *what;
        QStringList a;
        QStringList b;
        int threshold;
        int closeness;
    } cases[] = {
        {"keys of different lengths have nothing in common", {"a"}, {"a", "a"}, 80, 0},
        {"keys without texts are the same", {}, {}, 80, 100},
        {"keys of empty texts are the same", {"", ""}, {"", ""}, 80, 100},
        {"a long text makes up for a short one", {"aaaaaaaaaaaaaaaaaa", "xy"}, {"aaaaaaaaaaaaaaaaaa", "zz"}, 80, 90},
        {"the edits of all texts add up", {"abcde", "abcde"}, {"abcdx", "abcxx"}, 70, 70},
        {"one edit over the budget", {"abcde", "abcde"}, {"abcdx", "abcxx"}, 71, -1},
        {"the second text alone uses up the budget", {"aaaaaaaaaa", "bbbb"}, {"aaaaaaaaaa", "cccc"}, 80, -1},
        {"texts aren't moved between the places", {"ab", "cd"}, {"cd", "ab"}, 50, -1},
        {"two edits off", {"aaaa"}, {"aabb"}, 75, -1},
        {"one edit off", {"aaaa"}, {"aaab"}, 75, 75},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(keyCloseness(c.a, c.b, c.threshold), c.closeness);
        EXPECT_EQ(keyCloseness(c.b, c.a, c.threshold), c.closeness);
    }
}

TEST(TextSimilarity, StopsAtTheLimit)
{
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 100), 3);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 4), 3);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 3), 3);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 2), 2);
    EXPECT_EQ(editDistance(u"", u"sitting", 5), 5);
}

TEST(TextSimilarity, AgreesWithThePlainDistance)
{
    RandomText texts(20);
    for (int i = 0; i < 4000; ++i) {
        const QString a = texts.text(i % 40 == 0 ? 700 : i % 5 == 0 ? 150 : 20);
        const QString b = i % 3 == 0 ? texts.text(20 + i % 200) : texts.edited(a, 1 + i % 40);
        const int distance = plainDistance(a, b);
        for (const int limit : {1, 2, 5, 30, 64, 65, 5000}) {
            ASSERT_EQ(editDistance(a, b, limit), qMin(limit, distance)) << qPrintable(a) << '\n' << qPrintable(b);
            ASSERT_EQ(TextPattern(a).distanceTo(b, limit), qMin(limit, distance)) << qPrintable(a) << '\n'
                                                                                  << qPrintable(b);
        }
    }
}

TEST(TextPattern, CanBeUsedAgain)
{
    TextPattern pattern(QString(200, QChar(0x4E00)));
    pattern.setText(u"жук");
    EXPECT_EQ(pattern.size(), 3);
    EXPECT_EQ(pattern.distanceTo(u"жака", 10), 2);
    EXPECT_EQ(pattern.distanceTo(QString(3, QChar(0x4E00)), 10), 3);
    pattern.setText(QStringView());
    EXPECT_EQ(pattern.distanceTo(u"ab", 10), 2);
}

} // namespace
