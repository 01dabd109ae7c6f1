#include "data/values.h"
#include "transforms/analysis/differencetable.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/frame/twoinputs.h"
#include "transforms/keys/keyindex.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Lists what differs between two tables, row by row or key by key.
class TransformDiff final : public Transform
{
public:
    TransformDiff()
        : Transform("Difference", "Show the differences between 2 datasets.",
            "updates changes comparisons compares differences deltas")
    {
    }

    bool updateInputOrder(const QList<DataSource *> &) override
    {
        return TwoInputs::swapWhenCrossed(
            parameter(QStringLiteral("Top_Key_Column")), parameter(QStringLiteral("Bottom_Key_Column")));
    }

protected:
    OptionTable options() const override;
    Dataset computeIncomplete(const Inputs &inputs) override;
    Dataset compute(const OptionValues &values, const Inputs &inputs) override;

private:
    using Difference = DifferenceTable::Difference;
    struct Pair
    {
        const Dataset &top;
        const Dataset &bottom;
    };

    static QString present(const QString &text);
    static void compareColumns(const Pair &pair, DifferenceTable &table);
    void compareByRow(const Pair &pair, DifferenceTable &table);
    void compareByKey(const OptionValues &values, const Pair &pair, DifferenceTable &table);
    static void compareRows(const Pair &pair, int topRow, int bottomRow, const QString &key, DifferenceTable &table);
    static void addSurplus(const Dataset &dataset, int row, bool isTop, const QString &key, DifferenceTable &table);
    static void compareKeyRows(
        const Pair &pair, const KeyIndex &topKeys, const KeyIndex &bottomKeys, const Cell &key, DifferenceTable &table);
    static QVector<Cell> distinctKeys(const KeyIndex &topKeys, const KeyIndex &bottomKeys);
    static void sortKeys(QVector<Cell> &keys, const QString &dateFormat);
};

OptionTable TransformDiff::options() const
{
    const QString by = QStringLiteral("By");
    const QStringList byKey{QStringLiteral("Key columns")};
    return {
        Option::selection(by, QStringLiteral("Compare rows by"), {QStringLiteral("Row numbers"), byKey.first()})
            .tip(QStringLiteral("Choose how to compare rows.")),
        Option::column(QStringLiteral("Top_Key_Column"), QStringLiteral("Top key column"))
            .ofInput(0)
            .activeWhen(by, byKey)
            .tip(QStringLiteral("Select the key column for the top dataset.")),
        Option::column(QStringLiteral("Bottom_Key_Column"), QStringLiteral("Bottom key column"))
            .ofInput(1)
            .activeWhen(by, byKey)
            .tip(QStringLiteral("Select the key column for the bottom dataset.")),
        Option::flag(QStringLiteral("Sort_by_Key"), QStringLiteral("sort by key"))
            .activeWhen(by, byKey)
            .tip(QStringLiteral(
                "Check to sort rows in ascending order of key column.\nOtherwise sort by first occurrence of key in "
                "top dataset and then first occurrence of key in bottom dataset.")),
        Option::flag(QStringLiteral("Case_Sensitive"), QStringLiteral("case sensitive"), true)
            .activeWhen(by, byKey)
            .tip(QStringLiteral("Check for case sensitive matching of keys.")),
        Option::integer(QStringLiteral("Max_Diffs"), QStringLiteral("Max differences"), 9999999)
            .limits(1, 999999999)
            .tip(QStringLiteral("The maximum number of differences to report.")),
    };
}

Dataset TransformDiff::computeIncomplete(const Inputs &inputs)
{
    if (inputs.size() == 1) {
        setResultText(TwoInputs::connectSecond());
    }
    return Dataset();
}

Dataset TransformDiff::compute(const OptionValues &values, const Inputs &inputs)
{
    const Pair pair{*inputs.at(0), *inputs.at(1)};
    const bool byKey = values.choice(QStringLiteral("By")) == 1;
    DifferenceTable table(byKey, values.integer(QStringLiteral("Max_Diffs")));
    compareColumns(pair, table);
    if (byKey) {
        compareByKey(values, pair, table);
    } else {
        compareByRow(pair, table);
    }
    const bool hasKeys = !byKey
                         || (values.column(QStringLiteral("Top_Key_Column")).isValid()
                             && values.column(QStringLiteral("Bottom_Key_Column")).isValid());
    setResultText(!hasKeys             ? QStringLiteral("Rows not compared")
                  : table.count() == 0 ? QStringLiteral("No differences")
                                       : QStringLiteral("%1 differences").arg(Messages::count(table.count())));
    return table.dataset();
}

