#pragma once

#include "charts/chartmodel.h"
#include "charts/chartoptions.h"

#include <QtCharts/QChartView>

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
    void fitAxes(const QSizeF &size);

    ChartFacet m_facet;
    ChartOptions m_options;
    QString m_message;
};
