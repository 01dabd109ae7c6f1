#include "data/dataset.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/frame/transform.h"
#include "transforms/frame/twoinputs.h"
#include "transforms/keys/keyindex.h"
#include "transforms/keys/keyreports.h"
#include "transforms/keys/keysuggestion.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <array>

/// Puts two tables side by side, by equal keys or by row number.
class TransformJoin final : public Transform
{
public:
    TransformJoin()
        : Transform("Join",
            "Merge 2 input datasets side by side using common (key) columns or row numbers. The bottom dataset (by "
            "vertical position) is joined to the right of the top dataset.",
            "enrich outer inner common keys unique left joins 2 two side right ids horizontally denormalize "
            "denormalise")
    {
    }

    QString imageName() const override { return QStringLiteral("join.png"); }
    bool hasKeyColumns() const override { return true; }
    QString firstKeyParameterName() const override { return QStringLiteral("Column_1"); }
    QString secondKeyParameterName() const override { return QStringLiteral("Column_2"); }
    QString caseSensitiveParameterName() const override { return QStringLiteral("Case_Sensitive"); }

    bool updateInputOrder(const QList<DataSource *> &) override
    {
        return TwoInputs::swapWhenCrossed(parameter(QStringLiteral("Column_1")), parameter(QStringLiteral("Column_2")));
    }

protected:
    OptionTable options() const override
    {
        const QString by = QStringLiteral("By");
        const QStringList byKey{QStringLiteral("Key")};
        return {
            Option::selection(by, QStringLiteral("By"), {byKey.first(), QStringLiteral("Row number")})
                .tip(QStringLiteral("Choose how to join the 2 datsets.")),
            Option::column(QStringLiteral("Column_1"), QStringLiteral("Top key column"))
                .ofInput(0)
                .activeWhen(by, byKey)
                .tip(QStringLiteral("Select a common (key) column in top input dataset.")),
            Option::flag(QStringLiteral("Include_Non_Matching_1"), QStringLiteral("include top non-matching rows"))
                .tip(QStringLiteral("Check to include rows in the top input dataset with no matching value in the "
                                    "bottom input dataset ('left join').")),
            Option::column(QStringLiteral("Column_2"), QStringLiteral("Bottom key column"))
                .ofInput(1)
                .activeWhen(by, byKey)
                .tip(QStringLiteral("Select a common (key) column in the bottom input data.")),
            Option::flag(QStringLiteral("Include_Non_Matching_2"), QStringLiteral("include bottom non-matching rows"))
                .tip(QStringLiteral("Check to include rows in the bottom input dataset with no matching value in the "
                                    "top input dataset ('right join').")),
            Option::flag(QStringLiteral("Case_Sensitive"), QStringLiteral("case sensitive"), true)
                .activeWhen(by, byKey)
                .tip(QStringLiteral("Check for case sensitive matching of keys.")),
            Option::flag(QStringLiteral("Detailed_Report"), QStringLiteral("detailed report"))
                .activeWhen(by, byKey)
                .tip(QStringLiteral("Report on duplicate keys in each dataset, overlap of keys in both datasets and "
                                    "leading and trailing whitespace in keys. This slows down the join.")),
        };
    }

    void adjustNewParameters(const QList<DataSource *> &, bool isNew) override
    {
        if (isNew) {
            suggestKeyColumns(parameter(QStringLiteral("Column_1")), parameter(QStringLiteral("Column_2")), true);
        }
    }

    Dataset computeIncomplete(const Inputs &inputs) override
    {
        if (inputs.size() != 1) {
            return Dataset();
        }
        setResultText(TwoInputs::connectSecond());
        return *inputs.first();
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        return values.choice(QStringLiteral("By")) == 0 ? joinByKey(values, *inputs.at(0), *inputs.at(1))
                                                        : joinByRow(values, *inputs.at(0), *inputs.at(1));
    }

private:
    /// Which row of each input makes each row of the result; -1 for none.
    struct Pairs
    {
        QVector<int> top;
        QVector<int> bottom;
        QVector<char> topMatched;
        QVector<char> bottomMatched;
        int joined = 0;
        int sharedKeys = 0;
        bool tooMany = false;
    };
    static constexpr int keysAtOnce = 512;
    /// A key that many rows share makes pairs faster than rows go by; memory is looked at in between.
    static constexpr int pairsPerReport = 1 << 20;

