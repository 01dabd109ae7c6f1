#include "charts/chartview.h"

#include "charts/chartaxes.h"
#include "charts/chartserieslook.h"
#include "charts/charttext.h"
#include "data/values.h"

#include <QGraphicsLayout>
#include <QLocale>
#include <QtCharts/QAbstractAxis>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QScatterSeries>
#include <algorithm>
#include <cmath>

using namespace QtCharts;

namespace {

QChart::ChartTheme themeOf(int choice)
{
    static const QChart::ChartTheme themes[] = {QChart::ChartThemeLight, QChart::ChartThemeBlueNcs,
        QChart::ChartThemeBlueIcy, QChart::ChartThemeBlueCerulean, QChart::ChartThemeQt, QChart::ChartThemeBrownSand,
        QChart::ChartThemeDark};
    return themes[std::clamp(choice, 0, ChartChoice::themeCount - 1)];
}

/// How often the edges of areas go from the bottom of the picture to its top.
double crossings(const ChartFacet &facet)
{
    double way = 0.0;
    for (const ChartSeries &series : facet.series) {
        for (int i = 1; i < series.base.size(); ++i) {
            way += std::fabs(series.points.at(i).y() - series.points.at(i - 1).y());
        }
    }
    return way / (facet.y.maximum - facet.y.minimum);
}

} // namespace

ChartView::ChartView(QWidget *parent)
    : QChartView(parent)
{
    setFrameShape(QFrame::NoFrame);
    setRenderHint(QPainter::Antialiasing);
    chart()->setBackgroundRoundness(0);
    chart()->layout()->setContentsMargins(0, 0, 0, 0);
}

void ChartView::rebuild(const ChartFacet &facet, const ChartOptions &options)
{
    m_facet = facet;
    m_options = options;
    m_message.clear();
    chart()->removeAllSeries();
    for (QAbstractAxis *axis : chart()->axes()) {
        chart()->removeAxis(axis);
        delete axis;
    }
    // Smooth edges of an area that is all spikes take seconds, and can't be seen.
    constexpr double mostCrossings = 200.0;
    setRenderHint(QPainter::Antialiasing, crossings(m_facet) <= mostCrossings);
    chart()->setLocale(QLocale());
    chart()->setLocalizeNumbers(true);
    const ChartSeriesLook look(m_options, m_facet);
    look.addTo(*chart());
    addAxes();
    chart()->setTheme(themeOf(m_options.theme));
    look.style(*chart());
    chart()->setTitle(ChartText::plain(m_facet.title));
    placeLegend();
    chart()->show();
    fillView();
}

void ChartView::showMessage(const QString &text)
{
    m_message = text;
    chart()->setTitle(QString());
    chart()->removeAllSeries();
    chart()->hide();
    viewport()->update();
}

void ChartView::addAxes()
{
    if (m_facet.x.kind == ChartAxis::None) {
        return;
    }
    const bool isLying = m_options.type == ChartChoice::HorizontalBar;
    QAbstractAxis *x = ChartAxes::make(m_facet.x, m_options.x);
    QAbstractAxis *y = ChartAxes::make(m_facet.y, m_options.y);
    chart()->addAxis(x, isLying ? Qt::AlignLeft : Qt::AlignBottom);
    chart()->addAxis(y, isLying ? Qt::AlignBottom : Qt::AlignLeft);
    for (QAbstractSeries *series : chart()->series()) {
        series->attachAxis(x);
        series->attachAxis(y);
    }
}

/// Points upon lines have hidden entries, since the lines have theirs.
bool ChartView::isOfDataPoints(QLegendMarker &marker) const
{
    return m_options.type != ChartChoice::Scatter && qobject_cast<QScatterSeries *>(marker.series());
}

void ChartView::placeLegend()
{
    constexpr int fewest = 2;
    constexpr int mostBelow = 5;
    int count = m_facet.series.size();
    for (const QVector<ChartSlice> &ring : qAsConst(m_facet.rings)) {
        count += ring.size();
    }
    int position = m_options.legendPosition;
    if (position == ChartChoice::AutomaticLegend) {
        position = count < fewest       ? ChartChoice::HiddenLegend
                   : count <= mostBelow ? ChartChoice::Bottom
                                        : ChartChoice::Left;
    }
    QLegend *legend = chart()->legend();
    m_legendTexts.clear();
    const QList<QLegendMarker *> markers = legend->markers();
    for (QLegendMarker *marker : markers) {
        if (!isOfDataPoints(*marker)) {
            m_legendTexts.append(marker->label());
        }
    }
    legend->setVisible(position != ChartChoice::HiddenLegend);
    legend->setShowToolTips(true);
    legend->setAlignment(position == ChartChoice::Left    ? Qt::AlignLeft
                         : position == ChartChoice::Top   ? Qt::AlignTop
                         : position == ChartChoice::Right ? Qt::AlignRight
                                                          : Qt::AlignBottom);
}

