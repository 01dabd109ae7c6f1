#pragma once

class Prompts;
class Settings;

/// What is settled from the settings before anything is opened.
namespace StartUp {

/// Locale and date of first use, each stored on a first start; a run without a window stores no locale.
void applySettings(bool withoutWindow);

/// Tells a person whose settings can't be written; only a file beside the program is looked at.
void checkStore(const Settings &settings, Prompts &prompts);

} // namespace StartUp
