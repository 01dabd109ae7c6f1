#include "graph/notenode.h"

#include "graph/colors.h"
#include "graph/nodepainter.h"

#include <QFontMetricsF>
#include <QPainter>

namespace {

constexpr double arrowReach = 24.0;
constexpr double arrowHalfWidth = 10.0;
constexpr int largestFont = 14;
constexpr int smallestFont = 7;

/// The triangle that sticks out of the box, towards what the note is about.
QPolygonF arrowShape(NoteArrow::Arrow arrow, const QRectF &box)
{
    const QPointF c = box.center();
    switch (arrow) {
    case NoteNode::Up:
        return QVector<QPointF>{
            {c.x() - arrowHalfWidth, box.top()}, {c.x(), box.top() - arrowReach}, {c.x() + arrowHalfWidth, box.top()}};
    case NoteNode::Right:
        return QVector<QPointF>{{box.right(), c.y() - arrowHalfWidth}, {box.right() + arrowReach, c.y()},
            {box.right(), c.y() + arrowHalfWidth}};
    case NoteNode::Down:
        return QVector<QPointF>{{c.x() - arrowHalfWidth, box.bottom()}, {c.x(), box.bottom() + arrowReach},
            {c.x() + arrowHalfWidth, box.bottom()}};
    case NoteNode::Left:
        return QVector<QPointF>{{box.left(), c.y() - arrowHalfWidth}, {box.left() - arrowReach, c.y()},
            {box.left(), c.y() + arrowHalfWidth}};
    case NoteNode::NoArrow:
        break;
    }
    return {};
}

QFont fittingFont(const QString &text, const QRectF &rect, int flags)
{
    QFont font;
    for (int size = largestFont; size > smallestFont; --size) {
        font.setPixelSize(size);
        if (QFontMetricsF(font).boundingRect(rect, flags, text).height() <= rect.height()) {
            return font;
        }
    }
    font.setPixelSize(smallestFont);
    return font;
}

} // namespace

NoteNode::NoteNode(Arrow arrow, int id)
    : Node(id)
    , m_arrow(arrow)
{
}

Node *NoteNode::cloneKind() const
{
    auto *copy = new NoteNode(m_arrow, id());
    copy->m_color = m_color;
    return copy;
}

void NoteNode::setArrow(Arrow arrow)
{
    prepareGeometryChange();
    m_arrow = arrow;
    update();
}

void NoteNode::setColor(const QColor &color)
{
    m_color = color;
    update();
}

QString NoteNode::name() const
{
    return QStringLiteral("Note");
}

QString NoteNode::description() const
{
    return QStringLiteral("Add a useful comment.");
}

QString NoteNode::helpPage() const
{
    return QStringLiteral("Comments");
}

QString NoteNode::toolTipHtml(bool) const
{
    return comment().toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br/>"));
}

QVariantList NoteNode::summaryRow() const
{
    QVariantList row = Node::summaryRow();
    row << m_arrow << m_color;
    return row;
}

QColor NoteNode::borderColor() const
{
    return colors().color(Colors::NoteBorder);
}

QColor NoteNode::textColor() const
{
    return colors().color(Colors::NoteText);
}

QRectF NoteNode::boundingRect() const
{
    const double margin = NodeLayout::selectedBorderWidth;
    return boxRect().united(arrowShape(m_arrow, boxRect()).boundingRect()).adjusted(-margin, -margin, margin, margin);
}

void NoteNode::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
    NodePainter::drawBox(*painter, *this);
    painter->drawPolygon(arrowShape(m_arrow, boxRect()));
    const double margin = 2 * NodeLayout::padding;
    const QRectF area = boxRect().adjusted(margin, margin, -margin, -margin);
    painter->setFont(fittingFont(comment(), area, flags));
    painter->setPen(textColor());
    painter->drawText(area, flags, comment());
}
