#include "data/matchoperator.h"

#include "data/preparedmatch.h"
#include "data/textarena.h"
#include "support/printers.h"
#include "support/randomtext.h"
#include "support/scopedlocale.h"

#include <gtest/gtest.h>

namespace {

enum Op {
    Contains,
    Equal,
    Starts,
    Ends,
    Greater,
    Less,
    GreaterEqual,
    LessEqual,
    Regex,
    NotContains,
    NotEqual,
    NotStarts,
    NotEnds,
    NotRegex,
    Fuzzy90,
    Fuzzy80,
    Fuzzy70,
    Fuzzy60,
    Fuzzy50,
    Empty,
    NotEmpty
};

/// Asks both forms of the test; they must agree.
bool matches(int op, const QString &cell, const QString &text, const QString &format, bool caseSensitive)
{
    const bool plain = matchValue(op, cell, text, format, format, caseSensitive);
    TextArena arena;
    const PreparedMatch prepared(op, text, format, format, caseSensitive);
    EXPECT_EQ(prepared.matches(arena.store(cell)), plain)
        << "operator " << op << " on '" << qPrintable(cell) << "' and '" << qPrintable(text) << "'";
    return plain;
}

TEST(MatchOperator, TestsACellAgainstAText)
{
    const QString date = QStringLiteral("d/M/yyyy");
    const struct
    {
        const char *what;
        int op;
        QString cell;
        QString text;
        QString format;
        bool caseSensitive;
        bool holds;
    } cases[] = {
        {"part of the cell", Contains, "Hamburg", "mbu", "", true, true},
        {"case counts", Contains, "Hamburg", "ham", "", true, false},
        {"or doesn't", Contains, "Hamburg", "ham", "", false, true},
        {"an accent stays with its letter when case doesn't count", Contains, "CAFÉ", "fé", "", false, true},
        {"an empty text is in every cell", Contains, "", "", "", true, true},
        {"and at its beginning and end", Starts, "", "", "", true, true},
        {"every cell ends with it", Ends, "x", "", "", true, true},
        {"half a character is found in the whole", Contains, "\U0001F600", QString(QChar(0xD83D)), "", true, true},
        {"not contained", NotContains, "Hamburg", "x", "", true, true},
        {"beginning", Starts, "Hamburg", "Ham", "", true, true},
        {"beginning of another character with the same half", Starts, "\U0001F600", QString(QChar(0xD83D)), "", true,
            true},
        {"beginning without case", Starts, "hamburg", "HAM", "", false, true},
        {"longer than the cell", Starts, "Ham", "Hamburg", "", true, false},
        {"doesn't begin", NotStarts, "Hamburg", "burg", "", true, true},
        {"end", Ends, "Hamburg", "burg", "", true, true},
        {"end longer than the cell", Ends, "burg", "Hamburg", "", true, false},
        {"end without case", Ends, "STRASSE", "asse", "", false, true},
        {"doesn't end", NotEnds, "Hamburg", "burg", "", true, false},

        {"numbers are equal by value", Equal, "1.00", "1", "", true, true},
        {"with blanks and currency", Equal, " $1,000.50 ", "1000.5", "", true, true},
        {"not equal by value", NotEqual, "1.00", "1", "", true, false},
        {"a number and a word are texts", Equal, "1", "one", "", true, false},
        {"texts with case", Equal, "Ann", "ann", "", true, false},
        {"texts without case", Equal, "ÄRGER", "ärger", "", false, true},
        {"two empty texts", Equal, "", "", "", true, true},
        {"empty is not 0", Equal, "", "0", "", true, false},
        {"10 is above 9 as a number", Greater, "10", "9", "", true, true},
        {"but not as a text", Greater, "10a", "9", "", true, false},
        {"texts by code unit", Greater, "b", "a", "", true, true},
        {"upper case is below lower case", Less, "B", "a", "", true, true},
        {"unless case doesn't count", Less, "B", "a", "", false, false},
        {"equal is not less", Less, "2", "2.0", "", true, false},
        {"but less or equal", LessEqual, "2", "2.0", "", true, true},
        {"greater or equal", GreaterEqual, "3", "2.0", "", true, true},
        {"greater or equal by text", GreaterEqual, "abc", "abd", "", true, false},
        {"an empty cell is below any text", Less, "", "0", "", true, true},
        {"a character of the last plane units is above a pair", Greater, QString(QChar(0xFB01)), "\U0001F600", "", true,
            true},
        {"long whole numbers are compared digit by digit", Equal, "123456789012345678", "123456789012345679", "", true,
            false},
        {"and are greater by one", Greater, "123456789012345679", "123456789012345678", "", true, true},
        {"also negative ones", Less, "-9007199254740993", "-9007199254740992", "", true, true},
        {"however they are written", Equal, " $123,456,789,012,345,678.0", "+123456789012345678", "", true, true},
        {"and beyond 64 bits", Greater, "123456789012345678901234567890", "123456789012345678901234567889", "", true,
            true},
        {"but not where one is no whole number", Equal, "9007199254740993", "9007199254740992.5", "", true, true},

        {"dates by day", Greater, "1/12/2023", "9/2/2023", date, true, true},
        {"dates are equal however written", Equal, "01/02/2023", "1/2/2023", date, true, true},
        {"without a format they are texts", Greater, "1/12/2023", "9/2/2023", "", true, false},
        {"a text that is no date of the format makes both texts", Less, "1/12/2023", "9/2", date, true, true},
        {"a cell that is no date is compared as number", Less, "5", "30", date, true, true},

        {"regex within the cell", Regex, "order 768-0097", "[0-9]{3}-[0-9]{4}", "", true, true},
        {"regex with case", Regex, "ABC", "b", "", true, false},
        {"regex without case", Regex, "ABC", "b", "", false, true},
        {"anchors", Regex, "abc", "^b", "", true, false},
        {"no match for a wrong pattern", Regex, "(", "(", "", true, false},
        {"so its opposite holds", NotRegex, "(", "(", "", true, true},
        {"an empty pattern is in every cell", Regex, "", "", "", true, true},

        {"one of ten differs", Fuzzy90, "abcdefghij", "abcdefghiX", "", true, true},
        {"two of ten differ", Fuzzy90, "abcdefghij", "abcdefghXX", "", true, false},
        {"80 %", Fuzzy80, "abcdefghij", "abcdefghXX", "", true, true},
        {"70 %", Fuzzy70, "abcdefghij", "abcdefgXXX", "", true, true},
        {"60 %", Fuzzy60, "abcdefghij", "abcdefXXXX", "", true, true},
        {"50 %", Fuzzy50, "abcdefghij", "abcdeXXXXX", "", true, true},
        {"less than 50 %", Fuzzy50, "abcdefghij", "abcdXXXXXX", "", true, false},
        {"case counts", Fuzzy90, "ABC", "abc", "", true, false},
        {"or doesn't", Fuzzy90, "ABC", "abc", "", false, true},
        {"two empty texts are alike", Fuzzy90, "", "", "", true, true},

        {"empty", Empty, "", "whatever", "", true, true},
        {"a blank is not empty", Empty, " ", "", "", true, false},
        {"not empty", NotEmpty, " ", "", "", true, true},
        {"an unknown operator", 21, "a", "a", "", true, false},
        {"another", -1, "a", "a", "", true, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(matches(c.op, c.cell, c.text, c.format, c.caseSensitive), c.holds);
    }
}

TEST(MatchOperator, ReadsCellAndTextByTheirOwnFormats)
{
    TextArena arena;
    for (const auto &[cell, text, holds] :
        {std::tuple<const char *, const char *, bool>{"1/2/2023", "2/1/2023", true}, {"1/2/2023", "1/2/2023", false}}) {
        EXPECT_EQ(matchValue(Equal, cell, text, "d/M/yyyy", "M/d/yyyy", true), holds);
        EXPECT_EQ(PreparedMatch(Equal, text, "d/M/yyyy", "M/d/yyyy", true).matches(arena.store(QString(cell))), holds);
    }
}

TEST(MatchOperator, ReadsNumbersByTheLocale)
{
    const ScopedLocale german(QStringLiteral("de_DE"));
    EXPECT_TRUE(matches(Equal, "1.000,50", "1000,5", "", true));
    EXPECT_TRUE(matches(Less, "10", "9,5x", "", true)) << "one that is no number makes both texts";
}

TEST(MatchOperator, AgreesWithThePreparedForm)
{
    RandomText random(7);
    const QStringList values{"", " ", "1", "1.0", "-1", "$5", "5 €", "12", "9", "1e3", "nan", "inf", "1/2/2023",
        "13/2/2023", "2/13/2023", "abc", "ABC", "aB", "ı", "İ", "ß", "ss", "SS", "K", "k", "\uFB01", "\U0001F600",
        QString(QChar(0xD83D)), QString(QChar(0xDE00)), "a b", "\t1 "};
    const QStringList formats{"", "d/M/yyyy"};
    for (int i = 0; i < 30000; ++i) {
        const auto pick = [&] {
            const QString value = values.at(random.below(values.size()));
            return random.chance(30) ? random.text(6) : random.chance(30) ? random.edited(value, 2) : value;
        };
        const QString cell = pick();
        const QString text = random.chance(20) ? cell.mid(random.below(3)) : pick();
        matches(random.below(MatchOperators::count), cell, text, formats.at(random.below(2)), random.chance(50));
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

TEST(MatchOperator, TakesAnotherText)
{
    TextArena arena;
    PreparedMatch match(Equal, "3/4/2023", "d/M/yyyy", "d/M/yyyy", true);
    EXPECT_TRUE(match.matches(arena.store(QStringLiteral("03/04/2023"))));
    match.setText("7.0");
    EXPECT_TRUE(match.matches(arena.store(QStringLiteral("7"))));
    match.setText("x");
    EXPECT_FALSE(match.matches(arena.store(QStringLiteral("7"))));
}

TEST(MatchOperator, HasLabels)
{
    const QStringList labels = MatchOperators::labels();
    ASSERT_EQ(labels.size(), 21);
    EXPECT_EQ(labels.at(0), "c   Contains");
    EXPECT_EQ(labels.at(13), "!rx Doesn't match regex");
    EXPECT_EQ(labels.at(14), QChar(0x2248) + QStringLiteral("9  90% fuzzy match"));
    EXPECT_EQ(labels.at(20), '!' + QString(QChar(0x2205)) + "  Is not empty");
    EXPECT_EQ(MatchOperators::labelsWithText(), labels.mid(0, 19));
    EXPECT_EQ(MatchOperators::shortForm(6), ">=");
    EXPECT_EQ(MatchOperators::shortForm(18), QChar(0x2248) + QString("5"));
    EXPECT_EQ(MatchOperators::label(21), QString());
}

} // namespace
