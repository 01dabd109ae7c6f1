#pragma once

#include "charts/chartmodel.h"
#include "charts/chartoptions.h"

#include <QtCharts/QChart>

/// Puts the series of one facet into a chart.
class ChartSeriesLook
{
public:
    ChartSeriesLook(const ChartOptions &options, const ChartFacet &facet);

    /// Adds the series. Axes must be attached, and a theme chosen, before style().
    void addTo(QtCharts::QChart &chart) const;
    /// Thickness, opacity and points, over what the theme has given.
    void style(QtCharts::QChart &chart) const;

private:
    void addPoints(QtCharts::QChart &chart) const;
    void addAreas(QtCharts::QChart &chart) const;
    void addBars(QtCharts::QChart &chart) const;
    void addRings(QtCharts::QChart &chart) const;
    void addDataPoints(QtCharts::QChart &chart) const;
    double pointSize() const;

    const ChartOptions &m_options;
    const ChartFacet &m_facet;
};
