#pragma once

#include <QString>

class Dataset;
class TextSink;
struct TextLayout;

/// Writes one YAML list with a mapping of names to values for each row.
namespace YamlWriter {

/// The comment is the first line; none when empty.
void write(TextSink &sink, const Dataset &dataset, const QString &comment, const TextLayout &layout);

} // namespace YamlWriter
