#include "platform/desktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>

QFont platform::messageFont()
{
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont);
}

/// What the desktop tells programs that it prefers: 1 for dark, 2 for light, 0 for no preference or no answer.
static uint preferredScheme()
{
    constexpr int answerMs = 200;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return 0;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"), QStringLiteral("org.freedesktop.portal.Settings"),
        QStringLiteral("Read"));
    question << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
    const QDBusReply<QDBusVariant> reply = bus.call(question, QDBus::Block, answerMs);
    // The answer is a variant in a variant.
    const QVariant outer = reply.isValid() ? reply.value().variant() : QVariant();
    return outer.canConvert<QDBusVariant>() ? outer.value<QDBusVariant>().variant().toUInt() : outer.toUInt();
}

bool platform::isSystemDark()
{
    // The palette as the desktop gave it, before the program sets one of its own.
    static const bool startedDark = [] {
        const QPalette palette = QGuiApplication::palette();
        return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    }();
    const uint preferred = preferredScheme();
    return preferred == 0 ? startedDark : preferred == 1;
}

QString platform::settingsStoreName()
{
    return QStringLiteral("user configuration folder");
}
