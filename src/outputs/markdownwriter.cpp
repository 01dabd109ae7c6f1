#include "outputs/markdownwriter.h"

#include "outputs/cellrows.h"
#include "outputs/storedtext.h"
#include "outputs/textlayout.h"
#include "outputs/textsink.h"

namespace {

constexpr int leastWidth = 3;

int widestUnits(const CellRows &cells, int column)
{
    int widest = leastWidth;
    for (int row = 0; row < cells.rowCount(); ++row) {
        const Cell &cell = cells.at(row, column);
        // A text never has more units than bytes.
        if (cell.size() > widest) {
            widest = qMax(widest, TextCoding::unitCount(cell.bytes(), cell.size()));
        }
    }
    return widest;
}

std::vector<int> columnWidths(const CellRows &cells, const QStringList &names, bool withNames)
{
    std::vector<int> widths;
    widths.reserve(static_cast<size_t>(cells.columnCount()));
    for (int column = 0; column < cells.columnCount(); ++column) {
        const int width = widestUnits(cells, column);
        widths.push_back(withNames ? qMax(width, names.at(column).size()) : width);
    }
    return widths;
}

void writeValue(TextSink &sink, StoredText text, int width)
{
    sink.append("| ", 2);
    sink.append(text.bytes, text.size);
    sink.append(width - TextCoding::unitCount(text.bytes, text.size) + 1, ' ');
}

void writeNames(TextSink &sink, const QStringList &names, const std::vector<int> &widths, const QByteArray &lineEnding)
{
    for (int column = 0; column < names.size(); ++column) {
        const QByteArray name = toStored(names.at(column));
        writeValue(sink, StoredText(name), widths[static_cast<size_t>(column)]);
    }
    sink.append('|');
    sink.append(lineEnding);
    for (const int width : widths) {
        sink.append('|');
        sink.append(width + 2, '-');
    }
    sink.append('|');
    sink.append(lineEnding);
}

} // namespace

void MarkdownWriter::write(TextSink &sink, const Dataset &dataset, const QString &comment, const TextLayout &layout)
{
    if (!comment.isEmpty()) {
        sink.append(QStringLiteral("<!--") + comment.toHtmlEscaped() + QStringLiteral("-->"));
        sink.append(layout.lineEnding);
        sink.append(layout.lineEnding);
    }
    const CellRows cells(dataset);
    const QStringList names = valueNames(dataset);
    const std::vector<int> widths = columnWidths(cells, names, layout.writeHeader);
    if (layout.writeHeader) {
        writeNames(sink, names, widths, layout.lineEnding);
    }
    for (int row = 0; row < cells.rowCount(); ++row) {
        for (int column = 0; column < cells.columnCount(); ++column) {
            writeValue(sink, StoredText(cells.at(row, column)), widths[static_cast<size_t>(column)]);
        }
        sink.append('|');
        sink.append(layout.lineEnding);
        layout.reportRow(row, cells.rowCount());
    }
}
