#pragma once

#include "data/cell.h"

#include <QExplicitlySharedDataPointer>
#include <QSharedData>
#include <memory>
#include <vector>

/// Keeps the texts of cells that are too long to lie in the cell. Texts are only ever added; all go together when the
/// last column that points into the arena lets go of it.
class TextArena : public QSharedData
{
public:
    /// A cell holding a copy of the stored text `bytes`; short texts take no room here.
    Cell store(const char *bytes, int size)
    {
        if (size <= Cell::inlineCapacity) {
            return Cell::inlined(bytes, size);
        }
        return storeLong(bytes, size);
    }
    /// A cell holding `text`.
    Cell store(const QString &text);

    TextArena() = default;
    /// Keeps `others` as long as it lives itself: one arena then stands for the texts of many.
    explicit TextArena(std::vector<QExplicitlySharedDataPointer<TextArena>> others);
    ~TextArena();
    TextArena(const TextArena &) = delete;
    TextArena &operator=(const TextArena &) = delete;

    /// As store, for a size above Cell::inlineCapacity.
    Cell storeLong(const char *bytes, int size)
    {
        if (Q_LIKELY(size <= m_end - m_next && static_cast<quint64>(size) < Cell::longSize)) {
            std::memcpy(m_next, bytes, static_cast<size_t>(size));
            const Cell cell = Cell::pointing(m_next, size);
            m_next += size;
            return cell;
        }
        return storeInNewBlock(bytes, size);
    }

private:
    Cell storeInNewBlock(const char *bytes, int size);

    std::vector<std::unique_ptr<char[]>> m_blocks;
    std::vector<QExplicitlySharedDataPointer<TextArena>> m_others;
    char *m_next = nullptr;
    char *m_end = nullptr;
    int m_blockSize = 256;
};

using TextArenaPointer = QExplicitlySharedDataPointer<TextArena>;
