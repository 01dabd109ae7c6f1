#include "inputs/textcleanup.h"

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
    int in = 0;
    while (in < size && !mayBeginSpace(bytes[in])) {
        ++in;
    }
    int out = in;
    while (in < size) {
        const int space = mayBeginSpace(bytes[in]) ? spaceSize(bytes + in, size - in) : 0;
        if (space == 0) {
            bytes[out++] = bytes[in++];
            continue;
        }
        if (bytes[in] != '\r') {
            bytes[out++] = ' ';
        }
        in += space;
    }
    return out;
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