    Dataset joinByKey(const OptionValues &values, const Dataset &top, const Dataset &bottom)
    {
        const ColumnIndex topKey = values.column(QStringLiteral("Column_1"));
        const ColumnIndex bottomKey = values.column(QStringLiteral("Column_2"));
        if (!topKey.isValid() || !bottomKey.isValid()) {
            setResultText(Messages::noChanges());
            return top;
        }
        const bool caseSensitive = values.flag(QStringLiteral("Case_Sensitive"));
        const CellColumn topKeys = keyColumn(top.column(topKey), caseSensitive);
        const KeyIndex index(keyColumn(bottom.column(bottomKey), caseSensitive));

        const int width = top.columnCount() + bottom.columnCount();
        Pairs pairs = pairRows(topKeys, index, width);
        if (pairs.tooMany) {
            return tooManyRows(pairs.top.size(), width);
        }
        if (values.flag(QStringLiteral("Include_Non_Matching_1"))) {
            appendUnmatched(pairs.topMatched, pairs.top, pairs.bottom);
        }
        const int firstBottomOnly = pairs.top.size();
        if (values.flag(QStringLiteral("Include_Non_Matching_2"))) {
            appendUnmatched(pairs.bottomMatched, pairs.bottom, pairs.top);
        }
        if (!TableSize::isPossible(pairs.top.size(), width)) {
            return tooManyRows(pairs.top.size(), width);
        }

        Dataset result = sideBySide(top, bottom, pairs, bottomKey);
        fillTopKeys(result, topKey, bottom.column(bottomKey), pairs, firstBottomOnly);
        result.removeColumn(ColumnIndex(top.columnCount() + bottomKey.toInt()));
        setResultText(joinedText(pairs.top.size()));
        addInfo(QStringLiteral("%1 rows have keys in both datasets").arg(Messages::count(pairs.joined)));
        if (values.flag(QStringLiteral("Detailed_Report"))) {
            reportInDetail(top, topKey, bottom, bottomKey, pairs, caseSensitive);
        }
        return result;
    }

    Dataset tooManyRows(qint64 rows, qint64 columns)
    {
        addWarning(TableSize::warning(rows, columns));
        setResultText(QStringLiteral("Too many rows"));
        return Dataset();
    }

    /// Stops, with `tooMany`, where the table of `width` columns would be too large.
    Pairs pairRows(const CellColumn &topKeys, const KeyIndex &index, int width)
    {
        Pairs pairs;
        const int topCount = topKeys.size();
        pairs.top.reserve(topCount);
        pairs.bottom.reserve(topCount);
        pairs.topMatched.fill(0, topCount);
        pairs.bottomMatched.fill(0, index.keys().size());
        std::array<int, keysAtOnce> firstRows;
        for (int row = 0; row < topCount; ++row) {
            reportRow(row, topCount);
            const int place = row % keysAtOnce;
            if (place == 0) {
                index.firstRows(
                    topKeys.cells.constData() + row, qMin<int>(keysAtOnce, topCount - row), firstRows.data());
            }
            const int first = firstRows[static_cast<size_t>(place)];
            pairs.topMatched[row] = first >= 0;
            // A key's rows are marked when it is met first: the first row stands for all.
            const bool seen = first < 0 || pairs.bottomMatched.at(first);
            pairs.sharedKeys += !seen;
            for (int match = first; match >= 0; match = index.nextRow(match)) {
                pairs.top.append(row);
                pairs.bottom.append(match);
                if (!seen) {
                    pairs.bottomMatched[match] = 1;
                }
                if (pairs.top.size() % pairsPerReport == 0) {
                    emit processed(static_cast<qreal>(row) / topCount);
                    // A pair takes as much as one more cell of its row.
                    pairs.tooMany = !TableSize::isPossible(pairs.top.size(), width + 1);
                    if (pairs.tooMany) {
                        return pairs;
                    }
                }
            }
        }
        pairs.joined = pairs.top.size();
        return pairs;
    }

    static void appendUnmatched(const QVector<char> &matched, QVector<int> &rows, QVector<int> &others)
    {
        for (int row = 0; row < matched.size(); ++row) {
            if (!matched.at(row)) {
                rows.append(row);
                others.append(-1);
            }
        }
    }

