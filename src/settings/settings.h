#pragma once

#include "settings/choices.h"

#include <QByteArray>
#include <QColor>
#include <QDate>
#include <QFont>
#include <QHash>
#include <QList>
#include <QLocale>
#include <QMap>
#include <QStringList>
#include <QVariant>
#include <memory>

class QSettings;
class SettingsNotifier;

/// Counts by name.
using SettingsCounts = QHash<QString, int>;
/// File types by lower-case extension.
using SettingsExtensions = QMap<QString, int>;

/// Typed access to the user's settings: one getter and one setter for each key, over one store. Nothing else touches
/// the store. A key that the store lacks gives its default; a value of the wrong type is converted as far as QVariant
/// can, else it is empty. Writing is lazy, and a store that can't be written doesn't keep the program from working.
class Settings
{
public:
    /// The store of the user on this system.
    Settings();
    /// An ini file, made at the first change if it isn't there.
    explicit Settings(const QString &iniFile);
    ~Settings();
    Q_DISABLE_COPY(Settings)

    /// The process's settings. Without installed ones, as in tests, an empty store that is gone at the end.
    static Settings &current();
    /// Not owned; null takes the installed ones away.
    static void setCurrent(Settings *settings);

    bool isIni() const;
    bool isWritable() const;
    /// The store's own file.
    QString fileName() const;
    /// Writes what is pending; false when the store couldn't be written.
    bool sync();
    /// Moves every key into that ini file. False leaves everything as it was.
    bool reopenAsIni(const QString &iniFile);
    /// Moves every key to the store of the user on this system. False leaves everything as it was.
    bool reopenAsSystem();
    /// True when the store holds a value of its own.
    bool isStored(const QString &key) const;
    /// Tells of each change from the first call on. Who shows what a setting says listens to the settings that it
    /// reads.
    SettingsNotifier &notifier();

    // One getter and one setter for each key of the table
#define SETTING(type, key, getter, setter, fallback)                                                                   \
    type getter() const;                                                                                               \
    void setter(const type &value);
#include "settings/keys.inc"
#undef SETTING

    int itemSummarySortCol(int fallback = -1) const;
    void setItemSummarySortCol(int column);

    /// False the first time for a one-shot tip, and true from then on.
    bool isTipShown(const QString &key);

    // What users saved as defaults for new inputs and outputs: `kind` is "inputs" or "outputs", `type` a file type's
    // label, `extension` in lower case, "(Empty)" for none or "clipboard"
    QVariant defaultOption(const QString &kind, const QString &type, const QString &extension, const QString &option,
        const QVariant &fallback) const;
    bool hasDefaultOption(
        const QString &kind, const QString &type, const QString &extension, const QString &option) const;
    void setDefaultOption(const QString &kind, const QString &type, const QString &extension, const QString &option,
        const QVariant &value);
    void removeDefaultOption(const QString &kind, const QString &type, const QString &extension, const QString &option);

    // What users saved as defaults for new transforms, by stored type name and key of the option
    QVariant transformDefault(const QString &type, const QString &parameter, const QVariant &fallback = {}) const;
    bool hasTransformDefault(const QString &type, const QString &parameter) const;
    void setTransformDefault(const QString &type, const QString &parameter, const QVariant &value);
    void removeTransformDefault(const QString &type, const QString &parameter);

    /// Colour of one role in the custom scheme.
    QColor customColor(int role, const QColor &fallback = QColor()) const;
    void setCustomColor(int role, const QColor &color);

    // File types by extension
    SettingsExtensions inputFileExtensions() const;
    void setInputFileExtensions(const SettingsExtensions &types);
    SettingsExtensions outputFileExtensions() const;
    void setOutputFileExtensions(const SettingsExtensions &types);
    /// Type of an extension in any case; FileType::None when neither the user's nor the built-in table has it.
    int inputTypeOf(const QString &extension) const;
    int outputTypeOf(const QString &extension) const;
    /// Filters for file dialogs.
    QString inputFileFilter() const;
    QString outputFileFilter() const;
    /// True when the comma-separated list has the extension; case, blanks and points don't count.
    static bool isExtensionBlocked(const QString &extension, const QString &list);

    /// Formats in which dates are looked for, in order.
    QStringList dateFormats() const;
    void setDateFormats(const QStringList &formats);
    /// 1, 7 or 30; 0 for never.
    int updateIntervalDays() const;
    /// Factor of one step of the wheel; a sensitivity of 5 gives 1.25.
    static double wheelFactor(int sensitivity);

    // Defaults that depend on the running program
    /// Font of windows and tables as long as the user chose none.
    void setDefaultFont(const QFont &font);
    QFont defaultFont() const;
    /// Scheme of canvas colours as long as the user chose none.
    void setThemeColorScheme(ColorScheme scheme);

private:
    QVariant stored(const QString &key) const;
    void store(const QString &key, const QVariant &value);
    void forget(const QString &key);
    void announce(const QString &key) const;
    void announceDefault(const QString &key) const;
    bool moveTo(std::unique_ptr<QSettings> target);

    std::unique_ptr<QSettings> m_store;
    mutable QHash<QString, QVariant> m_cache;
    std::unique_ptr<SettingsNotifier> m_notifier;
    std::unique_ptr<QFont> m_defaultFont;
    ColorScheme m_themeColorScheme = ColorScheme::Modern;
};
