#include "transforms/frame/columnedit.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/keysuggestion.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/termmatcher.h"

#include <algorithm>

namespace {

/// A text with variables written into cells of a new column.
class BranchText
{
public:
    BranchText(const Dataset &dataset, const QString &text, ColumnEdit &edit)
        : m_dataset(dataset)
        , m_template(dataset, text)
        , m_edit(edit)
        , m_constant(m_template.isConstant() ? edit.store(text) : Cell())
    {
    }

    Cell cell(int row)
    {
        if (m_template.isConstant()) {
            return m_constant;
        }
        m_template.write(m_dataset, RowIndex(row), m_buffer);
        return m_edit.store(m_buffer.constData(), m_buffer.size());
    }

private:
    const Dataset &m_dataset;
    VariableTemplate m_template;
    ColumnEdit &m_edit;
    Cell m_constant;
    TextBuffer m_buffer;
};

/// A branch made ready for a loop over rows.
class Branch
{
public:
    Branch(const Dataset &dataset, const IfBranch &branch, const QHash<ColumnIndex, QString> &dateFormats,
        bool caseSensitive, ColumnEdit &edit)
        : m_then(dataset, branch.thenText, edit)
    {
        for (const FilterTerm &condition : branch.conditions) {
            m_conditions.push_back(std::make_unique<TermMatcher>(dataset, condition, dateFormats, caseSensitive));
        }
    }

    /// All conditions hold; a branch without any doesn't.
    bool holds(int row)
    {
        return !m_conditions.empty()
               && std::all_of(m_conditions.cbegin(), m_conditions.cend(),
                   [row](const std::unique_ptr<TermMatcher> &condition) { return condition->holds(row); });
    }
    Cell then(int row) { return m_then.cell(row); }

private:
    std::vector<std::unique_ptr<TermMatcher>> m_conditions;
    BranchText m_then;
};

} // namespace

/// Adds a column whose text depends on conditions on the other columns.
class TransformIf final : public Transform
{
public:
    TransformIf()
        : Transform("If", "Create a new column with values conditional on other columns.",
            "then else conditional branch equals less greater than regular regex sumif countif")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::text("New_Name", "New column name", "If").tip("The name for the new column."),
            Option::ifBranches("If", "If"),
            Option::flag("Case_Sensitive", "case sensitive", true).tip("Check for case sensitive text matching."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        Dataset result = input;
        result.appendEmptyColumn();
        const QString name = values.text("New_Name");
        if (!name.isEmpty()) {
            result.setHeaderValue(result.lastColumn(), name);
        }
        const IfRecord record = values.ifBranches("If");
        if (record == IfRecord()) {
            setResultText(QStringLiteral("THEN and ELSE empty"));
            return result;
        }
        ColumnEdit edit(result.column(result.lastColumn()));
        fill(edit, input, record, values.flag("Case_Sensitive"));
        result.setColumn(result.lastColumn(), edit.take());
        return result;
    }

    void fill(ColumnEdit &edit, const Dataset &input, const IfRecord &record, bool caseSensitive)
    {
        std::vector<std::unique_ptr<Branch>> branches = prepared(input, record, caseSensitive, edit);
        BranchText otherwise(input, record.elseText, edit);
        int otherwiseCount = 0;
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            const auto taken = std::find_if(branches.cbegin(), branches.cend(),
                [row](const std::unique_ptr<Branch> &branch) { return branch->holds(row); });
            otherwiseCount += taken == branches.cend();
            edit.set(row, taken == branches.cend() ? otherwise.cell(row) : (*taken)->then(row));
        }
        setResultText(QStringLiteral("%1 match(es) IF/ELSE IF, %2 match(es) ELSE")
                          .arg(Messages::count(input.rowCount() - otherwiseCount), Messages::count(otherwiseCount)));
    }

    static std::vector<std::unique_ptr<Branch>> prepared(
        const Dataset &input, const IfRecord &record, bool caseSensitive, ColumnEdit &edit)
    {
        QList<FilterTerm> conditions;
        for (const IfBranch &branch : record.branches) {
            conditions += branch.conditions;
        }
        const QHash<ColumnIndex, QString> formats = dateColumnFormats(input, TermMatcher::columns(input, conditions));
        std::vector<std::unique_ptr<Branch>> branches;
        for (const IfBranch &branch : record.branches) {
            branches.push_back(std::make_unique<Branch>(input, branch, formats, caseSensitive, edit));
        }
        return branches;
    }
};

TRANSFORM_FACTORY(TransformIf)
