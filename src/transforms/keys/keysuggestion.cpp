#include "transforms/keys/keysuggestion.h"

#include "data/dataset.h"
#include "data/datasource.h"
#include "data/values.h"
#include "transforms/options/parameter.h"

#include <QMap>
#include <QSet>
#include <algorithm>

static constexpr int mostRows = 10000;
static constexpr int mostPairs = 100;
static constexpr int sampledRows = 1000;
static constexpr int sampleSize = 200;
static constexpr int testedValues = Dataset::dateSample;
static constexpr int shortestName = 3;

bool isKeyLikeColumn(const Dataset &dataset, ColumnIndex column, const QStringList &dateFormats)
{
    for (int row = 0; row < qMin(testedValues, dataset.rowCount()); ++row) {
        const QString value = dataset.value(RowIndex(row), column);
        if (value.contains(QLatin1Char(' ')) || value.contains(QLatin1Char('.')) || value.contains(QLatin1Char(','))) {
            return false;
        }
    }
    return !dataset.isColumnDate(column, dateFormats, nullptr);
}

namespace {

struct Candidate
{
    ColumnIndex column;
    QString name; // in lower case
};

QVector<Candidate> candidates(const Dataset &dataset, const QStringList &dateFormats)
{
    QVector<Candidate> found;
    for (ColumnIndex column : dataset.allColumns()) {
        if (isKeyLikeColumn(dataset, column, dateFormats)) {
            found.append({column, dataset.columnName(column).toLower()});
        }
    }
    return found;
}

bool holdsOther(const QString &name, const QString &other)
{
    return name.size() >= shortestName && name.contains(other);
}

bool isLongAndWithin(const QString &name, const QString &other)
{
    return name.size() >= shortestName && other.contains(name);
}

/// The pairs chosen so far, each once, up to a limit.
class PairList
{
public:
    PairList(const QVector<Candidate> &top, const QVector<Candidate> &bottom, int limit)
        : m_top(top)
        , m_bottom(bottom)
        , m_limit(limit)
    {
    }

    /// Adds the pairs for which `fits(top name, bottom name)` holds.
    template<class Fits>
    void add(Fits fits)
    {
        for (const Candidate &a : m_top) {
            for (const Candidate &b : m_bottom) {
                if (m_pairs.size() < m_limit && fits(a.name, b.name) && !m_pairs.contains({a.column, b.column})) {
                    m_pairs.append({a.column, b.column});
                }
            }
        }
    }
    const ColumnPairs &pairs() const { return m_pairs; }

private:
    const QVector<Candidate> &m_top;
    const QVector<Candidate> &m_bottom;
    int m_limit;
    ColumnPairs m_pairs;
};

} // namespace

ColumnPairs keyColumnPairs(const Dataset &top, const Dataset &bottom, int limit, const QStringList &dateFormats)
{
    const QVector<Candidate> topColumns = candidates(top, dateFormats);
    const QVector<Candidate> bottomColumns = candidates(bottom, dateFormats);
    PairList list(topColumns, bottomColumns, limit);
    if (qint64(topColumns.size()) * bottomColumns.size() > limit) {
        if (top.hasHeader() && bottom.hasHeader()) {
            list.add([](const QString &a, const QString &b) { return a == b; });
            list.add([](const QString &a, const QString &b) { return holdsOther(a, b) || holdsOther(b, a); });
        }
        const QLatin1String id("id ");
        list.add([id](const QString &a, const QString &b) { return a.contains(id) && b.contains(id); });
    }
    list.add([](const QString &, const QString &) { return true; });
    return list.pairs();
}

namespace {

using Sample = QSet<QString>;

Sample sampleOf(const Dataset &dataset, ColumnIndex column)
{
    QStringList values;
    for (int row = 0; row < qMin(sampledRows, dataset.rowCount()); ++row) {
        values.append(dataset.value(RowIndex(row), column));
    }
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    return Sample(values.cbegin(), values.cbegin() + qMin(sampleSize, values.size()));
}

/// The samples of one table's columns, each made once.
class Samples
{
public:
    explicit Samples(const Dataset &dataset)
        : m_dataset(dataset)
    {
    }

    const Sample &of(ColumnIndex column)
    {
        auto it = m_samples.find(column.toInt());
        if (it == m_samples.end()) {
            it = m_samples.insert(column.toInt(), sampleOf(m_dataset, column));
        }
        return *it;
    }

private:
    const Dataset &m_dataset;
    QMap<int, Sample> m_samples;
};

int commonValues(const Sample &a, const Sample &b)
{
    return static_cast<int>(std::count_if(
        a.cbegin(), a.cend(), [&b](const QString &value) { return !value.isEmpty() && b.contains(value); }));
}

double namedScore(double score, const QString &a, const QString &b)
{
    if (a == b) {
        return (score + 2.0) * 1.5;
    }
    return isLongAndWithin(a, b) || isLongAndWithin(b, a) ? (score + 1.0) * 1.25 : score;
}

double threshold(const Dataset &top, const Dataset &bottom, bool strict)
{
    if (!strict) {
        return 5.0;
    }
    const double rows = qMax(top.rowCount(), bottom.rowCount());
    return qMax(10.0, 150.0 * (sampleSize / rows));
}

bool isSearchable(const Parameter *parameter)
{
    return parameter && parameter->kind() == Parameter::SingleColumn && parameter->node()
           && parameter->node()->datasetConst().rowCount() <= mostRows;
}

} // namespace

bool suggestKeyColumns(Parameter *first, Parameter *second, bool strict)
{
    if (!isSearchable(first) || !isSearchable(second)) {
        return false;
    }
    const Dataset &top = first->node()->datasetConst();
    const Dataset &bottom = second->node()->datasetConst();
    const bool named = top.hasHeader() && bottom.hasHeader();
    Samples topSamples(top);
    Samples bottomSamples(bottom);
    double best = 0.0;
    QPair<ColumnIndex, ColumnIndex> chosen;
    for (const auto &pair : keyColumnPairs(top, bottom, mostPairs, dateFormats())) {
        double score = commonValues(topSamples.of(pair.first), bottomSamples.of(pair.second));
        if (named) {
            score = namedScore(score, top.columnName(pair.first).toLower(), bottom.columnName(pair.second).toLower());
        }
        if (score > best) {
            best = score;
            chosen = pair;
        }
    }
    if (best <= threshold(top, bottom, strict)) {
        return false;
    }
    first->setValue(QVariant::fromValue(top.columnId(chosen.first)));
    second->setValue(QVariant::fromValue(bottom.columnId(chosen.second)));
    return true;
}

QHash<ColumnIndex, QString> dateColumnFormats(const Dataset &dataset, const QVector<ColumnIndex> &columns)
{
    const QStringList formats = dateFormats();
    QHash<ColumnIndex, QString> found;
    for (ColumnIndex column : columns) {
        QString format;
        if (dataset.isColumnDate(column, formats, &format)) {
            found.insert(column, format);
        }
    }
    return found;
}