/// Lets the entries beside a chart that it has no height for give way to one that counts them.
void ChartView::fitLegend(double height)
{
    QLegend *legend = chart()->legend();
    if (!legend->isVisible() || (legend->alignment() != Qt::AlignLeft && legend->alignment() != Qt::AlignRight)) {
        return;
    }
    constexpr double besides = 0.85; // the rest are title and margins
    constexpr double gap = 10.0;     // what QtCharts leaves around an entry
    const double each = QFontMetricsF(legend->font()).height() + gap;
    const int room = std::max(1, static_cast<int>(height * besides / each));
    const int count = m_legendTexts.size();
    int place = 0;
    const QList<QLegendMarker *> markers = legend->markers();
    for (QLegendMarker *marker : markers) {
        if (isOfDataPoints(*marker)) {
            continue;
        }
        const bool isLast = place == room - 1 && count > room;
        marker->setVisible(place < room);
        marker->setLabel(
            isLast ? QStringLiteral("+ %1 more").arg(formatInteger(count - place, true)) : m_legendTexts.value(place));
        ++place;
    }
}

void ChartView::fitAxes(const QSizeF &size)
{
    constexpr double besides = 0.85; // the part of a side that the plot itself usually has
    const bool isLying = m_options.type == ChartChoice::HorizontalBar;
    const Qt::Orientation ofX = isLying ? Qt::Vertical : Qt::Horizontal;
    for (QAbstractAxis *axis : chart()->axes()) {
        const bool isX = axis->orientation() == ofX;
        const bool isLevel = axis->orientation() == Qt::Horizontal;
        const bool legendBeside = chart()->legend()->isVisible()
                                  && (chart()->legend()->alignment() == Qt::AlignLeft
                                      || chart()->legend()->alignment() == Qt::AlignRight);
        constexpr double legendPart = 0.25;
        const double length = isLevel ? size.width() * (legendBeside ? besides - legendPart : besides)
                                      : size.height() * besides;
        ChartAxes::fit(axis, isX ? m_facet.x : m_facet.y, isX ? m_options.x : m_options.y, length, isLevel);
    }
}

QSizeF ChartView::layoutSize(const QSizeF &size)
{
    // In less room QtCharts cuts labels to dots, so small charts are laid out larger and shrunk.
    constexpr double leastWidth = 300.0;
    constexpr double leastHeight = 220.0;
    if (size.isEmpty()) {
        return size;
    }
    return size * std::max({1.0, leastWidth / size.width(), leastHeight / size.height()});
}

void ChartView::layOut(const QSizeF &size)
{
    constexpr double marginPart = 0.03;
    constexpr double widestMargin = 20.0;
    const int margin = qRound(std::min(widestMargin, marginPart * std::min(size.width(), size.height())));
    chart()->setMargins(QMargins(margin, margin, margin, margin));
    fitAxes(size);
    fitLegend(size.height());
    chart()->setMinimumSize(0, 0);
    chart()->resize(size);
}

void ChartView::drawInto(QPainter &painter, const QRectF &target, const QSizeF &size)
{
    const QSizeF laidOut = layoutSize(size);
    layOut(laidOut);
    chart()->layout()->invalidate();
    chart()->layout()->activate();
    painter.setRenderHint(QPainter::Antialiasing, renderHints().testFlag(QPainter::Antialiasing));
    scene()->render(&painter, target, QRectF(QPointF(0, 0), laidOut), Qt::IgnoreAspectRatio);
}

void ChartView::fillView()
{
    const QSizeF laidOut = layoutSize(size());
    layOut(laidOut);
    setMinimumSize(0, 0);
    setSceneRect(chart()->geometry());
    const double scale = laidOut.isEmpty() ? 1.0 : width() / laidOut.width();
    setTransform(QTransform::fromScale(scale, scale));
}

void ChartView::resizeEvent(QResizeEvent *event)
{
    QChartView::resizeEvent(event);
    fillView();
}

void ChartView::drawForeground(QPainter *painter, const QRectF &rect)
{
    QChartView::drawForeground(painter, rect);
    if (!m_message.isEmpty()) {
        painter->resetTransform();
        painter->setPen(palette().color(QPalette::WindowText));
        painter->drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_message);
    }
}
