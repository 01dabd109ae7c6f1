#pragma once

class Dataset;
class TextSink;
struct TextLayout;

/// Writes a card for each row and a property for each column; the column's name is the property's.
namespace VCardWriter {

void write(TextSink &sink, const Dataset &dataset, const TextLayout &layout);

} // namespace VCardWriter
