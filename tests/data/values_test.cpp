#include "data/numberreader.h"
#include "data/realwriter.h"
#include "data/textarena.h"
#include "data/values.h"
#include "support/grid.h"
#include "support/scopedlocale.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace {

const QStringList locales{"C", "en_US", "de_DE", "fr_FR", "ar_EG", "hi_IN", "sv_SE", "de_CH"};

struct NumberCase
{
    const char *what;
    const char *locale;
    QString text;
    bool emptyIsOk;
    bool ignoreCurrency;
    bool ok;
    double value;
};

TEST(Values, ReadsNumbers)
{
    const NumberCase cases[] = {
        {"comma is German for the decimal point", "de_DE", "1,5", false, false, true, 1.5},
        {"where a point means groups", "de_DE", "1.5", false, false, false, 0},
        {"and the reverse in American", "en_US", "1.5", false, false, true, 1.5},
        {"a group of two digits", "en_US", "1,5", false, false, false, 0},
        {"groups", "en_US", "1,234,567.5", false, false, true, 1234567.5},
        {"nan is a word", "en_US", " NaN ", false, false, false, 0},
        {"inf too", "en_US", "INF", false, false, false, 0},
        {"and its opposite", "en_US", "-inf", false, false, false, 0},
        {"dollars are no number", "en_US", "$12.50", false, false, false, 0},
        {"unless they are let pass", "en_US", "$12.50", false, true, true, 12.5},
        {"wherever the symbol stands", "en_US", "-12.5 \u20ac", false, true, true, -12.5},
        {"nothing is no number", "en_US", "  ", false, false, false, 0},
        {"unless nothing is fine", "en_US", "  ", true, false, true, 0},
        {"or all that is left", "en_US", "\u00a3", true, true, true, 0},
        {"an exponent", "en_US", "-2.5E-3", false, false, true, -0.0025},
        {"a time", "en_US", "12:30", false, false, false, 0},
        {"digits of another script", "ar_EG", "\u0661\u066b\u0665", false, false, true, 1.5},
        {"whitespace beyond ASCII", "en_US",
            "\u00a0"
            "7\u2003",
            false, false, true, 7},
    };
    for (const NumberCase &c : cases) {
        SCOPED_TRACE(c.what);
        const ScopedLocale scoped(c.locale);
        bool ok = !c.ok;
        EXPECT_EQ(parseNumber(c.text, c.emptyIsOk, c.ignoreCurrency, &ok), c.value);
        EXPECT_EQ(ok, c.ok);
        EXPECT_EQ(parseNumber(c.text, c.emptyIsOk, c.ignoreCurrency), c.value);
        const ScopedLocale other("C");
        EXPECT_EQ(parseNumber(QLocale(c.locale), c.text, c.emptyIsOk, c.ignoreCurrency, &ok), c.value);
        EXPECT_EQ(ok, c.ok);
    }
}

struct WholeCase
{
    const char *what;
    QString text;
    bool ok;
    qlonglong value;
    bool isInt;
};

TEST(Values, ReadsWholeNumbers)
{
    const WholeCase cases[] = {
        {"zeros behind the point", "1000.00", true, 1000, true},
        {"other digits there", "1000.01", false, 0, false},
        {"only the point", "12.", true, 12, true},
        {"groups and zeros", "-1,234.0", true, -1234, true},
        {"more than 32 bits", "2147483648", true, 2147483648, false},
        {"the least of 32 bits", "-2147483648", true, -2147483648, true},
        {"the most of 64 bits", "9223372036854775807", true, 9223372036854775807, false},
        {"one more", "9223372036854775808", false, 0, false},
        {"nan", "nan", false, 0, false},
        {"an exponent", "1e3", false, 0, false},
        {"only the zeros", ".00", false, 0, false},
    };
    for (const WholeCase &c : cases) {
        SCOPED_TRACE(c.what);
        bool ok = !c.ok;
        EXPECT_EQ(parseLongLong(c.text, false, false, &ok), c.value);
        EXPECT_EQ(ok, c.ok);
        EXPECT_EQ(parseInt(c.text, false, false, &ok), c.isInt ? c.value : 0);
        EXPECT_EQ(ok, c.isInt);
    }
    EXPECT_EQ(parseInt("$5", false, true), 5);
    EXPECT_EQ(toNumberList({"1", "x", "", "$2", "nan"}, false, true), QList<double>({1, 2}));
    EXPECT_EQ(toNumberList({"1", ""}, true, false), QList<double>({1, 0}));
}

