#include "charts/chartserieslook.h"

#include "charts/charttext.h"

#include <QGraphicsLayout>
#include <QtCharts/QAreaSeries>
#include <QtCharts/QBarSeries>
#include <QtCharts/QBarSet>
#include <QtCharts/QHorizontalBarSeries>
#include <QtCharts/QHorizontalStackedBarSeries>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QPieSeries>
#include <QtCharts/QPieSlice>
#include <QtCharts/QScatterSeries>
#include <QtCharts/QSplineSeries>
#include <QtCharts/QStackedBarSeries>
#include <algorithm>

using namespace QtCharts;

namespace {

template<class Kind>
Kind *named(const ChartSeries &series)
{
    auto *made = new Kind;
    made->setName(ChartText::plain(series.name));
    return made;
}

QAbstractBarSeries *newBars(bool isHorizontal, bool isStacked)
{
    if (isHorizontal) {
        return isStacked ? static_cast<QAbstractBarSeries *>(new QHorizontalStackedBarSeries)
                         : new QHorizontalBarSeries;
    }
    return isStacked ? static_cast<QAbstractBarSeries *>(new QStackedBarSeries) : new QBarSeries;
}

/// Lines beyond the colours of a theme differ by their dashes.
Qt::PenStyle penStyle(int series)
{
    constexpr int themeColors = 5;
    static const Qt::PenStyle styles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
    return styles[series / themeColors % 4];
}

/// The white edges of a theme would hide bars that are only a few pixels wide.
void styleBars(QAbstractBarSeries &bars)
{
    constexpr int mostEdged = 100;
    const QList<QBarSet *> sets = bars.barSets();
    for (QBarSet *set : sets) {
        if (set->count() * sets.size() > mostEdged) {
            set->setPen(Qt::NoPen);
        }
    }
}

} // namespace

ChartSeriesLook::ChartSeriesLook(const ChartOptions &options, const ChartFacet &facet)
    : m_options(options)
    , m_facet(facet)
{
}

void ChartSeriesLook::addTo(QChart &chart) const
{
    switch (m_options.type) {
    case ChartChoice::Area:
        return addAreas(chart);
    case ChartChoice::VerticalBar:
    case ChartChoice::HorizontalBar:
        return addBars(chart);
    case ChartChoice::Pie:
    case ChartChoice::Donut:
        return addRings(chart);
    default:
        return addPoints(chart);
    }
}

void ChartSeriesLook::addPoints(QChart &chart) const
{
    // Curves between points that lie closer than pixels look like lines, but take seconds to draw.
    constexpr int mostCurves = 2000;
    for (const ChartSeries &series : m_facet.series) {
        const bool isSmooth = m_options.type == ChartChoice::SmoothLine && series.points.size() <= mostCurves;
        QXYSeries *made = m_options.type == ChartChoice::Scatter ? named<QScatterSeries>(series)
                          : isSmooth ? static_cast<QXYSeries *>(named<QSplineSeries>(series))
                                     : named<QLineSeries>(series);
        made->replace(series.points);
        chart.addSeries(made);
    }
}

void ChartSeriesLook::addAreas(QChart &chart) const
{
    // On a logarithmic axis there is no zero to stand on.
    const double floor = m_facet.y.kind == ChartAxis::Log ? m_facet.y.minimum : 0.0;
    for (const ChartSeries &series : m_facet.series) {
        QVector<QPointF> lower;
        lower.reserve(series.points.size());
        for (int i = 0; i < series.points.size(); ++i) {
            const double base = series.base.at(i);
            lower.append({series.points.at(i).x(), base == 0.0 ? floor : base});
        }
        auto *made = named<QAreaSeries>(series);
        auto *upperLine = new QLineSeries(made);
        auto *lowerLine = new QLineSeries(made);
        QVector<QPointF> upper = series.points;
        for (QPointF &point : upper) {
            point.setY(m_facet.y.kind == ChartAxis::Log ? std::max(point.y(), floor) : point.y());
        }
        upperLine->replace(upper);
        lowerLine->replace(lower);
        made->setUpperSeries(upperLine);
        made->setLowerSeries(lowerLine);
        chart.addSeries(made);
    }
}

