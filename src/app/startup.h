#pragma once

/// What is settled from the settings before anything is opened.
namespace StartUp {

/// Locale and date of first use, each stored on a first start.
void applySettings(bool withoutWindow);

} // namespace StartUp