TEST(Values, TellsJsonNumbers)
{
    for (const char *text : {"0", "-0", "10", " 1.50 ", "1e5", "-1.5E-10", "0.0e+0"}) {
        EXPECT_TRUE(isJsonNumber(text)) << text;
    }
    for (const char *text :
        {"", "-", "01", "1.", ".5", "+1", "1e", "1e+", "1,5", "0x1", "1 2", "--1", "\u0661", "1.e5"}) {
        EXPECT_FALSE(isJsonNumber(text)) << text;
    }
}

struct BooleanCase
{
    const char *what;
    QString text;
    bool allowNumbers;
    bool ok;
    bool value;
};

TEST(Values, ReadsBooleans)
{
    const BooleanCase cases[] = {
        {"any case, with blanks", "TRUE ", false, true, true},
        {"false reads as well", "False", true, true, false},
        {"numbers only when allowed", "1", false, false, false},
        {"one", "1", true, true, true},
        {"zero", "0.0", true, true, false},
        {"a word", "x", true, false, false},
        {"nothing", "", true, false, false},
    };
    for (const BooleanCase &c : cases) {
        SCOPED_TRACE(c.what);
        bool ok = !c.ok;
        EXPECT_EQ(parseBoolean(c.text, true, c.allowNumbers, &ok), c.value);
        EXPECT_EQ(ok, c.ok);
        EXPECT_EQ(parseBoolean(c.text, false, c.allowNumbers), c.value);
    }
    EXPECT_EQ(boolText(true) + boolText(false), "truefalse");
}

struct RealCase
{
    const char *what;
    const char *locale;
    double value;
    bool withGrouping;
    int decimals;
    bool trimZeros;
    QString text;
};

TEST(Values, WritesReals)
{
    const RealCase cases[] = {
        {"zeros stay", "en_US", 2.5, false, 2, false, "2.50"},
        {"zeros go", "en_US", 2.5, false, 2, true, "2.5"},
        {"and the point with them", "en_US", 3, false, 2, true, "3"},
        {"fifteen digits", "en_US", 1234.5, false, -1, false, "1234.50000000000"},
        {"a third", "en_US", 1.0 / 3, false, -1, true, "0.333333333333333"},
        {"a sum that isn't quite", "en_US", 0.1 + 0.2, false, -1, true, "0.3"},
        {"a large number has no decimals", "en_US", 1e15, false, -1, false, "1000000000000000"},
        {"nothing left has no sign", "en_US", -0.0000001, false, 2, false, "0.00"},
        {"nor with zeros gone", "en_US", -0.0000001, false, 2, true, "0"},
        {"no sign without value", "en_US", -0.0, false, -1, true, "0"},
        {"a half rounds away from zero", "en_US", -2.5, false, 0, true, "-3"},
        {"rounding goes into the whole", "en_US", 9.999, false, 2, false, "10.00"},
        {"infinity", "en_US", -HUGE_VAL, false, -1, true, "NaN"},
        {"no number", "en_US", std::nan(""), false, 3, true, "NaN"},
        {"groups", "en_US", 1234567.25, true, 3, true, "1,234,567.25"},
        {"German", "de_DE", 1234567.25, false, 3, true, "1234567,25"},
        {"Swedish minus", "sv_SE", -1.5, false, 3, true,
            "\u2212"
            "1,5"},
        {"Swedish minus goes", "sv_SE", -0.0001, false, 2, true, "0"},
    };
    for (const RealCase &c : cases) {
        SCOPED_TRACE(c.what);
        const ScopedLocale scoped(c.locale);
        EXPECT_EQ(formatReal(c.value, c.withGrouping, c.decimals, c.trimZeros), c.text);
    }
    EXPECT_EQ(formatRealList({1, 2.5, 1e-3}), "1,2.5,0.001");
    EXPECT_EQ(formatInteger(-1234567, true), "-1,234,567");
    EXPECT_EQ(formatInteger(-1234567, false), "-1234567");
    const ScopedLocale arabic("ar_EG");
    EXPECT_EQ(formatInteger(1234, false), "\u0661\u0662\u0663\u0664");
}

