#include "panes/widgets/keptgeometry.h"

#include "settings/settings.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>

void keepGeometry(QDialog &dialog, QByteArray (Settings::*read)() const, void (Settings::*write)(const QByteArray &),
    const QSize &first)
{
    if (!dialog.restoreGeometry((Settings::current().*read)()) && first.isValid()) {
        const QScreen *screen = QGuiApplication::primaryScreen();
        dialog.resize(screen ? first.boundedTo(screen->availableSize() * 9 / 10) : first);
    }
    QObject::connect(&dialog, &QDialog::finished, &dialog,
        [&dialog, write] { (Settings::current().*write)(dialog.saveGeometry()); });
}
