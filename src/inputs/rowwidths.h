#pragma once

#include <QStringList>
#include <map>

/// How many rows of each width an input has, and where each width comes first. Rows come in the order of the input.
class RowWidths
{
public:
    /// `firstRow` is the number of rows of the input that were skipped before the first one counted.
    explicit RowWidths(int firstRow)
        : m_nextRow(firstRow)
    {
    }

    void add(int width)
    {
        ++m_nextRow;
        if (width != m_lastWidth) {
            m_lastWidth = width;
            m_last = &m_widths.try_emplace(width, Entry{0, m_nextRow}).first->second;
        }
        ++m_last->rows;
    }

    /// The rows added and those skipped before them.
    qint64 rowsTaken() const { return m_nextRow; }
    int widest() const { return m_widths.empty() ? 0 : m_widths.rbegin()->first; }
    /// Lines that tell of rows of different widths; none when all are alike.
    QStringList report() const;

private:
    struct Entry
    {
        qint64 rows;
        qint64 firstRow; // 1-based
    };

    std::map<int, Entry> m_widths;
    Entry *m_last = nullptr;
    int m_lastWidth = -1;
    qint64 m_nextRow;
};
