#pragma once

/// Numbers of JSON and the text that they have in a table.
namespace JsonNumber {

/// What stands at the beginning of a text.
struct Found
{
    const char *end = nullptr;   ///< behind the number; null when there is none, or none that is sure to be valid
    const char *shown = nullptr; ///< end of what formatReal(value, false, -1, true) gives in the plain locale, when
                                 ///< that is how the number begins; else null
};

/// Looks at the number at `bytes`, which some byte that isn't part of a number ends.
Found find(const char *bytes);
/// The value of a number as find() accepts it; false when it is out of range.
bool read(const char *begin, const char *end, double *value);

} // namespace JsonNumber
