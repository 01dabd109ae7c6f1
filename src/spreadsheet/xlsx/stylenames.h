#pragma once

#include <string_view>

namespace spreadsheet {

/// The words for the values of a property, in the order of the numbers that CellStyle has for them.
struct StyleNames
{
    const std::string_view *names;
    int count;

    /// `otherwise` for a word that isn't one of them.
    int valueOf(std::string_view name, int otherwise) const;
    /// Empty for a number that has no name.
    std::string_view nameOf(int value) const { return value >= 0 && value < count ? names[value] : std::string_view(); }
};

extern const StyleNames fillPatterns;
extern const StyleNames borderStyles;
extern const StyleNames horizontalAlignments;
extern const StyleNames verticalAlignments;
extern const StyleNames fontScripts;

/// FontStyle::underline of a word; 0 for one that isn't known.
int underlineOf(std::string_view name);
/// Empty for no underline.
std::string_view underlineName(int underline);

} // namespace spreadsheet
