#include "panes/actions/transformpicture.h"

#include "transforms/frame/transform.h"

#include <QColor>
#include <QIcon>
#include <QPainter>

namespace {

constexpr int side = 24;
constexpr int drawnAtOnce = 3; // up to this scale of the screen

/// By Transform::Category.
const QColor tileColors[] = {QColor(0x7f, 0x8c, 0x8d), QColor(0x8e, 0x44, 0xad), QColor(0x29, 0x80, 0xb9),
    QColor(0x16, 0x8f, 0x76), QColor(0xc0, 0x5f, 0x17), QColor(0xb0, 0x3a, 0x5b), QColor(0x5d, 0x6d, 0x7e)};

/// The first letters of two words, or the first two of one.
QString lettersOf(const QString &name)
{
    const QStringList words = name.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return words.size() > 1 ? words.at(0).left(1) + words.at(1).left(1) : name.left(2);
}

} // namespace

QIcon transformPicture(const Transform &transform)
{
    QIcon icon;
    for (int ratio = 1; ratio <= drawnAtOnce; ++ratio) {
        QPixmap pixmap(side * ratio, side * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(tileColors[qBound(0, transform.category(), static_cast<int>(Transform::Other))]);
        painter.drawRoundedRect(QRectF(1, 1, side - 2, side - 2), 4, 4);
        QFont font = painter.font();
        font.setPixelSize(11);
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(QRectF(0, 0, side, side), Qt::AlignCenter, lettersOf(transform.displayName()));
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}
