#include "data/numberreader.h"
#include "transforms/column/calculation.h"

#include <cmath>

namespace {

constexpr CalculateFault numberFault{"Error: number expected", "'%1' is not a number"};
constexpr CalculateFault positiveFault{"Error: >0 expected", "'%1' <= 0"};

/// Operations on one number. Whole numbers of up to 64 bits are calculated exactly, all others in double precision.
class NumberCalculation final : public Calculation
{
public:
    explicit NumberCalculation(const CalculateTask &task)
        : Calculation(task)
        , m_reader(false, true)
    {
    }

    bool compute(int row, TextBuffer &out) override
    {
        const Cell &cell = first().at(row);
        bool ok = false;
        const double real = m_reader.read(cell, &ok);
        if (!ok) {
            return fail(numberFault, first(), row, out);
        }
        const qint64 whole = m_reader.readLongLong(cell, &ok);
        if (isLogarithm()) {
            const double value = ok ? static_cast<double>(whole) : real;
            return value > 0 ? succeed(logarithm(value), out) : fail(positiveFault, first(), row, out);
        }
        return ok ? computeWhole(whole, out) : computeReal(real, out);
    }

private:
    bool isLogarithm() const
    {
        return op() == CalculateOp::Log10 || op() == CalculateOp::Log2 || op() == CalculateOp::Ln;
    }

    double logarithm(double value) const
    {
        return op() == CalculateOp::Log10  ? std::log10(value)
               : op() == CalculateOp::Log2 ? std::log2(value)
                                           : std::log(value);
    }

    bool computeWhole(qint64 value, TextBuffer &out) const
    {
        const bool negative = value < 0;
        const auto bits = static_cast<quint64>(value);
        const quint64 magnitude = negative ? 0 - bits : bits;
        switch (op()) {
        case CalculateOp::Abs:
            return succeedWhole(false, magnitude, out);
        case CalculateOp::Sign:
            return succeedWhole(value > 0 ? 1 : value < 0 ? -1 : 0, out);
        case CalculateOp::Increment: // one step towards 0 or away from it, exact also at the ends of the range
            return value == -1 ? succeedWhole(0, out)
                               : succeedWhole(negative, negative ? magnitude - 1 : magnitude + 1, out);
        case CalculateOp::Decrement:
            return value == 0 ? succeedWhole(-1, out)
                              : succeedWhole(negative, negative ? magnitude + 1 : magnitude - 1, out);
        default:
            return succeedWhole(value, out);
        }
    }

    bool computeReal(double value, TextBuffer &out) const
    {
        switch (op()) {
        case CalculateOp::Abs:
            return succeed(std::fabs(value), out);
        case CalculateOp::Ceiling:
            return succeedRounded(std::ceil(value), out);
        case CalculateOp::Floor:
            return succeedRounded(std::floor(value), out);
        case CalculateOp::Round: // beyond 52 bits there is nothing to round
            return succeedRounded(std::fabs(value) < exactBelow ? static_cast<double>(qRound64(value)) : value, out);
        case CalculateOp::Sign:
            return succeedWhole(value > 0 ? 1 : value < 0 ? -1 : 0, out);
        case CalculateOp::Increment:
            return succeed(value + 1.0, out);
        default:
            return succeed(value - 1.0, out);
        }
    }

    /// Writes a double without decimals; those that 64 bits can't hold as any other double.
    bool succeedRounded(double value, TextBuffer &out) const
    {
        return std::fabs(value) < wholeBelow ? succeedWhole(static_cast<qint64>(value), out) : succeed(value, out);
    }

    static constexpr double exactBelow = 4503599627370496.0;    // 2 to the power of 52
    static constexpr double wholeBelow = 9223372036854775808.0; // 2 to the power of 63
    const NumberReader m_reader;
};

} // namespace

std::unique_ptr<Calculation> makeNumberCalculation(const CalculateTask &task)
{
    return std::make_unique<NumberCalculation>(task);
}
