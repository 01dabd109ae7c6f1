#include "data/arenaunion.h"
#include "transforms/format/neighbourtransform.h"
#include "transforms/frame/messages.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>
#include <vector>

/// Moves values into the empty cells beside them, as far as they go; cells that aren't selected stand like walls.
class TransformSlide final : public NeighbourTransform
{
public:
    TransformSlide()
        : NeighbourTransform("Slide", "Move non-empty values in selected columns to adjacent empty cells.",
            "across shuffles moves empty right left down justify unindents indents aligns fills",
            {"Direction to move non-empty values. E.g. '%1' means move non-empty values downward into empty cells.",
                "Use '%1' to slide a cell only when it has the same value in the 'Key column' column as an adjacent "
                "cell.",
                "Only slide if the 2 adjacent rows have the same value in this column."})
    {
    }

private:
    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        const auto direction = values.choiceAs<Direction>("Direction");
        const qint64 changed = isVertical(direction)
                                   ? slideColumns(result, columns, direction == Up, keyCells(values, *inputs.first()))
                                   : slideRows(result, columns, direction == Left);
        const QString word = isVertical(direction) ? Messages::word(changed, "column", "columns")
                                                   : Messages::rows(changed);
        setResultText(
            changed == 0 ? Messages::noChanges() : QStringLiteral("%1 %2 changed").arg(Messages::count(changed), word));
        return result;
    }

    // Up and down

    int slideColumns(Dataset &result, const QVector<ColumnIndex> &columns, bool up, const Cell *keys)
    {
        int changed = 0;
        for (int i = 0; i < columns.size() && result.hasRows(); ++i) {
            emit processed(static_cast<qreal>(i) / columns.size());
            CellColumn column = result.column(columns.at(i));
            if (slideColumn(column, up, keys)) {
                result.setColumn(columns.at(i), column);
                ++changed;
            }
        }
        return changed;
    }

    /// Gathers the values of each run of rows with the same key at one end of the run.
    static bool slideColumn(CellColumn &column, bool up, const Cell *keys)
    {
        const CellColumn before = column;
        const Cell *in = before.cells.constData();
        Cell *out = nullptr;
        const int count = before.size();
        const int step = up ? 1 : -1;
        int free = up ? 0 : count - 1;
        for (int i = 0, row = free; i < count; ++i, row += step) {
            if (i > 0 && !haveSameKey(keys, row, row - step)) {
                free = row;
            }
            if (in[row].isEmpty()) {
                continue;
            }
            if (row != free) {
                if (!out) {
                    out = column.cells.data();
                }
                out[free] = in[row];
                out[row] = Cell();
            }
            free += step;
        }
        return out != nullptr;
    }

    // Left and right

    int slideRows(Dataset &result, const QVector<ColumnIndex> &columns, bool left)
    {
        std::vector<bool> changedRows(static_cast<size_t>(result.rowCount()));
        for (int begin = 0; begin < columns.size() && result.hasRows();) {
            emit processed(static_cast<qreal>(begin) / columns.size());
            int end = begin + 1;
            while (end < columns.size() && columns.at(end).toInt() == columns.at(end - 1).toInt() + 1) {
                ++end;
            }
            QVector<ColumnIndex> neighbours = columns.mid(begin, end - begin);
            if (!left) {
                std::reverse(neighbours.begin(), neighbours.end());
            }
            slideBetweenWalls(result, neighbours, changedRows);
            begin = end;
        }
        return static_cast<int>(std::count(changedRows.cbegin(), changedRows.cend(), true));
    }

    /// Gathers each row's values in the first of these columns, which stand side by side.
    static void slideBetweenWalls(Dataset &result, const QVector<ColumnIndex> &columns, std::vector<bool> &changedRows)
    {
        std::vector<CellColumn> cells;
        for (ColumnIndex column : columns) {
            cells.push_back(result.column(column));
        }
        std::vector<const Cell *> in;
        for (const CellColumn &column : cells) {
            in.push_back(column.cells.constData());
        }
        std::vector<Cell *> out;
        for (int row = 0; row < result.rowCount(); ++row) {
            size_t free = 0;
            for (size_t i = 0; i < in.size(); ++i) {
                const Cell value = in[i][row];
                if (value.isEmpty()) {
                    continue;
                }
                if (i != free) {
                    openForWriting(cells, in, out);
                    out[free][row] = value;
                    out[i][row] = Cell();
                    changedRows[static_cast<size_t>(row)] = true;
                }
                ++free;
            }
        }
        if (out.empty()) {
            return;
        }
        ArenaUnion texts;
        for (const CellColumn &column : cells) {
            texts.add(column);
        }
        const TextArenaPointer arena = texts.arena();
        for (int i = 0; i < columns.size(); ++i) {
            CellColumn &column = cells[static_cast<size_t>(i)];
            column.arenas.clear();
            column.keep(arena);
            result.setColumn(columns.at(i), column);
        }
    }

    static void openForWriting(std::vector<CellColumn> &cells, std::vector<const Cell *> &in, std::vector<Cell *> &out)
    {
        if (out.empty()) {
            for (size_t i = 0; i < cells.size(); ++i) {
                out.push_back(cells[i].cells.data());
                in[i] = out[i];
            }
        }
    }
};

TRANSFORM_FACTORY(TransformSlide)
