#include "graph/timingbar.h"

#include "graph/node.h"

#include <QPainter>
#include <cmath>

namespace {

constexpr double width = 171.0;
constexpr double height = 15.3;
constexpr double gapAboveNode = 19.125;
constexpr double green = 120.0;

} // namespace

TimingBar::TimingBar(Node *node, double share)
    : QGraphicsItem(node)
    , m_share(qBound(0.0, share, 1.0))
{
    setPos((Node::boxWidth - width) / 2, -gapAboveNode);
    setAcceptedMouseButtons(Qt::NoButton);
}

void TimingBar::setShare(double share)
{
    m_share = qBound(0.0, share, 1.0);
    update();
}

QColor TimingBar::color(double share)
{
    const double hue = green * std::pow(1.0 - share, 2.5);
    return QColor::fromHsvF(hue / 360.0, 1.0, 1.0);
}

QRectF TimingBar::boundingRect() const
{
    return QRectF(0, 0, width, height);
}

void TimingBar::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    QPen frame(Qt::gray);
    frame.setWidth(0);
    painter->fillRect(QRectF(0, 0, width * m_share, height), color(m_share));
    painter->setPen(frame);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(boundingRect());
}
