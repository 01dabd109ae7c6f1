#include "graph/nodepainter.h"

#include "graph/colors.h"
#include "graph/node.h"
#include "graph/nodelook.h"
#include "graph/pictures.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPalette>

namespace {

constexpr double lineHeight = 24.0;
constexpr int textHeight = 14;
constexpr double iconSize = 18.0;
constexpr double commentHeight = 26.0;
constexpr int commentTextHeight = 11;
constexpr double leastReadable = 4.0; // pixels of a text's height
constexpr int gradientStep = 10;      // per cent of lightness a step of the scheme's gradient strength

QPen penOf(const QColor &color, double width)
{
    return color.isValid() ? QPen(color, width) : QPen(Qt::NoPen);
}

QBrush boxBrush(const Node &node)
{
    const QColor color = node.boxColor();
    const int strength = node.gradientEffect();
    if (strength <= 0) {
        return color;
    }
    QLinearGradient gradient(node.boxRect().topLeft(), node.boxRect().bottomLeft());
    gradient.setColorAt(0, color.lighter(100 + strength * gradientStep));
    gradient.setColorAt(1, color);
    return gradient;
}

QColor selectionColor(const Node &node)
{
    const QColor ofScheme = node.colors().color(Colors::Selection);
    return ofScheme.isValid() ? ofScheme : QGuiApplication::palette().color(QPalette::Highlight);
}

/// Whether a text of that height can be read at the painter's scale; shaping those that can't takes the most time of
/// painting a large flow.
bool isReadable(const QPainter &painter, double height)
{
    return painter.deviceTransform().map(QLineF(0, 0, 0, height)).length() >= leastReadable;
}

/// Stands for a text that is too small to read.
void drawBar(QPainter &painter, const QRectF &rect, const QString &text, QColor color)
{
    constexpr double letterWidth = 7.0;
    const double width = qMin(rect.width(), letterWidth * text.size());
    color.setAlphaF(color.alphaF() / 2);
    painter.fillRect(QRectF(rect.left(), rect.center().y() - 3, width, 6), color);
}

void drawLine(QPainter &painter, const QRectF &rect, const QString &text)
{
    const QString shown = QFontMetricsF(painter.font()).elidedText(text, Qt::ElideMiddle, rect.width());
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter, shown);
}

QFont boxFont(bool bold)
{
    QFont font;
    font.setPixelSize(textHeight);
    font.setBold(bold);
    return font;
}

/// Smaller for a name that would be cut.
QFont nameFont(const QString &name)
{
    QFont font = boxFont(true);
    if (QFontMetricsF(font).horizontalAdvance(name) > NodeLayout::textLine(1).width()) {
        font.setPixelSize(12);
    }
    return font;
}

void drawTick(QPainter &painter, const QRectF &r)
{
    painter.drawPolyline(QVector<QPointF>{
        {r.left() + 4, r.center().y()}, {r.center().x() - 1, r.bottom() - 5}, {r.right() - 4, r.top() + 6}});
}

void drawCross(QPainter &painter, const QRectF &r)
{
    const QRectF inner = r.adjusted(5, 5, -5, -5);
    painter.drawLine(inner.topLeft(), inner.bottomRight());
    painter.drawLine(inner.topRight(), inner.bottomLeft());
}

void drawHourglass(QPainter &painter, const QRectF &r)
{
    const QRectF inner = r.adjusted(5, 4, -5, -4);
    painter.drawLine(inner.topLeft(), inner.topRight());
    painter.drawLine(inner.bottomLeft(), inner.bottomRight());
    painter.drawPolyline(QVector<QPointF>{inner.topLeft(), inner.bottomRight()});
    painter.drawPolyline(QVector<QPointF>{inner.topRight(), inner.bottomLeft()});
}

void drawSign(QPainter &painter, const QRectF &rect, QChar sign)
{
    QFont font = boxFont(true);
    font.setPixelSize(13);
    painter.setFont(font);
    painter.drawText(rect, Qt::AlignCenter, sign);
}

QColor discColor(NodeStatusIcon icon)
{
    switch (icon) {
    case NodeStatusIcon::UpToDate:
        return QColor(0x00, 0xAA, 0x00);
    case NodeStatusIcon::Warning:
        return QColor(0xFD, 0x9A, 0x00);
    case NodeStatusIcon::Error:
        return QColor(0xAA, 0x00, 0x00);
    case NodeStatusIcon::Empty:
        return Qt::gray;
    default:
        return Qt::lightGray;
    }
}

void drawSymbol(QPainter &painter, const QRectF &disc, NodeStatusIcon icon)
{
    switch (icon) {
    case NodeStatusIcon::Empty:
        painter.drawEllipse(disc.adjusted(5, 5, -5, -5));
        break;
    case NodeStatusIcon::Processing:
        drawHourglass(painter, disc);
        break;
    case NodeStatusIcon::UpToDate:
        drawTick(painter, disc);
        break;
    case NodeStatusIcon::Warning:
        drawSign(painter, disc, QLatin1Char('!'));
        break;
    case NodeStatusIcon::Error:
        drawCross(painter, disc);
        break;
    case NodeStatusIcon::NeedsUpdate:
        drawSign(painter, disc, QLatin1Char('?'));
        break;
    case NodeStatusIcon::None:
        break;
    }
}

