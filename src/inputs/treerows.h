#pragma once

#include "data/datasetappender.h"
#include "data/realwriter.h"
#include "inputs/jsondigits.h"
#include "inputs/treeread.h"

#include <vector>

struct TreeNode;

/// Cleans the texts of records, gathers their rows and hands them to the table, many at a time.
class TreeRows
{
public:
    using Text = DatasetAppender::Text;

    TreeRows(const TreeReadOptions &options, Dataset *dataset);

    /// Throws std::bad_alloc unless `rows` more rows of `width` cells can be held.
    void checkRoom(qint64 rows, int width) const;

    /// Call between records: texts made before may be gone after it.
    void startRecord()
    {
        m_digits.startRecord();
        if (m_size > textSizeAtOnce * static_cast<size_t>(1 + m_width / usualWidth)) {
            flush();
        }
        if (m_rowEnds.empty()) {
            m_size = 0;
        }
    }
    /// The cleaned text of a leaf.
    Text text(const TreeNode &leaf);
    /// A text that needs no cleaning.
    Text literal(const char *bytes, quint32 size);

    /// A row of `width` empty texts, not narrower than those before, that may be written to until endRow() or
    /// dropRow().
    Text *beginRow(int width);
    /// Keeps the row begun last, unless it is empty and empty ones aren't wanted.
    void endRow();
    void dropRow() { m_texts.resize(m_rowEnds.empty() ? 0 : static_cast<size_t>(m_rowEnds.back())); }
    /// Hands all rows to the table.
    void flush();

    qint64 emptyRowsDropped() const { return m_emptyRowsDropped; }
    /// The numbers that text() was given.
    JsonDigits &digits() { return m_digits; }

private:
    char *room(quint64 size);
    Text stored(const char *bytes, quint32 size);
    Text cleaned(Text text);
    Text number(const TreeNode &leaf);

    // Enough rows to make work by columns pay, few enough for their texts to stay in the cache.
    static constexpr size_t textsAtOnce = 16384;
    static constexpr size_t mostTextsAtOnce = 1 << 20;
    static constexpr size_t textSizeAtOnce = 1 << 18;
    static constexpr int usualWidth = 512;

    const TreeReadOptions m_options;
    const RealWriter m_realWriter;
    Dataset *m_dataset;
    DatasetAppender m_appender;
    std::vector<char> m_bytes; // of which m_size are in use
    size_t m_size = 0;
    std::vector<Text> m_texts;
    std::vector<int> m_rowEnds;
    int m_width = 0; // of the row begun last
    TextBuffer m_numberText;
    JsonDigits m_digits;
    qint64 m_emptyRowsDropped = 0;
};
