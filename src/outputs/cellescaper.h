#pragma once

#include "outputs/bytesearch.h"
#include "outputs/storedtext.h"
#include "outputs/textsink.h"

/// Appends cells to a sink with some bytes replaced. The common cell, which holds none of them, is copied while it is
/// searched. `search` finds at least the bytes that `replacements` has texts for, and not 0xFF, which no text holds.
template<class Search>
class CellEscaper
{
public:
    /// `replacements` outlives the escaper.
    CellEscaper(TextSink &sink, const Search &search, const ByteReplacements &replacements)
        : m_sink(sink)
        , m_search(search)
        , m_replacements(replacements)
    {
    }

    void append(const Cell &cell)
    {
        const int size = cell.size();
        char *const next = m_sink.room(qMin(size, TextSink::bufferSize / 4) + Cell::inlineCapacity + 1);
        quint64 found = 1;
        if (cell.isInline()) {
            // What doesn't belong to the text mustn't be found.
            const quint64 bits = cell.bits() | ~0ULL << 8 * size;
            std::memcpy(next, &bits, sizeof bits);
            found = m_search.inWord(bits);
        } else if (Q_LIKELY(size <= m_sink.roomEnd() - next)) {
            found = m_search.copy(next, cell.bytes(), size);
        }
        if (Q_LIKELY(found == 0)) {
            m_sink.setNext(next + size);
        } else {
            appendReplaced(m_sink, StoredText(cell), m_replacements);
        }
    }

private:
    TextSink &m_sink;
    const Search m_search;
    const ByteReplacements &m_replacements;
};
