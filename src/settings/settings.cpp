#include "settings/settings.h"

#include "settings/filetypes.h"
#include "settings/product.h"
#include "settings/settingkey.h"
#include "settings/settingsdefaults.h"
#include "settings/settingsnotifier.h"
#include "settings/settingvalue.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <cmath>

namespace {

Settings *installed = nullptr;

/// Stands in where nothing was installed, so that tests never touch the user's store.
struct ScratchSettings
{
    QTemporaryDir folder;
    Settings settings{folder.filePath(QString::fromLatin1(Product::iniFileName))};
};

std::unique_ptr<QSettings> openIni(const QString &file)
{
    auto store = std::make_unique<QSettings>(file, QSettings::IniFormat);
    store->setIniCodec("UTF-8");
    return store;
}

std::unique_ptr<QSettings> openSystem()
{
    return std::make_unique<QSettings>(QString::fromLatin1(Product::organisation), QString::fromLatin1(Product::name));
}

/// Writes what is pending. A file that was damaged is a FormatError for as long as the store lives, also once it has
/// been written anew.
bool isWritten(QSettings &store)
{
    store.sync();
    return store.status() != QSettings::AccessError;
}

QString optionKey(const QString &kind, const QString &type, const QString &extension, const QString &option)
{
    return QStringLiteral("defaults/%1/%2/%3/%4").arg(kind, type, extension, option);
}

QString transformKey(const QString &type, const QString &parameter)
{
    return QStringLiteral("defaults/transforms/%1/%2").arg(type, parameter);
}

QString colorKey(int role)
{
    return SettingKey::customColor + QString::number(role);
}

const QString &inputsKey()
{
    static const QString key = QStringLiteral("input_file_extensions");
    return key;
}

const QString &outputsKey()
{
    static const QString key = QStringLiteral("output_file_extensions");
    return key;
}

/// A run without a locale, as from cron, left "C" in the stores of earlier versions. Nobody chose it, and kept it would
/// decide how the user's numbers and dates are read.
bool isLocaleThatNobodyChose(const QString &key, const QVariant &value)
{
    return key == QLatin1String("locale") && SettingValue<QLocale>::fromStore(value).language() == QLocale::C;
}

} // namespace

Settings::Settings()
    : m_store(openSystem())
{
}

Settings::Settings(const QString &iniFile)
    : m_store(openIni(iniFile))
{
}

Settings::~Settings()
{
    if (installed == this) {
        installed = nullptr;
    }
}

Settings &Settings::current()
{
    if (installed) {
        return *installed;
    }
    static ScratchSettings scratch;
    return scratch.settings;
}

void Settings::setCurrent(Settings *settings)
{
    installed = settings;
}

bool Settings::isIni() const
{
    return m_store->organizationName().isEmpty();
}

bool Settings::isWritable() const
{
    return m_store->isWritable();
}

QString Settings::fileName() const
{
    return m_store->fileName();
}

bool Settings::sync()
{
    return isWritten(*m_store);
}

bool Settings::reopenAsIni(const QString &iniFile)
{
    return moveTo(openIni(iniFile));
}

bool Settings::reopenAsSystem()
{
    const QString iniFile = isIni() ? fileName() : QString();
    if (!moveTo(openSystem())) {
        return false;
    }
    // An ini file that stays, even an empty one, would be taken at the next start.
    return iniFile.isEmpty() || !QFile::exists(iniFile) || QFile::remove(iniFile);
}

bool Settings::moveTo(std::unique_ptr<QSettings> target)
{
    if (target->fileName() == fileName()) {
        return true;
    }
    if (!target->isWritable()) {
        return false;
    }
    target->clear();
    for (const QString &key : m_store->allKeys()) {
        target->setValue(key, m_store->value(key));
    }
    if (!isWritten(*target)) {
        return false;
    }
    m_store->clear();
    m_store->sync();
    m_store = std::move(target);
    m_cache.clear();
    return true;
}

bool Settings::isStored(const QString &key) const
{
    return stored(key).isValid();
}

