#pragma once

#include <QVector>

/// At most `sampleSize` rows of a table of `rowCount` rows, ascending and evenly spread, the first row among them.
inline QVector<int> evenRows(int rowCount, int sampleSize)
{
    const int count = qMax(0, qMin(rowCount, sampleSize));
    QVector<int> rows(count);
    for (int i = 0; i < count; ++i) {
        rows[i] = static_cast<int>(static_cast<qint64>(i) * rowCount / count);
    }
    return rows;
}
