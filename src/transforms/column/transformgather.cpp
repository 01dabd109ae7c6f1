#include "data/arenaunion.h"
#include "transforms/column/sizereport.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

/// Turns columns into rows: a column of the columns' names and a column of their values.
class TransformGather final : public Transform
{
public:
    TransformGather()
        : Transform("Gather", "Gather selected columns into key and value columns.",
            "pivot_longer melts molten normalise normalize values keys groups pivots tall longer unpivots gathers")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::text("Key_Column", "Key column name").tip("The name for the new key column."),
            Option::text("Value_Column", "Value column name").tip("The name for the new value column."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        Dataset result;
        if (input.hasRows() && columns.isEmpty()) {
            result = input;
            result.appendEmptyColumn();
            result.appendEmptyColumn();
        } else if (input.hasRows()) {
            const qint64 rows = static_cast<qint64>(input.rowCount()) * columns.size();
            const int width = input.columnCount() - columns.size() + 2;
            if (!TableSize::isPossible(rows, width)) {
                addWarning(TableSize::warning(rows, width));
                setResultText(TableSize::resultText());
                return Dataset();
            }
            result = gathered(values, input, columns);
        }
        const QString report = sizeReport(input, result);
        setResultText(report.isEmpty() ? Messages::noChanges() : report);
        return result;
    }

    Dataset gathered(const OptionValues &values, const Dataset &input, const QVector<ColumnIndex> &columns)
    {
        std::vector<bool> isGathered(static_cast<size_t>(input.columnCount()));
        for (ColumnIndex column : columns) {
            isGathered[static_cast<size_t>(column.toInt())] = true;
        }
        Dataset result;
        QStringList names;
        for (int i = 0; i < input.columnCount(); ++i) {
            const ColumnIndex column(i);
            if (!isGathered[static_cast<size_t>(i)]) {
                emit processed(static_cast<qreal>(i) / input.columnCount());
                result.appendColumn(repeated(input.column(column), columns.size()), QString(), input.columnId(column));
                names.append(input.columnName(column));
            }
        }
        result.appendColumn(keys(input, columns));
        result.appendColumn(gatheredCells(input, columns));
        result.setHeader(names << values.text("Key_Column") << values.text("Value_Column"));
        return result;
    }

    static CellColumn repeated(const CellColumn &cells, int times)
    {
        CellColumn result;
        result.keepAllOf(cells);
        Cell *out = result.cells.extend(cells.size() * times);
        for (int row = 0; row < cells.size(); ++row) {
            out = std::fill_n(out, times, cells.at(row));
        }
        return result;
    }

    static CellColumn keys(const Dataset &input, const QVector<ColumnIndex> &columns)
    {
        const TextArenaPointer arena(new TextArena);
        std::vector<Cell> names;
        for (ColumnIndex column : columns) {
            names.push_back(arena->store(input.columnName(column)));
        }
        CellColumn result;
        result.keep(arena);
        Cell *out = result.cells.extend(input.rowCount() * columns.size());
        for (int row = 0; row < input.rowCount(); ++row) {
            out = std::copy(names.cbegin(), names.cend(), out);
        }
        return result;
    }

    static CellColumn gatheredCells(const Dataset &input, const QVector<ColumnIndex> &columns)
    {
        ArenaUnion texts;
        std::vector<const Cell *> sources;
        for (ColumnIndex column : columns) {
            texts.add(input.column(column));
            sources.push_back(input.column(column).cells.constData());
        }
        CellColumn result;
        result.keep(texts.arena());
        Cell *out = result.cells.extend(input.rowCount() * columns.size());
        for (int row = 0; row < input.rowCount(); ++row) {
            for (const Cell *cells : sources) {
                *out++ = cells[row];
            }
        }
        return result;
    }
};

TRANSFORM_FACTORY(TransformGather)