QVariant Settings::stored(const QString &key) const
{
    const auto cached = m_cache.constFind(key);
    if (cached != m_cache.cend()) {
        return *cached;
    }
    QVariant value = m_store->value(key);
    if (value.isValid() && isLocaleThatNobodyChose(key, value)) {
        return {};
    }
    if (value.isValid()) {
        m_cache.insert(key, value);
    }
    return value;
}

void Settings::forget(const QString &key)
{
    m_cache.remove(key);
    m_store->remove(key);
}

void Settings::store(const QString &key, const QVariant &value)
{
    const QVariant old = m_notifier ? stored(key) : QVariant();
    if (isLocaleThatNobodyChose(key, value)) {
        forget(key);
    } else {
        m_cache.insert(key, value);
        m_store->setValue(key, value);
    }
    if (m_notifier && stored(key) != old) {
        announce(key);
    }
}

SettingsNotifier &Settings::notifier()
{
    if (!m_notifier) {
        m_notifier = std::make_unique<SettingsNotifier>();
    }
    return *m_notifier;
}

void Settings::announce(const QString &key) const
{
    if (m_notifier) {
        emit m_notifier->changed(key);
    }
}

void Settings::announceDefault(const QString &key) const
{
    if (!isStored(key)) {
        announce(key);
    }
}

#define SETTING(type, key, getter, setter, fallback)                                                                   \
    type Settings::getter() const                                                                                      \
    {                                                                                                                  \
        const QVariant value = stored(QStringLiteral(key));                                                            \
        return value.isValid() ? SettingValue<type>::fromStore(value) : type(fallback);                                \
    }                                                                                                                  \
    void Settings::setter(const type &value)                                                                           \
    {                                                                                                                  \
        store(QStringLiteral(key), SettingValue<type>::toStore(value));                                                \
    }
#include "settings/keys.inc"
#undef SETTING

int Settings::itemSummarySortCol(int fallback) const
{
    const QVariant value = stored(QStringLiteral("item_summary_sort_col"));
    return value.isValid() ? value.toInt() : fallback;
}

void Settings::setItemSummarySortCol(int column)
{
    store(QStringLiteral("item_summary_sort_col"), column);
}

bool Settings::isTipShown(const QString &key)
{
    if (stored(key).toBool()) {
        return true;
    }
    store(key, true);
    return false;
}

QVariant Settings::defaultOption(const QString &kind, const QString &type, const QString &extension,
    const QString &option, const QVariant &fallback) const
{
    const QVariant value = stored(optionKey(kind, type, extension, option));
    return value.isValid() ? value : fallback;
}

bool Settings::hasDefaultOption(
    const QString &kind, const QString &type, const QString &extension, const QString &option) const
{
    return isStored(optionKey(kind, type, extension, option));
}

void Settings::setDefaultOption(
    const QString &kind, const QString &type, const QString &extension, const QString &option, const QVariant &value)
{
    store(optionKey(kind, type, extension, option), value);
}

QVariant Settings::transformDefault(const QString &type, const QString &parameter, const QVariant &fallback) const
{
    const QVariant value = stored(transformKey(type, parameter));
    return value.isValid() ? value : fallback;
}

void Settings::removeDefaultOption(
    const QString &kind, const QString &type, const QString &extension, const QString &option)
{
    forget(optionKey(kind, type, extension, option));
}

bool Settings::hasTransformDefault(const QString &type, const QString &parameter) const
{
    return isStored(transformKey(type, parameter));
}

void Settings::setTransformDefault(const QString &type, const QString &parameter, const QVariant &value)
{
    store(transformKey(type, parameter), value);
}

void Settings::removeTransformDefault(const QString &type, const QString &parameter)
{
    forget(transformKey(type, parameter));
}

QColor Settings::customColor(int role, const QColor &fallback) const
{
    const QVariant value = stored(colorKey(role));
    return value.isValid() ? SettingValue<QColor>::fromStore(value) : fallback;
}

void Settings::setCustomColor(int role, const QColor &color)
{
    store(colorKey(role), color);
}

