#pragma once

#include "data/dataset.h"
#include "settings/choices.h"

#include <functional>
#include <vector>

/// Two tables side by side: which of their rows make pairs, and which pairs and cells differ. Columns pair by their
/// position. No cell is copied: pairs are row numbers.
///
/// Cells are compared as text; one whose column only one table has is compared with an empty text. A row without a
/// partner differs in all of its cells.
class DatasetComparison
{
public:
    struct Options
    {
        RowPairing pairing = RowPairing::RowNumbers;
        ColumnIndex leftKey; ///< the keys are for RowPairing::KeyColumns
        ColumnIndex rightKey;
        bool caseSensitive = true; ///< of keys; cells always are
        bool sortByKey = false;    ///< else pairs stand by the first row of their key, on the left, then on the right
    };
    /// Is told from time to time which part is done, from 0 to 1; false stops the comparison.
    using Progress = std::function<bool(double fraction)>;
    struct Place
    {
        int pair = -1;
        int column = -1;
        bool isValid() const { return pair >= 0; }
    };

    DatasetComparison() = default;
    DatasetComparison(const Dataset &left, const Dataset &right)
        : m_leftTable(left)
        , m_rightTable(right)
    {
    }

    /// Pairs the rows, repeated keys one by one in their order, and compares all cells. False when it was stopped or a
    /// key column is missing; there are no pairs then.
    bool compare(const Options &options, const Progress &progress = Progress());
    /// Keeps only some pairs; the others come back with another choice.
    void show(ComparedPairs which);

    const Dataset &left() const { return m_leftTable; }
    const Dataset &right() const { return m_rightTable; }
    /// Of the wider table.
    int columnCount() const { return qMax(m_leftTable.columnCount(), m_rightTable.columnCount()); }
    /// The rows of the shown pairs, -1 where a row has no partner.
    const QVector<int> &leftRows() const { return m_left; }
    const QVector<int> &rightRows() const { return m_right; }
    int pairCount() const { return m_left.size(); }
    /// The shown pairs that differ, ascending.
    const QVector<int> &differentPairs() const { return m_differentPairs; }
    /// How many pairs differ, shown or not.
    int rowDifferences() const { return m_rowDifferences; }
    /// In how many positions the names of columns differ, or only one table has a column.
    int headerDifferences() const;
    bool isDifferent(int pair, ColumnIndex column) const;

    // The next difference from a place, or before the first row; invalid when there is none
    int differentPairAfter(int pair) const;
    int differentPairBefore(int pair) const;
    /// A row without a partner is one difference.
    Place differenceAfter(const Place &place) const;
    Place differenceBefore(const Place &place) const;

private:
    bool pairByNumber();
    bool pairByKey(const Options &options, const Progress &progress);
    void addPair(int left, int right);
    bool compareCells(const Progress &progress, double doneBefore);
    void compareColumn(int column, int begin, int end);
    void clearPairs();
    /// The first column from `column` on, forwards or backwards, where the pair differs; -1 for none.
    int differentColumn(int pair, int column, int step) const;

    Dataset m_leftTable;
    Dataset m_rightTable;
    QVector<int> m_allLeft;
    QVector<int> m_allRight;
    std::vector<char> m_isDifferent; ///< by pair, shown or not
    int m_rowDifferences = 0;
    QVector<int> m_left; ///< those that are shown
    QVector<int> m_right;
    QVector<int> m_differentPairs;
};
