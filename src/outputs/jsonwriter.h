#pragma once

#include "outputs/jsontypes.h"

class TextSink;
struct TextLayout;

/// Writes a list of one object for each row, nested as OutputTree has it.
namespace JsonWriter {

/// The values that weren't of their column's type, and so were written as null.
struct Issues
{
    static constexpr int maxTexts = 5;

    qint64 count = 0;
    /// Of the first few.
    QStringList texts;
};

Issues write(
    TextSink &sink, const Dataset &dataset, const JsonColumnTypes &types, bool removeEmpty, const TextLayout &layout);

} // namespace JsonWriter
