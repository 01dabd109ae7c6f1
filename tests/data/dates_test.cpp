#include "data/dateparser.h"
#include "data/datewriter.h"
#include "data/textarena.h"
#include "data/values.h"
#include "support/grid.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

const QDate noDate;

struct DateCase
{
    const char *what;
    QString text;
    QString format;
    QDate date;
};

TEST(Dates, ReadsByFormat)
{
    const DateCase cases[] = {
        {"one digit or two", "1/02/2020", "d/M/yyyy", QDate(2020, 2, 1)},
        {"trimmed", " 31/12/1999\t", "d/M/yyyy", QDate(1999, 12, 31)},
        {"two digits of the year are of the 20th century", "1/2/20", "d/M/yy", QDate(1920, 2, 1)},
        {"a leap day", "29/2/2020", "d/M/yyyy", QDate(2020, 2, 29)},
        {"a leap day that wasn't", "29/2/1900", "d/M/yyyy", noDate},
        {"the 31st of a month of 30", "31/4/2020", "d/M/yyyy", noDate},
        {"the 13th month", "1/13/2020", "d/M/yyyy", noDate},
        {"day 0", "0/1/2020", "d/M/yyyy", noDate},
        {"a year of two digits where four are asked", "1/2/20", "d/M/yyyy", noDate},
        {"a day of one digit where two are asked", "1/02/2020", "dd/MM/yyyy", noDate},
        {"another separator", "1-2-2020", "d/M/yyyy", noDate},
        {"more behind it", "1/2/2020x", "d/M/yyyy", noDate},
        {"nothing between", "20200229", "yyyyMMdd", QDate(2020, 2, 29)},
        {"other scripts as separators", "2020年2月1日", "yyyy年M月d日", QDate(2020, 2, 1)},
        {"month names", "1 Feb 2020", "d MMM yyyy", QDate(2020, 2, 1)},
        {"no year", "1/2", "d/M", QDate(1900, 2, 1)},
        {"no format", "1/2/2020", "", noDate},
        {"no text", "", "d/M/yyyy", noDate},
    };
    for (const DateCase &c : cases) {
        SCOPED_TRACE(c.what);
        TextArena arena;
        EXPECT_EQ(parseDate(c.text, c.format), c.date);
        const DateParser parser(c.format);
        EXPECT_EQ(parser.parse(arena.store(c.text)), c.date);
        EXPECT_EQ(parser.parse(arena.store(c.text)), c.date); // remembered ones too
    }
}

TEST(Dates, DigitsFollowTheDefaultLocale)
{
    const QString text = "\u0661/\u0662/\u0662\u0660\u0662\u0660";
    EXPECT_EQ(parseDate(text, "d/M/yyyy"), noDate);
    const ScopedLocale arabic("ar_EG");
    EXPECT_EQ(parseDate(text, "d/M/yyyy"), QDate(2020, 2, 1));
}

TEST(Dates, TheFirstFormatThatFitsWins)
{
    const QStringList formats{"M/d/yyyy", "d/M/yyyy", "yyyy-M-d"};
    const DateListParser parser(formats);
    const QPair<QString, int> cases[] = {{"1/2/2020", 0}, {"31/2/2020", -1}, {"31/1/2020", 1}, {"2020-1-2", 2}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.first.toStdString());
        TextArena arena;
        QString matched = "none";
        int position = -1;
        const QDate date = parseDate(c.first, formats, &matched);
        EXPECT_EQ(date.isValid(), c.second >= 0);
        EXPECT_EQ(matched, formats.value(c.second, "none"));
        EXPECT_EQ(parser.parse(arena.store(c.first), &position), date);
        EXPECT_EQ(position, c.second);
        EXPECT_EQ(parseDate(c.first, formats, nullptr), date);
    }
}

TEST(Dates, WritesByTheLocale)
{
    const QDate date(2020, 2, 1);
    EXPECT_EQ(dateText(date), "Saturday, February 1, 2020");
    EXPECT_EQ(dateText(date, "dd.MM.yy"), "01.02.20");
    EXPECT_EQ(dateText(noDate, "dd.MM.yy"), "");
    EXPECT_TRUE(dateTimeText(QDateTime(date, QTime(13, 5))).startsWith("Saturday, February 1, 2020 1:05"));
    const ScopedLocale german("de_DE");
    EXPECT_EQ(dateText(date, "d. MMMM yyyy"), "1. Februar 2020");
}

