#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"
#include "transforms/format/datetimeconverter.h"
#include "transforms/options/parameter.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

struct DateCase
{
    const char *what;
    QString from;
    QString to;
    QString cell;
    QString written;
};

QString headline(const QString &count, const QString &format)
{
    return count + " not converted. Unconverted values either do not match 'Format from'='" + format
           + "' or are non-existent dates for your locale (e.g. 29th February 2023):";
}

} // namespace

TEST(TransformDateFormat, RewritesDates)
{
    const DateCase cases[] = {
        {"numbers to numbers", "d/M/yyyy", "yyyy-MM-dd", "5/1/2023", "2023-01-05"},
        {"names are written", "d/M/yyyy", "dddd d MMMM yyyy", "5/1/2023", "Thursday 5 January 2023"},
        {"names are read", "d MMM yyyy", "dd.MM.yy", "5 Jan 2023", "05.01.23"},
        {"two digits mean the 20th century", "d/M/yy", "yyyy", "1/1/20", "1920"},
        {"a date as a time is midnight", "yyyy-MM-dd", "dd/MM/yyyy HH:mm", "2023-01-05", "05/01/2023 00:00"},
        {"times", "yyyy-MM-dd HH:mm:ss", "d.M.yyyy h:mm AP", "2023-01-05 17:08:09", "5.1.2023 5:08 PM"},
        {"a T in quotes", "yyyy-MM-dd'T'HH:mm", "HHmm", "2023-01-05T17:08", "1708"},
        {"times without a date", "HH:mm", "h:mm ap", "17:08", "5:08 pm"},
        {"a day that doesn't exist stays", "d/M/yyyy", "yyyy", "29/2/2023", "29/2/2023"},
        {"a leap day exists", "d/M/yyyy", "yyyy", "29/2/2024", "2024"},
        {"another format stays", "d/M/yyyy", "yyyy", "2023-01-05", "2023-01-05"},
        {"blanks around aren't part of the format", "d/M/yyyy", "yyyy", " 1/2/2023", " 1/2/2023"},
        {"an empty cell stays", "d/M/yyyy", "yyyy", "", ""},
    };
    const ScopedLocale locale("en_US");
    for (const DateCase &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options{{"Columns", 1}, {"Input", c.from}, {"Output", c.to}};
        EXPECT_EQ(rows(runOn("Date_Format", options, plainGrid({c.cell}))), QStringList(c.written));
    }
}

TEST(TransformDateFormat, ListsWhatItCouldNotRead)
{
    const ScopedLocale locale("en_US");
    const Dataset input = grid({"a|b", "1/2/2023|x1", "|29/2/2023", "x2|x3", "x2|x4", "x5|3/2/2023"});
    const OptionSettings options{{"Columns", QVariantList{1, 2}}, {"Input", "d/M/yyyy"}, {"Output", "yyyy"}};
    const TransformRun run = runTransform("Date_Format", options, {input});
    EXPECT_EQ(rows(run.result), QStringList({"2023|x1", "|29/2/2023", "x2|x3", "x2|x4", "x5|2023"}));
    EXPECT_EQ(run.resultText(), "2 changed, 8 unchanged");
    EXPECT_EQ(run.warnings(), QStringList({headline("7 values are", "d/M/yyyy"), "'x1' at column 'b' row 1",
                                  "'29/2/2023' at column 'b' row 2", "'x2' at column 'a' row 3",
                                  "'x3' at column 'b' row 3", "'x2' at column 'a' row 4", "+ 2 others"}));

    const TransformRun one = runTransform(
        "Date_Format", options + OptionSettings{{"Columns", 1}}, {grid({"a|b", "1/2/2023|", "x|"})});
    EXPECT_EQ(one.warnings(), QStringList({headline("1 value is", "d/M/yyyy"), "'x' at column 'a' row 2"}));
}

