#include "outputs/plaintextwriter.h"

#include "outputs/cellrows.h"
#include "outputs/textlayout.h"
#include "outputs/textsink.h"

void PlainTextWriter::write(TextSink &sink, const Dataset &dataset, const TextLayout &layout)
{
    if (layout.writeHeader) {
        sink.append(dataset.columnNames().join(QString()));
        sink.append(layout.lineEnding);
    }
    const CellRows cells(dataset);
    for (int row = 0; row < cells.rowCount(); ++row) {
        for (int column = 0; column < cells.columnCount(); ++column) {
            sink.append(cells.at(row, column));
        }
        sink.append(layout.lineEnding);
        layout.reportRow(row, cells.rowCount());
    }
}
