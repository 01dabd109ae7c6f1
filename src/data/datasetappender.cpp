#include "data/datasetappender.h"

#include <limits>
#include <new>

namespace {

Cell inlinedPadded(const char *bytes, quint32 size)
{
    quint64 word;
    std::memcpy(&word, bytes, sizeof word);
    const quint64 kept = size == 0 ? 0 : ~quint64(0) >> (64 - 8 * size);
    return Cell::fromInlineBits((word & kept) | quint64(size) << 56);
}

} // namespace

/// The rows of one call.
struct DatasetAppender::Rows
{
    const char *bytes;
    const Text *texts;
    const int *ends;
    int count;
    int widest;
    bool uniform; // all rows have the same width
};

/// Makes cells for one column, with everything that is the same for all of them looked up before.
struct DatasetAppender::Column
{
    TextArena *arena;
    ValuePool *pool; // null for no pooling
    bool stored = false;

    Cell cell(const char *bytes, quint32 size)
    {
        if (size <= Cell::inlineCapacity) {
            return inlinedPadded(bytes, size);
        }
        return longCell(bytes, static_cast<int>(size));
    }

    Cell longCell(const char *bytes, int size)
    {
        stored = true;
        if (!pool) {
            return arena->storeLong(bytes, size);
        }
        Cell found = pool->find(bytes, size);
        if (found.isEmpty()) {
            found = arena->storeLong(bytes, size);
            pool->enter(found);
        }
        return found;
    }
};

void DatasetAppender::appendRows(const char *bytes, const Text *texts, const int *rowEnds, int rowCount)
{
    if (rowCount == 0) {
        return;
    }
    Rows rows{bytes, texts, rowEnds, rowCount, 0, true};
    for (int i = 0, begin = 0; i < rowCount; ++i) {
        const int width = rowEnds[i] - begin;
        rows.uniform = rows.uniform && width == rowEnds[0];
        rows.widest = qMax(rows.widest, width);
        begin = rowEnds[i];
    }
    if (rowCount > std::numeric_limits<int>::max() / 2 - m_dataset->m_rowCount) {
        throw std::bad_alloc();
    }
    if (rows.widest > m_dataset->columnCount()) {
        m_dataset->setColumnCount(rows.widest);
    }
    for (int i = 0; i < m_dataset->columnCount(); ++i) {
        appendColumn(i, rows);
    }
    m_dataset->m_rowCount += m_dataset->hasColumns() ? rowCount : 0;
}

TextArena *DatasetAppender::arena()
{
    if (!m_dataset->m_arena) {
        m_dataset->m_arena = new TextArena;
    }
    return m_dataset->m_arena.data();
}

ValuePool *DatasetAppender::pool(int column)
{
    if (Dataset::maximumSpeed()) {
        return nullptr;
    }
    std::vector<ValuePool> &pools = m_dataset->m_valuePools;
    if (pools.size() <= static_cast<size_t>(column)) {
        pools.resize(static_cast<size_t>(m_dataset->columnCount()));
    }
    return &pools[static_cast<size_t>(column)];
}

void DatasetAppender::appendColumn(int column, const Rows &rows)
{
    CellColumn &target = m_dataset->m_columns[column];
    Cell *out = target.cells.extend(rows.count);
    if (column >= rows.widest) {
        std::fill(out, out + rows.count, Cell());
        return;
    }
    Column maker{arena(), pool(column)};
    if (rows.uniform) {
        const Text *text = rows.texts + column;
        for (int i = 0; i < rows.count; ++i, text += rows.widest) {
            out[i] = maker.cell(rows.bytes + text->offset, text->size);
        }
    } else {
        for (int i = 0, begin = 0; i < rows.count; ++i) {
            const Text *text = rows.texts + begin + column;
            begin = rows.ends[i];
            out[i] = text < rows.texts + begin ? maker.cell(rows.bytes + text->offset, text->size) : Cell();
        }
    }
    if (maker.stored) {
        target.keep(m_dataset->m_arena);
    }
}
