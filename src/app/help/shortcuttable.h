#pragma once

#include <QString>

/// The keys of all commands of the main window as tables in Markdown, a part for each menu, so that the page of keys
/// says what the program does.
QString shortcutTable();
