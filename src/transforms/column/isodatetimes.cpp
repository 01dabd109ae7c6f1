#include "transforms/column/isodatetimes.h"

#include "data/numberscan.h"

#include <QDateTime>

namespace {

constexpr qint64 msecsPerDay = 86400000;
constexpr qint64 julianDayOf1970 = 2440588;
constexpr int mostRemembered = 50000;

qint64 dayOf(qint64 msecs)
{
    return msecs >= 0 ? msecs / msecsPerDay : -((msecsPerDay - 1 - msecs) / msecsPerDay);
}

/// The digits of a form that marks them with '0'; false when another character differs.
bool matches(const char *text, const char *form, int size)
{
    for (int i = 0; i < size; ++i) {
        if (form[i] == '0' ? !NumberScan::isDigit(text[i]) : text[i] != form[i]) {
            return false;
        }
    }
    return true;
}

int number(const char *digits, int count)
{
    int value = 0;
    for (int i = 0; i < count; ++i) {
        value = value * 10 + (digits[i] - '0');
    }
    return value;
}

void put(char *out, int value, int count)
{
    for (int i = count; i-- > 0; value /= 10) {
        out[i] = static_cast<char>('0' + value % 10);
    }
}

} // namespace

QDate IsoDateTime::date() const
{
    return QDate::fromJulianDay(dayOf(msecs) + julianDayOf1970);
}

IsoDateTime IsoDateTime::on(const QDate &day) const
{
    return {msecs + (day.toJulianDay() - julianDayOf1970 - dayOf(msecs)) * msecsPerDay, isUtc};
}

std::optional<IsoDateTime> IsoDateTimes::read(const Cell &cell)
{
    constexpr int withoutMsecs = 19;
    constexpr int withMsecs = 23;
    const char *const text = cell.bytes();
    const bool isUtc = cell.size() > 0 && text[cell.size() - 1] == 'Z';
    const int size = cell.size() - isUtc;
    if ((size != withoutMsecs && size != withMsecs) || !matches(text, "0000-00-00T00:00:00.000", size)) {
        return std::nullopt;
    }
    const QDate date(number(text, 4), number(text + 5, 2), number(text + 8, 2));
    const int hour = number(text + 11, 2);
    const int minute = number(text + 14, 2);
    const int second = number(text + 17, 2);
    if (!date.isValid() || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    const int msec = size == withMsecs ? number(text + 20, 3) : 0;
    const int ofDay = ((hour * 60 + minute) * 60 + second) * 1000 + msec;
    return IsoDateTime{(date.toJulianDay() - julianDayOf1970) * msecsPerDay + ofDay, isUtc};
}

bool IsoDateTimes::write(const IsoDateTime &dateTime, TextBuffer &out)
{
    int year = 0;
    int month = 0;
    int day = 0;
    dateTime.date().getDate(&year, &month, &day);
    if (year < 1 || year > 9999) {
        return false;
    }
    const auto ofDay = static_cast<int>(dateTime.msecs - dayOf(dateTime.msecs) * msecsPerDay);
    out.clear();
    out.append("0000-00-00T00:00:00.000Z", dateTime.isUtc ? 24 : 23);
    char *const text = out.data();
    put(text, year, 4);
    put(text + 5, month, 2);
    put(text + 8, day, 2);
    put(text + 11, ofDay / 3600000, 2);
    put(text + 14, ofDay / 60000 % 60, 2);
    put(text + 17, ofDay / 1000 % 60, 2);
    put(text + 20, ofDay % 1000, 3);
    return true;
}

std::optional<qint64> IsoDateTimes::toEpoch(const IsoDateTime &dateTime) const
{
    const std::optional<qint64> ahead = offset(dateTime);
    return ahead ? std::optional<qint64>(dateTime.msecs - *ahead) : std::nullopt;
}

std::optional<IsoDateTime> IsoDateTimes::toLocal(qint64 epochMsecs) const
{
    const std::optional<qint64> guess = offset({epochMsecs, false});
    if (!guess) {
        return std::nullopt;
    }
    const IsoDateTime local{epochMsecs + *guess, false};
    return offset(local) == guess ? std::optional<IsoDateTime>(local) : std::nullopt;
}

std::optional<IsoDateTime> IsoDateTimes::added(const IsoDateTime &dateTime, qint64 msecs) const
{
    const std::optional<qint64> before = offset(dateTime);
    const IsoDateTime later{dateTime.msecs + msecs, dateTime.isUtc};
    return before && offset(later) == before ? std::optional<IsoDateTime>(later) : std::nullopt;
}

std::optional<qint64> IsoDateTimes::offset(const IsoDateTime &dateTime) const
{
    if (dateTime.isUtc) {
        return 0;
    }
    const qint64 day = dayOf(dateTime.msecs);
    const auto known = m_offsets.constFind(day);
    if (known != m_offsets.constEnd()) {
        return *known;
    }
    // A day that begins and ends at the same distance from universal time has no hour twice and none left out.
    const QDate date = dateTime.date();
    const QDateTime first(date, QTime(0, 0));
    const QDateTime last(date, QTime(23, 59, 59, 999));
    std::optional<qint64> ahead;
    if (first.isValid() && last.isValid() && first.offsetFromUtc() == last.offsetFromUtc()
        && first.time() == QTime(0, 0) && first.msecsTo(last) == msecsPerDay - 1) {
        ahead = day * msecsPerDay - first.toMSecsSinceEpoch();
    }
    if (m_offsets.size() >= mostRemembered) {
        m_offsets.clear();
    }
    m_offsets.insert(day, ahead);
    return ahead;
}
