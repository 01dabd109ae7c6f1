#pragma once

#include <QObject>

/// Tells which setting has changed. Settings make it when somebody first asks for it, so that a run without a window
/// never has one.
class SettingsNotifier : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

signals:
    /// What the settings say for this key, one of SettingKey or a made-up one, is no longer what it was.
    void changed(const QString &key);
};
