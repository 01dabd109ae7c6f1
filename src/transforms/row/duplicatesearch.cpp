#include "transforms/row/duplicatesearch.h"

#include "data/rowkeyindex.h"
#include "data/similarkeys.h"
#include "transforms/row/dedupeprogress.h"

#include <algorithm>

DuplicateSearch::DuplicateSearch(const Dataset &dataset, const QVector<ColumnIndex> &columns, const KeyFolding &folding,
    const DedupeProgress &progress)
    : m_rowCount(dataset.rowCount())
{
    QVector<ColumnIndex> ordered = columns;
    std::sort(ordered.begin(), ordered.end());
    for (const ColumnIndex column : qAsConst(ordered)) {
        m_keys.append(folding.folded(dataset.column(column), [&progress] { return progress.isStopped(); }));
    }
    m_places.reserve(static_cast<size_t>(m_rowCount));
}

std::vector<const Cell *> DuplicateSearch::cells() const
{
    std::vector<const Cell *> cells;
    for (const CellColumn &column : m_keys) {
        cells.push_back(column.cells.constData());
    }
    return cells;
}

QStringList DuplicateSearch::key(int row) const
{
    QStringList texts;
    for (const CellColumn &column : m_keys) {
        texts.append(column.at(row).text());
    }
    return texts;
}

void DuplicateSearch::report(DedupeProgress *progress, int row, int step) const
{
    if (row % step == 0) {
        const qreal fraction = static_cast<qreal>(row) / m_rowCount;
        emit progress->processed(fraction);
        emit progress->processed(fraction, groupCount(), duplicateCount());
    }
}

void DuplicateSearch::runExactly(DedupeProgress *progress)
{
    constexpr int progressStep = 1000;
    constexpr int announced = 32;
    RowKeyIndex index(cells());
    for (int row = 0; row < m_rowCount && !progress->isStopped(); ++row) {
        report(progress, row, progressStep);
        if (row % announced == 0) {
            index.announce(row, std::min(row + announced, m_rowCount));
        }
        const int group = index.add(row);
        if (group == m_groupCount) {
            addFirst();
        } else {
            m_places.push_back({group, 100});
        }
    }
}

void DuplicateSearch::runSimilarly(DedupeProgress *progress, int closeness, Choice choice)
{
    constexpr int progressStep = 25;
    SimilarKeys firsts(m_keys.size(), closeness);
    RowKeyIndex index(cells());
    std::vector<Place> placeOfKey;
    for (int row = 0; row < m_rowCount && !progress->isStopped(); ++row) {
        report(progress, row, progressStep);
        const auto number = static_cast<size_t>(index.add(row));
        const bool isKnown = number < placeOfKey.size();
        if (isKnown && placeOfKey[number].isFirst()) {
            m_places.push_back({placeOfKey[number].group, 100});
            continue;
        }
        if (isKnown && choice == AnyGroup) {
            m_places.push_back(placeOfKey[number]); // the group that it joined before is still there
            continue;
        }
        const QStringList texts = key(row);
        const SimilarKeys::Match match = choice == ClosestGroup
                                             ? firsts.closest(texts)
                                             : SimilarKeys::Match{0, firsts.hasSimilar(texts) ? closeness : -1};
        if (match.closeness >= 0) {
            m_places.push_back({match.index, match.closeness});
        } else {
            firsts.append(texts);
            addFirst();
        }
        if (!isKnown) {
            placeOfKey.push_back(m_places.back());
        }
    }
}