SettingsExtensions Settings::inputFileExtensions() const
{
    const QVariant value = stored(inputsKey());
    return value.isValid() ? SettingValue<SettingsExtensions>::fromStore(value) : SettingsDefaults::inputExtensions();
}

void Settings::setInputFileExtensions(const SettingsExtensions &types)
{
    store(inputsKey(), SettingValue<SettingsExtensions>::toStore(types));
}

SettingsExtensions Settings::outputFileExtensions() const
{
    const QVariant value = stored(outputsKey());
    if (!value.isValid()) {
        return SettingsDefaults::outputExtensions();
    }
    SettingsExtensions types = SettingValue<SettingsExtensions>::fromStore(value);
    if (!addedPlaintextOutput()) {
        for (const QString &extension : {QStringLiteral("txt"), QStringLiteral("log")}) {
            if (!types.contains(extension)) {
                types.insert(extension, FileType::PlainText);
            }
        }
    }
    return types;
}

void Settings::setOutputFileExtensions(const SettingsExtensions &types)
{
    setAddedPlaintextOutput(true);
    store(outputsKey(), SettingValue<SettingsExtensions>::toStore(types));
}

int Settings::inputTypeOf(const QString &extension) const
{
    const QString lower = extension.toLower();
    const SettingsExtensions &builtIn = SettingsDefaults::inputExtensions();
    return inputFileExtensions().value(lower, builtIn.value(lower, FileType::None));
}

int Settings::outputTypeOf(const QString &extension) const
{
    const QString lower = extension.toLower();
    const SettingsExtensions &builtIn = SettingsDefaults::outputExtensions();
    return outputFileExtensions().value(lower, builtIn.value(lower, FileType::None));
}

QString Settings::inputFileFilter() const
{
    QStringList patterns;
    for (const QString &extension : inputFileExtensions().keys()) {
        patterns.append(QStringLiteral("*.") + extension);
    }
    return QStringLiteral("Input data files (%1);;All Files (*.*)").arg(patterns.join(QLatin1Char(' ')));
}

QString Settings::outputFileFilter() const
{
    QStringList filters;
    for (const int type : FileType::outputTypes()) {
        filters.append(QStringLiteral("%1 file (*.%2)").arg(FileType::label(type), FileType::defaultExtension(type)));
    }
    return filters.join(QStringLiteral(";;"));
}

bool Settings::isExtensionBlocked(const QString &extension, const QString &list)
{
    const QString wanted = extension.toLower();
    for (const QString &entry : list.split(QLatin1Char(','))) {
        const QString blocked = entry.trimmed().toLower().remove(QLatin1Char('.'));
        if (!blocked.isEmpty() && blocked == wanted) {
            return true;
        }
    }
    return false;
}

QStringList Settings::dateFormats() const
{
    return dateFormatsText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void Settings::setDateFormats(const QStringList &formats)
{
    setDateFormatsText(formats.join(QLatin1Char('\n')));
}

int Settings::updateIntervalDays() const
{
    switch (autoUpdateInterval()) {
    case UpdateInterval::Day:
        return 1;
    case UpdateInterval::Week:
        return 7;
    case UpdateInterval::Month:
        return 30;
    case UpdateInterval::Never:
        break;
    }
    return 0;
}

double Settings::wheelFactor(int sensitivity)
{
    return 1.0 + 0.25 * std::pow(1.5, sensitivity - 5);
}

void Settings::setDefaultFont(const QFont &font)
{
    if (m_defaultFont && *m_defaultFont == font) {
        return;
    }
    m_defaultFont = std::make_unique<QFont>(font);
    announceDefault(SettingKey::uiFont);
    announceDefault(SettingKey::dataFont);
}

void Settings::setThemeColorScheme(ColorScheme scheme)
{
    if (m_themeColorScheme != scheme) {
        m_themeColorScheme = scheme;
        announceDefault(SettingKey::colorScheme);
    }
}

QFont Settings::defaultFont() const
{
    return m_defaultFont ? *m_defaultFont : QFont();
}
