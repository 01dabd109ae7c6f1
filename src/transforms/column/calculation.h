#pragma once

#include "data/realwriter.h"
#include "data/textbuffer.h"
#include "text/cappedlist.h"
#include "transforms/column/calculateoperation.h"
#include "transforms/column/calculatevalue.h"

#include <memory>

/// What can be wrong with a value: the text of the cell, and how the message begins, with %1 for the value's text.
struct CalculateFault
{
    const char *cell;
    const char *message;
};

/// The operation, the values and, for those that are dates, their formats.
struct CalculateTask
{
    CalculateOperation operation{};
    CalculateValue first;
    CalculateValue second;
    bool firstIsDate = false;
    bool secondIsDate = false;
    QString firstFormat;
    QString secondFormat;
};

/// An operation made ready for a loop over rows: what it needs of the options and of the locale is worked out.
class Calculation
{
public:
    /// `task` must outlive the calculation.
    static std::unique_ptr<Calculation> create(const CalculateTask &task);
    virtual ~Calculation() = default;
    Q_DISABLE_COPY(Calculation)

    /// Replaces what `out` holds by the text of the row's new cell; false when the row failed and the text tells why.
    virtual bool compute(int row, TextBuffer &out) = 0;
    /// The messages of what went wrong; a row with two bad values has two.
    const CappedList &failures() const { return m_failures; }

protected:
    explicit Calculation(const CalculateTask &task);

    CalculateOp op() const { return m_task.operation.op; }
    const CalculateValue &first() const { return m_task.first; }
    const CalculateValue &second() const { return m_task.second; }

    // Each gives what compute() returns.
    bool succeed(double value, TextBuffer &out) const;
    bool succeedWhole(qint64 value, TextBuffer &out) const;
    bool succeedWhole(bool negative, quint64 magnitude, TextBuffer &out) const;
    bool succeed(const QString &text, TextBuffer &out) const;
    /// Notes a bad value and puts the fault's text in the cell.
    bool fail(const CalculateFault &fault, const CalculateValue &value, int row, TextBuffer &out);
    /// The same with a message of one's own, without the row.
    bool fail(const char *cell, const QString &message, int row, TextBuffer &out);

private:
    const CalculateTask &m_task;
    const RealWriter m_realWriter;
    const QLocale m_locale;
    const bool m_writesPlainly;
    CappedList m_failures;
};

/// Faults that several groups of operations know.
namespace CalculateFaults {

constexpr CalculateFault date{"Error: date expected", "'%1' is not a valid date"};
constexpr CalculateFault integer{"Error: integer expected", "'%1' is not an integer"};

} // namespace CalculateFaults

// Each group of operations in a file of its own; the group decides which one a task needs.
std::unique_ptr<Calculation> makeTextCalculation(const CalculateTask &task);
std::unique_ptr<Calculation> makeDateTimeCalculation(const CalculateTask &task);
std::unique_ptr<Calculation> makeDurationCalculation(const CalculateTask &task);
std::unique_ptr<Calculation> makeDateCalculation(const CalculateTask &task);
std::unique_ptr<Calculation> makeTwoDatesCalculation(const CalculateTask &task);
std::unique_ptr<Calculation> makeBooleanCalculation(const CalculateTask &task);
std::unique_ptr<Calculation> makeNumberCalculation(const CalculateTask &task);
std::unique_ptr<Calculation> makeTwoNumbersCalculation(const CalculateTask &task);
