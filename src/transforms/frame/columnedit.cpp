#include "transforms/frame/columnedit.h"

#include "data/dataset.h"
#include "data/textbuffer.h"

ColumnEdit::ColumnEdit(const CellColumn &source)
    : m_source(source)
    , m_column(source)
    , m_in(m_source.cells.constData())
{
}

Cell ColumnEdit::store(const char *bytes, int size)
{
    if (size <= Cell::inlineCapacity) {
        return Cell::inlined(bytes, size);
    }
    if (!m_arena) {
        m_arena = new TextArena;
    }
    if (Dataset::maximumSpeed()) {
        return m_arena->store(bytes, size);
    }
    Cell cell = m_pool.find(bytes, size);
    if (cell.isEmpty()) {
        cell = m_arena->store(bytes, size);
        m_pool.enter(cell);
    }
    return cell;
}

Cell ColumnEdit::store(const QString &text)
{
    TextBuffer bytes(TextCoding::encodedCapacity(text.constData(), text.size()));
    return store(bytes.constData(), TextCoding::encode(bytes.data(), text.constData(), text.size()));
}

bool ColumnEdit::needsSourceTexts() const
{
    for (int row = 0; row < m_column.size(); ++row) {
        if (!m_out[row].isInline() && m_out[row].bits() == m_in[row].bits()) {
            return true;
        }
    }
    return false;
}

CellColumn ColumnEdit::take()
{
    if (isChanged() && !needsSourceTexts()) {
        m_column.arenas.clear();
    }
    m_column.keep(m_arena);
    return m_column;
}
