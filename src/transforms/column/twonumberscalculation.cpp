#include "data/numberreader.h"
#include "transforms/column/calculation.h"

#include <cmath>
#include <optional>

namespace {

constexpr CalculateFault numberFault{"Error: number expected", "'%1' is not a valid value for this operation"};
constexpr CalculateFault divideFault{"Error: divide by 0", "Divide by 0"};
constexpr CalculateFault modulusFault{"Error: invalid operation", "Modulus by 0"};

/// Arithmetic of two numbers.
class TwoNumbersCalculation final : public Calculation
{
public:
    explicit TwoNumbersCalculation(const CalculateTask &task)
        : Calculation(task)
        , m_numbers(false, true)
        , m_integers(false, false)
    {
    }

    bool compute(int row, TextBuffer &out) override
    {
        const auto read = [this](const Cell &cell) { return number(cell); };
        const std::optional<double> &a = m_first.of(first().at(row), read);
        const std::optional<double> &b = m_second.of(second().at(row), read);
        if (Q_LIKELY(a && b)) {
            return combine(*a, *b, row, out);
        }
        if (!a) {
            fail(numberFault, first(), row, out);
        }
        if (!b) {
            fail(numberFault, second(), row, out);
        }
        return false;
    }

private:
    std::optional<double> number(const Cell &cell) const
    {
        bool ok = false;
        const double value = m_numbers.read(cell, &ok);
        return ok ? std::optional<double>(value) : std::nullopt;
    }

    bool combine(double a, double b, int row, TextBuffer &out)
    {
        switch (op()) {
        case CalculateOp::Add:
            return succeed(a + b, out);
        case CalculateOp::Subtract:
            return succeed(a - b, out);
        case CalculateOp::Multiply:
            return succeed(a * b, out);
        case CalculateOp::Divide:
            return b == 0 ? fail(divideFault, second(), row, out) : succeed(a / b, out);
        case CalculateOp::Power:
            return succeed(std::pow(a, b), out);
        case CalculateOp::Maximum:
            return succeed(b > a ? b : a, out);
        case CalculateOp::Minimum:
            return succeed(b > a ? a : b, out);
        default:
            return combineIntegers(row, out);
        }
    }

    bool combineIntegers(int row, TextBuffer &out)
    {
        bool isFirst = false;
        bool isSecond = false;
        const qint64 a = m_integers.readInt(first().at(row), &isFirst);
        const qint64 b = m_integers.readInt(second().at(row), &isSecond);
        if (!isFirst) {
            fail(CalculateFaults::integer, first(), row, out);
        }
        if (!isSecond) {
            fail(CalculateFaults::integer, second(), row, out);
        }
        if (!isFirst || !isSecond) {
            return false;
        }
        switch (op()) {
        case CalculateOp::AndBitwise:
            return succeedWhole(a & b, out);
        case CalculateOp::OrBitwise:
            return succeedWhole(a | b, out);
        case CalculateOp::XorBitwise:
            return succeedWhole(a ^ b, out);
        default:
            return b == 0 ? fail(modulusFault, second(), row, out) : succeedWhole(a % b, out);
        }
    }

    const NumberReader m_numbers;
    const NumberReader m_integers;
    LastRead<std::optional<double>> m_first;
    LastRead<std::optional<double>> m_second;
};

} // namespace

std::unique_ptr<Calculation> makeTwoNumbersCalculation(const CalculateTask &task)
{
    return std::make_unique<TwoNumbersCalculation>(task);
}
