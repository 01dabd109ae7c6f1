#include "charts/chartview.h"

#include "charts/chartaxes.h"
#include "charts/chartserieslook.h"
#include "charts/charttext.h"

#include <QGraphicsLayout>
#include <QLocale>
#include <QtCharts/QAbstractAxis>
#include <QtCharts/QLegend>
#include <algorithm>

using namespace QtCharts;

namespace {

QChart::ChartTheme themeOf(int choice)
{
    static const QChart::ChartTheme themes[] = {QChart::ChartThemeLight, QChart::ChartThemeBlueNcs,
        QChart::ChartThemeBlueIcy, QChart::ChartThemeBlueCerulean, QChart::ChartThemeQt, QChart::ChartThemeBrownSand,
        QChart::ChartThemeDark};
    return themes[std::clamp(choice, 0, ChartChoice::themeCount - 1)];
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
    chart()->setLocale(QLocale());
    chart()->setLocalizeNumbers(true);
    const ChartSeriesLook look(m_options, m_facet);
    look.addTo(*chart());
    addAxes();
    chart()->setTheme(themeOf(m_options.theme));
    look.style(*chart());
    chart()->setTitle(ChartText::plain(m_facet.title));
    placeLegend();
    fitAxes(size());
    chart()->show();
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
    legend->setVisible(position != ChartChoice::HiddenLegend);
    legend->setShowToolTips(true);
    legend->setAlignment(position == ChartChoice::Left    ? Qt::AlignLeft
                         : position == ChartChoice::Top   ? Qt::AlignTop
                         : position == ChartChoice::Right ? Qt::AlignRight
                                                          : Qt::AlignBottom);
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

void ChartView::drawInto(QPainter &painter, const QRectF &target, const QSizeF &size)
{
    fitAxes(size);
    chart()->setMinimumSize(0, 0);
    chart()->resize(size);
    chart()->layout()->invalidate();
    chart()->layout()->activate();
    scene()->render(&painter, target, QRectF(QPointF(0, 0), size), Qt::IgnoreAspectRatio);
}

void ChartView::resizeEvent(QResizeEvent *event)
{
    fitAxes(size());
    QChartView::resizeEvent(event);
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
