#include "inputs/blockreader.h"

#include "inputs/rowbatch.h"
#include "inputs/textsource.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

// One row can't be larger: a cell's text must still fit a QString.
constexpr int largestBuffer = 1 << 30;

} // namespace

BlockReader::BlockReader(TextSource *source)
    : m_source(source)
{
    reserve(0);
}

BlockReader::~BlockReader()
{
    std::free(m_bytes);
}

void BlockReader::refill(const char *rest, int count)
{
    const char *const before = end();
    m_size = static_cast<int>(before - rest);
    m_offset += rest - m_bytes;
    if (rest != m_bytes) {
        std::copy(rest, before, m_bytes);
    }
    const qint64 wanted = qint64(m_size) + count;
    reserve(wanted);
    while (m_size < wanted && !m_atEnd) {
        const int got = m_source->read(end(), static_cast<int>(wanted) - m_size + TextSource::leastRoom);
        m_size += got;
        m_atEnd = got == 0;
    }
}

void BlockReader::reserve(qint64 size)
{
    const qint64 needed = size + TextSource::leastRoom + DatasetAppender::padding;
    if (needed <= m_capacity) {
        return;
    }
    void *grown = size > largestBuffer ? nullptr : std::realloc(m_bytes, static_cast<size_t>(needed));
    if (!grown) {
        throw std::bad_alloc();
    }
    m_bytes = static_cast<char *>(grown);
    m_capacity = static_cast<int>(needed);
    std::memset(end(), 0, static_cast<size_t>(m_capacity - m_size));
}

void BlockReader::readAll()
{
    while (!m_atEnd) {
        readMore(qMax(m_blockSize, m_size));
    }
}

void BlockReader::parseRows(RowBatch &batch, const Parse &parse)
{
    while (true) {
        batch.setBuffer(m_bytes);
        char *const begin = parseToBroken(batch, parse);
        const char *const rest = parse(begin, end(), m_atEnd);
        batch.flush();
        reportProgress();
        if (m_atEnd) {
            return;
        }
        // Taking at least as much again as is left keeps the cost of a long row in proportion to its length.
        refill(rest, qMax<int>(m_blockSize, static_cast<int>(end() - rest)));
    }
}

/// Takes the rows in front of the first one that holds bytes the encoding can't read, to know its number. Returns where
/// parsing goes on; without such bytes, that is the beginning.
char *BlockReader::parseToBroken(RowBatch &batch, const Parse &parse)
{
    const qint64 at = m_source->firstBroken() - m_offset;
    if (m_source->firstBroken() < 0 || m_firstBrokenRow > 0 || at >= m_size) {
        return m_bytes;
    }
    // The first byte of the replacement shows that a carriage return before it is a line's whole end.
    char *const row = parse(m_bytes, m_bytes + at + 1, false);
    m_firstBrokenRow = batch.rowsTaken() + 1;
    return row;
}

void BlockReader::reportProgress()
{
    if (m_progress) {
        const qint64 total = m_source->total();
        m_progress(total > 0 ? qMin(1.0, double(m_source->position()) / double(total)) : 0.0);
    }
}
