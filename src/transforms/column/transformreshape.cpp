#include "data/arenaunion.h"
#include "data/datasource.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/options/parameter.h"

#include <vector>

/// Cuts the cells, read row by row, into rows of another width.
class TransformReshape final : public Transform
{
public:
    TransformReshape()
        : Transform("Reshape", "Change the number of columns and rows.", "rows columns size resize shape reshape")
    {
    }

private:
    OptionTable options() const override
    {
        constexpr int most = 999999999;
        return {Option::integer("New_Size", "Number of columns", 2)
                    .limits(1, most)
                    .tip("Change the data to have this many columns.\n"
                         "The new number of rows will be calculated automatically.")};
    }

    void adjustNewParameters(const QList<DataSource *> &inputs, bool) override
    {
        if (!inputs.isEmpty()) {
            parameter("New_Size")->setValue(qMax(1, inputs.first()->datasetConst().columnCount()));
        }
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const int width = values.integer("New_Size");
        if (!input.hasRows() || width == input.columnCount()) {
            setResultText(Messages::noChanges());
            return input;
        }
        const qint64 cellCount = static_cast<qint64>(input.rowCount()) * input.columnCount();
        const qint64 rows = (cellCount + width - 1) / width;
        if (!TableSize::isPossible(rows, width)) {
            addWarning(TableSize::warning(rows, width));
            setResultText(TableSize::resultText());
            return Dataset();
        }
        const Dataset result = reshaped(input, static_cast<int>(rows), width);
        setResultText(
            QStringLiteral("Changed to %1 cols x %2 rows").arg(Messages::count(width), Messages::count(rows)));
        return result;
    }

    Dataset reshaped(const Dataset &input, int rows, int width)
    {
        const std::vector<CellVector> columns = cut(input, rows, width);
        ArenaUnion texts; // a cell may come from any column, so all keep all texts
        for (ColumnIndex column : input.allColumns()) {
            texts.add(input.column(column));
        }
        CellColumn kept;
        kept.keep(texts.arena());
        Dataset result;
        QStringList names;
        for (int i = 0; i < width; ++i) {
            kept.cells = columns[static_cast<size_t>(i)];
            result.appendColumn(kept, QString(), input.columnId(ColumnIndex(i)));
            names.append(i < input.columnCount() ? input.header().value(i) : QString::number(i + 1));
        }
        if (input.hasHeader()) {
            result.setHeader(names);
        }
        return result;
    }

    std::vector<CellVector> cut(const Dataset &input, int rows, int width)
    {
        std::vector<CellVector> columns(static_cast<size_t>(width));
        std::vector<Cell *> cells;
        for (CellVector &column : columns) {
            column.resize(rows);
            cells.push_back(column.data());
        }
        std::vector<const Cell *> sources;
        for (ColumnIndex column : input.allColumns()) {
            sources.push_back(input.column(column).cells.constData());
        }
        int toRow = 0;
        size_t toColumn = 0;
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            for (const Cell *source : sources) {
                cells[toColumn][toRow] = source[row];
                if (++toColumn == cells.size()) {
                    toColumn = 0;
                    ++toRow;
                }
            }
        }
        return columns;
    }
};

TRANSFORM_FACTORY(TransformReshape)
