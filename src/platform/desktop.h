#pragma once

class QFont;
class QString;

namespace platform {

/// The desktop's font for messages.
QFont messageFont();
/// True when the desktop's own colours are light on dark.
bool isSystemDark();
/// Where preferences go when they aren't in a file beside the program, as messages call it.
QString settingsStoreName();

} // namespace platform
