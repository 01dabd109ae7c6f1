#pragma once

#include <QString>

namespace platform {

/// The folder with files that come with the program, such as "examples": among the shared data where the program is
/// installed, in the sources for a program that runs where it was built. Empty when there is none. Needs the
/// application object.
QString installedFolder(const QString &name);

} // namespace platform
