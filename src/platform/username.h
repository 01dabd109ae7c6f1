#pragma once

class QString;

namespace platform {

/// Login name of who runs the program: what USER says, else LOGNAME, else the system's list of users. Empty when none
/// of them knows.
QString userName();

} // namespace platform
