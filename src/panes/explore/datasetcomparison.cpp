#include "panes/explore/datasetcomparison.h"

#include "panes/explore/joinedkeys.h"
#include "transforms/keys/rowgroups.h"
#include "transforms/keys/rowkeys.h"

#include <algorithm>

namespace {

constexpr int rowsPerReport = 1 << 16;
constexpr int cellsPerReport = 1 << 20;
constexpr double shareOfKeys = 0.5; ///< of the time of a comparison by keys

bool goesOn(const DatasetComparison::Progress &progress, double fraction)
{
    return !progress || progress(fraction);
}

/// Null for a column that the table doesn't have.
const Cell *cellsOf(const Dataset &table, int column)
{
    return column < table.columnCount() ? table.column(ColumnIndex(column)).cells.constData() : nullptr;
}

} // namespace

void DatasetComparison::clearPairs()
{
    m_allLeft.clear();
    m_allRight.clear();
    m_isDifferent.clear();
    m_rowDifferences = 0;
    show(ComparedPairs::All);
}

bool DatasetComparison::compare(const Options &options, const Progress &progress)
{
    clearPairs();
    const bool byKey = options.pairing == RowPairing::KeyColumns;
    if (!(byKey ? pairByKey(options, progress) : pairByNumber()) || !compareCells(progress, byKey ? shareOfKeys : 0)) {
        clearPairs();
        return false;
    }
    m_rowDifferences = static_cast<int>(std::count(m_isDifferent.cbegin(), m_isDifferent.cend(), 1));
    show(ComparedPairs::All);
    return true;
}

void DatasetComparison::addPair(int left, int right)
{
    m_allLeft.append(left);
    m_allRight.append(right);
    m_isDifferent.push_back(left < 0 || right < 0);
}

bool DatasetComparison::pairByNumber()
{
    const int lefts = m_leftTable.rowCount();
    const int rights = m_rightTable.rowCount();
    const int rows = qMax(lefts, rights);
    m_allLeft.reserve(rows);
    m_allRight.reserve(rows);
    m_isDifferent.reserve(static_cast<size_t>(rows));
    for (int row = 0; row < rows; ++row) {
        addPair(row < lefts ? row : -1, row < rights ? row : -1);
    }
    return true;
}

bool DatasetComparison::pairByKey(const Options &options, const Progress &progress)
{
    if (!options.leftKey.isValid() || !options.rightKey.isValid()) {
        return false;
    }
    // Numbered together, keys come in the order in which they first stand on the left, then on the right.
    const Dataset joined = joinedKeys(m_leftTable.column(options.leftKey), m_rightTable.column(options.rightKey));
    RowKeys keys(joined, {ColumnIndex(0)}, options.caseSensitive);
    const int rows = joined.rowCount();
    for (int row = 0; row < rows; ++row) {
        if (row % rowsPerReport == 0 && !goesOn(progress, shareOfKeys * row / rows)) {
            return false;
        }
        keys.add(row);
    }
    if (options.sortByKey) {
        keys.sortByText();
    }
    const RowGroups groups(keys.numbers(), keys.count());
    const int lefts = m_leftTable.rowCount();
    const int most = qMax(lefts, m_rightTable.rowCount());
    m_allLeft.reserve(most);
    m_allRight.reserve(most);
    for (int key = 0; key < groups.count(); ++key) {
        const RowGroups::Rows ofKey = groups.rows(key);
        const int *left = ofKey.begin();
        const int *const leftEnd = std::lower_bound(ofKey.begin(), ofKey.end(), lefts);
        const int *right = leftEnd;
        while (left != leftEnd || right != ofKey.end()) {
            addPair(left != leftEnd ? *left++ : -1, right != ofKey.end() ? *right++ - lefts : -1);
        }
    }
    return true;
}

bool DatasetComparison::compareCells(const Progress &progress, double doneBefore)
{
    const int pairs = m_allLeft.size();
    const int step = qMax(1, cellsPerReport / qMax(1, columnCount()));
    for (int begin = 0; begin < pairs; begin += step) {
        if (!goesOn(progress, doneBefore + (1 - doneBefore) * begin / pairs)) {
            return false;
        }
        for (int column = 0; column < columnCount(); ++column) {
            compareColumn(column, begin, qMin(pairs, begin + step));
        }
    }
    return true;
}

