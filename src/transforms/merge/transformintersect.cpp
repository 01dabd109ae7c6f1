#include "transforms/frame/messages.h"
#include "transforms/keys/keyreports.h"
#include "transforms/merge/keyedrows.h"
#include "transforms/options/option.h"

/// Keeps the rows of the top table whose keys are in the bottom table.
class TransformIntersect final : public KeyedRowsTransform
{
public:
    TransformIntersect()
        : KeyedRowsTransform("Intersect",
            "Keep only rows from the top dataset whose key values are also in the bottom dataset.",
            "both keys intersection intersects")
    {
    }

protected:
    OptionTable options() const override
    {
        return keyOptions(QStringLiteral("Select a common (key) column in the top input dataset."),
            QStringLiteral("Select a common (key) column in the bottom input dataset."));
    }

    Dataset chooseRows(const OptionValues &, const Keys &keys) override
    {
        const int topCount = keys.topKeys.size();
        QVector<int> kept;
        QVector<char> topMatched(topCount, 0);
        QVector<char> bottomMatched(keys.bottom.rowCount(), 0);
        int sharedKeys = 0;
        for (int row = 0; row < topCount; ++row) {
            reportRow(row, topCount);
            const int first = keys.bottomKeys.firstRow(keys.topKeys.at(row));
            if (first < 0) {
                continue;
            }
            kept.append(row);
            topMatched[row] = 1;
            sharedKeys += !bottomMatched.at(first);
            for (int match = first; match >= 0 && !bottomMatched.at(match); match = keys.bottomKeys.nextRow(match)) {
                bottomMatched[match] = 1;
            }
        }
        addInfo(QStringLiteral("%1 rows have keys in both datasets").arg(Messages::count(kept.size())));
        addInfo(QStringLiteral("%1 unique keys appear in both datasets").arg(Messages::count(sharedKeys)));
        report(keys, topMatched, bottomMatched, kept.size());
        return keys.top.withRows(kept);
    }

private:
    void report(const Keys &keys, const QVector<char> &topMatched, const QVector<char> &bottomMatched, int kept)
    {
        const int topOnly = reportKeyMisses(infoList(), keys.top, keys.topColumn, topMatched, topLabel());
        const int bottomOnly = reportKeyMisses(
            infoList(), keys.bottom, keys.bottomColumn, bottomMatched, bottomLabel());
        reportDuplicateKeys(infoList(), keys.top, keys.topColumn, keys.caseSensitive, topLabel());
        reportDuplicateKeys(infoList(), keys.bottom, keys.bottomColumn, keys.caseSensitive, bottomLabel());
        reportKeyWhitespace(infoList(), keys.top, keys.topColumn, keys.caseSensitive, topLabel());
        reportKeyWhitespace(infoList(), keys.bottom, keys.bottomColumn, keys.caseSensitive, bottomLabel());
        if (kept == 0) {
            setResultText(QStringLiteral("0 intersecting rows"));
            return;
        }
        QStringList parts{QStringLiteral("%1 %2 with keys in both").arg(Messages::count(kept), Messages::rows(kept))};
        if (topOnly > 0) {
            parts.append(QStringLiteral("%1 top only").arg(Messages::count(topOnly)));
        }
        if (bottomOnly > 0) {
            parts.append(QStringLiteral("%1 bottom only").arg(Messages::count(bottomOnly)));
        }
        setResultText(parts.join(QStringLiteral(", ")));
    }
};

TRANSFORM_FACTORY(TransformIntersect)
