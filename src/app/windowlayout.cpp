#include "app/windowlayout.h"

#include "settings/settings.h"

#include <QMainWindow>
#include <QScreen>
#include <QStyle>

void restoreLayout(QMainWindow &window, const Settings &settings)
{
    window.restoreState(settings.windowState());
    if (window.restoreGeometry(settings.geometry())) {
        return;
    }
    constexpr QSize firstSize(1400, 900);
    const QRect available = window.screen()->availableGeometry();
    if (available.width() > firstSize.width() && available.height() > firstSize.height()) {
        window.setGeometry(QStyle::alignedRect(window.layoutDirection(), Qt::AlignCenter, firstSize, available));
    } else {
        window.showMaximized();
    }
}
