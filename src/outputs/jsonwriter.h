#pragma once

#include "outputs/jsontypes.h"
#include "text/cappedlist.h"

class TextSink;
struct TextLayout;

/// Writes a list of one object for each row, nested as OutputTree has it.
namespace JsonWriter {

/// Returns the values that weren't of their column's type, and so were written as null.
CappedList write(
    TextSink &sink, const Dataset &dataset, const JsonColumnTypes &types, bool removeEmpty, const TextLayout &layout);

} // namespace JsonWriter
