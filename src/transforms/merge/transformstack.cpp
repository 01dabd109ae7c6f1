#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/merge/inputorder.h"
#include "transforms/merge/stackalignment.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>
#include <climits>

/// Puts tables one under the other.
class TransformStack final : public Transform
{
public:
    TransformStack()
        : Transform("Stack",
            "Merge input datasets one on top of another. Orders by the vertical positions of the input datasets.",
            "concatenate vstack union separators reorders aligns vertically bottom top below above appends 2 two "
            "stacks")
    {
    }

    QString imageName() const override { return QStringLiteral("stack.png"); }

    bool updateInputOrder(const QList<DataSource *> &inputs) override { return m_order.update(inputs); }

    Dataset run(const QList<DataSource *> &inputs, bool *hasIssues) override
    {
        m_order.remember(inputs);
        return Transform::run(inputs, hasIssues);
    }

protected:
    OptionTable options() const override
    {
        return {
            Option::selection(QStringLiteral("Align_Cols"), QStringLiteral("Align columns by"),
                {QStringLiteral("Header name"), QStringLiteral("Column number")})
                .tip(QStringLiteral(
                    "How to align columns in different inputs.\nE.g. If you align by header name, any columns called "
                    "'id' will be aligned under the 'id' column in the first input.")),
            Option::flag(QStringLiteral("Only_First_Cols"), QStringLiteral("use only top dataset columns"))
                .tip(QStringLiteral("Keep only the columns in the top dataset.\nIgnore columns that appear only in "
                                    "other datasets.")),
            Option::flag(QStringLiteral("Add_Separators"), QStringLiteral("add separator rows"))
                .tip(QStringLiteral("Add a separator row between each stacked dataset.")),
            Option::text(QStringLiteral("User_Defined_Row_Value"), QStringLiteral("With value"), QStringLiteral("---"))
                .activeWhenFlag(QStringLiteral("Add_Separators"))
                .tip(QStringLiteral("The user defined value for each column of the separator row.")),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const bool separators = values.flag(QStringLiteral("Add_Separators"));
        const StackAlignment alignment(values.choice(QStringLiteral("Align_Cols")) == 0 ? StackAlignment::HeaderName
                                                                                        : StackAlignment::ColumnNumber,
            values.flag(QStringLiteral("Only_First_Cols")), inputs);
        qint64 rowCount = separators ? inputs.size() - 1 : 0;
        for (const Dataset *input : inputs) {
            rowCount += input->rowCount();
        }
        const int width = alignment.columns().size();
        if (!TableSize::isPossible(rowCount, width)) {
            addWarning(TableSize::warning(rowCount, width));
            setResultText(QStringLiteral("Too many rows"));
            return Dataset();
        }
        Dataset result = stacked(inputs, alignment, static_cast<int>(rowCount),
            separators ? values.text(QStringLiteral("User_Defined_Row_Value")) : QString(), separators);
        infoList() += alignment.infos();
        warningList() += alignment.warnings();
        setResultText(QStringLiteral("%1 %2 stacked")
                          .arg(Messages::count(inputs.size()), Messages::word(inputs.size(), "input", "inputs")));
        return result;
    }

private:
    Dataset stacked(
        const Inputs &inputs, const StackAlignment &alignment, int rowCount, const QString &separator, bool separators)
    {
        Dataset result;
        const bool ownNames = inputs.first()->hasHeader();
        const bool needsNames = !ownNames && addsNames(inputs, alignment);
        if (ownNames || needsNames) {
            result.setHasHeader(true);
        }
        if (needsNames) {
            addWarning(QStringLiteral("%1 has no header, so its columns are named by their numbers to keep the names "
                                      "of added columns")
                           .arg(alignment.inputText(0)));
        }
        const TextArenaPointer arena(new TextArena);
        const Cell separatorCell = arena->store(separator);
        const QVector<StackAlignment::Origin> &columns = alignment.columns();
        for (int target = 0; target < columns.size(); ++target) {
            emit processed(static_cast<qreal>(target) / columns.size());
            CellColumn column;
            column.keep(arena);
            column.cells.reserve(rowCount);
            for (int input = 0; input < inputs.size(); ++input) {
                if (separators && input > 0) {
                    column.cells.append(separatorCell);
                }
                appendCells(column, *inputs.at(input), alignment.source(input, target));
            }
            const StackAlignment::Origin &origin = columns.at(target);
            const Dataset &from = *inputs.at(origin.input);
            const ColumnIndex at(origin.column);
            // The top table's names stay as they are, empty ones too.
            const QString name = origin.input == 0 && ownNames ? from.header().value(origin.column)
                                                               : from.columnName(at);
            result.appendColumn(column, name, from.columnId(at));
        }
        result.clearDuplicateColumnIds();
        return result;
    }

    /// Whether a column that isn't the top table's brings a name.
    static bool addsNames(const Inputs &inputs, const StackAlignment &alignment)
    {
        const QVector<StackAlignment::Origin> &columns = alignment.columns();
        return std::any_of(columns.cbegin(), columns.cend(), [&](const StackAlignment::Origin &origin) {
            return origin.input > 0 && inputs.at(origin.input)->hasHeader();
        });
    }

    static void appendCells(CellColumn &column, const Dataset &from, int source)
    {
        if (source < 0) {
            column.cells.resize(column.size() + from.rowCount());
            return;
        }
        const CellColumn &cells = from.column(ColumnIndex(source));
        column.keepAllOf(cells);
        for (int row = 0; row < cells.size(); ++row) {
            column.cells.append(cells.at(row));
        }
    }

    InputOrder m_order;
};

TRANSFORM_FACTORY(TransformStack)
