#include "data/dateparser.h"
#include "data/datewriter.h"
#include "transforms/column/calculation.h"

namespace {

constexpr CalculateFault operationFault{"Error: invalid operation", "Operation not valid on date '%1'"};

/// Operations on one date; of a value that doesn't count as a date every row fails.
class DateCalculation final : public Calculation
{
public:
    explicit DateCalculation(const CalculateTask &task)
        : Calculation(task)
        , m_isDate(task.firstIsDate)
        , m_isForNumbers(task.operation.group == CalculateGroup::Number)
        , m_parser(task.firstFormat)
        , m_writer(task.firstFormat)
    {
    }

    bool compute(int row, TextBuffer &out) override
    {
        const bool isStep = op() == CalculateOp::Increment || op() == CalculateOp::Decrement;
        if (m_isForNumbers && !isStep) {
            return fail(operationFault, first(), row, out);
        }
        const QDate date = m_isDate ? m_parser.parse(first().at(row)) : QDate();
        if (!date.isValid()) {
            return fail(CalculateFaults::date, first(), row, out);
        }
        if (isStep) {
            m_writer.write(date.addDays(op() == CalculateOp::Increment ? 1 : -1), out);
            return true;
        }
        return op() == CalculateOp::WeekOfYear ? succeed(week(date), out) : succeedWhole(figure(date), out);
    }

private:
    qint64 figure(const QDate &date) const
    {
        switch (op()) {
        case CalculateOp::DayOfWeek:
            return date.dayOfWeek();
        case CalculateOp::DayOfMonth:
            return date.day();
        case CalculateOp::DayOfYear:
            return date.dayOfYear();
        case CalculateOp::Month:
            return date.month();
        case CalculateOp::Year:
            return date.year();
        case CalculateOp::DaysInMonth:
            return date.daysInMonth();
        case CalculateOp::DaysInYear:
            return date.daysInYear();
        case CalculateOp::Quarter:
            return (date.month() - 1) / 3 + 1;
        default:
            return date.toJulianDay();
        }
    }

    static QString week(const QDate &date)
    {
        int year = 0;
        const int number = date.weekNumber(&year);
        return QStringLiteral("%1,%2").arg(year, 4, 10, QLatin1Char('0')).arg(number, 2, 10, QLatin1Char('0'));
    }

    const bool m_isDate;
    const bool m_isForNumbers;
    const DateParser m_parser;
    const DateWriter m_writer;
};

} // namespace

std::unique_ptr<Calculation> makeDateCalculation(const CalculateTask &task)
{
    return std::make_unique<DateCalculation>(task);
}
