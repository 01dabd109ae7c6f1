#pragma once

#include <QLatin1String>

/// The key of each setting under the name of its getter, to be compared with what SettingsNotifier tells.
namespace SettingKey {

#define SETTING(type, key, getter, setter, fallback) constexpr QLatin1String getter(key, sizeof(key) - 1);
#include "settings/keys.inc"
#undef SETTING

/// A custom colour's key is this and the number of its role.
constexpr QLatin1String customColor("custom_color_", 13);

} // namespace SettingKey
