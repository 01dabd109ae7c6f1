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
/// The locale of the user's session, by name, so that it equals itself when read back from a store.
QLocale systemLocale();
QString documentsFolder();
const SettingsExtensions &inputExtensions();
const SettingsExtensions &outputExtensions();

} // namespace SettingsDefaults
