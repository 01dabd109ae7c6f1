#pragma once

#include "charts/chartmodel.h"
#include "charts/chartoptions.h"

#include <QtCharts/QChartView>
#include <QtCharts/QLegendMarker>

/// One facet of a chart, drawn.
class ChartView final : public QtCharts::QChartView
{
    Q_OBJECT

public:
    explicit ChartView(QWidget *parent = nullptr);

    /// Draws this facet anew.
    void rebuild(const ChartFacet &facet, const ChartOptions &options);
    /// Has no chart but one line in its middle.
    void showMessage(const QString &text);
    const QString &message() const { return m_message; }

    /// Lays the chart out for `size` pixels and draws it into `target`. The view may be hidden.
    void drawInto(QPainter &painter, const QRectF &target, const QSizeF &size);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    void addAxes();
    void placeLegend();
    bool isOfDataPoints(QtCharts::QLegendMarker &marker) const;
    void fitAxes(const QSizeF &size);
    void fitLegend(double height);
    static QSizeF layoutSize(const QSizeF &size);
    void layOut(const QSizeF &size);
    void fillView();

    ChartFacet m_facet;
    ChartOptions m_options;
    QString m_message;
    QStringList m_legendTexts;
};
