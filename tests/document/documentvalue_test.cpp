#include "document/documentvalue.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

const QChar separator = DocumentValue::separator;

QString joined(std::initializer_list<const char *> parts)
{
    QStringList list;
    for (const char *part : parts) {
        list.append(QString::fromUtf8(part));
    }
    return list.join(separator);
}

} // namespace

TEST(DocumentValue, TextIsStoredAsPercentEncodedAscii)
{
    const struct
    {
        const char *what;
        QString text;
        const char *stored;
    } cases[] = {
        {"letters, digits and unreserved marks stand for themselves", QStringLiteral("aZ0-._~"), "aZ0-._~"},
        {"markup, newline and percent are encoded", QStringLiteral("<a\n&%\""), "%3Ca%0A%26%25%22"},
        {"what isn't ASCII is encoded as UTF-8", QString::fromUtf8("é€😀"), "%C3%A9%E2%82%AC%F0%9F%98%80"},
        {"separators of lists are encoded", QStringLiteral("a^b") + separator, "a%5Eb%1F"},
        {"blanks, slashes and plus are encoded", QStringLiteral("/a b+"), "%2Fa%20b%2B"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(DocumentValue::fromText(c.text), QString::fromLatin1(c.stored));
        EXPECT_EQ(DocumentValue::toText(QString::fromLatin1(c.stored)), c.text);
    }
    EXPECT_TRUE(DocumentValue::fromText(QString()).isNull()) << "an empty text has no attribute";
    EXPECT_EQ(DocumentValue::toText(QString(), QStringLiteral("x")), QStringLiteral("x"));
    EXPECT_EQ(DocumentValue::toText(QStringLiteral(""), QStringLiteral("x")), QString(QLatin1String("")));
}

TEST(DocumentValue, NumbersThatCannotBeReadGiveTheFallback)
{
    const struct
    {
        const char *what;
        const char *stored;
        int integer;
        double real;
    } cases[] = {
        {"an integer is read as both", "42", 42, 42.0},
        {"a negative number", "-7", -7, -7.0},
        {"a fraction is no integer", "1.5", -1, 1.5},
        {"an exponent is no integer", "1e+06", -1, 1e6},
        {"a number beyond 32 bits is no integer", "4294967296", -1, 4294967296.0},
        {"hexadecimal isn't decimal", "0x10", -1, -1.0},
        {"words are no numbers", "many", -1, -1.0},
        {"an empty attribute is no number", "", -1, -1.0},
        {"infinity is no number to work with", "inf", -1, -1.0},
        {"nor is not-a-number", "nan", -1, -1.0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(DocumentValue::toInteger(QString::fromLatin1(c.stored), -1), c.integer);
        EXPECT_EQ(DocumentValue::toReal(QString::fromLatin1(c.stored), -1.0), c.real);
    }
    EXPECT_EQ(DocumentValue::fromReal(1234567.0), QStringLiteral("1.23457e+06"));
    EXPECT_EQ(DocumentValue::fromReal(239.4), QStringLiteral("239.4"));
}

TEST(DocumentValue, ListsAreReadWithEitherSeparator)
{
    const struct
    {
        const char *what;
        QString stored;
        QStringList list;
    } cases[] = {
        {"parts are decoded one by one", joined({"a%20b", "c%1Fd"}),
            {QStringLiteral("a b"), QString("c") + separator + "d"}},
        {"an old document parts by a caret", QStringLiteral("a^b"), {QStringLiteral("a"), QStringLiteral("b")}},
        {"a caret is text where the separator occurs", joined({"a^b", "c"}),
            {QStringLiteral("a^b"), QStringLiteral("c")}},
        {"an encoded caret in the only part is text", QStringLiteral("a%5Eb"), {QStringLiteral("a^b")}},
        {"empty parts are dropped", joined({"", "a", "", "b", ""}), {QStringLiteral("a"), QStringLiteral("b")}},
        {"an absent attribute is an empty list", QString(), {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(DocumentValue::toList(c.stored), c.list);
    }
    EXPECT_EQ(DocumentValue::toListByPosition(joined({"", "a", ""})),
        (QStringList{QString(), QStringLiteral("a"), QString()}));
    EXPECT_EQ(DocumentValue::toListByPosition(QString()), QStringList());
    EXPECT_TRUE(DocumentValue::fromList({}).isNull());
    EXPECT_EQ(DocumentValue::fromList({QStringLiteral("a^"), QStringLiteral("b c")}), joined({"a%5E", "b%20c"}));
}

TEST(DocumentValue, PointsNeedTwoNumbersWithinACanvas)
{
    const struct
    {
        const char *what;
        QString stored;
        QPointF point;
    } cases[] = {
        {"two numbers", joined({"10", "-20.5"}), {10, -20.5}},
        {"the old form", QStringLiteral("10^20"), {10, 20}},
        {"an encoded exponent", joined({"1e%2B06", "0"}), {1e6, 0}},
        {"one number", QStringLiteral("10"), {}},
        {"three numbers", joined({"1", "2", "3"}), {}},
        {"one of them isn't a number", joined({"1", "x"}), {}},
        {"infinite", joined({"inf", "1"}), {}},
        {"not a number", joined({"nan", "nan"}), {}},
        {"farther than a canvas reaches", joined({"1e300", "0"}), {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(DocumentValue::toPoint(c.stored), c.point);
    }
    EXPECT_EQ(DocumentValue::fromPoint({1.5, -2}), joined({"1.5", "-2"}));
    EXPECT_EQ(DocumentValue::fromPoint({1.5, -2}, DocumentValue::oldSeparator), QStringLiteral("1.5^-2"));
}

TEST(DocumentValue, ColoursAndIntegerListsSkipWhatTheyCannotRead)
{
    EXPECT_EQ(DocumentValue::fromColour(QColor(1, 20, 255, 7)), joined({"1", "20", "255"}));
    EXPECT_TRUE(DocumentValue::fromColour(QColor()).isNull());
    EXPECT_EQ(DocumentValue::toColour(joined({"1", "20", "255"}), Qt::white), QColor(1, 20, 255));
    EXPECT_EQ(DocumentValue::toColour(joined({"1", "20"}), Qt::white), QColor(Qt::white)) << "two parts are too few";
    EXPECT_EQ(DocumentValue::toColour(joined({"1", "20", "256"}), Qt::red), QColor(Qt::red));
    EXPECT_EQ(DocumentValue::toColour(QString(), Qt::white), QColor(Qt::white));
    EXPECT_EQ(DocumentValue::toIntegerList(joined({"3", "x", "-1", "2.5"})), (QList<int>{3, -1}));
    EXPECT_EQ(DocumentValue::fromIntegerList({3, -1}), joined({"3", "-1"}));
}

TEST(DocumentValue, CharactersAreTheFirstOfTheDecodedText)
{
    EXPECT_EQ(DocumentValue::toCharacter(QStringLiteral("%7Cx"), QLatin1Char('*')), QLatin1Char('|'));
    EXPECT_EQ(DocumentValue::toCharacter(QStringLiteral(""), QLatin1Char('*')), QLatin1Char('*'));
    EXPECT_EQ(DocumentValue::toCharacter(QString(), QLatin1Char('*')), QLatin1Char('*'));
    EXPECT_EQ(DocumentValue::fromCharacter(QLatin1Char(' ')), QStringLiteral("%20"));
    EXPECT_EQ(DocumentValue::fromCharacter(QChar()), QStringLiteral("%00")) << "the null character is one";
    EXPECT_TRUE(DocumentValue::toCharacter(QStringLiteral("%00"), QLatin1Char('*')).isNull());
}

TEST(DocumentValue, RawTextIsKeptButForWhatAFileCannotHold)
{
    const QString stored = joined({"1", "a%20b", ""}) + QStringLiteral("<&");
    EXPECT_EQ(DocumentValue::fromRaw(stored), stored);
    EXPECT_EQ(DocumentValue::fromRaw(QString::fromUtf8("é\n😀")), QStringLiteral("%C3%A9%0A%F0%9F%98%80"));
    EXPECT_FALSE(DocumentValue::fromRaw(QString()).isNull()) << "raw text is always written";
}
