#pragma once

#include <QString>

class Dataset;
class TextSink;
struct TextLayout;

/// Writes the rows as a Markdown table with columns of equal width. Pipes within values stay as they are.
namespace MarkdownWriter {

/// The comment goes in front as an HTML comment; none when empty.
void write(TextSink &sink, const Dataset &dataset, const QString &comment, const TextLayout &layout);

} // namespace MarkdownWriter
