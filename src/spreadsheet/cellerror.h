#pragma once

#include <string_view>

namespace spreadsheet {

/// The number that stands for an error such as "#DIV/0!" in cells; that of "#VALUE!" for any other text.
int errorCode(std::string_view text);
/// The text of an error's number; "#VALUE!" for numbers that no error has.
std::string_view errorText(int code);

} // namespace spreadsheet