TEST(Values, TextsForPeople)
{
    EXPECT_EQ(localeName(QLocale(QLocale::English, QLocale::UnitedStates)), "English/United States");
    EXPECT_EQ(ellipsized("abcd", 4), "abcd");
    EXPECT_EQ(ellipsized("abcde", 4), "abc\u2026");
    EXPECT_EQ(ellipsized("ab\U0001F600d", 4), "ab\u2026");
    EXPECT_EQ(ellipsized("abc", 0), "");
}

// The rules once more, with the library's functions alone

double numberByLibrary(const QLocale &locale, const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok)
{
    QString number = text.trimmed();
    *ok = false;
    if (QStringList({"nan", "inf", "-inf"}).contains(number.toLower())) {
        return 0;
    }
    if (ignoreCurrency) {
        removeCurrencySymbols(number);
    }
    *ok = emptyIsOk && number.isEmpty();
    const double value = *ok ? 0 : locale.toDouble(number, ok);
    return *ok ? value : 0;
}

qlonglong wholeByLibrary(const QLocale &locale, const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok)
{
    QString number = text.trimmed();
    if (ignoreCurrency) {
        removeCurrencySymbols(number);
    }
    *ok = emptyIsOk && number.isEmpty();
    const int point = number.lastIndexOf(locale.decimalPoint());
    if (point >= 0 && number.mid(point + 1).count('0') == number.size() - point - 1) {
        number.truncate(point);
    }
    const qlonglong value = *ok ? 0 : locale.toLongLong(number, ok);
    return *ok ? value : 0;
}

QString realByLibrary(const QLocale &locale, double value, bool withGrouping, int decimals, bool trimZeros)
{
    if (!std::isfinite(value)) {
        return "NaN";
    }
    const int magnitude = value == 0 ? 0 : static_cast<int>(std::ceil(std::log10(std::abs(value))));
    QString text = locale.toString(value, 'f', decimals == -1 ? qMax(0, 15 - qMax(0, magnitude)) : decimals);
    if (trimZeros && text.contains(locale.decimalPoint())) {
        while (text.endsWith('0')) {
            text.chop(1);
        }
        text.chop(text.endsWith(locale.decimalPoint()) ? 1 : 0);
    }
    if (!withGrouping) {
        text.remove(locale.groupSeparator());
    }
    bool ok = false;
    const bool isZero = locale.toDouble(text, &ok) == 0;
    return ok && isZero && std::signbit(value) && text.size() > 1 && !text.at(0).isDigit() ? text.mid(1) : text;
}

/// Numbers in many spellings, most of them damaged a little.
class Corpus
{
public:
    explicit Corpus(const QLocale &locale)
        : m_locale(locale)
    {
    }

