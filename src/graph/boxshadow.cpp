#include "graph/boxshadow.h"

#include "graph/node.h"

#include <QPainter>
#include <QPixmapCache>
#include <cmath>

namespace {

constexpr double reach = 40.0; // how far the shadow goes beyond the box
constexpr double softness = 14.0;
constexpr double shift = 8.0;    // down and to the right
constexpr int unitsPerPixel = 2; // it has no detail that would need more

/// How dark the shadow of an edge is: a step from 0 to 1 at 0, softened.
double edge(double distance)
{
    return 0.5 * (1.0 + std::erf(distance / (softness * std::sqrt(2.0))));
}

QRectF shadowRect()
{
    return QRectF(0, 0, Node::boxWidth, Node::boxHeight)
        .translated(shift, shift)
        .adjusted(-reach, -reach, reach, reach);
}

QPixmap drawn(const QColor &color)
{
    const QSize size = (shadowRect().size() / unitsPerPixel).toSize();
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        const double below = (y + 0.5) * unitsPerPixel - reach;
        const double row = edge(below) * edge(Node::boxHeight - below);
        for (int x = 0; x < size.width(); ++x) {
            const double right = (x + 0.5) * unitsPerPixel - reach;
            QColor pixel = color;
            pixel.setAlphaF(color.alphaF() * row * edge(right) * edge(Node::boxWidth - right));
            image.setPixelColor(x, y, pixel);
        }
    }
    return QPixmap::fromImage(image);
}

QPixmap pixmapOf(const QColor &color)
{
    const QString key = QStringLiteral("box shadow ") + color.name(QColor::HexArgb);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = drawn(color);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

} // namespace

BoxShadow::BoxShadow(QObject *parent)
    : QGraphicsDropShadowEffect(parent)
{
    setBlurRadius(reach);
    setOffset(shift);
}

void BoxShadow::draw(QPainter *painter)
{
    const QPixmap pixmap = pixmapOf(color());
    painter->drawPixmap(shadowRect(), pixmap, QRectF(pixmap.rect()));
    drawSource(painter);
}
