#pragma once

#include <string_view>

namespace spreadsheet {

/// The date number of "2024-01-31", "2024-01-31T12:30:00.5" or "12:30:00"; a "Z" or offset behind it doesn't move the
/// time. False for anything else and for dates that the system can't hold.
bool parseIsoDate(std::string_view text, bool uses1904, double *value);

} // namespace spreadsheet
