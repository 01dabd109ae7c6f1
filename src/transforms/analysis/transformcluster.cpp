#include "data/columnbuilder.h"
#include "text/cappedlist.h"
#include "transforms/analysis/clustercandidates.h"
#include "transforms/analysis/clustersearch.h"
#include "transforms/analysis/clusterterms.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/rowkeys.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>
#include <numeric>

/// Puts rows with similar text into clusters, each with a term that stands for it.
class TransformCluster final : public Transform
{
    enum Clustering { Manual, Guided, Automatic }; // the choices of Clustering

    /// More different texts than these make a search no better, only slower.
    static constexpr size_t mostSearched = 5000;

public:
    TransformCluster()
        : Transform("Cluster", "Classify rows with similar text into clusters.",
            "fuzzy matching categorize classification classify clustering")
    {
    }

private:
    OptionTable options() const override
    {
        const QString clustering = QStringLiteral("Clustering");
        const QStringList modes{"Manual", "Guided", "Automatic"};
        const QStringList withTerms{modes.at(Manual), modes.at(Guided)};
        const QStringList searching{modes.at(Guided), modes.at(Automatic)};
        return {
            Option::column("Column", "Column").tip("The column with text to cluster."),
            Option::selection(clustering, "Clustering", modes)
                .tip("How to cluster. Automatic and Guided can be slow.\nClick the ? button for details."),
            Option::longText("Terms", "Terms")
                .activeWhen(clustering, withTerms)
                .tip("A list of terms to cluster by, one per line.\nClick the ? button for details."),
            Option::integer("Fuzziness", "Closeness", 50)
                .limits(0, 100)
                .suffix("%")
                .tip("How minimum closeness to be considered part of a cluster.\nSet to 0% to assign everything to the "
                     "nearest cluster.\nClick the ? button for details."),
            Option::integer("Max_Auto_Clusters", "Max clusters", 10)
                .limits(1, 1000)
                .activeWhen(clustering, searching)
                .tip("The maximum number of clusters to create."),
            Option::integer("Max_Auto_Time", "Max time", 60)
                .limits(10, 10000)
                .suffix(" seconds")
                .activeWhen(clustering, searching)
                .tip("The maximum time to calculate clustering, in seconds."),
            Option::flag("Case_Sensitive", "case sensitive").tip("Ignore case if unchecked."),
        };
    }

