#include "data/regexwork.h"
#include "data/textregex.h"
#include "data/values.h"
#include "support/printers.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

const QString hardPattern = QStringLiteral("^(a|aa)+$");

QString hardText(int number)
{
    return QString(60, QLatin1Char('a')) + QString::number(number) + QLatin1Char('!');
}

TEST(TextRegex, SplitsAndFindsAsQtDoes)
{
    const QStringList patterns{"a", "a*", "(a)(b)?", "b|", "(?=a)", "\\b", "$", "(?<=a)b", "[^a]+"};
    const QString letters = QStringLiteral("aab b1");
    QRandomGenerator random(3);
    for (const QString &pattern : patterns) {
        const TextRegex regex(pattern);
        const QRegularExpression expected(pattern);
        EXPECT_EQ(regex.groupCount(), expected.captureCount());
        for (int i = 0; i < 200; ++i) {
            QString text;
            for (int length = random.bounded(10); length > 0; --length) {
                text.append(letters.at(random.bounded(letters.size())));
            }
            ASSERT_EQ(regex.isFoundIn(text), expected.match(text).hasMatch());
            ASSERT_EQ(regex.split(text, Qt::KeepEmptyParts), text.split(expected)) << pattern.toStdString();
            ASSERT_EQ(regex.split(text, Qt::SkipEmptyParts), text.split(expected, Qt::SkipEmptyParts));
        }
    }
}

TEST(TextRegex, AnInvalidPatternMatchesNothing)
{
    const TextRegex regex("(a");
    EXPECT_FALSE(regex.isValid());
    EXPECT_FALSE(regex.isFoundIn("(a"));
    EXPECT_EQ(regex.split("x(ay", Qt::KeepEmptyParts), QStringList("x(ay"));
    EXPECT_EQ(regex.errorString(), QRegularExpression("(a").errorString());
}

TEST(TextRegex, CountsWhatItGivesUp)
{
    const RegexWork work;
    const TextRegex regex(hardPattern);
    const QString broken = QStringLiteral("aa") + QChar(0xD800);
    for (int i = 0; i < 1200; ++i) {
        ASSERT_FALSE(regex.isFoundIn(hardText(i)));
    }
    EXPECT_EQ(regex.split(hardText(7), Qt::KeepEmptyParts), QStringList(hardText(7)));
    EXPECT_TRUE(regex.isFoundIn("aaaa")) << "easy texts still match";
    EXPECT_FALSE(regex.isFoundIn(broken));
    EXPECT_EQ(work.warnings(),
        QStringList({"Regular expression '^(a|aa)+$' is too complex for 1,201 values, treated as not matching. E.g. '"
                         + ellipsized(hardText(0), 50) + "'",
            "Regular expression '^(a|aa)+$' can't read broken characters of 1 value, treated as not matching. E.g. '"
                + broken + "'"}));
}

TEST(RegexWork, AllowsLessTheMoreIsGivenUp)
{
    const int usual = RegexWork::limit();
    {
        const RegexWork work;
        QVector<int> limits{RegexWork::limit()};
        for (int i = 0; i < 2000; ++i) {
            RegexWork::noteTooHard("p", "t");
            if (RegexWork::limit() != limits.last()) {
                limits.append(RegexWork::limit());
            }
        }
        EXPECT_EQ(limits, QVector<int>({usual, 20000, 2000}));
        const RegexWork inner;
        EXPECT_EQ(RegexWork::limit(), usual) << "each run begins anew";
        EXPECT_EQ(inner.warnings(), QStringList());
    }
    EXPECT_EQ(RegexWork::limit(), usual);
    RegexWork::noteTooHard("p", "t"); // nobody counts
}

TEST(RegexWork, NamesAFewPatterns)
{
    const RegexWork work;
    for (int i = 0; i < 8; ++i) {
        RegexWork::noteTooHard(QString::number(i % 7), "t");
    }
    const QStringList warnings = work.warnings();
    ASSERT_EQ(warnings.size(), 5);
    EXPECT_EQ(
        warnings.first(), "Regular expression '0' is too complex for 2 values, treated as not matching. E.g. 't'");
    EXPECT_TRUE(warnings.last().endsWith("\n+ 2 other regular expressions"));
}

} // namespace
