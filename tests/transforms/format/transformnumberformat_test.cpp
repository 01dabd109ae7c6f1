#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/format/numberformatter.h"
#include "transforms/options/parameter.h"

#include <QRandomGenerator>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

struct NumberCase
{
    const char *what;
    OptionSettings options;
    QString cell;
    QString written;
};

QStringList writtenBy(const OptionSettings &options, const QStringList &cells)
{
    return rows(runOn("Num_Format", options, column(cells)));
}

} // namespace

TEST(TransformNumberFormat, RewritesNumbers)
{
    const NumberCase cases[] = {
        {"three decimals at first", {}, "1.5", "1.500"},
        {"rounded", {{"Precision", 1}}, "1.25001", "1.3"},
        {"no decimals", {{"Precision", 0}}, "1.7", "2"},
        {"groups are left out", {}, "1,234,567.8", "1234567.800"},
        {"unless asked for", {{"Group_Separator", true}}, "1234567.8", "1,234,567.800"},
        {"an exponent", {{"Format", "e"}}, "1230000", "1.230e+06"},
        {"a large exponent letter", {{"Format", "E"}}, "1230000", "1.230E+06"},
        {"significant figures", {{"Format", "g"}}, "0.00012345", "0.000123"},
        {"figures that need an exponent", {{"Format", "G"}}, "1234567", "1.23E+06"},
        {"the shortest text", {{"Format", "s"}}, "0.10000000000000000", "0.1"},
        {"which reads back as the same number", {{"Format", "s"}}, "0.30000000000000004", "0.30000000000000004"},
        {"large numbers in full", {{"Format", "s"}}, "1e21", "1000000000000000000000"},
        {"currency symbols are passed over", {}, "$1,000.5", "1000.500"},
        {"blanks within too", {}, " 1 000.5 ", "1000.500"},
        {"no minus for nothing", {{"Precision", 2}}, "-0.001", "0.00"},
        {"a minus for something", {{"Precision", 2}}, "-0.006", "-0.01"},
        {"comma for the decimals", {{"Decimal_From", "European , (comma)"}}, "1.234,5", "1234.500"},
        {"dot for the decimals", {{"Decimal_From", "US/UK . (dot)"}}, "1,5", "15.000"},
        {"the locale's own way", {{"Decimal_From", "Locale in Preferences"}}, "1,234.5", "1234.500"},
        {"which refuses what it can't read", {{"Decimal_From", "Locale in Preferences"}}, "1.234,5", "1.234,5"},
        {"a chosen locale", {{"Decimal_From", "Selected locale"}, {"Input_Locale", QLocale("de_DE")}}, "1.234,5",
            "1234.500"},
        {"written for a locale", {{"Output_Locale", QLocale("de_DE")}, {"Group_Separator", true}}, "1234.5",
            "1.234,500"},
        {"digits of another script", {{"Output_Locale", QLocale("ar_EG")}, {"Precision", 0}}, "12", "١٢"},
        {"more decimals than a number has", {{"Precision", 999999999}, {"Format", "g"}}, "0.5", "0.5"},
        {"text stays", {}, "abc", "abc"},
        {"infinity is text", {}, "inf", "inf"},
        {"an empty cell is no number", {{"Non_Numeric", "Change to 0"}}, "", "0"},
        {"text becomes empty", {{"Non_Numeric", "Change to empty"}}, "x", ""},
        {"text becomes not a number", {{"Non_Numeric", "Change to NaN"}}, "x", "NaN"},
    };
    const ScopedLocale locale("en_US");
    for (const NumberCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(writtenBy(OptionSettings{{"Columns", 1}} + c.options, {c.cell}), QStringList(c.written));
    }
}

TEST(TransformNumberFormat, ReadsUnderAnyDefaultLocale)
{
    const ScopedLocale locale("de_DE");
    EXPECT_EQ(writtenBy({}, {"1.5", "2.25"}), QStringList({"1,500", "2,250"}));
    EXPECT_EQ(writtenBy({{"Decimal_From", "European , (comma)"}}, {"1.234,5"}), QStringList("1234,500"));
    EXPECT_EQ(writtenBy({}, {"1.234", "1,5", "1,5"}), QStringList({"1234,000", "1,500", "1,500"}));
}

