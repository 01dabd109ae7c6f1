#pragma once

#include "settings/settings.h"

/// Defaults of settings that are more than one value.
namespace SettingsDefaults {

/// Extensions of programs and the like, comma-separated.
QString blockedExtensions();
/// The same in the order in which outputs list them.
QString sortedBlockedExtensions();
/// Date formats of the locale's country, one a line, the locale's own short format among them.
QString dateFormats(const QLocale &locale);
/// The same, American or not whatever the locale's country is.
QString dateFormats(bool american, const QLocale &locale);
/// A locale and the variable of the environment that names it; an empty one for the system's own choice.
struct SessionLocale
{
    QLocale locale;
    QString variable;
};
/// The locale by which the user's session reads numbers: the first of LC_ALL, LC_NUMERIC and LANG that is set.
SessionLocale sessionLocale();
/// The same by name, so that it equals itself when read back from a store.
QLocale systemLocale();
QString documentsFolder();
const SettingsExtensions &inputExtensions();
const SettingsExtensions &outputExtensions();

} // namespace SettingsDefaults
