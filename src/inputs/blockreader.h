#pragma once

#include <QtGlobal>
#include <functional>

class RowBatch;
class TextSource;

/// Reads a source a block at a time for readers that take whole rows: what a row needs beyond the block stays until
/// more of it has come. The bytes may be changed in place; DatasetAppender::padding bytes behind them are readable.
/// Everything here throws std::bad_alloc when one row, or what is kept, is too large.
class BlockReader
{
public:
    static constexpr int usualBlockSize = 1 << 18;
    /// Takes the rows of `begin` to `end` and returns where the first unfinished one begins; with `last`, nothing
    /// follows and nothing is left.
    using Parse = std::function<char *(char *begin, char *end, bool last)>;

    explicit BlockReader(TextSource *source);
    ~BlockReader();
    Q_DISABLE_COPY(BlockReader)

    /// Called after each block with the share done, 0 to 1, or 0 all along for a source of unknown size.
    void setProgress(std::function<void(double)> progress) { m_progress = std::move(progress); }
    /// Bytes read at a time, about; at least 1.
    void setBlockSize(int size) { m_blockSize = size; }
    int blockSize() const { return m_blockSize; }

    char *begin() const { return m_bytes; }
    char *end() const { return m_bytes + m_size; }
    int size() const { return m_size; }
    bool atEnd() const { return m_atEnd; }

    /// Reads at least `count` more bytes behind those that are there, fewer only at the end of the source.
    void readMore(int count) { refill(begin(), count); }
    /// Drops what lies before `rest` and reads at least `count` more bytes, fewer only at the end of the source.
    void refill(const char *rest, int count);
    /// Reads until the source ends.
    void readAll();
    /// Takes what is there and all that follows; the batch is told where its texts lie and flushed after each block.
    void parseRows(RowBatch &batch, const Parse &parse);
    /// The row, from 1, in which parseRows() met the first bytes that the encoding can't read; 0 for none.
    qint64 firstBrokenRow() const { return m_firstBrokenRow; }

private:
    void reserve(qint64 size);
    void reportProgress();
    char *parseToBroken(RowBatch &batch, const Parse &parse);

    TextSource *m_source;
    std::function<void(double)> m_progress;
    int m_blockSize = usualBlockSize;
    char *m_bytes = nullptr;
    int m_size = 0;
    int m_capacity = 0;
    bool m_atEnd = false;
    qint64 m_offset = 0; // of the bytes in the text
    qint64 m_firstBrokenRow = 0;
};
