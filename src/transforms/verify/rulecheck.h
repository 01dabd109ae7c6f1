#pragma once

#include "data/cellcolumn.h"
#include "transforms/verify/utf16cell.h"

#include <QString>
#include <QVector>
#include <memory>
#include <vector>

/// How often a rule failed, and where.
struct RuleFails
{
    qint64 count = 0;
    QVector<int> rows; ///< of the fails that belong to a row, in the order in which they are told
    QString detail;

    void addRow(int row)
    {
        ++count;
        rows.append(row);
    }
};

/// One rule made ready for the cells of one column.
class RuleCheck
{
public:
    RuleCheck() = default;
    virtual ~RuleCheck() = default;
    Q_DISABLE_COPY(RuleCheck)

    /// Looks at the next cell; true when it fails by itself. Rules on the column as a whole take note and say false.
    virtual bool fails(Utf16Cell &text) = 0;
    /// Judges the column when all its cells have been looked at.
    virtual void finish(const CellColumn &, RuleFails &) {}
    /// False for a rule that only judges the column and needs not be shown the cells one by one.
    virtual bool wantsCells() const { return true; }
};

using RuleCheckPointer = std::unique_ptr<RuleCheck>;

/// A rule that `test`, called with a Utf16Cell, decides for each cell.
template<class Test>
RuleCheckPointer cellCheck(Test test)
{
    class Check final : public RuleCheck
    {
    public:
        explicit Check(Test &&rule)
            : m_test(std::move(rule))
        {
        }
        bool fails(Utf16Cell &text) override { return m_test(text); }

    private:
        Test m_test;
    };
    return std::make_unique<Check>(std::move(test));
}

/// The same for a test that takes long: what it said is remembered for texts that repeat.
template<class Test>
RuleCheckPointer rememberedCheck(Test test)
{
    constexpr int slotBits = 11;
    struct Known
    {
        quint64 bits = ~quint64(0); // of no cell
        bool failed = false;
    };
    std::vector<Known> memory(size_t(1) << slotBits);
    return cellCheck([test = std::move(test), memory = std::move(memory)](Utf16Cell &text) mutable {
        const quint64 bits = text.cell().bits();
        Known &known = memory[bits * 0x9E3779B97F4A7C15ULL >> (64 - slotBits)];
        if (known.bits != bits) {
            known.failed = test(text);
            known.bits = bits;
        }
        return known.failed;
    });
}

/// A rule that `judge`, called with the column and the RuleFails to add to, decides once for the column.
template<class Judge>
RuleCheckPointer columnCheck(Judge judge)
{
    class Check final : public RuleCheck
    {
    public:
        explicit Check(Judge &&rule)
            : m_judge(std::move(rule))
        {
        }
        bool fails(Utf16Cell &) override { return false; }
        void finish(const CellColumn &column, RuleFails &fails) override { m_judge(column, fails); }
        bool wantsCells() const override { return false; }

    private:
        Judge m_judge;
    };
    return std::make_unique<Check>(std::move(judge));
}