    quint64 below(quint64 limit) { return m_random() % limit; }
    double real()
    {
        switch (below(5)) {
        case 0: {
            const quint64 bits = m_random();
            double value;
            std::memcpy(&value, &bits, sizeof value);
            return value;
        }
        case 1:
            return static_cast<double>(integer());
        case 2:
            return static_cast<double>(integer()) / std::pow(10, below(18));
        case 3: // ties lie among these
            return static_cast<double>(integer()) / static_cast<double>(1ULL << below(50));
        default:
            return std::nextafter(std::pow(10, static_cast<int>(below(30)) - 15), below(2) ? 1e300 : -1e300);
        }
    }
    QString text()
    {
        QString result;
        switch (below(4)) {
        case 0:
            for (quint64 left = below(9); left > 0; --left) {
                result += character();
            }
            break;
        case 1:
            result = m_locale.toString(real(), "fge"[below(3)], static_cast<int>(below(18)));
            break;
        case 2:
            result = QString::number(integer()) + (below(2) ? m_locale.decimalPoint() + QString("00") : QString());
            break;
        default:
            for (quint64 left = 1 + below(24); left > 0; --left) {
                result += QChar('0' + static_cast<int>(below(10)));
            }
            result += below(3) ? "" : "e" + QString::number(static_cast<int>(below(640)) - 320);
        }
        for (quint64 left = below(3); left > 0; --left) {
            result.insert(static_cast<int>(below(static_cast<quint64>(result.size()) + 1)), character());
        }
        return result;
    }

private:
    qint64 integer() { return static_cast<qint64>(m_random()) >> below(64); }
    QChar character()
    {
        static const QString characters = "0123456789..,,-+eEnaif$ /:'_\u20ac\u00a0\u202f\u0661\u066b\u2212";
        return characters.at(static_cast<int>(below(static_cast<quint64>(characters.size()))));
    }
    const QLocale m_locale;
    std::mt19937_64 m_random{29};
};

TEST(Values, PlainReadingIsThatOfTheLibrary)
{
    for (const QString &name : locales) {
        const ScopedLocale scoped(name);
        const QLocale locale;
        Corpus corpus(locale);
        for (int i = 0; i < 20000; ++i) {
            const QString text = corpus.text();
            const bool emptyIsOk = i & 1;
            const bool ignoreCurrency = i & 2;
            const NumberReader reader(emptyIsOk, ignoreCurrency);
            TextArena arena;
            const Cell cell = arena.store(text);
            bool expectedOk = false;
            bool ok = false;
            bool cellOk = false;
            const double real = numberByLibrary(locale, text, emptyIsOk, ignoreCurrency, &expectedOk);
            const auto same = [real](double value) { return value == real || (std::isnan(value) && std::isnan(real)); };
            ASSERT_TRUE(same(reader.read(text, &ok)) && same(reader.read(cell, &cellOk))) << text.toStdString();
            ASSERT_TRUE(ok == expectedOk && cellOk == expectedOk) << text.toStdString();
            const qlonglong whole = wholeByLibrary(locale, text, emptyIsOk, ignoreCurrency, &expectedOk);
            ASSERT_TRUE(reader.readLongLong(text, &ok) == whole && reader.readLongLong(cell, &cellOk) == whole)
                << text.toStdString();
            ASSERT_TRUE(ok == expectedOk && cellOk == expectedOk) << text.toStdString();
        }
    }
}

TEST(Values, PlainWritingIsThatOfTheLibrary)
{
    for (const QString &name : locales) {
        const ScopedLocale scoped(name);
        const QLocale locale;
        Corpus corpus(locale);
        for (int i = 0; i < 20000; ++i) {
            const double value = corpus.real();
            const int decimals = static_cast<int>(corpus.below(19)) - 1;
            const bool withGrouping = i % 8 == 0;
            const bool trimZeros = i & 1;
            const RealWriter writer(withGrouping, decimals, trimZeros);
            const QString expected = realByLibrary(locale, value, withGrouping, decimals, trimZeros);
            TextBuffer bytes;
            writer.write(value, bytes);
            ASSERT_EQ(writer.text(value), expected) << value << " " << decimals;
            ASSERT_EQ(TextCoding::decode(bytes.constData(), bytes.size()), expected);
        }
    }
}

} // namespace
