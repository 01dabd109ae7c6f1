#pragma once

#include "inputs/textcleanup.h"

#include <QtGlobal>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// Finds the bytes that matter to delimited text, 64 at a time; bit i of a mask stands for byte i.
class ByteScanner
{
public:
    static constexpr int groupSize = 64;

    struct Masks
    {
        quint64 events;  // delimiter, quote, carriage return, line feed
        quint64 unusual; // control characters that aren't events, and everything that isn't ASCII
    };

    /// `delimiter` is the first byte of the delimiter; without `quotes`, a quote is a byte like others.
    ByteScanner(char delimiter, bool quotes)
        : m_delimiter(delimiter)
        , m_quote(quotes ? '"' : '\n')
    {
    }

    /// `group` has 64 readable bytes.
    Masks scan(const char *group) const
    {
        Masks masks{0, 0};
#ifdef __SSE2__
        const __m128i delimiter = _mm_set1_epi8(m_delimiter);
        const __m128i quote = _mm_set1_epi8(m_quote);
        const __m128i carriageReturn = _mm_set1_epi8('\r');
        const __m128i lineFeed = _mm_set1_epi8('\n');
        const __m128i space = _mm_set1_epi8(' ');
        for (int i = 0; i < 4; ++i) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(group) + i);
            const __m128i cells = _mm_or_si128(_mm_cmpeq_epi8(bytes, delimiter), _mm_cmpeq_epi8(bytes, quote));
            const __m128i lines = _mm_or_si128(_mm_cmpeq_epi8(bytes, carriageReturn), _mm_cmpeq_epi8(bytes, lineFeed));
            const __m128i events = _mm_or_si128(cells, lines);
            // Signed: bytes above 127 are below the blank too.
            const __m128i unusual = _mm_andnot_si128(events, _mm_cmplt_epi8(bytes, space));
            masks.events |= quint64(quint32(_mm_movemask_epi8(events))) << 16 * i;
            masks.unusual |= quint64(quint32(_mm_movemask_epi8(unusual))) << 16 * i;
        }
#else
        for (int i = 0; i < groupSize; ++i) {
            const char c = group[i];
            const bool event = c == m_delimiter || c == m_quote || c == '\r' || c == '\n';
            masks.events |= quint64(event) << i;
            masks.unusual |= quint64(!event && static_cast<signed char>(c) < ' ') << i;
        }
#endif
        return masks;
    }

    /// Which bytes of a group may begin a whitespace character other than the blank.
    static quint64 spaces(const char *group)
    {
        quint64 mask = 0;
#ifdef __SSE2__
        const auto equal = [](__m128i bytes, int value) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(char(value))); };
        for (int i = 0; i < 4; ++i) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(group) + i);
            const __m128i control = _mm_and_si128(
                _mm_cmpgt_epi8(bytes, _mm_set1_epi8('\t' - 1)), _mm_cmplt_epi8(bytes, _mm_set1_epi8('\r' + 1)));
            const __m128i first = _mm_or_si128(equal(bytes, 0xC2), equal(bytes, 0xE1));
            const __m128i second = _mm_or_si128(equal(bytes, 0xE2), equal(bytes, 0xE3));
            const __m128i all = _mm_or_si128(control, _mm_or_si128(first, second));
            mask |= quint64(quint32(_mm_movemask_epi8(all))) << 16 * i;
        }
#else
        for (int i = 0; i < groupSize; ++i) {
            mask |= quint64(TextCleanup::mayBeginSpace(group[i])) << i;
        }
#endif
        return mask;
    }

private:
    char m_delimiter;
    char m_quote;
};
