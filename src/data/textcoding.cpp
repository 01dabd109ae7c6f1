#include "data/textcoding.h"

#include <climits>
#include <cstring>
#include <stdexcept>

namespace TextCoding {

namespace {

constexpr quint64 highBits = 0x8080808080808080ULL;

int asciiPrefix(const char *bytes, int size)
{
    int i = 0;
    for (; i + 8 <= size; i += 8) {
        quint64 word;
        std::memcpy(&word, bytes + i, 8);
        if (word & highBits) {
            break;
        }
    }
    while (i < size && !(bytes[i] & 0x80)) {
        ++i;
    }
    return i;
}

} // namespace

bool isAscii(const char *bytes, int size)
{
    return asciiPrefix(bytes, size) == size;
}

bool isValidUtf8(const char *bytes, int size)
{
    const auto *p = reinterpret_cast<const uchar *>(bytes);
    int i = asciiPrefix(bytes, size);
    const auto follows = [&](int at) { return at < size && (p[at] & 0xC0) == 0x80; };
    while (i < size) {
        const uchar c = p[i];
        if (c < 0x80) {
            i += 1 + asciiPrefix(bytes + i + 1, size - i - 1);
        } else if (c >= 0xC2 && c <= 0xDF) {
            if (!follows(i + 1)) {
                return false;
            }
            i += 2;
        } else if (c >= 0xE0 && c <= 0xEF) {
            if (!follows(i + 1) || !follows(i + 2) || (c == 0xE0 && p[i + 1] < 0xA0)
                || (c == 0xED && p[i + 1] > 0x9F)) {
                return false;
            }
            i += 3;
        } else if (c >= 0xF0 && c <= 0xF4) {
            if (!follows(i + 1) || !follows(i + 2) || !follows(i + 3) || (c == 0xF0 && p[i + 1] < 0x90)
                || (c == 0xF4 && p[i + 1] > 0x8F)) {
                return false;
            }
            i += 4;
        } else {
            return false;
        }
    }
    return true;
}

int unitCount(const char *bytes, int size)
{
    int units = 0;
    for (int i = 0; i < size; ++i) {
        const auto c = static_cast<uchar>(bytes[i]);
        // A lead byte is one unit; the lead of four bytes stands for a pair.
        units += ((c & 0xC0) != 0x80) + (c >= 0xF0);
    }
    return units;
}

QString decode(const char *bytes, int size)
{
    const int plain = asciiPrefix(bytes, size);
    if (plain == size) {
        return QString::fromLatin1(bytes, size);
    }
    QString text(unitCount(bytes, size), Qt::Uninitialized);
    auto *out = reinterpret_cast<ushort *>(text.data());
    const auto *p = reinterpret_cast<const uchar *>(bytes);
    const uchar *const end = p + size;
    while (p < end) {
        const uint c = *p;
        if (c < 0x80) {
            *out++ = static_cast<ushort>(c);
            ++p;
        } else if (c < 0xE0) {
            *out++ = static_cast<ushort>((c & 0x1F) << 6 | (p[1] & 0x3F));
            p += 2;
        } else if (c < 0xF0) {
            *out++ = static_cast<ushort>((c & 0x0F) << 12 | (p[1] & 0x3Fu) << 6 | (p[2] & 0x3Fu));
            p += 3;
        } else {
            const uint code = (c & 0x07) << 18 | (p[1] & 0x3Fu) << 12 | (p[2] & 0x3Fu) << 6 | (p[3] & 0x3Fu);
            *out++ = QChar::highSurrogate(code);
            *out++ = QChar::lowSurrogate(code);
            p += 4;
        }
    }
    return text;
}

int encodedCapacity(const QChar *text, int size)
{
    if (maxEncodedSize(size) <= INT_MAX) {
        return static_cast<int>(maxEncodedSize(size));
    }
    qint64 bytes = 0;
    for (int i = 0; i < size; ++i) {
        const uint c = text[i].unicode();
        const bool isPair = text[i].isHighSurrogate() && i + 1 < size && text[i + 1].isLowSurrogate();
        bytes += c < 0x80 ? 1 : c < 0x800 ? 2 : isPair ? 4 : 3;
        i += isPair ? 1 : 0;
    }
    if (bytes > INT_MAX) {
        throw std::length_error("text too long for a cell");
    }
    return static_cast<int>(bytes);
}

int encode(char *out, const QChar *text, int size)
{
    auto *o = reinterpret_cast<uchar *>(out);
    for (int i = 0; i < size; ++i) {
        const uint c = text[i].unicode();
        if (c < 0x80) {
            *o++ = static_cast<uchar>(c);
        } else if (c < 0x800) {
            *o++ = static_cast<uchar>(0xC0 | c >> 6);
            *o++ = static_cast<uchar>(0x80 | (c & 0x3F));
        } else if (text[i].isHighSurrogate() && i + 1 < size && text[i + 1].isLowSurrogate()) {
            const uint code = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
            *o++ = static_cast<uchar>(0xF0 | code >> 18);
            *o++ = static_cast<uchar>(0x80 | (code >> 12 & 0x3F));
            *o++ = static_cast<uchar>(0x80 | (code >> 6 & 0x3F));
            *o++ = static_cast<uchar>(0x80 | (code & 0x3F));
        } else {
            *o++ = static_cast<uchar>(0xE0 | c >> 12);
            *o++ = static_cast<uchar>(0x80 | (c >> 6 & 0x3F));
            *o++ = static_cast<uchar>(0x80 | (c & 0x3F));
        }
    }
    return static_cast<int>(o - reinterpret_cast<uchar *>(out));
}

void appendEncoded(QByteArray &out, const QChar *text, int size)
{
    const int before = out.size();
    const int capacity = encodedCapacity(text, size);
    if (capacity > INT_MAX - before) {
        throw std::length_error("text too long for a buffer");
    }
    out.resize(before + capacity);
    out.resize(before + encode(out.data() + before, text, size));
}

} // namespace TextCoding
