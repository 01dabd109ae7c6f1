#pragma once

/// What is settled from the settings before anything is opened.
namespace StartUp {

/// Locale and date of first use, each stored on a first start; a run without a window stores no locale.
void applySettings(bool withoutWindow);

} // namespace StartUp
