#pragma once

#include "charts/chartmodel.h"
#include "charts/chartoptions.h"

#include <QFontMetricsF>
#include <QtCharts/QAbstractAxis>

/// The axes of QtCharts for those of a model.
namespace ChartAxes {

/// A new axis with scale, title, labels, grid and angle. The caller owns it.
QtCharts::QAbstractAxis *make(const ChartAxis &axis, const ChartAxisOptions &options);

/// Chooses as many marks as have room for their labels on `length` pixels, and turns texts that would have none.
/// `acrossLabels` says that labels lie beside each other, as below a picture, not above each other.
void fit(QtCharts::QAbstractAxis *made, const ChartAxis &axis, const ChartAxisOptions &options, double length,
    bool acrossLabels);

} // namespace ChartAxes
