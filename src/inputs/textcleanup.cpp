#include "inputs/textcleanup.h"

#include "data/controlspace.h"

namespace {

/// Size of the whitespace character that ends at `end`.
int spaceSizeBefore(const char *begin, const char *end)
{
    const char *start = end - 1;
    while (start > begin && end - start < 3 && (static_cast<uchar>(*start) & 0xC0) == 0x80) {
        --start;
    }
    const int size = static_cast<int>(end - start);
    return TextCleanup::spaceSize(start, size) == size ? size : 0;
}

} // namespace

void TextCleanup::trim(const char *&begin, const char *&end)
{
    while (begin < end) {
        const int size = spaceSize(begin, static_cast<int>(end - begin));
        if (size == 0) {
            break;
        }
        begin += size;
    }
    while (begin < end) {
        const int size = spaceSizeBefore(begin, end);
        if (size == 0) {
            break;
        }
        end -= size;
    }
}

int TextCleanup::simplify(char *bytes, int size)
{
    for (int i = 0; i < size; ++i) {
        if (mayBeginSpace(bytes[i]) && spaceSize(bytes + i, size - i) > 0) {
            return simplifyControlSpace(bytes, size);
        }
    }
    return size;
}

int TextCleanup::unquote(char *bytes, int size)
{
    int out = 0;
    for (int in = 0; in < size; ++in) {
        if (bytes[in] == '"') {
            if (in + 1 == size || bytes[in + 1] != '"') {
                continue;
            }
            ++in;
        }
        bytes[out++] = bytes[in];
    }
    return out;
}
