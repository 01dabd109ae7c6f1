#pragma once

#include <QString>

class Dataset;
class TextSink;
struct TextLayout;

/// Writes an element for each row, nested as OutputTree has it. A value whose name begins with an underscore becomes an
/// attribute, all others elements.
namespace XmlWriter {

struct Format
{
    QString encoding; ///< as the declaration names it
    QString comment;  ///< empty for none
    /// Points in the names of root and rows nest elements in one another; empty parts count for nothing.
    QString rootName = QStringLiteral("root");
    QString rowName = QStringLiteral("record");
    // Lines in front of the outermost start tag and behind it, as they stand
    QString aboveRoot;
    QString belowRoot;
    bool removeEmpty = true;
};

void write(TextSink &sink, const Dataset &dataset, const Format &format, const TextLayout &layout);

} // namespace XmlWriter
