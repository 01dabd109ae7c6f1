#include "data/values.h"
#include "transforms/column/calculation.h"

#include <optional>

namespace {

constexpr CalculateFault booleanFault{"Error: boolean expected", "'%1' is not a valid value for this operation"};

/// And, Or and Xor.
class BooleanCalculation final : public Calculation
{
public:
    explicit BooleanCalculation(const CalculateTask &task)
        : Calculation(task)
    {
    }

    bool compute(int row, TextBuffer &out) override
    {
        const std::optional<bool> &a = m_first.of(first().at(row), &read);
        const std::optional<bool> &b = m_second.of(second().at(row), &read);
        if (!a) {
            fail(booleanFault, first(), row, out);
        }
        if (!b) {
            fail(booleanFault, second(), row, out);
        }
        return a && b && succeed(boolText(combined(*a, *b)), out);
    }

private:
    static std::optional<bool> read(const Cell &cell)
    {
        bool ok = false;
        const bool value = parseBoolean(cell.text(), false, true, &ok);
        return ok ? std::optional<bool>(value) : std::nullopt;
    }

    bool combined(bool a, bool b) const
    {
        switch (op()) {
        case CalculateOp::And:
            return a && b;
        case CalculateOp::Or:
            return a || b;
        default:
            return a != b;
        }
    }

    LastRead<std::optional<bool>> m_first;
    LastRead<std::optional<bool>> m_second;
};

} // namespace

std::unique_ptr<Calculation> makeBooleanCalculation(const CalculateTask &task)
{
    return std::make_unique<BooleanCalculation>(task);
}
