#pragma once

#include <string_view>

namespace spreadsheet {

/// What files put before the name of a function that is newer than the format; nothing for the older ones. `name` in
/// capitals.
std::string_view newerFunctionPrefix(std::string_view name);

} // namespace spreadsheet
