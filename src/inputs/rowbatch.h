#pragma once

#include "data/datasetappender.h"
#include "inputs/rowwidths.h"
#include "inputs/textcleanup.h"

#include <vector>

/// What happens to the rows of delimited text once they are parsed.
struct RowRules
{
    bool trim = true;
    bool simplify = true;
    bool ignoreEmptyRows = true;
    int ignoredRows = 0;
};

/// Gathers the rows that lie in a buffer, cleans their texts there and hands them to the table, many rows at a time.
class RowBatch
{
public:
    RowBatch(const RowRules &rules, Dataset *dataset);

    /// The buffer in which texts lie from now on. The batch must be empty.
    void setBuffer(char *bytes) { m_bytes = bytes; }
    /// Adds a text to the row being gathered.
    void addText(const char *begin, const char *end)
    {
        if (m_count == m_texts.size()) {
            m_texts.resize(m_count * 2);
        }
        if (m_rules.trim && begin < end) {
            // Other whitespace makes the row unusual, which finishRow() looks after.
            while (begin < end && *begin == ' ') {
                ++begin;
            }
            while (begin < end && end[-1] == ' ') {
                --end;
            }
        }
        m_texts[m_count++] = {static_cast<quint32>(begin - m_bytes), static_cast<quint32>(end - begin)};
        m_rowSize += static_cast<size_t>(end - begin);
    }
    /// As addText, for what was inside quotes and holds quotes itself.
    void addQuotedText(const char *begin, const char *end);
    bool isRowEmpty() const { return m_count == m_rowBegin; }
    /// Ends the row; `unusual` when it may hold whitespace other than blanks.
    void finishRow(bool unusual);
    /// Forgets the texts added since the last row ended.
    void dropUnfinishedRow();
    /// Hands all finished rows to the table; nothing unfinished may be there. Throws std::bad_alloc when the table
    /// would be larger than a computer can hold.
    void flush();

    /// Lines that tell of the rows that were dropped.
    QStringList infos() const { return emptyRowsInfos(m_emptyRowsDropped); }
    /// The same for readers with other ways to make rows.
    static QStringList emptyRowsInfos(qint64 emptyRowsDropped);
    const RowWidths &widths() const { return m_widths; }
    /// Rows of the input finished so far, those that were ignored and dropped included.
    qint64 rowsTaken() const { return m_rowsSeen < m_rules.ignoredRows ? m_rowsSeen : m_widths.rowsTaken(); }
    /// To be told when a quote closes inside the text being gathered and doesn't end it.
    void noteStrayQuote()
    {
        if (m_strayText != m_count) {
            m_strayText = m_count;
            ++m_strayTexts;
        }
    }
    /// A line that tells of such texts, if there are any.
    QStringList strayQuoteWarnings() const;

private:
    void cleanQuotedTexts();
    void countStrayTexts();
    void cleanRow();
    void cleanText(DatasetAppender::Text &text) const;

    // Enough rows to make work by columns pay, few enough for their texts to stay in the cache.
    static constexpr size_t textsAtOnce = 16384;
    static constexpr size_t noText = ~size_t(0);

    const RowRules m_rules;
    const Dataset *m_dataset;
    DatasetAppender m_appender;
    RowWidths m_widths;
    char *m_bytes = nullptr;
    std::vector<DatasetAppender::Text> m_texts;
    std::vector<int> m_rowEnds;
    std::vector<size_t> m_quotedTexts; // those of the row being gathered
    size_t m_count = 0;
    size_t m_rowBegin = 0;
    size_t m_rowSize = 0;        // bytes in the row's texts
    size_t m_strayText = noText; // the last one whose quote closed inside, of the row being gathered
    qint64 m_strayTexts = 0;     // of that row
    qint64 m_strayTextsInAll = 0;
    qint64 m_firstStrayRow = 0;
    int m_rowsSeen = 0;
    qint64 m_emptyRowsDropped = 0;
};
