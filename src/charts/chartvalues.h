#pragma once

#include "data/dataset.h"

#include <QVector>

/// The place of each row on the X axis.
struct ChartXValues
{
    QVector<double> values; ///< one for each row, NaN where the text doesn't read
    QStringList texts;      ///< the different texts in their order, where texts are shown
    QVector<int> counts;    ///< how often each of `texts` occurs
    QStringList warnings;
    QStringList infos;
    QString dateFormat; ///< that dates were read by
};

/// The values of one column, NaN where the text doesn't read.
struct ChartYValues
{
    QVector<double> values;
    int validCount = 0;
    int negativeCount = 0;
    QStringList warnings;
};

namespace ChartValues {

/// "(empty)" stands for an empty text.
ChartXValues texts(const Dataset &data, ColumnIndex column);
/// With `isLogarithmic`, values at or below 0 are refused.
ChartXValues numbers(const Dataset &data, ColumnIndex column, bool isLogarithmic);
/// Milliseconds since 1970 at noon of each date, so that no change of the clock moves it to another day.
ChartXValues dates(const Dataset &data, ColumnIndex column);
ChartYValues yNumbers(const Dataset &data, ColumnIndex column, bool isLogarithmic);

} // namespace ChartValues
