#pragma once

#include "outputs/excelformats.h"
#include "outputs/jsontypes.h"

/// What a writer is told of single columns, by column number from 0.
struct ColumnMaps
{
    ExcelFormats excel;
    JsonColumnTypes jsonTypes;

    /// For the table without that column: those behind it move up.
    ColumnMaps withoutColumn(int column) const
    {
        return {{shortened(excel.formats, column), shortened(excel.dateFormats, column),
                    shortened(excel.automatic, column)},
            shortened(jsonTypes, column)};
    }

private:
    template<class Value>
    static QHash<int, Value> shortened(const QHash<int, Value> &map, int column)
    {
        QHash<int, Value> result;
        for (auto it = map.cbegin(); it != map.cend(); ++it) {
            if (it.key() != column) {
                result.insert(it.key() < column ? it.key() : it.key() - 1, it.value());
            }
        }
        return result;
    }
    static QVector<int> shortened(const QVector<int> &columns, int column)
    {
        QVector<int> result;
        for (const int other : columns) {
            if (other != column) {
                result.append(other < column ? other : other - 1);
            }
        }
        return result;
    }
};