void drawChevron(QPainter &painter, const QPointF &at, const QPointF &towards)
{
    constexpr double reach = 5.0;
    const QPointF across(towards.y(), towards.x());
    painter.drawPolyline(QVector<QPointF>{at - reach * across, at + reach * towards, at + reach * across});
}

} // namespace

// Parts of the box

QRectF NodeLayout::border()
{
    return QRectF(0, 0, Node::boxWidth, Node::boxHeight);
}

QRectF NodeLayout::textLine(int line)
{
    const double left = line == 1 ? picture().right() + padding : 3 * padding;
    const double right = line == 1 ? statusIcon().left() - padding : Node::boxWidth - 2 * padding;
    return QRectF(left, 2 * padding + (line - 1) * lineHeight, right - left, lineHeight);
}

QRectF NodeLayout::statusIcon()
{
    return QRectF(Node::boxWidth - iconSize - 2 * padding, 3 * padding, iconSize, iconSize);
}

QRectF NodeLayout::picture()
{
    return QRectF(2.5 * padding, 2 * padding, lineHeight, lineHeight);
}

QRectF NodeLayout::progressBar()
{
    return QRectF(2 * padding, Node::boxHeight - 3 * padding, Node::boxWidth - 4 * padding, 1.5 * padding);
}

QRectF NodeLayout::comment()
{
    return QRectF(0, Node::boxHeight + padding, Node::boxWidth, commentHeight);
}

// Drawing

void NodePainter::drawBox(QPainter &painter, const Node &node)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const bool emphasised = node.isSelected() || node.look().isHighlighted();
    painter.setPen(emphasised ? QPen(selectionColor(node), NodeLayout::selectedBorderWidth)
                              : penOf(node.borderColor(), NodeLayout::borderWidth));
    painter.setBrush(boxBrush(node));
    painter.drawRoundedRect(NodeLayout::border(), NodeLayout::cornerRadius, NodeLayout::cornerRadius);
}

void NodePainter::drawPicture(QPainter &painter, const Node &node)
{
    const QColor ground = node.boxColor().isValid() ? node.boxColor() : node.colors().color(Colors::Background);
    Pictures::draw(painter, NodeLayout::picture(), Pictures::ofNode(node), qGray(ground.rgb()) < 128);
}

void NodePainter::drawTexts(QPainter &painter, const Node &node)
{
    const QString name = node.name();
    const QString others[] = {node.displaySizeText(), node.statusMessage()};
    if (!isReadable(painter, textHeight)) {
        drawBar(painter, NodeLayout::textLine(1), name, node.textColor());
        drawBar(painter, NodeLayout::textLine(2), others[0], node.textColor());
        drawBar(painter, NodeLayout::textLine(3), others[1], node.textColor());
        return;
    }
    painter.setPen(node.textColor());
    painter.setFont(nameFont(name));
    drawLine(painter, NodeLayout::textLine(1), name);
    painter.setFont(boxFont(false));
    drawLine(painter, NodeLayout::textLine(2), others[0]);
    drawLine(painter, NodeLayout::textLine(3), others[1]);
}

void NodePainter::drawComment(QPainter &painter, const Node &node)
{
    const QRectF area = NodeLayout::comment();
    if (!isReadable(painter, commentTextHeight)) {
        drawBar(painter, area, node.comment(), node.colors().color(Colors::Arrow));
        return;
    }
    QFont font = boxFont(false);
    font.setPixelSize(commentTextHeight);
    font.setItalic(true);
    painter.setFont(font);
    painter.setPen(node.colors().color(Colors::Arrow));
    // Two lines stand between one row of the grid and the next.
    const QFontMetricsF metrics(font);
    const QString text = metrics.elidedText(node.comment().simplified(), Qt::ElideRight, 1.85 * area.width());
    painter.drawText(area, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text);
}

void NodePainter::drawProgress(QPainter &painter, const Node &node)
{
    QRectF bar = NodeLayout::progressBar();
    bar.setWidth(bar.width() * qBound(0.0, node.fraction(), 1.0));
    painter.fillRect(bar, selectionColor(node));
}

void NodePainter::drawStatusIcon(QPainter &painter, const QRectF &disc, NodeStatusIcon icon)
{
    if (icon == NodeStatusIcon::None) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = discColor(icon);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(disc);
    painter.setPen(QPen(qGray(color.rgb()) > 190 ? Qt::darkGray : Qt::white, 2));
    painter.setBrush(Qt::NoBrush);
    if (isReadable(painter, disc.height() / 2)) {
        drawSymbol(painter, disc, icon);
    }
    painter.restore();
}

void NodePainter::drawChanges(QPainter &painter, const Node &node, int moreRows, int moreColumns)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(node.textColor(), 2));
    const QRectF box = NodeLayout::border();
    if (moreRows != 0) {
        drawChevron(painter, {box.right() - 12, box.bottom() - 14}, {0, moreRows > 0 ? 1.0 : -1.0});
    }
    if (moreColumns != 0) {
        drawChevron(painter, {box.right() - 26, box.bottom() - 14}, {moreColumns > 0 ? 1.0 : -1.0, 0});
    }
}
