#pragma once

#include <QByteArray>
#include <QString>

/// The form in which cells hold text: WTF-8, which is UTF-8 with unpaired surrogates written as three bytes each, so
/// that every QString comes back as it went in. Two texts are equal exactly when their bytes are.
namespace TextCoding {

/// Text of `size` bytes of WTF-8.
QString decode(const char *bytes, int size);
/// Appends the WTF-8 of `text` to `out`.
void appendEncoded(QByteArray &out, const QChar *text, int size);
/// Most bytes that `size` UTF-16 units can take.
constexpr qint64 maxEncodedSize(qint64 size)
{
    return size * 3;
}
/// Bytes to keep free for the WTF-8 of `text`: the most that it can take or, for a very long text, what it does
/// take. Throws std::length_error for a text that no cell can hold.
int encodedCapacity(const QChar *text, int size);
/// Writes the WTF-8 to `out`, which has room for encodedCapacity(text, size); returns the bytes written.
int encode(char *out, const QChar *text, int size);
/// True when no byte is above 127.
bool isAscii(const char *bytes, int size);
/// True when the bytes are UTF-8 as the standard has it: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isValidUtf8(const char *bytes, int size);
/// Number of UTF-16 units of the text.
int unitCount(const char *bytes, int size);

} // namespace TextCoding
