#include "data/textorder.h"

#include <algorithm>

namespace {

/// First bytes of characters from U+D000 on and from U+10000 on.
constexpr uchar firstOfHigh = 0xED;
constexpr uchar firstOfOutside = 0xF0;

uchar folded(char c)
{
    return static_cast<uchar>(c >= 'A' && c <= 'Z' ? c | 0x20 : c);
}

} // namespace

namespace TextOrder {

int compare(const char *a, int sizeOfA, const char *b, int sizeOfB)
{
    const int common = std::min(sizeOfA, sizeOfB);
    const auto at = std::mismatch(a, a + common, b);
    if (at.first == a + common) {
        return sizeOfA - sizeOfB;
    }
    const auto byteOfA = static_cast<uchar>(*at.first);
    const auto byteOfB = static_cast<uchar>(*at.second);
    if (std::min(byteOfA, byteOfB) >= firstOfHigh && std::max(byteOfA, byteOfB) >= firstOfOutside) {
        return QString::compare(TextCoding::decode(a, sizeOfA), TextCoding::decode(b, sizeOfB));
    }
    return byteOfA - byteOfB;
}

int compareIgnoringCase(const char *a, int sizeOfA, const char *b, int sizeOfB)
{
    const int common = std::min(sizeOfA, sizeOfB);
    for (int i = 0; i < common; ++i) {
        // Some characters beyond ASCII fold to ASCII letters.
        if ((a[i] | b[i]) & 0x80) {
            const QString textOfA = TextCoding::decode(a, sizeOfA);
            return QString::compare(textOfA, TextCoding::decode(b, sizeOfB), Qt::CaseInsensitive);
        }
        if (folded(a[i]) != folded(b[i])) {
            return folded(a[i]) - folded(b[i]);
        }
    }
    return sizeOfA - sizeOfB;
}

} // namespace TextOrder
