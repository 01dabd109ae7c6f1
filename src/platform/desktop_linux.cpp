#include "platform/desktop.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

QFont platform::messageFont()
{
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont);
}

/// What the desktop tells programs that it prefers: 1 for dark, 2 for light, 0 for no preference or no answer. Asked by
/// the desktop's own tool, since linking its message bus would make every run without a window start later.
static uint preferredScheme()
{
    constexpr int answerMs = 300;
    static const QString tool = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
                                    ? QStandardPaths::findExecutable(QStringLiteral("gdbus"))
                                    : QString();
    if (tool.isEmpty()) {
        return 0;
    }
    QProcess process;
    process.start(tool, {QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("--timeout=1"),
                            QStringLiteral("--dest=org.freedesktop.portal.Desktop"),
                            QStringLiteral("--object-path=/org/freedesktop/portal/desktop"),
                            QStringLiteral("--method=org.freedesktop.portal.Settings.Read"),
                            QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme")});
    if (!process.waitForFinished(answerMs)) {
        process.kill();
        process.waitForFinished(answerMs);
        return 0;
    }
    // Such as "(<<uint32 1>>,)".
    const QRegularExpressionMatch answer = QRegularExpression(QStringLiteral("uint32 (\\d)"))
                                               .match(QString::fromUtf8(process.readAllStandardOutput()));
    return answer.captured(1).toUInt();
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
