#pragma once

#include <QtGlobal>

/// Clean-up of cells in WTF-8, as QString::trimmed() and the rule for control characters would do it.
namespace TextCleanup {

/// Number of bytes of the whitespace character at `bytes`, 0 when there is none there; at most `size` bytes are read.
inline int spaceSize(const char *bytes, int size)
{
    const auto c = static_cast<uchar>(bytes[0]);
    if (c < 0x80) {
        return c == ' ' || (c >= '\t' && c <= '\r') ? 1 : 0;
    }
    const int second = size > 1 ? static_cast<uchar>(bytes[1]) : 0;
    const int third = size > 2 ? static_cast<uchar>(bytes[2]) : 0;
    switch (c) {
    case 0xC2: // U+0085, U+00A0
        return second == 0x85 || second == 0xA0 ? 2 : 0;
    case 0xE1: // U+1680
        return second == 0x9A && third == 0x80 ? 3 : 0;
    case 0xE2: // U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F
        if (second == 0x80) {
            return (third >= 0x80 && third <= 0x8A) || third == 0xA8 || third == 0xA9 || third == 0xAF ? 3 : 0;
        }
        return second == 0x81 && third == 0x9F ? 3 : 0;
    case 0xE3: // U+3000
        return second == 0x80 && third == 0x80 ? 3 : 0;
    default:
        return 0;
    }
}

/// True when a whitespace character other than the blank may begin with this byte.
inline bool mayBeginSpace(char byte)
{
    const auto c = static_cast<uchar>(byte);
    // Signed, most bytes of most texts are ruled out at once.
    return static_cast<signed char>(byte) <= '\r'
           && ((c >= '\t' && c <= '\r') || c == 0xC2 || (c >= 0xE1 && c <= 0xE3));
}

/// Moves both ends past whitespace.
void trim(const char *&begin, const char *&end);
/// simplifyControlSpace() that costs little where there is nothing to do; in place, returns the new size.
int simplify(char *bytes, int size);
/// What is inside quotes after the opening one: doubled quotes become one, single ones go; in place.
int unquote(char *bytes, int size);

} // namespace TextCleanup
