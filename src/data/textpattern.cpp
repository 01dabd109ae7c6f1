#include "data/textpattern.h"

#include <algorithm>

void TextPattern::setText(QStringView text)
{
    m_size = text.size();
    m_wordsPerRow = std::max(1, (m_size + wordBits - 1) / wordBits);
    m_rowCount = 1;
    m_lowRows.fill(0);
    m_highRows.clear();
    const auto isHigh = [](QChar unit) { return unit.unicode() > 255; };
    const auto highUnits = std::count_if(text.cbegin(), text.cend(), isHigh);
    if (highUnits > 0) {
        size_t capacity = 16;
        while (capacity < 2 * std::min<size_t>(static_cast<size_t>(highUnits), 0x10000)) {
            capacity *= 2;
        }
        m_highRows.resize(capacity);
    }
    m_bits.resize(m_wordsPerRow);
    std::fill(m_bits.begin(), m_bits.end(), 0);
    for (int i = 0; i < m_size; ++i) {
        int &row = rowForWriting(text[i].unicode());
        if (row == 0) {
            row = m_rowCount++;
            const int end = m_bits.size();
            m_bits.resize(end + m_wordsPerRow);
            std::fill(m_bits.begin() + end, m_bits.end(), 0);
        }
        m_bits[row * m_wordsPerRow + i / wordBits] |= 1ULL << i % wordBits;
    }
}

const TextPattern::Slot *TextPattern::slotOf(ushort unit) const
{
    const size_t mask = m_highRows.size() - 1;
    size_t at = unit * 0x9E3779B1u >> 15 & mask;
    while (m_highRows[at].row != 0 && m_highRows[at].unit != unit) {
        at = (at + 1) & mask;
    }
    return &m_highRows[at];
}

int &TextPattern::rowForWriting(ushort unit)
{
    if (unit < m_lowRows.size()) {
        return m_lowRows[unit];
    }
    Slot &slot = m_highRows[static_cast<size_t>(slotOf(unit) - m_highRows.data())];
    slot.unit = unit;
    return slot.row;
}

int TextPattern::distanceTo(QStringView other, int limit) const
{
    const int otherSize = static_cast<int>(other.size());
    if (std::abs(m_size - otherSize) >= limit) {
        return limit;
    }
    if (m_size == 0 || otherSize == 0) {
        return std::max(m_size, otherSize);
    }
    return m_wordsPerRow == 1 ? distanceInOneWord(other, limit) : distanceInBlocks(other, limit);
}

// The columns of the table of distances are kept as differences between neighbouring cells, one bit each, after
// G. Myers, "A fast bit-vector algorithm for approximate string matching based on dynamic programming", J. ACM 46,
// 1999, in the form that H. Hyyrö, "A bit-vector algorithm for computing Levenshtein and Damerau edit distances",
// Nordic J. Computing 10, 2003, gives for whole texts.

int TextPattern::distanceInOneWord(QStringView other, int limit) const
{
    quint64 rises = ~0ULL;
    quint64 falls = 0;
    const quint64 last = 1ULL << (m_size - 1);
    int distance = m_size;
    int remaining = static_cast<int>(other.size());
    const quint64 *bits = m_bits.constData();
    for (const QChar unit : other) {
        const quint64 equal = bits[rowOf(unit.unicode())];
        const quint64 vertical = equal | falls;
        const quint64 diagonal = (((equal & rises) + rises) ^ rises) | equal;
        quint64 risesAcross = falls | ~(diagonal | rises);
        quint64 fallsAcross = rises & diagonal;
        distance += (risesAcross & last) != 0;
        distance -= (fallsAcross & last) != 0;
        if (distance - --remaining >= limit) {
            return limit;
        }
        risesAcross = risesAcross << 1 | 1;
        fallsAcross <<= 1;
        rises = fallsAcross | ~(vertical | risesAcross);
        falls = risesAcross & vertical;
    }
    return distance;
}

/// 64 rows of one column of the table of distances.
struct TextPattern::Block
{
    quint64 rises;
    quint64 falls;
    int distance; ///< at the last row

    /// Moves to the next column. `entering` is the difference between the columns in the row above, the result that in
    /// the row of `last`.
    int advance(quint64 equal, int entering, quint64 last)
    {
        const quint64 vertical = equal | falls;
        if (entering < 0) {
            equal |= 1;
        }
        const quint64 diagonal = (((equal & rises) + rises) ^ rises) | equal;
        quint64 risesAcross = falls | ~(diagonal | rises);
        quint64 fallsAcross = rises & diagonal;
        const int leaving = ((risesAcross & last) != 0) - ((fallsAcross & last) != 0);
        risesAcross = risesAcross << 1 | (entering > 0);
        fallsAcross = fallsAcross << 1 | (entering < 0);
        rises = fallsAcross | ~(vertical | risesAcross);
        falls = risesAcross & vertical;
        distance += leaving;
        return leaving;
    }
};

// Only the blocks that touch the diagonals within the limit are kept up to date (E. Ukkonen, "Algorithms for
// approximate string matching", Information and Control 64, 1985). A block that enters, and the row above a block that
// is left behind, take the largest values that their neighbours allow: too large at most, and only off those diagonals.
int TextPattern::distanceInBlocks(QStringView other, int limit) const
{
    const int columns = static_cast<int>(other.size());
    const int reach = std::min(limit - 1, std::max(m_size, columns));
    const int lastBlock = m_wordsPerRow - 1;
    const auto rowsOf = [&](int block) { return block < lastBlock ? wordBits : m_size - lastBlock * wordBits; };
    QVarLengthArray<Block, 32> blocks(m_wordsPerRow);
    int first = 0;
    int entered = 0;
    for (int column = 1; column <= columns; ++column) {
        const int lowest = static_cast<int>(std::min<qint64>(m_size, static_cast<qint64>(column) + reach));
        for (; entered <= (lowest - 1) / wordBits; ++entered) {
            const int above = entered > 0 ? blocks[entered - 1].distance : column - 1;
            blocks[entered] = {~0ULL, 0, above + rowsOf(entered)};
        }
        while (first < lastBlock && (first + 1) * wordBits < column - reach) {
            ++first;
        }
        const quint64 *equal = m_bits.constData() + rowOf(other[column - 1].unicode()) * m_wordsPerRow;
        int across = 1;
        for (int block = first; block < entered; ++block) {
            across = blocks[block].advance(equal[block], across, 1ULL << (rowsOf(block) - 1));
        }
        if (entered > lastBlock && blocks[lastBlock].distance - (columns - column) >= limit) {
            return limit;
        }
    }
    return std::min(limit, blocks[lastBlock].distance);
}
