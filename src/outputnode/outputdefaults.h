#pragma once

#include <QString>

namespace OptionWalk {
struct DefaultsPlace;
}
class OutputNode;

/// What users choose for outputs is remembered by file type and extension, and becomes the default of the next new
/// output of that kind.
namespace OutputDefaults {

/// Under which the item's defaults are kept.
OptionWalk::DefaultsPlace place(const OutputNode &node);
/// Gives a new item of a path what is remembered for its type and extension.
void apply(OutputNode &node);
/// Remembers the item's present value of one option: "delimiter", "custom_delimiter", "quoting", "line_endings",
/// "encoding", "bom", "remove_empty", "xml_above_root", "xml_root_name", "xml_below_root", "xml_row_name",
/// "escape_html", "write_header" or "file_comment". Other keys are ignored.
void remember(const OutputNode &node, const QString &key);

} // namespace OutputDefaults
