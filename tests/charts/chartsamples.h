#pragma once

#include "charts/chartmodelbuilder.h"
#include "support/grid.h"

/// A table whose columns have ids, and a chart of its first column as X and all others as Y.
struct ChartSample
{
    explicit ChartSample(const QStringList &lines, int type, int layout = ChartChoice::Grouped)
        : data(grid(lines))
    {
        options.type = type;
        options.layout = layout;
        QList<ColumnId> y;
        for (int column = 0; column < data.columnCount(); ++column) {
            const ColumnId id(1, column + 1);
            data.setColumnId(ColumnIndex(column), id);
            if (column > 0) {
                y.append(id);
            }
        }
        columns.setX(ColumnId(1, 1), &data);
        columns.setY(y, &data);
    }

    ChartModel model() const { return ChartModelBuilder(options, columns, data).build(); }

    Dataset data;
    ChartOptions options;
    ChartColumns columns;
};
