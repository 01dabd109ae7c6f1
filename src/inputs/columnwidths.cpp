#include "inputs/columnwidths.h"

QList<int> ColumnWidths::starts(const QList<int> &widths)
{
    QList<int> starts{0};
    for (const int width : widths) {
        starts.append(starts.last() + width);
    }
    return starts;
}

int ColumnWidths::columnAt(const QList<int> &widths, int position)
{
    int end = 0;
    for (int column = 0; column < widths.size(); ++column) {
        end += widths.at(column);
        if (position < end) {
            return position < 0 ? -1 : column;
        }
    }
    return -1;
}

bool ColumnWidths::canMerge(const QList<int> &columns)
{
    return columns.size() > 1 && columns.last() - columns.first() == columns.size() - 1;
}

bool ColumnWidths::canSplit(const QList<int> &widths, const QList<int> &columns)
{
    return columns.size() == 1 && widths.at(columns.first()) > 1;
}

QList<int> ColumnWidths::merged(const QList<int> &widths, const QList<int> &columns)
{
    int width = 0;
    for (const int column : columns) {
        width += widths.at(column);
    }
    QList<int> result = removed(widths, columns);
    result.insert(columns.first(), width);
    return result;
}

QList<int> ColumnWidths::split(const QList<int> &widths, int column)
{
    QList<int> result = widths;
    const int right = widths.at(column) / 2;
    result[column] -= right;
    result.insert(column + 1, right);
    return result;
}

QList<int> ColumnWidths::inserted(const QList<int> &widths, int column)
{
    QList<int> result = widths;
    result.insert(column, 1);
    return result;
}

QList<int> ColumnWidths::removed(const QList<int> &widths, const QList<int> &columns)
{
    QList<int> result = widths;
    for (int i = columns.size() - 1; i >= 0; --i) {
        result.removeAt(columns.at(i));
    }
    return result;
}
