#include "app/windowlayout.h"

#include "app/application.h"
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
        // Where nothing manages windows, maximizing them leaves their size.
        window.setGeometry(available);
        window.showMaximized();
    }
}

void storeLayout(const QMainWindow &window, Settings &settings)
{
    settings.setGeometry(window.saveGeometry());
    settings.setWindowState(window.saveState());
}

void restoreFolders(Application &application, const Settings &settings)
{
    application.setLastDocDir(settings.lastDocDir());
    application.setLastDataDir(settings.lastDataDir());
    application.setLastOutputDataDir(settings.lastOutputDataDir());
}

void storeFolders(const Application &application, Settings &settings)
{
    settings.setLastDocDir(application.lastDocDir());
    settings.setLastDataDir(application.lastDataDir());
    settings.setLastOutputDataDir(application.lastOutputDataDir());
}
