#pragma once

#include <QString>
#include <QVector>

#include <functional>
#include <vector>

struct CellColumn;

/// The different texts of one column, numbered from 0 in the order in which they first come, with how often each comes
/// and in which rows. Texts differ when any character does: "7" and "7.0" are two. Rows are positions in the table.
class ValueFrequencies
{
public:
    enum class Order { MostFrequent, LeastFrequent };
    /// A line of the table that a person sees.
    struct Line
    {
        int value = -1; ///< number of the text; -1 for the line that sums up what was cut
        QString text;   ///< the text, "(empty)", or "(5 other values)"
        int count = 0;
        QString countText; ///< grouped by the locale
    };

    ValueFrequencies() = default;
    /// Counts the texts of `rows`, or of the whole column.
    ValueFrequencies(const CellColumn &column, const QVector<int> &rows);
    explicit ValueFrequencies(const CellColumn &column);

    int distinct() const { return static_cast<int>(m_counts.size()); }
    int unique() const { return m_unique; } ///< texts that come once
    int duplicated() const { return distinct() - m_unique; }
    int rowCount() const { return static_cast<int>(m_valueOfPosition.size()); }
    int count(int value) const { return m_counts[static_cast<size_t>(value)]; }
    int firstRow(int value) const { return m_firstRows[static_cast<size_t>(value)]; }
    /// The text that comes most often, the first of several; -1 without rows.
    int mostFrequent() const;

    /// The row at `position` among those that were counted, and the number of its text.
    int rowAt(int position) const { return m_isWhole ? position : m_rows.at(position); }
    int valueAt(int position) const { return m_valueOfPosition[static_cast<size_t>(position)]; }
    /// The first `limit` rows whose text is one that `isWanted`, in the order of the rows; all of them below 0.
    QVector<int> rowsOf(const std::function<bool(int value)> &isWanted, int limit = -1) const;
    QVector<int> rowsOf(int value, int limit = -1) const;

    /// The first `limit` texts in `order`, those that come equally often by their first rows, and a last line for the
    /// others, if there are any. `column` is the one that was counted.
    QVector<Line> table(const CellColumn &column, Order order, int limit) const;

private:
    void countTexts(const CellColumn &column);
    std::vector<int> firstInOrder(Order order, int limit) const;

    bool m_isWhole = true;
    QVector<int> m_rows; ///< empty when the whole column was counted
    std::vector<int> m_valueOfPosition;
    std::vector<int> m_firstRows;
    std::vector<int> m_counts;
    int m_unique = 0;
};