TEST(TransformDateFormat, TreatsTheUnreadAsAsked)
{
    const OptionSettings dates{{"Input", "d/M/yyyy"}, {"Output", "d/M/yyyy"}};
    const auto run = [&dates](const OptionSettings &options) {
        return runTransform("Date_Format", dates + options, {column({"1/2/2023", "x", ""})});
    };
    EXPECT_EQ(rows(run({{"Non_Date", "Change to empty"}}).result), QStringList({"1/2/2023", "", ""}));
    EXPECT_EQ(run({{"Non_Date", "Change to empty"}}).resultText(), "1 changed, 2 unchanged");
    const OptionSettings given{{"Non_Date", "Change to user defined"}, {"User_Defined", "unknown"}};
    EXPECT_EQ(rows(run(given).result), QStringList({"1/2/2023", "unknown", ""}));
    EXPECT_EQ(run({{"User_Defined", "unknown"}}).resultText(), "No changes");
    EXPECT_EQ(run({{"Input", ""}}).resultText(), "No changes");
    EXPECT_EQ(run({{"Input", ""}}).warnings(), QStringList("1 option not set ('Format from')"));
    EXPECT_EQ(run(given).transform->parameterStates(), (QList<QPair<QString, bool>>{{"User_Defined", true}}));
    EXPECT_EQ(run({}).transform->parameterStates(), (QList<QPair<QString, bool>>{{"User_Defined", false}}));
}

TEST(TransformDateFormat, ReadsAndWritesByTheLocales)
{
    const OptionSettings options{{"Input", "d MMMM yyyy"}, {"Output", "dddd d MMM yyyy"},
        {"Input_Locale", QLocale("de_DE")}, {"Output_Locale", QLocale("fr_FR")}};
    EXPECT_EQ(rows(runOn("Date_Format", options, column("3 März 2023"))), QStringList("vendredi 3 mars 2023"));
}

TEST(TransformDateFormat, GuessesTheFormat)
{
    const ScopedSettings settings;
    const auto guess = [](const Dataset &input) {
        return runTransform("Date_Format", {}, {input}).transform->parameter("Input")->toText();
    };
    EXPECT_EQ(guess(grid({"a|b|c", "x|2023-12-31|31-12-2023", "||"})), "yyyy-M-d");
    EXPECT_EQ(guess(column("x")), "d/MM/yyyy");
    EXPECT_EQ(guess(plainGrid({QString("x|").repeated(24) + "2023-12-31"})), "yyyy-M-d");
    EXPECT_EQ(guess(plainGrid({QString("x|").repeated(25) + "2023-12-31"})), "d/MM/yyyy");
}

TEST(DateTimeConverter, ConvertsAsQtDoes)
{
    const QStringList formats{"d/M/yyyy", "dd.MM.yy", "yyyy-MM-dd HH:mm", "d/M/yyyy h:m:s", "HH:mm dd-MM-yyyy",
        "yyyy-MM-dd'T'HH:mm:ss", "yyyyMMdd HHmm", "d-M-yy H", "yyyy/MM/dd hh:mm AP", "MM-yyyy", "d MMM yyyy",
        "dd-MM-yyyy HH:mm:ss.zzz", "d.M.yyyy, HH.mm"};
    const QStringList outputs{"yyyy-MM-dd", "d/M/yy HH:mm:ss", "dddd MMM d"};
    const QVector<QLocale> locales{QLocale("en_US"), QLocale("de_DE"), QLocale("ar_EG"), QLocale("hi_IN")};
    const QString letters = QStringLiteral("0123456789/-.: T,aP٣é");
    QRandomGenerator random(11);
    for (const QString &format : formats) {
        for (const QLocale &locale : locales) {
            const QString output = outputs.at(random.bounded(outputs.size()));
            DateTimeConverter converter(format, locale, output, locale);
            for (int i = 0; i < 1500; ++i) {
                const QDateTime moment(
                    QDate(1890 + random.bounded(250), 1 + random.bounded(12), 1 + random.bounded(28)),
                    QTime(random.bounded(24), random.bounded(60), random.bounded(60)));
                QString text = QLocale(random.bounded(3) ? locale : QLocale("en_US")).toString(moment, format);
                for (int edits = random.bounded(3); edits > 0 && !text.isEmpty(); --edits) {
                    const QChar letter = letters.at(random.bounded(letters.size()));
                    const int at = random.bounded(text.size());
                    text.replace(at, random.bounded(2), letter);
                }
                const QDateTime read = locale.toDateTime(text, format);
                TextBuffer out;
                const QByteArray bytes = text.toUtf8();
                TextArena arena;
                ASSERT_EQ(converter.convert(arena.store(bytes.constData(), bytes.size()), out), read.isValid())
                    << text.toStdString() << " by " << format.toStdString() << " in " << locale.name().toStdString();
                if (read.isValid()) {
                    ASSERT_EQ(QString::fromUtf8(out.constData(), out.size()), locale.toString(read, output))
                        << text.toStdString() << " by " << format.toStdString();
                }
            }
        }
    }
}
