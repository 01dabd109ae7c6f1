#pragma once

#include <QObject>

class Application;
class DocumentSession;
class Settings;
struct MainActions;

/// Takes over what the settings say into the running window, at once and whoever changed them. Panes that show a
/// setting listen for themselves.
class SettingsFollower : public QObject
{
    Q_OBJECT

public:
    /// All outlive this.
    SettingsFollower(Application &application, DocumentSession &session, MainActions &actions);

private:
    void onChanged(const QString &key);
    void updateColors();
    void updateFont();
    void updateToolBar();
    void updateOptimum();

    Application &m_application;
    DocumentSession &m_session;
    MainActions &m_actions;
};
