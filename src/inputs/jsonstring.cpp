#include "inputs/jsonstring.h"

#include <QtAlgorithms>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

int hexValue(char c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const int letter = c | 0x20;
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

/// The number of four hexadecimal digits, or -1.
int unitAt(const char *digits)
{
    int unit = 0;
    for (int i = 0; i < 4; ++i) {
        const int value = hexValue(digits[i]);
        if (value < 0) {
            return -1;
        }
        unit = unit << 4 | value;
    }
    return unit;
}

/// The character that the one behind a backslash stands for, 0 for none.
char simpleEscape(char c)
{
    switch (c) {
    case '"':
    case '\\':
    case '/':
        return c;
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return 0;
    }
}

char *writeCharacter(uint code, char *out)
{
    const auto put = [&out](uint byte) { *out++ = static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
        return out;
    }
    if (code < 0x800) {
        put(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            put(0xE0 | code >> 12);
        } else {
            put(0xF0 | code >> 18);
            put(0x80 | (code >> 12 & 0x3F));
        }
        put(0x80 | (code >> 6 & 0x3F));
    }
    put(0x80 | (code & 0x3F));
    return out;
}

bool isHighSurrogate(uint code)
{
    return code >= 0xD800 && code < 0xDC00;
}

} // namespace

JsonString::Found JsonString::find(const char *begin, const char *end)
{
    Found found;
    const char *p = begin;
#ifdef __SSE2__
    const __m128i quote = _mm_set1_epi8('"');
    const __m128i backslash = _mm_set1_epi8('\\');
    const __m128i space = _mm_set1_epi8(' ');
    while (p <= end) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
        const auto quotes = static_cast<uint>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, quote)));
        const auto escapes = static_cast<uint>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, backslash)));
        // Signed: bytes above 127 are below the blank too.
        const auto unusual = static_cast<uint>(_mm_movemask_epi8(_mm_cmplt_epi8(bytes, space)));
        const uint stops = quotes | escapes;
        const uint first = stops & (0 - stops);
        found.isPlain = found.isPlain && !(unusual & (first - 1));
        if (!stops) {
            p += 16;
            continue;
        }
        p += qCountTrailingZeroBits(first);
        if (quotes & first) {
            found.end = p;
            return found;
        }
        found.hasEscapes = true;
        p += 2;
    }
#else
    for (; p <= end && *p != '"'; ++p) {
        found.isPlain = found.isPlain && static_cast<signed char>(*p) >= ' ';
        if (*p == '\\') {
            found.hasEscapes = true;
            ++p;
        }
    }
#endif
    found.end = qMin(p, end);
    return found;
}

bool JsonString::isValid(const char *bytes, quint32 size)
{
    const char *const end = bytes + size;
    for (const char *p = bytes; p < end; ++p) {
        if (*p == '\\') {
            ++p;
            if (p < end && *p == 'u' && end - p > 4 && unitAt(p + 1) >= 0) {
                p += 4;
            } else if (p >= end || !simpleEscape(*p)) {
                return false;
            }
        } else if (*p == '\xED' && end - p > 1 && static_cast<uchar>(p[1]) >= 0xA0) {
            return false;
        }
    }
    return true;
}

bool JsonString::startsWithMark(const char *bytes, quint32 size)
{
    return size >= markSize && std::memcmp(bytes, "\xEF\xBB\xBF", markSize) == 0;
}

quint32 JsonString::unescape(const char *bytes, quint32 size, char *out)
{
    const char *const end = bytes + size;
    char *const begin = out;
    for (const char *p = bytes; p < end;) {
        const void *const found = std::memchr(p, '\\', static_cast<size_t>(end - p));
        const char *const stop = found ? static_cast<const char *>(found) : end;
        std::memcpy(out, p, static_cast<size_t>(stop - p));
        out += stop - p;
        if (stop == end) {
            break;
        }
        p = stop + 2;
        if (stop[1] != 'u') {
            *out++ = simpleEscape(stop[1]);
            continue;
        }
        auto code = static_cast<uint>(unitAt(p));
        p += 4;
        if (isHighSurrogate(code) && end - p >= 6 && p[0] == '\\' && p[1] == 'u') {
            const auto low = static_cast<uint>(unitAt(p + 2));
            if (low >= 0xDC00 && low < 0xE000) {
                code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
                p += 6;
            }
        }
        out = writeCharacter(code, out);
    }
    return static_cast<quint32>(out - begin);
}
