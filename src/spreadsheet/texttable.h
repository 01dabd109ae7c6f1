#pragma once

#include <QtGlobal>
#include <memory>
#include <string_view>
#include <vector>

namespace spreadsheet {

/// The texts of a book as UTF-8, by number. Those that a file shares among its cells come first, under the file's own
/// numbers; more may follow. Throws std::bad_alloc when memory ends.
class TextTable
{
public:
    TextTable() = default;
    Q_DISABLE_COPY(TextTable)

    quint32 size() const { return static_cast<quint32>(m_texts.size()); }
    /// Valid as long as the table.
    std::string_view text(quint32 id) const { return m_texts[id]; }
    /// Adds the text whether it is there already or not.
    quint32 append(std::string_view text);
    /// The number of an equal text, which is added when there is none.
    quint32 add(std::string_view text);
    void clear();
    /// Bytes of all texts.
    qint64 byteCount() const { return m_byteCount; }

private:
    std::string_view store(std::string_view text);
    void indexTexts();
    quint32 *slotOf(std::string_view text);

    static constexpr size_t chunkSize = 1 << 18;
    std::vector<std::unique_ptr<char[]>> m_chunks;
    size_t m_chunkUsed = chunkSize;
    std::vector<std::string_view> m_texts;
    std::vector<quint32> m_slots; // number + 1 of a text by its hash, 0 for none; empty until add() is called
    quint32 m_indexed = 0;        // so many texts are in the slots
    qint64 m_byteCount = 0;
};

} // namespace spreadsheet
