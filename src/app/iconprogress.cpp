#include "app/iconprogress.h"

#include <QGuiApplication>
#include <QPainter>
#include <QWidget>
#include <cstdlib>

namespace {

constexpr int sides[] = {16, 24, 32, 48, 64};
constexpr int leastStep = 2; // what can be seen; each step is sent to the window manager

QPixmap pixmapWithBar(const QIcon &icon, int side, int percent)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    icon.paint(&painter, pixmap.rect());
    const int height = qMax(4, side / 5);
    const QRect frame(0, side - height, side, height);
    painter.fillRect(frame, QColor(0x31, 0x36, 0x3b));
    const QRect room = frame.adjusted(1, 1, -1, -1);
    painter.fillRect(room, Qt::white);
    painter.fillRect(
        QRect(room.topLeft(), QSize(room.width() * percent / 100, room.height())), QColor(0x2f, 0x9e, 0x44));
    return pixmap;
}

} // namespace

IconProgress::IconProgress(QWidget &window)
    : QObject(&window)
    , m_window(window)
{
}

QIcon IconProgress::withBar(const QIcon &icon, int percent)
{
    QIcon result;
    for (const int side : sides) {
        result.addPixmap(pixmapWithBar(icon, side, percent));
    }
    return result;
}

void IconProgress::onProgress(int percent)
{
    const int shown = percent < 1 || percent > 99 ? 0 : percent;
    if (shown == m_shown || (shown != 0 && m_shown != 0 && std::abs(shown - m_shown) < leastStep)) {
        return;
    }
    m_shown = shown;
    const QIcon icon = QGuiApplication::windowIcon();
    m_window.setWindowIcon(shown == 0 ? icon : withBar(icon, shown));
}
