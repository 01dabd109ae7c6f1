#include "spreadsheet/datesystem.h"

#include <QDate>
#include <cmath>

namespace spreadsheet {
namespace {

constexpr qint64 msPerDay = 86400000;
constexpr int fictionalLeapDay = 60; // 1900-02-29 in the 1900 system
constexpr int lastYear = 9999;

/// Day 0 of the systems; in the 1900 one, of the days before the fictional leap day.
QDate dayZero(bool uses1904)
{
    return uses1904 ? QDate(1904, 1, 1) : QDate(1899, 12, 31);
}

} // namespace

bool unpackDate(double value, bool uses1904, DateParts *parts)
{
    constexpr double firstBeyond = 2958466; // 10000-01-01 in the 1900 system
    if (!std::isfinite(value) || value < 0 || value >= firstBeyond) {
        return false;
    }
    qint64 days = static_cast<qint64>(value);
    qint64 ms = std::llround((value - static_cast<double>(days)) * msPerDay);
    if (ms >= msPerDay) {
        ms -= msPerDay;
        ++days;
    }
    if (!uses1904 && days == fictionalLeapDay) {
        parts->year = 1900;
        parts->month = 2;
        parts->day = 29;
    } else {
        const qint64 shift = !uses1904 && days > fictionalLeapDay ? 1 : 0;
        const QDate date = dayZero(uses1904).addDays(days - shift);
        if (date.year() > lastYear) {
            return false;
        }
        date.getDate(&parts->year, &parts->month, &parts->day);
    }
    parts->hour = static_cast<int>(ms / 3600000);
    parts->minute = static_cast<int>(ms / 60000 % 60);
    parts->second = static_cast<int>(ms / 1000 % 60);
    parts->millisecond = static_cast<int>(ms % 1000);
    return true;
}

double packDate(const DateParts &parts, bool uses1904)
{
    const qint64 ms = ((parts.hour * 60LL + parts.minute) * 60 + parts.second) * 1000 + parts.millisecond;
    const double time = static_cast<double>(ms) / msPerDay;
    if (parts.year == 0) {
        return time;
    }
    const QDate date(parts.year, parts.month, parts.day);
    if (!date.isValid() || parts.year > lastYear) {
        return -1;
    }
    qint64 days = dayZero(uses1904).daysTo(date);
    if (!uses1904 && days >= fictionalLeapDay) {
        ++days;
    }
    const int firstDay = uses1904 ? 0 : 1;
    return days < firstDay ? -1 : static_cast<double>(days) + time;
}

} // namespace spreadsheet
