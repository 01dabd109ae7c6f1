#pragma once

#include <QString>

class Dataset;
class TextSink;
struct TextLayout;

/// Writes a whole HTML page with the rows as a table.
namespace HtmlWriter {

struct Format
{
    QString title;
    /// Goes in front of everything; none when empty.
    QString comment;
    /// Name that the page gives for its encoding.
    QString encoding;
    /// Whether names and values are text; otherwise they are written as markup.
    bool escape = true;
};

void write(TextSink &sink, const Dataset &dataset, const Format &format, const TextLayout &layout);

} // namespace HtmlWriter
