#include "spreadsheet/datesystem.h"
#include "spreadsheet/xlsx/isodate.h"

#include <QString>
#include <gtest/gtest.h>
#include <limits>

using namespace spreadsheet;

namespace {

QString textOf(double value, bool uses1904)
{
    DateParts parts;
    if (!unpackDate(value, uses1904, &parts)) {
        return "none";
    }
    return QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d.%03d", parts.year, parts.month, parts.day, parts.hour,
        parts.minute, parts.second, parts.millisecond);
}

TEST(DateSystem, UnpacksDates)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    struct
    {
        const char *what;
        double value;
        bool uses1904;
        const char *text;
    } const cases[] = {
        {"a time alone", 0.25, false, "1899-12-31 06:00:00.000"},
        {"nothing", 0, false, "1899-12-31 00:00:00.000"},
        {"the first day", 1, false, "1900-01-01 00:00:00.000"},
        {"the day before the one that never was", 59, false, "1900-02-28 00:00:00.000"},
        {"the day that never was", 60.5, false, "1900-02-29 12:00:00.000"},
        {"the day behind it", 61, false, "1900-03-01 00:00:00.000"},
        {"this century", 45322.75, false, "2024-01-31 18:00:00.000"},
        {"a real leap day", 45351, false, "2024-02-29 00:00:00.000"},
        {"the last millisecond", 45322 + 86399999.0 / 86400000, false, "2024-01-31 23:59:59.999"},
        {"less than half a millisecond is rounded off", 45322 + 86399999.6 / 86400000, false,
            "2024-02-01 00:00:00.000"},
        {"a second that has no exact number", 45322.510416666664, false, "2024-01-31 12:15:00.000"},
        {"rounding up to the day that never was", 60 - 1e-10, false, "1900-02-29 00:00:00.000"},
        {"rounding up from it", 61 - 1e-10, false, "1900-03-01 00:00:00.000"},
        {"the last day", 2958465.5, false, "9999-12-31 12:00:00.000"},
        {"rounding up to the year 10000", 2958466 - 1e-9, false, "none"},
        {"behind the last day", 2958466, false, "none"},
        {"the first day of the other system", 0, true, "1904-01-01 00:00:00.000"},
        {"that system has no day that never was", 60, true, "1904-03-01 00:00:00.000"},
        {"its last day", 2957003, true, "9999-12-31 00:00:00.000"},
        {"behind it", 2957004, true, "none"},
        {"negative", -0.5, false, "none"},
        {"not finite", infinity, false, "none"},
        {"no number", std::numeric_limits<double>::quiet_NaN(), true, "none"},
        {"huge", 1e300, false, "none"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(textOf(c.value, c.uses1904).toStdString(), c.text);
    }
}

TEST(DateSystem, PacksDates)
{
    struct
    {
        const char *what;
        DateParts parts;
        bool uses1904;
        double value;
    } const cases[] = {
        {"a time alone", {0, 0, 0, 18, 0, 0, 0}, false, 0.75},
        {"a year of 0 leaves month and day out", {0, 5, 7, 6, 0, 0, 0}, false, 0.25},
        {"the first day", {1900, 1, 1}, false, 1},
        {"before it", {1899, 12, 31, 12}, false, -1},
        {"long before it", {33, 4, 3}, false, -1},
        {"before and behind the day that never was", {1900, 2, 28}, false, 59},
        {"the day that never was", {1900, 2, 29}, false, -1},
        {"behind it", {1900, 3, 1}, false, 61},
        {"this century", {2024, 1, 31, 12, 15, 30, 250}, false, 45322 + 44130250.0 / 86400000},
        {"the last year", {9999, 12, 31}, false, 2958465},
        {"a year later", {10000, 1, 1}, false, -1},
        {"the first day of the other system", {1904, 1, 1}, true, 0},
        {"before it", {1903, 12, 31}, true, -1},
        {"a day that no month has", {2024, 2, 30}, false, -1},
        {"a negative year", {-5, 1, 1}, false, -1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_DOUBLE_EQ(packDate(c.parts, c.uses1904), c.value);
    }
}

TEST(DateSystem, UnpacksWhatItPacked)
{
    for (const bool uses1904 : {false, true}) {
        for (int day = 1; day < 2950000; day += 997) {
            // Moments that no fraction of a day hits exactly
            const int ms = static_cast<int>(day * 7919LL % 86400000);
            DateParts parts;
            ASSERT_TRUE(unpackDate(day + ms / 86400000.0, uses1904, &parts));
            ASSERT_EQ(((parts.hour * 60 + parts.minute) * 60 + parts.second) * 1000 + parts.millisecond, ms);
            const double packed = packDate(parts, uses1904);
            ASSERT_TRUE(packed == day + ms / 86400000.0 || (day == 60 && !uses1904)) << day;
        }
    }
}

TEST(IsoDate, RefusesWhatIsNone)
{
    const char *const texts[] = {"", "2024", "2024-1-31", "2024-01-31x", "2024-13-01", "2024-01-31T",
        "2024-01-31T24:00", "2024-01-31T12:60", "2024-01-31T12:00:60", "2024-01-31T12:00:00.", "2024-01-31T12:00+2",
        "2024-01-31T12:00+02:00x", "0000-01-01", "12:3", "1:30", " 2024-01-31", "2024-01-31Zx"};
    for (const char *text : texts) {
        SCOPED_TRACE(text);
        double value = 0;
        EXPECT_FALSE(parseIsoDate(text, false, &value));
    }
}

} // namespace
