#include "app/uithemes.h"

#include "app/application.h"
#include "app/mainactions.h"
#include "panes/icons.h"
#include "platform/desktop.h"
#include "settings/settings.h"

#include <QFile>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace {

QPalette darkPalette()
{
    const QColor window(0x2a, 0x2e, 0x32);
    const QColor text(0xef, 0xf0, 0xf1);
    const QColor dim(0x7f, 0x86, 0x8c);
    QPalette palette(text, QColor(0x31, 0x36, 0x3b), QColor(0x4d, 0x53, 0x59), QColor(0x1b, 0x1e, 0x20),
        QColor(0x3b, 0x40, 0x45), text, Qt::white, QColor(0x1b, 0x1e, 0x20), window);
    palette.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    palette.setColor(QPalette::ToolTipBase, QColor(0x31, 0x36, 0x3b));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::Highlight, QColor(0x2d, 0x7f, 0xb8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x5d, 0xad, 0xec));
    palette.setColor(QPalette::LinkVisited, QColor(0xb0, 0x8b, 0xd8));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, dim);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x4d, 0x53, 0x59));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, dim);
    return palette;
}

} // namespace

UiThemes::UiThemes(Application &application, MainActions &actions)
    : m_application(application)
    , m_actions(actions)
    , m_isSystemDark(platform::isSystemDark)
{
    m_poll.setInterval(pollMs);
    connect(&m_poll, &QTimer::timeout, this, &UiThemes::onUpdateUITheme);
    m_poll.start();
}

void UiThemes::onUpdateUITheme()
{
    const UiTheme theme = m_application.settings().uiTheme();
    const bool dark = theme == UiTheme::Dark || (theme == UiTheme::Automatic && m_isSystemDark());
    if (dark != m_isDark) {
        m_isDark = dark;
        apply();
    }
}

void UiThemes::toggle()
{
    m_application.settings().setUiTheme(m_isDark ? UiTheme::Light : UiTheme::Dark);
    onUpdateUITheme();
}

void UiThemes::apply()
{
    Icons::setDark(m_isDark);
    m_actions.updateIcons();
    QString sheet;
    if (m_isDark) {
        QFile file(QStringLiteral(":/qdarkstyle/style.qss"));
        if (file.open(QIODevice::ReadOnly)) {
            sheet = QString::fromUtf8(file.readAll());
        } else {
            emit logMessage(QStringLiteral("Unable to set dark stylesheet, file not found"));
        }
    }
    QApplication::setPalette(m_isDark ? darkPalette() : QApplication::style()->standardPalette());
    m_application.setStyleSheet(sheet);
    // The canvas follows the theme as long as nobody has chosen colours for it.
    m_application.settings().setThemeColorScheme(m_isDark ? ColorScheme::Dark : ColorScheme::Modern);
    emit changed(m_isDark);
}
