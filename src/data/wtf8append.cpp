#include "data/wtf8append.h"

#include "data/longtext.h"

// Half a surrogate pair is stored as three bytes, ED A0..AF xx for the first and ED B0..BF xx for the second; the whole
// character has four.
static constexpr int halfSize = 3;

static bool isHalf(const char *bytes, unsigned char kind)
{
    return static_cast<unsigned char>(bytes[0]) == 0xED && (static_cast<unsigned char>(bytes[1]) & 0xF0) == kind;
}

static uint tenBits(const char *bytes)
{
    return (static_cast<uint>(bytes[1]) & 0x0F) << 6 | (static_cast<uint>(bytes[2]) & 0x3F);
}

void appendWtf8(TextBuffer &out, const char *bytes, int size)
{
    const char *const tail = out.constData() + out.size() - halfSize;
    if (out.size() < halfSize || size < halfSize || !isHalf(tail, 0xA0) || !isHalf(bytes, 0xB0)) {
        LongText::append(out, bytes, size);
        return;
    }
    const uint code = 0x10000 + (tenBits(tail) << 10 | tenBits(bytes));
    out.resize(out.size() - halfSize);
    const char character[] = {static_cast<char>(0xF0 | code >> 18), static_cast<char>(0x80 | (code >> 12 & 0x3F)),
        static_cast<char>(0x80 | (code >> 6 & 0x3F)), static_cast<char>(0x80 | (code & 0x3F))};
    out.append(character, sizeof character);
    LongText::append(out, bytes + halfSize, size - halfSize);
}
