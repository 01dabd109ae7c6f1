#pragma once

#include "charts/chartmodel.h"
#include "charts/chartoptions.h"

#include <QWidget>

class ChartView;

/// A whole chart: one view for each facet, row by row.
class ChartWidget final : public QWidget
{
    Q_OBJECT

public:
    explicit ChartWidget(QWidget *parent = nullptr);

    /// False when there is no chart, and then one view says why.
    bool rebuild(const ChartModel &model, const ChartOptions &options);
    /// One view with one line, such as "Run to update".
    void showMessage(const QString &text);
    int viewCount() const { return m_views.size(); }
    ChartView *view(int place) const { return m_views.at(place); }

    /// Draws the chart over `size` device pixels; lines and letters grow with large pictures. The widget may be hidden.
    void drawInto(QPainter &painter, const QSizeF &size) const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QBrush ground() const;
    void makeViews(int count, int across);

    QList<ChartView *> m_views;
    int m_across = 1;
};