TEST(Dates, HelpShowsTheLettersOfAFormat)
{
    const QStringList lines = dateFormatHelp().split('\n');
    const QString year = QString::number(QDate::currentDate().year());
    ASSERT_EQ(lines.size(), 12);
    EXPECT_EQ(lines.at(0), "Where, for " + dateText(QDate(QDate::currentDate().year(), 2, 1)) + ":");
    EXPECT_EQ(lines.at(2), "dd=01");
    EXPECT_EQ(lines.at(8), "MMMM=February");
    EXPECT_EQ(lines.at(10), "yyyy=" + year);
    EXPECT_EQ(lines.at(11), "Case is important.");
}

TEST(Dates, FormatsComeFromTheSettings)
{
    const ScopedSettings scoped;
    Settings::current().setDateFormatsText("d.M.yyyy\n\nM/d/yy\n");
    EXPECT_EQ(dateFormats(), QStringList({"d.M.yyyy", "M/d/yy"}));
}

struct TimeCase
{
    const char *what;
    QString text;
    QTime time;
};

TEST(Dates, ReadsTimes)
{
    const TimeCase cases[] = {
        {"hours, minutes and seconds", " 1:02:3 ", QTime(1, 2, 3)},
        {"without seconds", "23:59", QTime(23, 59)},
        {"midnight", "0:0", QTime(0, 0)},
        {"hour 24", "24:00", QTime()},
        {"minute 60", "1:60", QTime()},
        {"a number", "12", QTime()},
        {"no time", "a:b", QTime()},
        {"nothing", "", QTime()},
    };
    for (const TimeCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(parseTime(c.text), c.time);
    }
}

// Against the library

const QStringList formats{"d/M/yyyy", "M-d-yy", "yyyy-MM-dd", "dd.MM.yyyy", "d. M. yyyy", "d M yy", "yyyyMMdd", "Mdyy",
    "yyyy年M月d日", "(dd/M-yy)"};

/// Dates in one of the formats, most of them damaged a little.
QString damagedDate(QRandomGenerator *random)
{
    static const QString characters = "0122399/-. +a,;:_\u0661";
    const QDate date(1 + random->bounded(2100), 1 + random->bounded(12), 1 + random->bounded(28));
    QString text = QLocale::c().toString(date, formats.at(random->bounded(formats.size())));
    for (int left = random->bounded(4); left > 0; --left) {
        const int at = random->bounded(text.size() + 1);
        text.replace(at, random->bounded(2), QString(characters.at(random->bounded(characters.size()))));
    }
    return text;
}

TEST(Dates, PlainReadingIsThatOfTheLibrary)
{
    QRandomGenerator random(31);
    for (const char *name : {"C", "de_DE", "fr_FR", "ar_EG", "hi_IN"}) {
        const ScopedLocale scoped(name);
        for (const QString &format : formats) {
            const DateParser parser(format);
            for (int i = 0; i < 1200; ++i) {
                const QString text = damagedDate(&random);
                ASSERT_EQ(parser.parse(text), QDate::fromString(text.trimmed(), format))
                    << text.toStdString() << " by " << format.toStdString();
            }
        }
    }
}

TEST(Dates, PlainTimesAreThoseOfTheLibrary)
{
    static const QString characters = "0123456789:: .-+aP";
    QRandomGenerator random(37);
    for (int i = 0; i < 20000; ++i) {
        QString text = QTime(0, 0).addSecs(random.bounded(86400)).toString(i % 2 ? "h:mm:ss" : "hh:m");
        for (int left = random.bounded(3); left > 0; --left) {
            text.replace(
                random.bounded(text.size()), random.bounded(2), characters.at(random.bounded(characters.size())));
        }
        const QTime withSeconds = QTime::fromString(text.trimmed(), "h:m:s");
        const QTime expected = withSeconds.isValid() ? withSeconds : QTime::fromString(text.trimmed(), "h:m");
        ASSERT_EQ(parseTime(text), expected) << text.toStdString();
    }
}

TEST(Dates, PlainWritingIsThatOfTheLibrary)
{
    QRandomGenerator random(41);
    QStringList all = formats;
    all << "d MMM yyyy"
        << "ddd d/M/yyyy"
        << "yyyy"
        << "'on' d/M/yyyy"
        << "d/M/yyyyy"
        << "h d/M/yyyy"
        << "";
    for (const char *name : {"C", "de_DE", "ar_EG", "fa_IR", "hi_IN"}) {
        const QLocale locale(name);
        for (const QString &format : qAsConst(all)) {
            const DateWriter writer(format, locale);
            for (int i = 0; i < 300; ++i) {
                const QDate date = QDate::fromJulianDay(1000000 + random.bounded(5000000));
                const QString expected = locale.toString(date, format);
                TextBuffer bytes;
                writer.write(date, bytes);
                ASSERT_EQ(writer.text(date), expected) << format.toStdString();
                ASSERT_EQ(TextCoding::decode(bytes.constData(), bytes.size()), expected);
            }
        }
    }
}

} // namespace