void ChartSeriesLook::addBars(QChart &chart) const
{
    QAbstractBarSeries *bars = newBars(
        m_options.type == ChartChoice::HorizontalBar, m_options.layout == ChartChoice::Stacked);
    constexpr double barPart = 0.8;
    bars->setBarWidth(barPart);
    for (const ChartSeries &series : m_facet.series) {
        auto *set = new QBarSet(ChartText::plain(series.name));
        for (const QPointF &point : series.points) {
            set->append(point.y());
        }
        bars->append(set);
    }
    chart.addSeries(bars);
}

void ChartSeriesLook::addRings(QChart &chart) const
{
    constexpr double outer = 0.9;
    constexpr double donutHole = 0.4;
    const int count = m_facet.rings.size();
    const double hole = m_options.type == ChartChoice::Donut ? donutHole : 0.0;
    const double width = (outer - hole) / std::max(1, count);
    for (int ring = 0; ring < count; ++ring) {
        auto *made = new QPieSeries;
        for (const ChartSlice &slice : m_facet.rings.at(ring)) {
            made->append(ChartText::plain(slice.label), slice.value);
        }
        made->setPieSize(hole + width * (ring + 1));
        made->setHoleSize(hole + width * ring);
        chart.addSeries(made);
    }
}

double ChartSeriesLook::pointSize() const
{
    if (m_options.pointSizeOption != 0) {
        return m_options.customPointSize;
    }
    constexpr int few = 50;
    constexpr int some = 500;
    int most = 0;
    for (const ChartSeries &series : m_facet.series) {
        most = std::max(most, series.points.size());
    }
    return most <= few ? 10.0 : most <= some ? 7.0 : 4.0;
}

void ChartSeriesLook::style(QChart &chart) const
{
    constexpr double percent = 100.0;
    int place = 0;
    const QList<QAbstractSeries *> all = chart.series();
    for (QAbstractSeries *series : all) {
        series->setOpacity(m_options.opacity / percent);
        if (auto *scatter = qobject_cast<QScatterSeries *>(series)) {
            scatter->setMarkerSize(pointSize());
            scatter->setBorderColor(Qt::transparent);
        } else if (auto *bars = qobject_cast<QAbstractBarSeries *>(series)) {
            styleBars(*bars);
        } else if (auto *area = qobject_cast<QAreaSeries *>(series)) {
            // The outline of very many points takes seconds, and hides what it surrounds.
            constexpr int mostOutlined = 1000;
            if (area->upperSeries()->count() > mostOutlined) {
                area->setPen(Qt::NoPen);
            }
        } else if (auto *line = qobject_cast<QXYSeries *>(series)) {
            QPen pen = line->pen();
            pen.setWidthF(m_options.lineThickness);
            pen.setStyle(penStyle(place));
            line->setPen(pen);
        }
        ++place;
    }
    if (m_options.showLineDataPoints
        && (m_options.type == ChartChoice::Line || m_options.type == ChartChoice::SmoothLine)) {
        addDataPoints(chart);
    }
}

/// Points over the lines, of the same colour and without a place in the legend.
void ChartSeriesLook::addDataPoints(QChart &chart) const
{
    const QList<QAbstractSeries *> lines = chart.series();
    for (QAbstractSeries *series : lines) {
        auto *line = qobject_cast<QXYSeries *>(series);
        auto *points = new QScatterSeries;
        points->setName(line->name());
        points->replace(line->pointsVector());
        chart.addSeries(points);
        for (QAbstractAxis *axis : line->attachedAxes()) {
            points->attachAxis(axis);
        }
        points->setColor(line->color());
        points->setBorderColor(Qt::transparent);
        points->setMarkerSize(pointSize());
        points->setOpacity(line->opacity());
        for (QLegendMarker *marker : chart.legend()->markers(points)) {
            marker->setVisible(false);
        }
    }
}
