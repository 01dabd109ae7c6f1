#pragma once

#include "data/dataset.h"

/// Adds many rows to a table at once, column by column: what a reader of large files uses instead of a call a row.
/// Equal texts of a column share their bytes as they do when they are set one by one; see Dataset::setMaximumSpeed().
class DatasetAppender
{
public:
    /// A text in WTF-8 within the bytes given with them.
    struct Text
    {
        quint32 offset = 0;
        quint32 size = 0;
    };
    /// So many bytes behind the last text can be read as well, whatever they are.
    static constexpr int padding = 64;

    /// The dataset outlives the appender; nothing else changes it meanwhile.
    explicit DatasetAppender(Dataset *dataset)
        : m_dataset(dataset)
    {
    }

    /// Appends rows of texts that lie in `bytes`. The texts of row i end before texts[rowEnds[i]] and begin where the
    /// row before ends. Wider rows widen the table, narrower ones are padded with empty cells. Throws std::bad_alloc
    /// when the table can't grow.
    void appendRows(const char *bytes, const Text *texts, const int *rowEnds, int rowCount);

private:
    struct Column;
    struct Rows;
    void appendColumn(int column, const Rows &rows);
    TextArena *arena();
    ValuePool *pool(int column);

    Dataset *m_dataset;
};
