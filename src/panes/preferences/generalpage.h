#pragma once

#include "panes/preferences/settingrows.h"

class Prompts;

/// Moves the settings between the store of the system and a file beside the program.
struct PreferencesStore
{
    std::function<bool()> moveToFile;
    std::function<bool()> moveToSystem;
    QString file; ///< its path, for messages
};

/// "General": start, opening, clipboard, memory, where settings are stored, locale and sounds.
class GeneralPage : public SettingRows
{
    Q_OBJECT

public:
    GeneralPage(const PreferencesStore &store, Prompts &prompts, QWidget *parent = nullptr);

    /// Moves the settings to where they are wanted; false, after a message, leaves them where they are.
    bool moveStore();
    /// Says that settings can't be written to a file.
    void tellUnwritable(const QString &file);

signals:
    void localeChosen(const QLocale &locale);

private:
    bool wantsFile() const;
    void refuseMove();
    void addStarting();
    void addRunning();
    void addLocale();
    void onPrefsLocationChanged();

    const PreferencesStore m_store;
    Prompts &m_prompts;
    QComboBox *m_place = nullptr;
};
