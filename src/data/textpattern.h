#pragma once

#include <QStringView>
#include <QVarLengthArray>
#include <array>
#include <vector>

/// A text made ready for having its edit distance to many others measured: for each code unit that occurs in it a row
/// of bits says where. Distances are found 64 positions at a time.
class TextPattern
{
public:
    TextPattern() = default;
    explicit TextPattern(QStringView text) { setText(text); }
    void setText(QStringView text);
    /// Length in UTF-16 code units.
    int size() const { return m_size; }

    /// Levenshtein distance to `other`; `limit`, which is positive, when it is that or more.
    int distanceTo(QStringView other, int limit) const;

private:
    struct Block;
    struct Slot
    {
        ushort unit = 0;
        int row = 0;
    };
    static constexpr int wordBits = 64;

    int rowOf(ushort unit) const
    {
        return Q_LIKELY(unit < m_lowRows.size()) ? m_lowRows[unit] : m_highRows.empty() ? 0 : slotOf(unit)->row;
    }
    const Slot *slotOf(ushort unit) const;
    int &rowForWriting(ushort unit);
    int distanceInOneWord(QStringView other, int limit) const;
    int distanceInBlocks(QStringView other, int limit) const;

    int m_size = 0;
    int m_wordsPerRow = 0;
    int m_rowCount = 1; ///< row 0 has no bits and serves all units that don't occur
    std::array<int, 256> m_lowRows{};
    std::vector<Slot> m_highRows; ///< hash table for units above 255; row 0 marks a free slot
    QVarLengthArray<quint64, 32> m_bits;
};
