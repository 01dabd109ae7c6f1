#pragma once

class QString;

namespace platform {

/// Writes a line to standard error at once, in UTF-8 whatever the locale says.
void writeConsoleLine(const QString &line);
/// Writes out what the C streams still hold.
void flushConsole();

} // namespace platform
