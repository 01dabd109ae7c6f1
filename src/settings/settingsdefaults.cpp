#include "settings/settingsdefaults.h"

#include "settings/filetypes.h"

#include <QStandardPaths>

namespace {

QStringList blockedList()
{
    return QStringLiteral("exe,bat,bsh,csh,zsh,cmd,py,js,com,doc,docx,scr,arx,bpl,vcl,mui,ocx,sys,drv,zip,arj,7z,png,"
                          "jpeg,jpg,chm,hlp")
        .split(QLatin1Char(','));
}

// The repeated entry is harmless: the second try finds nothing that the first didn't.
const char *const americanFormats = "M/d/yyyy\nd/M/yyyy\nyyyy/M/d\nM/d/yy\nd/M/yy\nyy/M/d\n"
                                    "M-d-yyyy\nd-M-yyyy\nyyyy-M-d\nM-d-yy\nd-M-yy\nyy-M-d";
const char *const otherFormats = "d/M/yyyy\nM/d/yyyy\nyyyy/M/d\nd/M/yyyy\nM/d/yy\nyy/M/d\n"
                                 "d-M-yyyy\nM-d-yyyy\nyyyy-M-d\nd-M-yy\nM-d-yy\nyy-M-d";

SettingsExtensions builtInInputs()
{
    SettingsExtensions types;
    for (const int type : FileType::inputTypes()) {
        types.insert(FileType::defaultExtension(type), type);
    }
    // A .txt is far more often delimited than of fixed width.
    types.insert(QStringLiteral("txt"), FileType::Delimited);
    types.insert(QStringLiteral("tsv"), FileType::Delimited);
    types.insert(QStringLiteral("tab"), FileType::Delimited);
    // One value a line, and maps: what is written has neither form, so these are for reading only.
    for (const char *extension : {"jsonl", "ndjson", "geojson"}) {
        types.insert(QString::fromLatin1(extension), FileType::Json);
    }
    return types;
}

SettingsExtensions builtInOutputs()
{
    SettingsExtensions types;
    for (const int type : FileType::outputTypes()) {
        types.insert(FileType::defaultExtension(type), type);
    }
    types.insert(QStringLiteral("tsv"), FileType::Delimited);
    types.insert(QStringLiteral("txt"), FileType::PlainText);
    return types;
}

} // namespace

QString SettingsDefaults::blockedExtensions()
{
    return blockedList().join(QLatin1Char(','));
}

QString SettingsDefaults::sortedBlockedExtensions()
{
    QStringList list = blockedList();
    list.sort();
    return list.join(QLatin1Char(','));
}

QString SettingsDefaults::dateFormats(const QLocale &locale)
{
    return dateFormats(locale.country() == QLocale::UnitedStates, locale);
}

QString SettingsDefaults::dateFormats(bool american, const QLocale &locale)
{
    const QString formats = QString::fromLatin1(american ? americanFormats : otherFormats);
    const QString own = locale.dateFormat(QLocale::ShortFormat);
    return formats.split(QLatin1Char('\n')).contains(own) ? formats : own + QLatin1Char('\n') + formats;
}

// Numbers and dates follow the variables for them. The system locale of Qt goes by the language of texts, which many
// people set to another one.
SettingsDefaults::SessionLocale SettingsDefaults::sessionLocale()
{
#ifdef Q_OS_UNIX
    for (const char *variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const QString name = qEnvironmentVariable(variable).section(QLatin1Char('.'), 0, 0);
        if (!name.isEmpty()) {
            return {QLocale(name), QString::fromLatin1(variable)};
        }
    }
#endif
    return {QLocale(QLocale::system().name()), QString()};
}

QLocale SettingsDefaults::systemLocale()
{
    return sessionLocale().locale;
}

QString SettingsDefaults::documentsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

const SettingsExtensions &SettingsDefaults::inputExtensions()
{
    static const SettingsExtensions types = builtInInputs();
    return types;
}

const SettingsExtensions &SettingsDefaults::outputExtensions()
{
    static const SettingsExtensions types = builtInOutputs();
    return types;
}
