#pragma once

class HelpCommands;
class Prompts;
class QMenu;
class Settings;

/// What is settled from the settings before anything is opened.
namespace StartUp {

/// Locale and date of first use, each stored on a first start; a run without a window stores no locale.
void applySettings(bool withoutWindow);

/// Tells a person whose settings can't be written; only a file beside the program is looked at.
void checkStore(const Settings &settings, Prompts &prompts);

/// What comes after the first document: a welcome at the first start, the check of the store, and the search for a
/// newer version. `examples` holds an action for each example, the one to begin with first.
void greet(Settings &settings, Prompts &prompts, HelpCommands &help, const QMenu &examples);

} // namespace StartUp
