#include "panes/widgets/delimitedlines.h"

#include "data/csvencoder.h"
#include "data/dataset.h"
#include "files/delimiters.h"
#include "inputs/delimitedreader.h"
#include "inputs/textsource.h"

namespace {

QVector<QStringList> read(TextSource &source, int delimiter)
{
    DelimitedOptions options;
    options.delimiter = delimiter;
    options.quoting = InputQuoting::Quoted;
    Dataset dataset;
    DelimitedReader(options, &source).read(&dataset);
    QVector<QStringList> lines;
    for (int row = 0; row < dataset.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < dataset.columnCount(); ++column) {
            cells.append(dataset.value(RowIndex(row), ColumnIndex(column)));
        }
        lines.append(cells);
    }
    return lines;
}

QString write(const QVector<QStringList> &lines, char delimiter)
{
    QString text;
    for (const QStringList &cells : lines) {
        text += Dataset::csvLine(cells, QLatin1Char(delimiter), CsvEncoder::AsNeeded) + QLatin1Char('\n');
    }
    return text;
}

} // namespace

QVector<QStringList> DelimitedLines::fromClipboardText(const QString &text)
{
    TextSource source(text);
    return read(source, DelimiterKind::Tab);
}

QString DelimitedLines::toClipboardText(const QVector<QStringList> &lines)
{
    return write(lines, '\t');
}

QVector<QStringList> DelimitedLines::fromCsv(QIODevice &device)
{
    TextSource source(&device, TextSource::automatic());
    return read(source, DelimiterKind::Comma);
}

QString DelimitedLines::toCsv(const QVector<QStringList> &lines)
{
    return write(lines, ',');
}
