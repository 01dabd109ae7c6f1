#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

class Application;
struct MainActions;

/// Light and dark windows: palette, style sheet and icons, as the settings say or as the desktop is.
class UiThemes : public QObject
{
    Q_OBJECT

public:
    /// How often the desktop is asked whether it has become dark or light.
    static constexpr int pollMs = 5000;

    UiThemes(Application &application, MainActions &actions);

    bool isDark() const { return m_isDark; }
    /// From light to dark and back, whatever it was that chose the present one.
    void toggle();
    /// Tells what the desktop is like; for tests.
    void setSystemQuery(std::function<bool()> isSystemDark) { m_isSystemDark = std::move(isSystemDark); }

public slots:
    /// Takes on what the settings and the desktop say.
    void onUpdateUITheme();

signals:
    void logMessage(const QString &text);
    void changed(bool dark);

private:
    void apply();

    Application &m_application;
    MainActions &m_actions;
    QTimer m_poll;
    std::function<bool()> m_isSystemDark;
    bool m_isDark = false;
};
