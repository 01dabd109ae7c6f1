#include "platform/desktop.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>

QFont platform::messageFont()
{
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont);
}

bool platform::isSystemDark()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QString platform::settingsStoreName()
{
    return QStringLiteral("user configuration folder");
}
