#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/keys/keyreports.h"
#include "transforms/merge/keyedrows.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

/// Removes the rows of the top table whose keys are in the bottom table.
class TransformSubtract final : public KeyedRowsTransform
{
    enum Match { AllMatches, FirstMatch, LastMatch };

public:
    TransformSubtract()
        : KeyedRowsTransform("Subtract",
            "Remove rows from the top dataset whose key values are also in the bottom dataset.",
            "differences anti setdiff removes subtracts")
    {
    }

protected:
    OptionTable options() const override
    {
        OptionTable table = keyOptions(QStringLiteral("Select a common (key) column in top input dataset."),
            QStringLiteral("Select a common (key) column in the bottom input data."));
        const QStringList matches{
            QStringLiteral("All matches"), QStringLiteral("First match"), QStringLiteral("Last match")};
        table.append(Option::selection(QStringLiteral("Match"), QStringLiteral("Remove"), matches)
                         .tip(QStringLiteral(
                             "%1: Remove every row from the top dataset where the key exists in the bottom "
                             "dataset.\n%2: Remove 1 row in the top dataset for each matching key in the bottom "
                             "dataset, proceeding from first to last row in the top dataset.\n%3: Remove 1 row in the "
                             "top dataset for each matching key in the bottom dataset, proceeding from last to first "
                             "row in the top dataset.\nClick the ? button for more details.")
                                  .arg(matches.at(0), matches.at(1), matches.at(2))));
        return table;
    }

    Dataset chooseRows(const OptionValues &values, const Keys &keys) override
    {
        const int rowCount = keys.top.rowCount();
        const int match = values.choice(QStringLiteral("Match"));
        QVector<char> removed(rowCount, 0);
        // How many bottom rows with a key are still to be paid with a top row, by the key's first row.
        QVector<int> owed = match == AllMatches ? QVector<int>() : rowsPerKey(keys.bottomKeys);
        for (int i = 0; i < rowCount; ++i) {
            reportRow(i, rowCount);
            const int row = match == LastMatch ? rowCount - 1 - i : i;
            const int first = keys.bottomKeys.firstRow(keys.topKeys.at(row));
            if (first >= 0 && (match == AllMatches || owed[first]-- > 0)) {
                removed[row] = 1;
            }
        }
        listRemoved(keys, removed);
        reportKeyWhitespace(infoList(), keys.top, keys.topColumn, keys.caseSensitive, topLabel());
        reportKeyWhitespace(infoList(), keys.bottom, keys.bottomColumn, keys.caseSensitive, bottomLabel());
        QVector<int> kept;
        for (int row = 0; row < rowCount; ++row) {
            if (!removed.at(row)) {
                kept.append(row);
            }
        }
        const int gone = rowCount - kept.size();
        setResultText(
            gone == 0 ? Messages::noChanges() : QStringLiteral("%1 row(s) removed").arg(Messages::count(gone)));
        return gone == 0 ? keys.top : keys.top.withRows(kept);
    }

private:
    static QVector<int> rowsPerKey(const KeyIndex &index)
    {
        QVector<int> counts(index.keys().size(), 0);
        for (int row = 0; row < counts.size(); ++row) {
            ++counts[index.firstRow(index.keys().at(row))];
        }
        return counts;
    }

    void listRemoved(const Keys &keys, const QVector<char> &removed)
    {
        CappedList examples;
        for (int row = 0; row < removed.size(); ++row) {
            if (!removed.at(row)) {
                continue;
            }
            examples.add([&] {
                return QStringLiteral("Subtracted row %1 with key '%2'")
                    .arg(QString::number(row + 1), keys.top.value(RowIndex(row), keys.topColumn));
            });
        }
        for (const QString &line : examples.texts()) {
            addInfo(line);
        }
        if (examples.others() > 0) {
            addInfo(QStringLiteral("+ %1 %2").arg(
                Messages::count(examples.others()), Messages::word(examples.others(), "other", "others")));
        }
    }
};

TRANSFORM_FACTORY(TransformSubtract)
