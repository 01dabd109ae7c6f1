#include "outputs/storedtext.h"

#include "data/dataset.h"
#include "outputs/textsink.h"

namespace {

constexpr bool isAsciiSpace(uchar c)
{
    return c == ' ' || (c >= 9 && c <= 13);
}

/// Size of the character at `bytes` when it is white space, else 0.
int spaceSize(const char *bytes, int size)
{
    const auto lead = static_cast<uchar>(bytes[0]);
    if (lead < 0x80) {
        return isAsciiSpace(lead) ? 1 : 0;
    }
    // White space beyond ASCII takes two or three bytes.
    const int length = lead < 0xE0 ? 2 : 3;
    if (lead >= 0xF0 || length > size) {
        return 0;
    }
    return TextCoding::decode(bytes, length).at(0).isSpace() ? length : 0;
}

/// Size of the last character when it is white space, else 0.
int lastSpaceSize(const char *bytes, int size)
{
    int length = 1;
    while (length < size && length < 4 && (bytes[size - length] & 0xC0) == 0x80) {
        ++length;
    }
    return spaceSize(bytes + size - length, length);
}

} // namespace

StoredText StoredText::trimmed() const
{
    StoredText result = *this;
    while (result.size > 0) {
        const int length = spaceSize(result.bytes, result.size);
        if (length == 0) {
            break;
        }
        result.bytes += length;
        result.size -= length;
    }
    while (result.size > 0) {
        const int length = lastSpaceSize(result.bytes, result.size);
        if (length == 0) {
            break;
        }
        result.size -= length;
    }
    return result;
}

QByteArray toStored(const QString &text)
{
    QByteArray stored;
    TextCoding::appendEncoded(stored, text.constData(), text.size());
    return stored;
}

std::vector<QByteArray> toStored(const QStringList &texts)
{
    std::vector<QByteArray> stored;
    stored.reserve(static_cast<size_t>(texts.size()));
    for (const QString &text : texts) {
        stored.push_back(toStored(text));
    }
    return stored;
}

QStringList valueNames(const Dataset &dataset)
{
    QStringList names = dataset.columnNames();
    if (!dataset.hasHeader()) {
        for (QString &name : names) {
            name.prepend(QLatin1String("value"));
        }
    }
    return names;
}

void appendReplaced(TextSink &sink, StoredText text, char byte, const char *replacement)
{
    const char *from = text.bytes;
    const char *const end = text.bytes + text.size;
    const int replacementSize = static_cast<int>(qstrlen(replacement));
    while (from < end) {
        const void *const found = std::memchr(from, byte, static_cast<size_t>(end - from));
        const char *const to = found ? static_cast<const char *>(found) : end;
        sink.append(from, static_cast<int>(to - from));
        if (!found) {
            break;
        }
        sink.append(replacement, replacementSize);
        from = to + 1;
    }
}

void appendHtmlEscaped(TextSink &sink, StoredText text)
{
    static const ByteReplacements references{{'<', "&lt;"}, {'>', "&gt;"}, {'&', "&amp;"}, {'"', "&quot;"}};
    appendReplaced(sink, text, references);
}
