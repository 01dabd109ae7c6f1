#include "transforms/keys/keyreports.h"

#include "support/grid.h"

#include <gtest/gtest.h>

namespace {

const ColumnIndex key(0);

QStringList duplicates(const QStringList &keys, bool caseSensitive)
{
    QStringList messages;
    reportDuplicateKeys(messages, column(keys), key, caseSensitive, "Top key column");
    return messages;
}

QStringList whitespace(const QStringList &keys, bool caseSensitive)
{
    QStringList messages;
    reportKeyWhitespace(messages, column(keys), key, caseSensitive, "Top key column");
    return messages;
}

QStringList misses(const QStringList &keys, int expected)
{
    QStringList messages;
    const QVector<char> noPartner(keys.size(), 0);
    EXPECT_EQ(reportKeyMisses(messages, column(keys), key, noPartner, "Top key column"), expected);
    return messages;
}

} // namespace

TEST(KeyReports, ListDuplicates)
{
    EXPECT_EQ(duplicates({"b", "a", "A", "b"}, true), QStringList("1 duplicated key in the Top key column:\n"
                                                                  "'b' occurs 2 times"));
    EXPECT_EQ(duplicates({"b", "a", "A", "B", "b"}, false), QStringList("2 duplicated keys in the Top key column:\n"
                                                                        "'a' occurs 2 times (case insensitive)\n"
                                                                        "'b' occurs 3 times (case insensitive)"));
    EXPECT_EQ(duplicates({"a", "A", "", "b"}, true), QStringList());
}

TEST(KeyReports, CountDuplicatesBeyondFive)
{
    QStringList keys;
    for (char c = 'a'; c <= 'f'; ++c) {
        keys << QString(c) << QString(c);
    }
    EXPECT_TRUE(duplicates(keys, true).first().endsWith("'e' occurs 2 times\n+ 1 other duplicate"));
    keys << "g"
         << "g";
    EXPECT_TRUE(duplicates(keys, true).first().endsWith("'e' occurs 2 times\n+ 2 other duplicates"));
}

TEST(KeyReports, ListValuesWithWhitespaceAtTheirEnds)
{
    EXPECT_EQ(whitespace({"a", "b ", "a b", "\tc", "", " "}, true),
        QStringList("3 values with leading or trailing whitespace in the Top key column:\n"
                    "'b ' at row 2\n"
                    "'\tc' at row 4\n"
                    "' ' at row 6\n"
                    "(keys are whitespace and case sensitive)"));
    EXPECT_EQ(whitespace({" 1", " 2", " 3", " 4", " 5", " 6"}, false).first().section('\n', 5),
        "' 5' at row 5\n+ 1 other with whitespace");
    EXPECT_EQ(whitespace({" 1", " 2", " 3", " 4", " 5", " 6", " 7"}, false).first().section('\n', 6),
        "+ 2 others with whitespace");
    EXPECT_EQ(whitespace({"a", ""}, true), QStringList());
}

TEST(KeyReports, ListMisses)
{
    EXPECT_EQ(misses({"a"}, 1), QStringList("1 miss in the Top key column:\n'a' at row 1"));
    EXPECT_EQ(misses({"a", "b"}, 2), QStringList("2 misses in the Top key column:\n'a' at row 1\n'b' at row 2"));
    EXPECT_EQ(misses({"a", "b", "c", "d", "e", "f"}, 6).first().section('\n', 6), "+ 1 other miss");
    EXPECT_EQ(misses({"a", "b", "c", "d", "e", "f", "g"}, 7).first().section('\n', 6), "+ 2 other misses");
    EXPECT_EQ(misses({}, 0), QStringList());

    QStringList messages{"before"};
    const Dataset dataset = column(QStringList{"a", "b"});
    EXPECT_EQ(reportKeyMisses(messages, dataset, key, {1, 0}, "Keys", ReportPlace::Front), 1);
    EXPECT_EQ(messages, (QStringList{"1 miss in the Keys:\n'b' at row 2", "before"}));
}
