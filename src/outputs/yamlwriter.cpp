#include "outputs/yamlwriter.h"

#include "outputs/cellrows.h"
#include "outputs/storedtext.h"
#include "outputs/textlayout.h"
#include "outputs/textsink.h"

namespace {

void writeValue(TextSink &sink, StoredText text)
{
    const bool hasLineFeed = text.contains('\n');
    const bool hasQuote = text.contains('\'');
    const char quote = hasLineFeed ? '"' : '\'';
    if (!hasLineFeed && !hasQuote) {
        sink.append(text.bytes, text.size);
        return;
    }
    sink.append(quote);
    appendReplaced(sink, text, '\'', "''");
    sink.append(quote);
}

/// Indent, name and colon in front of a value.
std::vector<QByteArray> prefixes(const QStringList &names)
{
    std::vector<QByteArray> result;
    result.reserve(static_cast<size_t>(names.size()));
    for (const QString &name : names) {
        const bool quoted = name.contains(QLatin1Char(':'));
        const QByteArray stored = toStored(name);
        result.push_back("  " + (quoted ? '"' + stored + '"' : stored) + ": ");
    }
    return result;
}

} // namespace

void YamlWriter::write(TextSink &sink, const Dataset &dataset, const QString &comment, const TextLayout &layout)
{
    if (!comment.isEmpty()) {
        sink.append(QLatin1Char('#') + comment);
        sink.append(layout.lineEnding);
    }
    sink.append("---" + layout.lineEnding);
    const QByteArray start = '-' + layout.lineEnding;
    const std::vector<QByteArray> names = prefixes(valueNames(dataset));
    const CellRows cells(dataset);
    for (int row = 0; row < cells.rowCount(); ++row) {
        sink.append(start);
        for (int column = 0; column < cells.columnCount(); ++column) {
            sink.append(names[static_cast<size_t>(column)]);
            writeValue(sink, StoredText(cells.at(row, column)).trimmed());
            sink.append(layout.lineEnding);
        }
        layout.reportRow(row, cells.rowCount());
    }
}