/// A text that is there, even where it is empty; a null text stands for one that isn't.
QString TransformDiff::present(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

void TransformDiff::compareColumns(const Pair &pair, DifferenceTable &table)
{
    const QStringList top = pair.top.columnNames();
    const QStringList bottom = pair.bottom.columnNames();
    for (int i = top.size(); i < bottom.size(); ++i) {
        Difference difference;
        difference.change = QStringLiteral("Column in bottom only");
        difference.column = bottom.at(i);
        table.add(difference);
    }
    for (int i = bottom.size(); i < top.size(); ++i) {
        Difference difference;
        difference.change = QStringLiteral("Column in top only");
        difference.column = top.at(i);
        table.add(difference);
    }
    for (int i = 0; i < qMin(top.size(), bottom.size()); ++i) {
        if (top.at(i) != bottom.at(i)) {
            Difference difference;
            difference.change = QStringLiteral("Column renamed");
            difference.column = top.at(i);
            difference.topValue = top.at(i);
            difference.bottomValue = bottom.at(i);
            table.add(difference);
        }
    }
}

void TransformDiff::compareRows(const Pair &pair, int topRow, int bottomRow, const QString &key, DifferenceTable &table)
{
    const int columns = qMin(pair.top.columnCount(), pair.bottom.columnCount());
    for (int i = 0; i < columns && !table.isFull(); ++i) {
        const ColumnIndex column(i);
        const Cell &top = pair.top.cell(RowIndex(topRow), column);
        const Cell &bottom = pair.bottom.cell(RowIndex(bottomRow), column);
        if (!top.sameText(bottom)) {
            table.add({QStringLiteral("Value change"), pair.top.columnName(column), present(key), topRow, bottomRow,
                present(top.text()), present(bottom.text())});
        }
    }
}

void TransformDiff::addSurplus(const Dataset &dataset, int row, bool isTop, const QString &key, DifferenceTable &table)
{
    const QString cells = ellipsized(dataset.row(RowIndex(row)).mid(0, 5).join(QStringLiteral(", ")), 100);
    Difference difference;
    difference.change = isTop ? QStringLiteral("Row in top only") : QStringLiteral("Row in bottom only");
    difference.key = present(key);
    (isTop ? difference.topRow : difference.bottomRow) = row;
    (isTop ? difference.topValue : difference.bottomValue) = present(cells);
    table.add(difference);
}

void TransformDiff::compareByRow(const Pair &pair, DifferenceTable &table)
{
    const int topRows = pair.top.rowCount();
    const int bottomRows = pair.bottom.rowCount();
    const int rowCount = qMax(topRows, bottomRows);
    for (int row = 0; row < rowCount && !table.isFull(); ++row) {
        reportRow(row, rowCount);
        if (row < topRows && row < bottomRows) {
            compareRows(pair, row, row, QString(), table);
        } else {
            addSurplus(row < topRows ? pair.top : pair.bottom, row, row < topRows, QString(), table);
        }
    }
}

void TransformDiff::compareByKey(const OptionValues &values, const Pair &pair, DifferenceTable &table)
{
    const ColumnIndex topColumn = values.column(QStringLiteral("Top_Key_Column"));
    const ColumnIndex bottomColumn = values.column(QStringLiteral("Bottom_Key_Column"));
    if (!topColumn.isValid() || !bottomColumn.isValid()) {
        return; // the rows can't be compared then, which the outcome says
    }
    const bool caseSensitive = values.flag(QStringLiteral("Case_Sensitive"));
    const KeyIndex topKeys(keyColumn(pair.top.column(topColumn), caseSensitive));
    const KeyIndex bottomKeys(keyColumn(pair.bottom.column(bottomColumn), caseSensitive));
    QVector<Cell> keys = distinctKeys(topKeys, bottomKeys);
    if (values.flag(QStringLiteral("Sort_by_Key"))) {
        QString format;
        const bool dates = pair.top.isColumnDate(topColumn, dateFormats(), &format);
        sortKeys(keys, dates ? format : QString());
    }
    for (int i = 0; i < keys.size() && !table.isFull(); ++i) {
        reportRow(i, keys.size());
        compareKeyRows(pair, topKeys, bottomKeys, keys.at(i), table);
    }
}

void TransformDiff::compareKeyRows(
    const Pair &pair, const KeyIndex &topKeys, const KeyIndex &bottomKeys, const Cell &key, DifferenceTable &table)
{
    int top = topKeys.firstRow(key);
    int bottom = bottomKeys.firstRow(key);
    const QString text = key.text();
    while ((top >= 0 || bottom >= 0) && !table.isFull()) {
        if (top >= 0 && bottom >= 0) {
            compareRows(pair, top, bottom, text, table);
        } else {
            addSurplus(top >= 0 ? pair.top : pair.bottom, qMax(top, bottom), top >= 0, text, table);
        }
        top = top < 0 ? -1 : topKeys.nextRow(top);
        bottom = bottom < 0 ? -1 : bottomKeys.nextRow(bottom);
    }
}

QVector<Cell> TransformDiff::distinctKeys(const KeyIndex &topKeys, const KeyIndex &bottomKeys)
{
    QVector<Cell> keys;
    for (int row = 0; row < topKeys.keys().size(); ++row) {
        if (topKeys.firstRow(topKeys.keys().at(row)) == row) {
            keys.append(topKeys.keys().at(row));
        }
    }
    for (int row = 0; row < bottomKeys.keys().size(); ++row) {
        const Cell &key = bottomKeys.keys().at(row);
        if (bottomKeys.firstRow(key) == row && topKeys.firstRow(key) < 0) {
            keys.append(key);
        }
    }
    return keys;
}

void TransformDiff::sortKeys(QVector<Cell> &keys, const QString &dateFormat)
{
    QHash<QString, Cell> cells;
    QStringList texts;
    for (const Cell &key : qAsConst(keys)) {
        texts.append(key.text());
        cells.insert(texts.last(), key);
    }
    sortValues(texts, dateFormat);
    for (int i = 0; i < texts.size(); ++i) {
        keys[i] = cells.value(texts.at(i));
    }
}

TRANSFORM_FACTORY(TransformDiff)
