#include "data/numberreader.h"
#include "transforms/column/calculation.h"
#include "transforms/column/isodatetimes.h"

#include <QDateTime>
#include <optional>

namespace {

constexpr CalculateFault isoFault{"Error: ISO datetime expected", "'%1' is not a valid ISO datetime"};
constexpr CalculateFault epochNumberFault{"Error: integer expected", "'%1' is not a valid integer value for msecs"};
constexpr CalculateFault epochFault{"Error: msecs since epoch expected", "'%1' is not valid msecs since epoch"};

/// Something that can be added to a date and time.
struct SpanUnit
{
    CalculateOp op;
    const char *name;
    qint64 msecs; ///< 0 for those that depend on the calendar
    qint64 most;  ///< more leads out of the years 1 to 9999 from any date in them, and would overflow Qt's sums
    QDateTime (*add)(const QDateTime &dateTime, qint64 number);
};

constexpr qint64 mostYears = 10000;
constexpr qint64 mostDays = 366 * mostYears;
constexpr qint64 mostSeconds = 86400 * mostDays;
constexpr qint64 mostMsecs = 1000 * mostSeconds;

const SpanUnit units[] = {
    {CalculateOp::DateTimeAddMSecs, "millisecond(s)", 1, mostMsecs,
        [](const QDateTime &dateTime, qint64 number) { return dateTime.addMSecs(number); }},
    {CalculateOp::DateTimeAddSecs, "second(s)", 1000, mostSeconds,
        [](const QDateTime &dateTime, qint64 number) { return dateTime.addSecs(number); }},
    {CalculateOp::DateTimeAddHours, "hour(s)", 3600000, 24 * mostDays,
        [](const QDateTime &dateTime, qint64 number) { return dateTime.addSecs(number * 3600); }},
    {CalculateOp::DateTimeAddDays, "day(s)", 0, mostDays,
        [](const QDateTime &dateTime, qint64 number) { return dateTime.addDays(number); }},
    {CalculateOp::DateTimeAddMonths, "month(s)", 0, 12 * mostYears,
        [](const QDateTime &dateTime, qint64 number) { return dateTime.addMonths(static_cast<int>(number)); }},
    {CalculateOp::DateTimeAddYears, "year(s)", 0, mostYears,
        [](const QDateTime &dateTime, qint64 number) { return dateTime.addYears(static_cast<int>(number)); }},
};

const SpanUnit *unitOf(CalculateOp op)
{
    for (const SpanUnit &unit : units) {
        if (unit.op == op) {
            return &unit;
        }
    }
    return nullptr;
}

/// Operations on dates with a time in ISO form and on milliseconds since 1970.
class DateTimeCalculation final : public Calculation
{
public:
    explicit DateTimeCalculation(const CalculateTask &task)
        : Calculation(task)
        , m_unit(unitOf(op()))
        , m_reader(false, false)
    {
    }

    bool compute(int row, TextBuffer &out) override
    {
        if (op() == CalculateOp::MSecsToDateTime) {
            return fromEpoch(row, out);
        }
        const std::optional<IsoDateTime> plain = IsoDateTimes::read(first().at(row));
        if (plain && computePlainly(*plain, row, out)) {
            return true;
        }
        const QDateTime &dateTime = m_dateTime.of(first().at(row),
            [](const Cell &cell) { return QDateTime::fromString(cell.text().trimmed(), Qt::ISODateWithMs); });
        if (!dateTime.isValid()) {
            return fail(isoFault, first(), row, out);
        }
        if (m_unit) {
            return add(dateTime, row, out);
        }
        if (op() == CalculateOp::DateTimeToMSecs) {
            return succeedWhole(dateTime.toMSecsSinceEpoch(), out);
        }
        const QString text = isoText(dateTime.toTimeSpec(Qt::UTC));
        return text.isEmpty() ? fail(isoFault, first(), row, out) : succeed(text, out);
    }

private:
    /// False where QDateTime has to decide.
    bool computePlainly(const IsoDateTime &dateTime, int row, TextBuffer &out)
    {
        if (m_unit) {
            const std::optional<IsoDateTime> sum = addedPlainly(dateTime, row);
            return sum && IsoDateTimes::write(*sum, out);
        }
        const std::optional<qint64> epoch = m_plainly.toEpoch(dateTime);
        return epoch
               && (op() == CalculateOp::DateTimeToMSecs ? succeedWhole(*epoch, out)
                                                        : IsoDateTimes::write({*epoch, true}, out));
    }

    std::optional<IsoDateTime> addedPlainly(const IsoDateTime &dateTime, int row) const
    {
        bool ok = false;
        const qint64 number = m_reader.readLongLong(second().at(row), &ok);
        if (!ok || number < -m_unit->most || number > m_unit->most) {
            return std::nullopt;
        }
        if (m_unit->msecs > 0) {
            return m_plainly.added(dateTime, number * m_unit->msecs);
        }
        const int count = static_cast<int>(number);
        const QDate date = dateTime.date();
        const QDate day = op() == CalculateOp::DateTimeAddDays     ? date.addDays(number)
                          : op() == CalculateOp::DateTimeAddMonths ? date.addMonths(count)
                                                                   : date.addYears(count);
        if (!day.isValid() || !m_plainly.isPlainDay(dateTime)) {
            return std::nullopt;
        }
        const IsoDateTime sum = dateTime.on(day);
        return m_plainly.isPlainDay(sum) ? std::optional<IsoDateTime>(sum) : std::nullopt;
    }

    /// Empty for what has no ISO form.
    static QString isoText(const QDateTime &dateTime)
    {
        return dateTime.isValid() ? dateTime.toString(Qt::ISODateWithMs) : QString();
    }

    bool add(const QDateTime &dateTime, int row, TextBuffer &out)
    {
        bool ok = false;
        const qint64 number = m_reader.readLongLong(second().at(row), &ok);
        if (!ok) {
            return fail(CalculateFaults::integer, second(), row, out);
        }
        const bool fits = number >= -m_unit->most && number <= m_unit->most;
        const QString text = fits ? isoText(m_unit->add(dateTime, number)) : QString();
        if (!text.isEmpty()) {
            return succeed(text, out);
        }
        const QString message = QStringLiteral("Cannot add '%1' %2 to datetime '%3'")
                                    .arg(second().at(row).text(), QLatin1String(m_unit->name), first().at(row).text());
        return fail("Error: Cannot convert datetime", message, row, out);
    }

    bool fromEpoch(int row, TextBuffer &out)
    {
        bool ok = false;
        const qint64 msecs = m_reader.readLongLong(first().at(row), &ok);
        if (!ok) {
            return fail(epochNumberFault, first(), row, out);
        }
        QDateTime dateTime;
        if (msecs >= -mostMsecs && msecs <= mostMsecs) {
            const std::optional<IsoDateTime> plain = m_plainly.toLocal(msecs);
            if (plain && IsoDateTimes::write(*plain, out)) {
                return true;
            }
            dateTime.setMSecsSinceEpoch(msecs);
        }
        const QString text = isoText(dateTime);
        return text.isEmpty() ? fail(epochFault, first(), row, out) : succeed(text, out);
    }

    const SpanUnit *const m_unit;
    const NumberReader m_reader;
    LastRead<QDateTime> m_dateTime;
    IsoDateTimes m_plainly;
};

} // namespace

std::unique_ptr<Calculation> makeDateTimeCalculation(const CalculateTask &task)
{
    return std::make_unique<DateTimeCalculation>(task);
}
