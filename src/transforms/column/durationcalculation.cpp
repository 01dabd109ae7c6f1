#include "data/numberreader.h"
#include "transforms/column/calculation.h"

#include <QDate>
#include <QVector>
#include <optional>

namespace {

constexpr CalculateFault timeFault{"Error: h:m:s(.z) time expected", "'%1' is not a valid time"};
constexpr CalculateFault msecsFault{"Error: integer expected", "'%1' integer msecs expected"};
constexpr CalculateFault rangeFault{"Error: integer out of expected range", "'%1' msecs out of range"};
constexpr CalculateFault dayNumberFault{"Error: integer expected", "'%1' is not a valid integer expected for msecs"};
constexpr CalculateFault dayFault{"Error: Julian days expected", "'%1' is not a valid Julian day"};
constexpr CalculateFault dayRangeFault{
    "Error: Date out of range", "'%1' is out of range to represent a Julian day as an ISO date"};

constexpr qint64 msecsPerSecond = 1000;
constexpr qint64 msecsPerMinute = 60 * msecsPerSecond;
constexpr qint64 msecsPerHour = 60 * msecsPerMinute;
constexpr qint64 mostMsecs = 1000000000000000;

/// A whole number of 32 bits, whatever the locale.
std::optional<int> wholePart(const QStringRef &text)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

/// The milliseconds of the digits behind a second's point.
std::optional<int> fractionPart(const QStringRef &text)
{
    bool ok = false;
    const double fraction = (QLatin1String("0.") + text).toDouble(&ok);
    return ok && fraction >= 0 && fraction < 1 ? std::optional<int>(qRound(fraction * msecsPerSecond)) : std::nullopt;
}

/// Milliseconds of "h:m", "h:m:s" or "h:m:s.z" with any number of hours.
std::optional<qint64> durationOf(const QString &text)
{
    const QVector<QStringRef> parts = text.splitRef(QLatin1Char(':'));
    if (parts.size() < 2 || parts.size() > 3) {
        return std::nullopt;
    }
    const QVector<QStringRef> seconds = parts.value(2).split(QLatin1Char('.'));
    const std::optional<int> hour = wholePart(parts.at(0));
    const std::optional<int> minute = wholePart(parts.at(1));
    const std::optional<int> second = parts.size() > 2 ? wholePart(seconds.at(0)) : 0;
    const std::optional<int> msec = seconds.size() > 1 ? fractionPart(seconds.at(1)) : 0;
    const bool fits = hour && minute && second && msec && seconds.size() <= 2 && *hour >= 0 && *minute >= 0
                      && *minute < 60 && *second >= 0 && *second < 60 && *msec < msecsPerSecond;
    return fits ? std::optional<qint64>(
               *hour * msecsPerHour + *minute * msecsPerMinute + *second * msecsPerSecond + *msec)
                : std::nullopt;
}

/// Hours, minutes and seconds of 2 digits at least; milliseconds only when there are any.
void writeDuration(qint64 msecs, TextBuffer &out)
{
    const auto two = [](qint64 number) { return QString::number(number).rightJustified(2, QLatin1Char('0')); };
    QString text = two(msecs / msecsPerHour) + QLatin1Char(':') + two(msecs / msecsPerMinute % 60) + QLatin1Char(':')
                   + two(msecs / msecsPerSecond % 60);
    if (msecs % msecsPerSecond > 0) {
        text += QLatin1Char('.') + QString::number(msecs % msecsPerSecond).rightJustified(3, QLatin1Char('0'));
    }
    setText(out, text);
}

/// Turns durations into milliseconds and back, and Julian days into dates.
class DurationCalculation final : public Calculation
{
public:
    explicit DurationCalculation(const CalculateTask &task)
        : Calculation(task)
        , m_reader(false, false)
    {
    }

    bool compute(int row, TextBuffer &out) override
    {
        const Cell &cell = first().at(row);
        if (op() == CalculateOp::TimeToMSecs) {
            const std::optional<qint64> msecs = durationOf(cell.text());
            return msecs ? succeedWhole(*msecs, out) : fail(timeFault, first(), row, out);
        }
        bool ok = false;
        const qint64 number = m_reader.readLongLong(cell, &ok);
        if (op() == CalculateOp::JulianDayToDate) {
            return ok ? computeDate(number, row, out) : fail(dayNumberFault, first(), row, out);
        }
        if (!ok || number < 0 || number > mostMsecs) {
            return fail(ok ? rangeFault : msecsFault, first(), row, out);
        }
        writeDuration(number, out);
        return true;
    }

private:
    bool computeDate(qint64 day, int row, TextBuffer &out)
    {
        const QDate date = QDate::fromJulianDay(day);
        if (!date.isValid()) {
            return fail(dayFault, first(), row, out);
        }
        const QString text = date.toString(Qt::ISODate);
        return text.isEmpty() ? fail(dayRangeFault, first(), row, out) : succeed(text, out);
    }

    const NumberReader m_reader;
};

} // namespace

std::unique_ptr<Calculation> makeDurationCalculation(const CalculateTask &task)
{
    return std::make_unique<DurationCalculation>(task);
}
