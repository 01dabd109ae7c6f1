#pragma once

#include <QtGlobal>
#include <cstring>

/// Looks for any of N bytes, and for those below the space when `controlsToo`, in eight bytes at a time, without
/// branches.
template<int N, bool controlsToo = false>
class ByteSearch
{
public:
    explicit ByteSearch(const char (&bytes)[N])
    {
        for (int i = 0; i < N; ++i) {
            m_patterns[i] = static_cast<uchar>(bytes[i]) * lowBits;
        }
    }

    /// Not 0 when one of the eight bytes is one of those sought.
    quint64 inWord(quint64 word) const
    {
        quint64 found = controlsToo ? (word - ' ' * lowBits) & ~word : 0;
        for (const quint64 pattern : m_patterns) {
            const quint64 differing = word ^ pattern;
            found |= (differing - lowBits) & ~differing;
        }
        return found & highBits;
    }

    /// Copies `size` bytes, at least eight, and tells as inWord() whether one of those sought is among them. Neither
    /// reads nor writes beyond `size`.
    quint64 copy(char *out, const char *in, int size) const
    {
        quint64 last;
        std::memcpy(&last, in + size - 8, 8);
        quint64 found = inWord(last);
        for (int i = 0; i < size - 8; i += 8) {
            quint64 word;
            std::memcpy(&word, in + i, 8);
            found |= inWord(word);
            std::memcpy(out + i, &word, 8);
        }
        std::memcpy(out + size - 8, &last, 8);
        return found;
    }

private:
    static constexpr quint64 lowBits = 0x0101010101010101ULL;
    static constexpr quint64 highBits = lowBits << 7;

    quint64 m_patterns[N];
};
