#include "data/columnbuilder.h"
#include "data/numberreader.h"
#include "data/realwriter.h"
#include "data/rowkeyindex.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/numberfailures.h"
#include "transforms/frame/transform.h"
#include "transforms/options/addedcolumn.h"

#include <optional>

/// Adds a column with the running total of another one, on the whole or for each value of a further column.
class TransformTotal final : public Transform
{
    static constexpr int shownFailures = 5;
    static constexpr int announced = 32; ///< rows that the index of groups fetches ahead

public:
    TransformTotal()
        : Transform("Total", "Add a new column with a running (cumulative) total of the selected column.",
            "sumif columns rows by cumulative running totals")
    {
    }

private:
    OptionTable options() const override
    {
        OptionTable table = AddedColumn::nameOptions(displayName());
        const QString none = QStringLiteral("<None selected>");
        table.append(Option::column("Column", "Column").tip("Create a running total for this column."));
        table.append(Option::column("By", "By")
                         .notRequired()
                         .noneText(none)
                         .tip(QStringLiteral("Maintain a separate running total for each value in this column.\n"
                                             "Leave as %1 if you only want a single running total.")
                                  .arg(none)));
        return table;
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const ColumnIndex column = values.column("Column");
        qint64 totalled = 0;
        const CellColumn cells = column.isValid() ? totals(result, column, values.column("By"), totalled)
                                                  : ColumnBuilder::filled(QString(), result.rowCount());
        const QString automatic = column.isValid() ? QStringLiteral("Total %1").arg(result.columnName(column))
                                                   : QStringLiteral("Total");
        AddedColumn::add(result, cells, AddedColumn::name(values, automatic));
        setResultText(QStringLiteral("%1 %2 totalled").arg(Messages::count(totalled), Messages::rows(totalled)));
        return result;
    }

    CellColumn totals(const Dataset &input, ColumnIndex column, ColumnIndex by, qint64 &totalled)
    {
        const NumberReader reader(false, true);
        const RealWriter writer;
        std::optional<RowKeyIndex> groups;
        if (by.isValid()) {
            groups.emplace(std::vector<const Cell *>{input.column(by).cells.constData()});
        }
        const Cell *in = input.column(column).cells.constData();
        const int rowCount = input.rowCount();
        std::vector<double> sums(1, 0.0);
        ColumnBuilder out(rowCount);
        NumberFailures failures(shownFailures);
        TextBuffer text;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            if (groups && row % announced == 0) {
                groups->announce(row, qMin(row + announced, rowCount));
            }
            const size_t group = groups ? static_cast<size_t>(groups->add(row)) : 0;
            if (group >= sums.size()) {
                sums.push_back(0.0);
            }
            bool ok = false;
            const double number = reader.read(in[row], &ok);
            if (ok) {
                sums[group] += number;
                ++totalled;
            } else {
                failures.add(in[row], row);
            }
            writer.write(sums[group], text);
            out.append(text);
        }
        warningList() += failures.lines();
        return out.take();
    }
};

TRANSFORM_FACTORY(TransformTotal)