void DatasetComparison::compareColumn(int column, int begin, int end)
{
    const Cell *left = cellsOf(m_leftTable, column);
    const Cell *right = cellsOf(m_rightTable, column);
    const int *leftRows = m_allLeft.constData();
    const int *rightRows = m_allRight.constData();
    const Cell none;
    for (int pair = begin; pair < end; ++pair) {
        char &isDifferent = m_isDifferent[static_cast<size_t>(pair)];
        if (!isDifferent) {
            const Cell &ofLeft = left ? left[leftRows[pair]] : none;
            isDifferent = !ofLeft.sameText(right ? right[rightRows[pair]] : none);
        }
    }
}

void DatasetComparison::show(ComparedPairs which)
{
    m_differentPairs.clear();
    m_left = which == ComparedPairs::All ? m_allLeft : QVector<int>();
    m_right = which == ComparedPairs::All ? m_allRight : QVector<int>();
    for (int pair = 0; pair < m_allLeft.size(); ++pair) {
        const bool isDifferent = m_isDifferent[static_cast<size_t>(pair)];
        if (which == ComparedPairs::All) {
            if (isDifferent) {
                m_differentPairs.append(pair);
            }
        } else if (isDifferent == (which == ComparedPairs::OnlyDifferences)) {
            if (isDifferent) {
                m_differentPairs.append(m_left.size());
            }
            m_left.append(m_allLeft.at(pair));
            m_right.append(m_allRight.at(pair));
        }
    }
}

int DatasetComparison::headerDifferences() const
{
    const int shared = qMin(m_leftTable.columnCount(), m_rightTable.columnCount());
    int count = columnCount() - shared;
    for (int column = 0; column < shared; ++column) {
        count += m_leftTable.columnName(ColumnIndex(column)) != m_rightTable.columnName(ColumnIndex(column));
    }
    return count;
}

bool DatasetComparison::isDifferent(int pair, ColumnIndex column) const
{
    const int left = m_left.at(pair);
    const int right = m_right.at(pair);
    if (left < 0 || right < 0) {
        return true;
    }
    const Cell *ofLeft = cellsOf(m_leftTable, column.toInt());
    const Cell *ofRight = cellsOf(m_rightTable, column.toInt());
    const Cell none;
    return !(ofLeft ? ofLeft[left] : none).sameText(ofRight ? ofRight[right] : none);
}

int DatasetComparison::differentPairAfter(int pair) const
{
    const auto next = std::upper_bound(m_differentPairs.cbegin(), m_differentPairs.cend(), pair);
    return next == m_differentPairs.cend() ? -1 : *next;
}

int DatasetComparison::differentPairBefore(int pair) const
{
    const auto next = std::lower_bound(m_differentPairs.cbegin(), m_differentPairs.cend(), pair);
    return next == m_differentPairs.cbegin() ? -1 : *(next - 1);
}

int DatasetComparison::differentColumn(int pair, int column, int step) const
{
    if (m_left.at(pair) < 0 || m_right.at(pair) < 0) {
        const bool isStillAhead = step > 0 ? column <= 0 : column >= 0;
        return isStillAhead ? 0 : -1;
    }
    while (column >= 0 && column < columnCount() && !isDifferent(pair, ColumnIndex(column))) {
        column += step;
    }
    return column < columnCount() ? column : -1;
}

DatasetComparison::Place DatasetComparison::differenceAfter(const Place &place) const
{
    const int here = place.isValid() && place.pair < pairCount() ? differentColumn(place.pair, place.column + 1, 1)
                                                                 : -1;
    if (here >= 0) {
        return {place.pair, here};
    }
    const int next = differentPairAfter(place.pair);
    return next < 0 ? Place() : Place{next, differentColumn(next, 0, 1)};
}

DatasetComparison::Place DatasetComparison::differenceBefore(const Place &place) const
{
    const bool isInside = place.isValid() && place.pair < pairCount() && place.column > 0;
    const int here = isInside ? differentColumn(place.pair, place.column - 1, -1) : -1;
    if (here >= 0) {
        return {place.pair, here};
    }
    const int next = differentPairBefore(place.pair);
    return next < 0 ? Place() : Place{next, differentColumn(next, columnCount() - 1, -1)};
}
