#include "panes/canvas/magnifier.h"

#include <QGraphicsView>
#include <QPainter>
#include <QPainterPath>

double Magnifier::scaleFor(double viewScale)
{
    return qMax(leastScale, 2 * viewScale);
}

void Magnifier::paint(QGraphicsView &view, QPainter &painter, const QPoint &centre)
{
    const double scale = scaleFor(view.transform().m11());
    const QPointF middle = view.mapToScene(centre);
    const double reach = radius / scale;
    const QRectF source(middle.x() - reach, middle.y() - reach, 2 * reach, 2 * reach);
    const QRectF target(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    QPainterPath lens;
    lens.addEllipse(target);
    painter.setClipPath(lens);
    view.scene()->render(&painter, target, source);
    painter.setClipping(false);
    painter.setPen(QPen(view.palette().color(QPalette::Mid), 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(target);
    painter.restore();
}
