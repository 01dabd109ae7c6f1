#pragma once

class Dataset;
class TextSink;
struct TextLayout;

/// Writes the values of a row one after the other with nothing between them: with one column, one value a line.
namespace PlainTextWriter {

void write(TextSink &sink, const Dataset &dataset, const TextLayout &layout);

} // namespace PlainTextWriter
