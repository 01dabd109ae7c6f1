#include "support/grid.h"

namespace {

const QChar separator = QLatin1Char('|');

void appendLines(Dataset &dataset, const QStringList &lines)
{
    for (const QString &line : lines) {
        dataset.appendRow(line.split(separator));
    }
}

} // namespace

Dataset grid(const QStringList &lines)
{
    Dataset dataset;
    if (lines.isEmpty()) {
        return dataset;
    }
    const QStringList names = lines.constFirst().split(separator);
    dataset.setColumnCount(names.size());
    dataset.setHeader(names);
    appendLines(dataset, lines.mid(1));
    return dataset;
}

Dataset plainGrid(const QStringList &lines)
{
    Dataset dataset;
    if (!lines.isEmpty()) {
        dataset.setColumnCount(lines.constFirst().count(separator) + 1);
        appendLines(dataset, lines);
    }
    return dataset;
}

QStringList rows(const Dataset &dataset)
{
    QStringList lines;
    for (int row = 0; row < dataset.rowCount(); ++row) {
        lines.append(dataset.row(RowIndex(row)).join(separator));
    }
    return lines;
}

Dataset column(const QStringList &cells)
{
    Dataset dataset;
    dataset.setColumnCount(1);
    dataset.setHeader({QStringLiteral("Value")});
    for (const QString &cell : cells) {
        dataset.appendRow({cell});
    }
    return dataset;
}

Dataset column(const QString &cell)
{
    return column(QStringList{cell});
}

Dataset column(const char *cell)
{
    return column(QString::fromUtf8(cell));
}
