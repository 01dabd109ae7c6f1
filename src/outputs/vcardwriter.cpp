#include "outputs/vcardwriter.h"

#include "outputs/cellrows.h"
#include "outputs/storedtext.h"
#include "outputs/textlayout.h"
#include "outputs/textsink.h"

namespace {

void writeValue(TextSink &sink, StoredText text)
{
    const char *from = text.bytes;
    const char *const end = text.bytes + text.size;
    for (const char *at = from; at < end; ++at) {
        if (*at == '\n' || *at == ':') {
            sink.append(from, static_cast<int>(at - from));
            sink.append(*at == ':' ? "\\:" : " ", *at == ':' ? 2 : 1);
            from = at + 1;
        }
    }
    sink.append(from, static_cast<int>(end - from));
}

} // namespace

void VCardWriter::write(TextSink &sink, const Dataset &dataset, const TextLayout &layout)
{
    const QByteArray start = "BEGIN:VCARD" + layout.lineEnding + "VERSION:3.0" + layout.lineEnding;
    const QByteArray end = "END:VCARD" + layout.lineEnding;
    const std::vector<QByteArray> names = toStored(valueNames(dataset));
    const CellRows cells(dataset);
    for (int row = 0; row < cells.rowCount(); ++row) {
        sink.append(start);
        for (int column = 0; column < cells.columnCount(); ++column) {
            sink.append(names[static_cast<size_t>(column)]);
            sink.append(':');
            writeValue(sink, StoredText(cells.at(row, column)).trimmed());
            sink.append(layout.lineEnding);
        }
        sink.append(end);
        layout.reportRow(row, cells.rowCount());
    }
}
