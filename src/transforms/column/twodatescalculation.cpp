#include "data/dateparser.h"
#include "data/datewriter.h"
#include "data/numberreader.h"
#include "transforms/column/calculation.h"

#include <algorithm>

namespace {

constexpr CalculateFault operationFault{"Error: invalid operation", "Operation not valid on a date"};

/// Operations whose first value is a date; the second one is a date too or a number of days.
class TwoDatesCalculation final : public Calculation
{
public:
    explicit TwoDatesCalculation(const CalculateTask &task)
        : Calculation(task)
        , m_secondIsDate(task.secondIsDate)
        , m_firstParser(task.firstFormat)
        , m_secondParser(task.secondFormat)
        , m_writer(task.firstFormat)
        , m_days(false, false)
    {
    }

    bool compute(int row, TextBuffer &out) override
    {
        const QDate a = m_first.of(first().at(row), [this](const Cell &cell) { return m_firstParser.parse(cell); });
        if (!a.isValid()) {
            fail(CalculateFaults::date, first(), row, out);
        }
        if (!m_secondIsDate) {
            return a.isValid() && withDays(a, row, out);
        }
        const QDate b = m_second.of(second().at(row), [this](const Cell &cell) { return m_secondParser.parse(cell); });
        if (!b.isValid()) {
            fail(CalculateFaults::date, second(), row, out);
        }
        return a.isValid() && b.isValid() && withDate(a, b, row, out);
    }

private:
    bool withDate(const QDate &a, const QDate &b, int row, TextBuffer &out)
    {
        switch (op()) {
        case CalculateOp::Subtract:
            return succeedWhole(b.daysTo(a), out);
        case CalculateOp::Maximum:
            return succeed(std::max(a, b), out);
        case CalculateOp::Minimum:
            return succeed(std::min(a, b), out);
        default:
            return fail(operationFault.cell, QStringLiteral("Operation not valid on 2 dates"), row, out);
        }
    }

    bool withDays(const QDate &date, int row, TextBuffer &out)
    {
        if (op() != CalculateOp::Add && op() != CalculateOp::Subtract) {
            return fail(operationFault, first(), row, out);
        }
        bool ok = false;
        const qint64 days = m_days.readInt(second().at(row), &ok);
        return ok ? succeed(date.addDays(op() == CalculateOp::Add ? days : -days), out)
                  : fail(CalculateFaults::integer, second(), row, out);
    }

    using Calculation::succeed;
    bool succeed(const QDate &date, TextBuffer &out) const
    {
        m_writer.write(date, out);
        return true;
    }

    const bool m_secondIsDate;
    const DateParser m_firstParser;
    const DateParser m_secondParser;
    const DateWriter m_writer;
    const NumberReader m_days;
    LastRead<QDate> m_first;
    LastRead<QDate> m_second;
};

} // namespace

std::unique_ptr<Calculation> makeTwoDatesCalculation(const CalculateTask &task)
{
    return std::make_unique<TwoDatesCalculation>(task);
}
