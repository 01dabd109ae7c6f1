#include "transforms/format/neighbourcelltransform.h"

#include "data/arenaunion.h"
#include "transforms/frame/messages.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

/// Keeps the texts of the columns and of those beside them: a text may go on from column to column.
static TextArenaPointer textsBeside(const Dataset &dataset, const QVector<ColumnIndex> &columns)
{
    ArenaUnion texts;
    for (const ColumnIndex column : columns) {
        for (int at = qMax(0, column.toInt() - 1); at < qMin(column.toInt() + 2, dataset.columnCount()); ++at) {
            texts.add(dataset.column(ColumnIndex(at)));
        }
    }
    return texts.arena();
}

Dataset NeighbourCellTransform::compute(const OptionValues &values, const Inputs &inputs)
{
    Dataset result = *inputs.first();
    const auto direction = values.choiceAs<Direction>("Direction");
    QVector<ColumnIndex> columns = values.columns("Columns");
    if (walksBack(direction)) {
        std::reverse(columns.begin(), columns.end());
    }
    Neighbours neighbours;
    neighbours.step = direction == Down || direction == Right ? 1 : -1;
    neighbours.keys = keyCells(values, *inputs.first());
    const TextArenaPointer texts = isVertical(direction) ? TextArenaPointer() : textsBeside(result, columns);
    qint64 changed = 0;
    for (int i = 0; i < columns.size() && result.hasRows(); ++i) {
        emit processed(static_cast<qreal>(i) / columns.size());
        const int at = columns.at(i).toInt();
        const int beside = at - neighbours.step;
        if (!isVertical(direction)) {
            if (beside < 0 || beside >= result.columnCount()) {
                continue;
            }
            neighbours.column = &qAsConst(result).column(ColumnIndex(beside));
        }
        CellColumn column = result.column(columns.at(i));
        const int changedHere = edit(column, neighbours);
        if (changedHere > 0) {
            column.keep(texts);
            result.setColumn(columns.at(i), column);
        }
        changed += changedHere;
    }
    setResultText(Messages::changed(changed, static_cast<qint64>(result.rowCount()) * columns.size() - changed));
    return result;
}
