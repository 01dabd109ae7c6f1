#include "spreadsheet/texttable.h"

#include <cstring>

namespace spreadsheet {

quint32 TextTable::append(std::string_view text)
{
    if (m_texts.size() >= 0xFFFFFFFEu) {
        throw std::bad_alloc();
    }
    m_texts.push_back(store(text));
    m_byteCount += static_cast<qint64>(text.size());
    return static_cast<quint32>(m_texts.size() - 1);
}

quint32 TextTable::add(std::string_view text)
{
    indexTexts();
    quint32 *slot = slotOf(text);
    if (*slot == 0) {
        *slot = append(text) + 1;
        ++m_indexed;
        return size() - 1;
    }
    return *slot - 1;
}

void TextTable::clear()
{
    m_chunks.clear();
    m_chunkUsed = chunkSize;
    m_texts.clear();
    m_slots.clear();
    m_indexed = 0;
    m_byteCount = 0;
}

std::string_view TextTable::store(std::string_view text)
{
    if (text.empty()) {
        return {};
    }
    if (text.size() > chunkSize / 4) {
        // A chunk of its own, put below the one that is being filled.
        std::unique_ptr<char[]> bytes(new char[text.size()]);
        std::memcpy(bytes.get(), text.data(), text.size());
        const std::string_view stored(bytes.get(), text.size());
        m_chunks.insert(m_chunks.empty() ? m_chunks.end() : m_chunks.end() - 1, std::move(bytes));
        if (m_chunks.size() == 1) {
            m_chunkUsed = chunkSize;
        }
        return stored;
    }
    if (m_chunks.empty() || chunkSize - m_chunkUsed < text.size()) {
        m_chunks.emplace_back(new char[chunkSize]);
        m_chunkUsed = 0;
    }
    char *place = m_chunks.back().get() + m_chunkUsed;
    std::memcpy(place, text.data(), text.size());
    m_chunkUsed += text.size();
    return {place, text.size()};
}

/// Enters texts that were appended, and keeps the slots at most half full.
void TextTable::indexTexts()
{
    const size_t wanted = (m_texts.size() + 1) * 2;
    if (m_slots.size() < wanted) {
        size_t count = 1024;
        while (count < wanted * 2) {
            count *= 2;
        }
        m_slots.assign(count, 0);
        m_indexed = 0;
    }
    for (; m_indexed < m_texts.size(); ++m_indexed) {
        quint32 *slot = slotOf(m_texts[m_indexed]);
        if (*slot == 0) {
            *slot = m_indexed + 1;
        }
    }
}

quint32 *TextTable::slotOf(std::string_view text)
{
    const size_t mask = m_slots.size() - 1;
    size_t place = std::hash<std::string_view>()(text) & mask;
    while (m_slots[place] != 0 && m_texts[m_slots[place] - 1] != text) {
        place = (place + 1) & mask;
    }
    return &m_slots[place];
}

} // namespace spreadsheet
