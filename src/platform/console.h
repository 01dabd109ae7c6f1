#pragma once

class QString;

namespace platform {

/// Reads and writes arguments, file names and messages as UTF-8 where the locale knows nothing beyond ASCII, as under
/// cron. For use before there is an application object.
void useUtf8InPlainLocale();
/// Lets the program go on when nobody reads what it writes any more, as behind "| head".
void surviveClosedConsole();
/// Writes a line to standard error at once, in UTF-8 whatever the locale says.
void writeConsoleLine(const QString &line);
/// Writes out what the C streams still hold.
void flushConsole();

} // namespace platform