    /// `leftOut` is a column of the bottom that the caller takes away, so that its cells needn't be put together.
    static Dataset sideBySide(
        const Dataset &top, const Dataset &bottom, const Pairs &pairs, ColumnIndex leftOut = ColumnIndex())
    {
        Dataset result;
        for (int i = 0; i < top.columnCount(); ++i) {
            result.appendColumn(top.column(ColumnIndex(i)).gathered(pairs.top));
        }
        for (int i = 0; i < bottom.columnCount(); ++i) {
            const ColumnIndex column(i);
            result.appendColumn(column == leftOut ? CellColumn() : bottom.column(column).gathered(pairs.bottom));
        }
        TwoInputs::nameSideBySide(result, top, bottom);
        return result;
    }

    /// Rows of the bottom alone carry their key in the key column that is kept.
    static void fillTopKeys(
        Dataset &result, ColumnIndex topKey, const CellColumn &bottomKeys, const Pairs &pairs, int firstBottomOnly)
    {
        if (firstBottomOnly == pairs.top.size()) {
            return;
        }
        CellColumn keys = result.column(topKey);
        keys.keepAllOf(bottomKeys);
        Cell *cells = keys.cells.data();
        for (int row = firstBottomOnly; row < pairs.bottom.size(); ++row) {
            cells[row] = bottomKeys.at(pairs.bottom.at(row));
        }
        result.setColumn(topKey, keys);
    }

    Dataset joinByRow(const OptionValues &values, const Dataset &top, const Dataset &bottom)
    {
        const bool allTop = values.flag(QStringLiteral("Include_Non_Matching_1"));
        const bool allBottom = values.flag(QStringLiteral("Include_Non_Matching_2"));
        const int least = qMin(top.rowCount(), bottom.rowCount());
        const int most = qMax(top.rowCount(), bottom.rowCount());
        const int rowCount = allTop && allBottom ? most
                             : allTop            ? top.rowCount()
                             : allBottom         ? bottom.rowCount()
                                                 : least;
        const int width = top.columnCount() + bottom.columnCount();
        if (!TableSize::isPossible(rowCount, width)) {
            return tooManyRows(rowCount, width);
        }
        Pairs pairs;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            pairs.top.append(row < top.rowCount() ? row : -1);
            pairs.bottom.append(row < bottom.rowCount() ? row : -1);
        }
        setResultText(joinedText(rowCount));
        addRowsUsed(qMin(rowCount, top.rowCount()), top.rowCount(), QStringLiteral("top"));
        addRowsUsed(qMin(rowCount, bottom.rowCount()), bottom.rowCount(), QStringLiteral("bottom"));
        return sideBySide(top, bottom, pairs);
    }

    static QString joinedText(int rowCount)
    {
        return QStringLiteral("%1 %2 joined").arg(Messages::count(rowCount), Messages::rows(rowCount));
    }

    void addRowsUsed(int used, int available, const QString &which)
    {
        addInfo(QStringLiteral("%1 %2 used from %3 in %4 dataset")
                    .arg(Messages::count(used), Messages::rows(used), Messages::count(available), which));
    }

    void reportInDetail(const Dataset &top, ColumnIndex topKey, const Dataset &bottom, ColumnIndex bottomKey,
        const Pairs &pairs, bool caseSensitive)
    {
        const QString topName = parameter(QStringLiteral("Column_1"))->label();
        const QString bottomName = parameter(QStringLiteral("Column_2"))->label();
        const int topOnly = reportKeyMisses(infoList(), top, topKey, pairs.topMatched, topName);
        const int bottomOnly = reportKeyMisses(infoList(), bottom, bottomKey, pairs.bottomMatched, bottomName);
        addInfo(QStringLiteral("%1 unique keys appear in both datasets").arg(Messages::count(pairs.sharedKeys)));
        addInfo(QStringLiteral("%1 top only").arg(Messages::count(topOnly)));
        addInfo(QStringLiteral("%1 bottom only").arg(Messages::count(bottomOnly)));
        reportDuplicateKeys(warningList(), top, topKey, caseSensitive, topName);
        reportDuplicateKeys(warningList(), bottom, bottomKey, caseSensitive, bottomName);
        reportKeyWhitespace(infoList(), top, topKey, caseSensitive, topName);
        reportKeyWhitespace(infoList(), bottom, bottomKey, caseSensitive, bottomName);
    }
};

TRANSFORM_FACTORY(TransformJoin)
