#pragma once

#include "charts/chartmodel.h"
#include "charts/chartoptions.h"

/// From where to where values go; empty until one was taken in.
struct ChartRange
{
    double minimum = 0.0;
    double maximum = 0.0;
    bool isEmpty = true;

    void include(double value);
    void include(const ChartRange &other);
};

namespace ChartRanges {

/// The scale of an axis of numbers that shows `range` as `options` want it. `letter` is what messages call it: X or Y.
ChartAxis numbers(const ChartAxisOptions &options, const ChartRange &range, QChar letter, QStringList &warnings);
/// The scale of an axis of dates, in milliseconds; its marks lie whole days apart.
ChartAxis dates(const QString &format, const ChartRange &range);
/// Room for texts at 0, 1, 2 ...; `margin` is what is left before the first and behind the last.
ChartAxis texts(const QStringList &texts, double margin);
/// A step of 1, 2 or 5 times a power of ten, by which `span` takes about `count` steps.
double niceStep(double span, int count);

} // namespace ChartRanges
