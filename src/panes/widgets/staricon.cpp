#include "panes/widgets/staricon.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QWidget>
#include <QtMath>

namespace {

constexpr int points = 5;
constexpr double innerRadius = 0.42; ///< of the outer one

QPainterPath star(double side)
{
    QPainterPath path;
    const double radius = side / 2 - 1;
    for (int i = 0; i < 2 * points; ++i) {
        const double angle = M_PI * i / points - M_PI_2;
        const double r = i % 2 == 0 ? radius : radius * innerRadius;
        const QPointF corner(side / 2 + r * qCos(angle), side / 2 + r * qSin(angle));
        i == 0 ? path.moveTo(corner) : path.lineTo(corner);
    }
    path.closeSubpath();
    return path;
}

} // namespace

QIcon starIcon(bool filled, const QWidget &widget)
{
    const int side = widget.fontMetrics().height();
    const double scale = widget.devicePixelRatioF();
    QPixmap pixmap(QSize(side, side) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = filled ? QPalette::Active : QPalette::Disabled;
    const QColor color = widget.palette().color(group, filled ? QPalette::Highlight : QPalette::WindowText);
    painter.setPen(color);
    painter.setBrush(filled ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawPath(star(side));
    painter.end();
    return QIcon(pixmap);
}
