#pragma once

#include "data/csvencoder.h"

#include <QString>

class Dataset;
class TextSink;
struct TextLayout;

/// Writes delimited text: one line a row, values as CsvEncoder writes them.
namespace DelimitedWriter {

struct Format
{
    QChar delimiter = QLatin1Char(',');
    CsvEncoder::Quoting quoting = CsvEncoder::AsNeeded;
};

/// Returns how many values, header names included, had characters replaced because quoting is Never.
int write(TextSink &sink, const Dataset &dataset, const Format &format, const TextLayout &layout);

/// What to tell the user of `count` changed values.
QString replacedWarning(int count, QChar delimiter);

} // namespace DelimitedWriter