    /// The texts of the column: rows with the same text are clustered together.
    struct Texts
    {
        std::vector<int> ofRow;
        std::vector<int> firstRows;
        ClusterValues values;
    };

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        QElapsedTimer timer;
        timer.start();
        const Dataset &input = *inputs.first();
        const ColumnIndex column = values.column("Column");
        if (!column.isValid() || !input.hasRows()) {
            setResultText(resultText(0, input.rowCount()));
            return withColumns(input, ColumnBuilder::filled(QString(), input.rowCount()),
                ColumnBuilder::filled(QString(), input.rowCount()));
        }
        const int mode = values.choice("Clustering");
        const bool caseSensitive = values.flag("Case_Sensitive");
        const Texts texts = textsOf(input, column, caseSensitive);
        std::vector<ClusterTerm> terms;
        if (mode != Automatic) {
            terms = termsOf(values.text("Terms"), caseSensitive);
        }
        if (mode != Manual) {
            terms = searched(values, texts.values, std::move(terms), timer);
        }
        if (terms.empty()) {
            addWarning(QStringLiteral("No terms to cluster on"));
        }
        return clustered(input, column, texts, terms, values.integer("Fuzziness"), mode == Manual ? 0.0 : searchShare);
    }

    static QString resultText(qint64 clustered, int rows)
    {
        return QStringLiteral("%1 clustered from %2 row(s)").arg(Messages::count(clustered), Messages::count(rows));
    }

    static Dataset withColumns(const Dataset &input, const CellColumn &clusters, const CellColumn &closeness)
    {
        Dataset result = input;
        result.addNamedColumn(clusters, QStringLiteral("Cluster"));
        result.addNamedColumn(closeness, QStringLiteral("Closeness"));
        return result;
    }

    static Texts textsOf(const Dataset &input, ColumnIndex column, bool caseSensitive)
    {
        RowKeys keys(input, {column});
        Texts texts;
        for (int row = 0; row < input.rowCount(); ++row) {
            keys.add(row);
        }
        texts.ofRow = keys.numbers();
        texts.values.rowCounts.resize(static_cast<size_t>(keys.count()));
        for (const int text : texts.ofRow) {
            ++texts.values.rowCounts[static_cast<size_t>(text)];
        }
        for (int text = 0; text < keys.count(); ++text) {
            const int row = keys.firstRow(text);
            texts.firstRows.push_back(row);
            texts.values.texts.push_back(clusterNormalForm(input.value(RowIndex(row), column), caseSensitive));
        }
        return texts;
    }

    static std::vector<ClusterTerm> termsOf(const QString &lines, bool caseSensitive)
    {
        std::vector<ClusterTerm> terms;
        for (const QString &line : lines.split(QLatin1Char('\n'))) {
            const QString shown = line.trimmed();
            if (!shown.isEmpty()) {
                terms.push_back({shown, clusterNormalForm(shown, caseSensitive)});
            }
        }
        return terms;
    }

    // The search: the first stage takes half of the progress bar, the second nearly all the rest
    static constexpr qreal firstShare = 0.5;
    static constexpr qreal searchShare = 0.9;

    std::vector<ClusterTerm> searched(const OptionValues &values, const ClusterValues &all,
        std::vector<ClusterTerm> terms, const QElapsedTimer &timer)
    {
        constexpr qint64 second = 1000;
        constexpr int leastRounds = 10;
        const int fuzziness = values.integer("Fuzziness");
        const int mostTerms = values.integer("Max_Auto_Clusters");
        const qint64 deadline = values.integer("Max_Auto_Time") * second;
        terms.resize(std::min(terms.size(), static_cast<size_t>(mostTerms)));
        const ClusterValues sample = all.sample(mostSearched);
        const ClusterCandidates candidates(
            all, fuzziness, timer, deadline / 2, [this](qreal done) { emit processed(done * firstShare); });
        candidates.addTerms(terms, static_cast<size_t>(mostTerms), sample);
        int tried = 0;
        if (!terms.empty() && sample.size() > 0) {
            ClusterSearch search(sample, std::move(terms), fuzziness);
            search.run(qMax(2 * mostTerms, leastRounds), timer, deadline,
                [this](qreal done) { emit processed(firstShare + done * (searchShare - firstShare)); });
            terms = search.terms();
            tried = search.triedCount();
            if (search.isTimeUp()) {
                addWarning(QStringLiteral("Exited when max time reached"));
                addWarning(
                    QStringLiteral("Set '%1' longer for better results").arg(parameter("Max_Auto_Time")->label()));
            }
        } else {
            addWarning(QStringLiteral("Insufficient data for clustering"));
        }
        addInfo(QStringLiteral("Tried %1 different combinations of clustering terms").arg(Messages::count(tried)));
        return terms;
    }

    Dataset clustered(const Dataset &input, ColumnIndex column, const Texts &texts,
        const std::vector<ClusterTerm> &terms, int fuzziness, qreal done)
    {
        const size_t count = texts.values.size();
        std::vector<NearestTerm> nearest;
        nearest.reserve(count);
        std::vector<qint64> rowCounts(terms.size());
        CappedList left;
        qint64 leftRows = 0;
        for (size_t i = 0; i < count; ++i) {
            reportRow(static_cast<int>(i), static_cast<int>(count), {done, 1.0});
            nearest.push_back(nearestTerm(texts.values.texts[i], terms, fuzziness));
            if (nearest.back().term >= 0) {
                rowCounts[static_cast<size_t>(nearest.back().term)] += texts.values.rowCounts[i];
                continue;
            }
            leftRows += texts.values.rowCounts[i];
            left.add([&] { return QStringLiteral("'%1'").arg(input.value(RowIndex(texts.firstRows[i]), column)); });
        }
        report(terms, rowCounts, left, leftRows);
        setResultText(resultText(input.rowCount() - leftRows, input.rowCount()));
        return withColumns(input, clusterColumn(texts, terms, nearest), closenessColumn(texts, nearest));
    }

    static CellColumn clusterColumn(
        const Texts &texts, const std::vector<ClusterTerm> &terms, const std::vector<NearestTerm> &nearest)
    {
        const TextArenaPointer arena(new TextArena);
        std::vector<Cell> shown;
        for (const ClusterTerm &term : terms) {
            shown.push_back(arena->store(term.shown));
        }
        const Cell none = arena->store(QStringLiteral("<None>"));
        CellColumn column;
        column.keep(arena);
        column.cells.reserve(static_cast<int>(texts.ofRow.size()));
        for (const int text : texts.ofRow) {
            const int term = nearest[static_cast<size_t>(text)].term;
            column.cells.append(term < 0 ? none : shown[static_cast<size_t>(term)]);
        }
        return column;
    }

    static CellColumn closenessColumn(const Texts &texts, const std::vector<NearestTerm> &nearest)
    {
        ColumnBuilder column(static_cast<int>(texts.ofRow.size()));
        std::vector<Cell> cells;
        for (const NearestTerm &found : nearest) {
            const QByteArray digits = found.term < 0 ? QByteArray() : QByteArray::number(found.closeness);
            cells.push_back(Cell::inlined(digits.constData(), digits.size()));
        }
        for (const int text : texts.ofRow) {
            column.append(cells[static_cast<size_t>(text)]);
        }
        return column.take();
    }

    void report(const std::vector<ClusterTerm> &terms, const std::vector<qint64> &rowCounts, const CappedList &left,
        qint64 leftRows)
    {
        std::vector<size_t> order(terms.size());
        std::iota(order.begin(), order.end(), 0);
        const auto addLines = [&] {
            for (const size_t term : order) {
                addInfo(QStringLiteral("%1  - %2").arg(terms[term].shown, Messages::count(rowCounts[term])));
            }
        };
        std::stable_sort(order.begin(), order.end(), [&terms](size_t a, size_t b) {
            const int compared = terms[a].shown.compare(terms[b].shown, Qt::CaseInsensitive);
            return compared != 0 ? compared < 0 : terms[a].shown < terms[b].shown;
        });
        addInfo(QStringLiteral("%1 clustering term(s)").arg(Messages::count(static_cast<qint64>(terms.size()))));
        addInfo(QStringLiteral("Clustering term(s) alphabetically:"));
        addLines();
        std::stable_sort(
            order.begin(), order.end(), [&rowCounts](size_t a, size_t b) { return rowCounts[a] > rowCounts[b]; });
        addInfo(QStringLiteral("Clustering term(s) by count:"));
        addLines();
        if (left.count() > 0) {
            addInfo(QStringLiteral("Values not clustered:"));
            infoList() += left.lines("more", "more");
            addWarning(QStringLiteral("%1 row(s) not assigned a cluster").arg(Messages::count(leftRows)));
        }
    }
};

TRANSFORM_FACTORY(TransformCluster)
