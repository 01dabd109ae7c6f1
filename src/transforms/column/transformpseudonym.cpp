#include "data/columnbuilder.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/randomnumbers.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/keyindex.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QDateTime>
#include <algorithm>
#include <cmath>
#include <numeric>

/// Adds a column in which each different value of a column has a number of its own, drawn by a seed.
class TransformPseudonym final : public Transform
{
public:
    TransformPseudonym()
        : Transform("Pseudonym", "Add a new column with pseudonymised values for the selected column.",
            "psuedonym labelling encoding hashing masking privacy private anonymization anonymisation anonymize "
            "anonymise anonymous pseudonymization pseudonymisation pseudonymize pseudonymise")
    {
    }

private:
    static constexpr int mostSeed = 999999;

    OptionTable options() const override
    {
        return AddedColumn::withNameOptions(
            {
                Option::column("Column", "Column").tip("The column in the input dataset to pseudonymize."),
                Option::text("Prefix", "Prefix", "ID-").notRequired().tip("Prefix for the pseudonym. Can be empty."),
                Option::integer("Start_At", "Start at", 1)
                    .limits(0, 999999999)
                    .tip("Start pseudonym numbering at this value."),
                Option::integer("Seed", "Random seed", static_cast<int>(QDateTime::currentSecsSinceEpoch() % mostSeed))
                    .limits(0, mostSeed)
                    .tip(
                        QStringLiteral("The seed for the pseudo-random number generator.\nSet between %1 and %2.\nUsed "
                                       "for randomizing the order pseudonyms are assigned.")
                            .arg(QString::number(0), QString::number(mostSeed))),
            },
            displayName());
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const int rowCount = result.rowCount();
        const ColumnIndex source = values.column("Column");
        QString name = displayName();
        int done = 0;
        if (source.isValid()) {
            done = rowCount;
            name = QStringLiteral("%1-%2").arg(displayName(), result.columnName(source));
            result.appendColumn(pseudonyms(values, result.column(source)));
        } else {
            result.appendEmptyColumn();
        }
        name = AddedColumn::name(values, name);
        if (!name.isEmpty()) {
            result.setHeaderValue(result.lastColumn(), name);
        }
        setResultText(QStringLiteral("%1 %2 pseudonymized").arg(Messages::count(done), Messages::rows(done)));
        return result;
    }

    CellColumn pseudonyms(const OptionValues &values, const CellColumn &source)
    {
        const KeyIndex index(source);
        const int rowCount = source.size();
        QVector<int> rows = firstRowsByText(index);
        const int distinct = rows.size();
        const QVector<int> counters = drawOrder(values.integer("Seed"), rows, rowCount);

        const int width = rowCount > 0 ? static_cast<int>(std::ceil(std::log10(rowCount))) : 0;
        const qint64 start = values.integer("Start_At");
        const QString prefix = values.text("Prefix");
        ColumnBuilder column(rowCount);
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount, {0.6, 1.0});
            const int counter = counters.at(index.firstRow(source.at(row)));
            column.append(prefix + QString::number(start + counter).rightJustified(width, QLatin1Char('0')));
        }
        addInfo(QStringLiteral("%1 %2 pseudonymized with %3 %4 ")
                    .arg(Messages::count(rowCount), Messages::rows(rowCount), Messages::count(distinct),
                        Messages::word(distinct, "pseudonym", "pseudonyms")));
        return column.take();
    }

    /// The first row of each different text, in the order of the texts.
    static QVector<int> firstRowsByText(const KeyIndex &index)
    {
        QVector<QPair<QString, int>> texts;
        for (int row = 0; row < index.keys().size(); ++row) {
            if (index.firstRow(index.keys().at(row)) == row) {
                texts.append({index.keys().at(row).text(), row});
            }
        }
        std::sort(texts.begin(), texts.end());
        QVector<int> rows;
        rows.reserve(texts.size());
        for (const auto &text : qAsConst(texts)) {
            rows.append(text.second);
        }
        return rows;
    }

    /// For each of `rows` its place in the drawing; entries of other rows mean nothing.
    QVector<int> drawOrder(int seed, QVector<int> &rows, int rowCount)
    {
        RandomNumbers random(seed);
        QVector<int> counters(rowCount, 0);
        RankedRemoval remaining(rows.size());
        for (int counter = 0; counter < rows.size(); ++counter) {
            const int left = rows.size() - counter;
            const int pick = left == 1 ? 0 : static_cast<int>(random.below(left - 1));
            counters[rows.at(remaining.take(pick))] = counter;
            reportRow(counter, rows.size(), {0.4, 0.6});
        }
        return counters;
    }

    /// A list from which the entry at a position is taken in logarithmic time (a Fenwick tree of what is left).
    class RankedRemoval
    {
    public:
        explicit RankedRemoval(int size)
            : m_tree(size + 1)
        {
            for (int i = 1; i <= size; ++i) {
                m_tree[i] = i & -i;
            }
        }
        /// Removes the entry at `position` of those left; returns where it stood at first.
        int take(int position)
        {
            int at = 0;
            int step = 1;
            while (step * 2 < m_tree.size()) {
                step *= 2;
            }
            for (; step > 0; step /= 2) {
                if (at + step < m_tree.size() && m_tree.at(at + step) <= position) {
                    at += step;
                    position -= m_tree.at(at);
                }
            }
            for (int i = at + 1; i < m_tree.size(); i += i & -i) {
                --m_tree[i];
            }
            return at;
        }

    private:
        QVector<int> m_tree;
    };
};

TRANSFORM_FACTORY(TransformPseudonym)
