#pragma once

#include <string_view>

namespace spreadsheet {

/// A cell element in the form that nearly all have: `<c r="B7" s="2" t="s"><v>15</v></c>`, with any of the attributes
/// and the value left out, or `<is><t>text</t></is>` in place of the value. Names and texts hold nothing that XML
/// writes otherwise.
struct PlainCell
{
    // Empty when left out
    std::string_view reference, format, type, value;
    bool hasReference = false, hasValue = false;
    bool isInline = false; ///< the value is a text of the cell's own
};

/// Reads a cell element that begins at `from`. Null when it has another form or goes on behind `end`; that it is well
/// formed is known otherwise.
const char *readPlainCell(const char *from, const char *end, PlainCell *cell);
/// The next place from `from` on where a cell element may begin; `end` when there is none.
const char *findCellStart(const char *from, const char *end);

} // namespace spreadsheet
