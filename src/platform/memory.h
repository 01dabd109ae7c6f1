#pragma once

namespace platform {

/// Memory that this process alone occupies, swapped out parts included, in GiB; 0 when the system doesn't tell.
double privateMemoryGiB();

} // namespace platform
