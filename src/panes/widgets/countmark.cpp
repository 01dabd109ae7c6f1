#include "panes/widgets/countmark.h"

#include <QFontMetricsF>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

namespace {

constexpr int mostShown = 99;
constexpr double fontScale = 0.75;
constexpr int lightEnough = 140; ///< from here on black text reads better than white

} // namespace

QIcon countMark(int count, const QColor &color, const QWidget &widget)
{
    const QString text = count > mostShown ? QStringLiteral("99+") : QString::number(count);
    QFont font = widget.font();
    font.setBold(true);
    font.setPixelSize(qRound(widget.fontMetrics().height() * fontScale));
    const double height = widget.fontMetrics().height();
    const double width = qMax(height, QFontMetricsF(font).horizontalAdvance(text) + height / 2);
    const double scale = widget.devicePixelRatioF();
    QPixmap pixmap(QSizeF(width, height).toSize() * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const QRectF mark(0, 0, width, height);
    painter.drawRoundedRect(mark, height / 2, height / 2);
    painter.setPen(qGray(color.rgb()) > lightEnough ? Qt::black : Qt::white);
    painter.setFont(font);
    painter.drawText(mark, Qt::AlignCenter, text);
    painter.end();
    return QIcon(pixmap);
}
