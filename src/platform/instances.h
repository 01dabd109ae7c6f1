#pragma once

namespace platform {

/// Number of running processes of this program that this user may see, this one included.
int runningInstances();

} // namespace platform
