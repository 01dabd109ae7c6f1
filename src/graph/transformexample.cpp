#include "graph/transformexample.h"

#include "data/dataset.h"
#include "data/datasource.h"
#include "graph/node.h"
#include "graph/transformnode.h"
#include "transforms/frame/transform.h"

#include <QSet>
#include <QStringList>
#include <memory>

namespace {

constexpr int rowsTried = 100;
constexpr qint64 mostCharacters = 100000; ///< of the rows that are tried
constexpr int longestShown = 40;

/// The first rows of an item's table, in its place.
class Sample : public DataSource
{
public:
    explicit Sample(const Node &node)
        : m_node(node)
    {
        const Dataset &whole = node.datasetConst();
        qint64 characters = 0;
        QVector<int> rows;
        for (int row = 0; row < qMin(rowsTried, whole.rowCount()) && characters < mostCharacters; ++row) {
            rows.append(row);
            for (int column = 0; column < whole.columnCount(); ++column) {
                characters += whole.cell(RowIndex(row), ColumnIndex(column)).size();
            }
        }
        m_rows = whole.withRows(rows);
    }
    int id() const override { return m_node.id(); }
    const Dataset &datasetConst() const override { return m_rows; }
    bool isReady() const override { return true; }
    QPointF sourcePosition() const override { return m_node.sourcePosition(); }
    QString columnsDescription(const QList<ColumnId> &ids, int maxNames) const override
    {
        return m_node.columnsDescription(ids, maxNames);
    }

private:
    const Node &m_node;
    Dataset m_rows;
};

QString quoted(QString text)
{
    text.replace(QLatin1Char('\n'), QChar(0x21b5)).replace(QLatin1Char('\t'), QChar(0x2192));
    if (text.size() > longestShown) {
        text = text.left(longestShown - 1) + QChar(0x2026);
    }
    return QStringLiteral("'%1'").arg(text);
}

/// The first cell that differs, with what else the transform adds to that row.
QString describe(const Dataset &before, const Dataset &after)
{
    for (RowIndex row(0); row.toInt() < before.rowCount(); row = RowIndex(row.toInt() + 1)) {
        QStringList parts;
        for (ColumnIndex column(0); column.toInt() < after.columnCount(); column = ColumnIndex(column.toInt() + 1)) {
            const ColumnIndex source = before.columnIndexOfId(after.columnId(column));
            const QString value = after.value(row, column);
            if (!source.isValid()) {
                parts.append(QStringLiteral("'%1' is %2").arg(after.columnName(column), quoted(value)));
            } else if (before.value(row, source) != value) {
                parts.append(QStringLiteral("'%1': %2 becomes %3")
                                 .arg(after.columnName(column), quoted(before.value(row, source)), quoted(value)));
            }
        }
        if (!parts.isEmpty()) {
            constexpr int mostParts = 3;
            const bool hasMore = parts.size() > mostParts;
            return QStringLiteral("Row %1, %2")
                       .arg(row.toInt() + 1)
                       .arg(parts.mid(0, mostParts).join(QStringLiteral(", ")))
                   + (hasMore ? QStringLiteral(", ...") : QString());
        }
    }
    return QStringLiteral("No change in the first %1")
        .arg(before.rowCount() == 1 ? QStringLiteral("row") : QStringLiteral("%1 rows").arg(before.rowCount()));
}

} // namespace

bool TransformExample::canBeShown(const TransformNode &node)
{
    static const QSet<QString> rowByRow{"Calculate", "Case", "Chop", "Compare_Cols", "Concat", "Date_Format", "Decode",
        "Extract", "Hash", "If", "Insert", "List", "New_Col", "Num_Base", "Num_Format", "Pad", "Replace_Multi", "Split",
        "Split_Name", "Substitute", "Units", "Whitespace"};
    return rowByRow.contains(node.typeName());
}

QString TransformExample::lineFor(const TransformNode &node)
{
    const QList<Node *> inputs = node.upstreamNodes(true);
    if (!canBeShown(node) || inputs.size() != 1 || inputs.first()->datasetConst().rowCount() == 0) {
        return {};
    }
    Sample sample(*inputs.first());
    const std::unique_ptr<Transform> transform(node.transform()->clone());
    transform->setInputs({&sample});
    const Dataset before = sample.datasetConst();
    const Dataset after = transform->run({&sample}, nullptr);
    const bool corresponds = after.rowCount() == before.rowCount() && after.columnCount() >= before.columnCount();
    return corresponds ? describe(before, after) : QString();
}
