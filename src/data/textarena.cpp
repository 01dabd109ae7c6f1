#include "data/textarena.h"

#include <QVarLengthArray>

namespace {
constexpr int largestBlock = 1 << 20;
}

TextArena::TextArena(std::vector<QExplicitlySharedDataPointer<TextArena>> others)
    : m_others(std::move(others))
{
}

TextArena::~TextArena() = default;

Cell TextArena::store(const QString &text)
{
    QVarLengthArray<char, 768> bytes(TextCoding::encodedCapacity(text.constData(), text.size()));
    return store(bytes.constData(), TextCoding::encode(bytes.data(), text.constData(), text.size()));
}

Cell TextArena::storeInNewBlock(const char *bytes, int size)
{
    // A text that would waste much of a block gets one of its own, and the block in use stays in use.
    if (size > m_blockSize / 4 || static_cast<quint64>(size) >= Cell::longSize) {
        m_blockSize = qMin(m_blockSize * 2, largestBlock); // so that a column of such texts doesn't ask for each
        constexpr int prefix = sizeof(quint64);
        m_blocks.emplace_back(new char[static_cast<size_t>(size) + prefix]);
        char *block = m_blocks.back().get();
        const auto length = static_cast<quint64>(size);
        std::memcpy(block, &length, prefix);
        std::memcpy(block + prefix, bytes, static_cast<size_t>(size));
        return Cell::pointing(block + prefix, size);
    }
    m_blocks.emplace_back(new char[static_cast<size_t>(m_blockSize)]);
    m_next = m_blocks.back().get();
    m_end = m_next + m_blockSize;
    m_blockSize = qMin(m_blockSize * 4, largestBlock);
    return storeLong(bytes, size);
}