TEST(TransformNumberFormat, GuessesTheDecimalCharacter)
{
    const ScopedLocale locale("en_US");
    const TransformRun comma = runTransform("Num_Format", {}, {column({"1,5", "2,25"})});
    EXPECT_EQ(rows(comma.result), QStringList({"1.500", "2.250"}));
    EXPECT_EQ(comma.resultText(), "2 changed, 0 unchanged");
    EXPECT_EQ(comma.infos(),
        QStringList({"In column 'Value' (1) of 2 values checked 0 have probable Dot decimal separator and 2 have "
                     "probable Comma decimal separator",
            "',' chosen as likely decimal separator"}));
    EXPECT_EQ(comma.warnings(), QStringList());

    const TransformRun mixed = runTransform(
        "Num_Format", {}, {column({"1.234,5", "1.5", "7,5", "1,234,567.8", "1,2"})});
    EXPECT_EQ(mixed.warnings().first(),
        QString("In column 'Value' (1) some numeric values may not have a , (Comma) decimal separator"));
    EXPECT_EQ(rows(mixed.result), QStringList({"1234.500", "15.000", "7.500", "1,234,567.8", "1.200"}));

    const TransformRun tie = runTransform("Num_Format", {}, {column({"1.5", "1,5"})});
    EXPECT_EQ(rows(tie.result), QStringList({"1.500", "15.000"})) << "a tie leaves the locale's";
    EXPECT_EQ(tie.warnings(),
        QStringList("In column 'Value' (1) some numeric values may not have a . (Dot) decimal separator"));

    QStringList late;
    for (int i = 0; i < 50; ++i) {
        late.append("1");
    }
    late += QStringList{"1,5", "2,5"};
    EXPECT_EQ(writtenBy({{"Precision", 0}}, late).last(), "25") << "only the first fifty count";
}

TEST(TransformNumberFormat, ListsWhatItCouldNotRead)
{
    const ScopedLocale locale("en_US");
    const TransformRun run = runTransform(
        "Num_Format", {{"Non_Numeric", "Change to NaN"}}, {column({"1", "NaN", "x", "", "y", "z", "w", "2.000"})});
    EXPECT_EQ(rows(run.result), QStringList({"1.000", "NaN", "NaN", "NaN", "NaN", "NaN", "NaN", "2.000"}));
    EXPECT_EQ(run.resultText(), "6 changed, 2 unchanged");
    EXPECT_EQ(run.warnings(),
        QStringList({"6 non-numeric values:", "'NaN' at column 'Value' row 2", "'x' at column 'Value' row 3",
            "'' at column 'Value' row 4", "'y' at column 'Value' row 5", "'z' at column 'Value' row 6", "+ 1 other"}));
    EXPECT_EQ(runTransform("Num_Format", {}, {column({"x"})}).warnings().first(), "1 non-numeric value:");
}

TEST(TransformNumberFormat, ShowsTheOptionsThatApply)
{
    using States = QList<QPair<QString, bool>>;
    const auto states = [](const OptionSettings &options) {
        return runTransform("Num_Format", options, {column("1")}).transform->parameterStates();
    };
    EXPECT_EQ(states({}), (States{{"Input_Locale", false}, {"Precision", true}}));
    EXPECT_EQ(states({{"Decimal_From", "Selected locale"}, {"Format", "s"}}),
        (States{{"Input_Locale", true}, {"Precision", false}}));
}

TEST(NumberFormatter, WritesAsTheLocaleDoes)
{
    QRandomGenerator random(3);
    for (const char *name : {"en_US", "de_DE", "ar_EG"}) {
        const ScopedLocale scope(name);
        const QLocale locale;
        for (int i = 0; i < 20000; ++i) {
            const double value = (random.generateDouble() - 0.5) * std::pow(10, random.bounded(40) - 15)
                                 * (random.bounded(9) ? 1 : 0);
            const int precision = random.bounded(18);
            QString expected = locale.toString(value, 'f', precision);
            if (value < 0 && locale.toDouble(expected) == 0) {
                expected.remove(0, 1);
            }
            expected.remove(locale.groupSeparator());
            TextBuffer out;
            NumberFormatter(locale, 'f', precision, false).write(value, out);
            ASSERT_EQ(TextCoding::decode(out.constData(), out.size()), expected);
        }
    }
}

TEST(NumberFormatter, WritesInfinityAsTheLocaleDoesInEveryFormat)
{
    const QLocale locale;
    for (const bool withGrouping : {false, true}) {
        for (const char format : {'f', 'e', 's'}) {
            TextBuffer out;
            NumberFormatter(locale, format, 2, withGrouping).write(std::numeric_limits<double>::infinity(), out);
            EXPECT_EQ(TextCoding::decode(out.constData(), out.size()), "inf");
        }
    }
}
