#pragma once

#include "data/textcoding.h"

#include <QString>
#include <QtGlobal>
#include <cstring>

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "texts of up to seven bytes lie in the low bytes of the cell");

/// One cell's text in eight bytes: up to seven bytes of text lie in the cell itself, longer ones in a TextArena, by
/// address. Cells are copied freely; whoever keeps one keeps its arena too (CellColumn does).
///
/// Bit 63 clear: bits 56 to 58 are the size, bits 0 to 55 the text, unused bytes 0; all bits 0 is the empty text.
/// Bit 63 set: bits 48 to 62 are the size, bits 0 to 47 the address; a size of all ones means that the eight bytes in
/// front of the address hold it.
class Cell
{
public:
    static constexpr int inlineCapacity = 7;
    static constexpr quint64 longSize = 0x7FFF;

    constexpr Cell() = default;

    /// `size` is at most inlineCapacity.
    static Cell inlined(const char *bytes, int size)
    {
        Cell cell;
        std::memcpy(&cell.m_bits, bytes, static_cast<size_t>(size));
        cell.m_bits |= static_cast<quint64>(size) << 56;
        return cell;
    }

    /// `bits` as a cell of at most inlineCapacity bytes has them.
    static Cell fromInlineBits(quint64 bits)
    {
        Cell cell;
        cell.m_bits = bits;
        return cell;
    }

    /// `bytes` must outlive the cell; for a size of longSize or more the size stands in the eight bytes before.
    static Cell pointing(const char *bytes, int size)
    {
        Cell cell;
        const quint64 stored = static_cast<quint64>(size) < longSize ? static_cast<quint64>(size) : longSize;
        cell.m_bits = 1ULL << 63 | stored << 48 | reinterpret_cast<quint64>(bytes);
        return cell;
    }

    constexpr bool isEmpty() const { return m_bits == 0; }
    constexpr bool isInline() const { return !(m_bits >> 63); }
    /// Equal bits always mean equal text; unequal bits mean unequal text only for inline cells.
    constexpr quint64 bits() const { return m_bits; }

    /// The text's bytes; for an inline cell they lie in this object.
    const char *bytes() const
    {
        return isInline() ? reinterpret_cast<const char *>(&m_bits)
                          : reinterpret_cast<const char *>(m_bits & 0xFFFFFFFFFFFFULL);
    }

    /// Number of bytes of the WTF-8.
    int size() const
    {
        if (isInline()) {
            return static_cast<int>(m_bits >> 56);
        }
        const quint64 stored = m_bits >> 48 & longSize;
        if (Q_LIKELY(stored != longSize)) {
            return static_cast<int>(stored);
        }
        quint64 size;
        std::memcpy(&size, bytes() - sizeof size, sizeof size);
        return static_cast<int>(size);
    }

    QString text() const { return TextCoding::decode(bytes(), size()); }

    bool sameText(const Cell &other) const
    {
        if (m_bits == other.m_bits) {
            return true;
        }
        if (isInline() || other.isInline()) {
            return false;
        }
        const int length = size();
        return length == other.size() && std::memcmp(bytes(), other.bytes(), static_cast<size_t>(length)) == 0;
    }

private:
    quint64 m_bits = 0;
};

Q_DECLARE_TYPEINFO(Cell, Q_PRIMITIVE_TYPE);
