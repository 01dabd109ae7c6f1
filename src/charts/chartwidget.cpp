#include "charts/chartwidget.h"

#include "charts/chartview.h"

#include <QGridLayout>
#include <QPainter>
#include <algorithm>
#include <cmath>

ChartWidget::ChartWidget(QWidget *parent)
    : QWidget(parent)
{
    setAccessibleName(QStringLiteral("Chart"));
}

void ChartWidget::makeViews(int count, int across)
{
    qDeleteAll(m_views);
    m_views.clear();
    delete layout();
    m_across = std::clamp(across, 1, std::max(1, count));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    for (int i = 0; i < count; ++i) {
        auto *view = new ChartView(this);
        m_views.append(view);
        grid->addWidget(view, i / m_across, i % m_across);
        grid->setRowStretch(i / m_across, 1);
        grid->setColumnStretch(i % m_across, 1);
    }
}

bool ChartWidget::rebuild(const ChartModel &model, const ChartOptions &options)
{
    if (!model.isDrawn()) {
        showMessage(model.refusal);
        return false;
    }
    makeViews(model.facets.size(), options.facetsAcross);
    for (int i = 0; i < m_views.size(); ++i) {
        m_views.at(i)->rebuild(model.facets.at(i), options);
    }
    return true;
}

void ChartWidget::showMessage(const QString &text)
{
    makeViews(1, 1);
    m_views.first()->showMessage(text);
}

/// What stands behind the charts, so that a last row of fewer charts has no hole.
QBrush ChartWidget::ground() const
{
    return m_views.isEmpty() || !m_views.first()->message().isEmpty() ? palette().window()
                                                                      : m_views.first()->chart()->backgroundBrush();
}

void ChartWidget::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), ground());
}

void ChartWidget::drawInto(QPainter &painter, const QSizeF &size) const
{
    painter.fillRect(QRectF(QPointF(0, 0), size), ground());
    // Letters of the usual size suit about as many pixels; more of them draw the same picture finer.
    constexpr double usualPixels = 1000.0 * 800.0;
    const double scale = std::max(1.0, std::sqrt(size.width() * size.height() / usualPixels));
    const int rows = (m_views.size() + m_across - 1) / m_across;
    const QSizeF cell(size.width() / m_across, size.height() / std::max(1, rows));
    for (int i = 0; i < m_views.size(); ++i) {
        const QPointF corner(i % m_across * cell.width(), i / m_across * cell.height());
        m_views.at(i)->drawInto(painter, QRectF(corner, cell), cell / scale);
    }
}
