#include "outputs/textsink.h"

#include <QIODevice>

namespace {

constexpr int utf8Mib = 106;

bool isUtf32(const QTextCodec &codec)
{
    const int mib = codec.mibEnum();
    return mib >= 1017 && mib <= 1019;
}

/// Number of characters, each pair of surrogates being one.
int characterCount(const QString &text)
{
    int count = text.size();
    for (int i = 1; i < text.size(); ++i) {
        if (text.at(i).isLowSurrogate() && text.at(i - 1).isHighSurrogate()) {
            --count;
        }
    }
    return count;
}

bool isSurrogateAt(const char *bytes, const char *end)
{
    return end - bytes >= 3 && static_cast<uchar>(bytes[0]) == 0xED && static_cast<uchar>(bytes[1]) >= 0xA0;
}

bool isHighSurrogateAt(const char *bytes, const char *end)
{
    return isSurrogateAt(bytes, end) && static_cast<uchar>(bytes[1]) < 0xB0;
}

bool isLowSurrogateAt(const char *bytes, const char *end)
{
    return isSurrogateAt(bytes, end) && static_cast<uchar>(bytes[1]) >= 0xB0;
}

int sequenceLength(uchar lead)
{
    return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// How much of the text can be encoded before more is known: not a started character, nor a high surrogate whose
/// other half may come.
int completeSize(const char *bytes, int size)
{
    int lead = size - 1;
    while (lead > 0 && size - lead < 4 && (bytes[lead] & 0xC0) == 0x80) {
        --lead;
    }
    if (lead < 0) {
        return size;
    }
    const bool started = lead + sequenceLength(static_cast<uchar>(bytes[lead])) > size;
    return started || isHighSurrogateAt(bytes + lead, bytes + size) ? lead : size;
}

/// The first lone surrogate, or `end`. All of them, and few other characters, begin with the same byte.
const char *findSurrogate(const char *from, const char *end)
{
    while (from < end) {
        from = static_cast<const char *>(std::memchr(from, 0xED, static_cast<size_t>(end - from)));
        if (!from) {
            return end;
        }
        if (isSurrogateAt(from, end)) {
            return from;
        }
        ++from;
    }
    return end;
}

/// As TextCoding::decode(), by Qt's faster decoder where that gives the same: it drops a leading mark and has no place
/// for lone surrogates.
QString decodeBlock(const char *bytes, int size)
{
    const bool startsLikeMark = static_cast<uchar>(bytes[0]) == 0xEF;
    if (startsLikeMark || findSurrogate(bytes, bytes + size) != bytes + size) {
        return TextCoding::decode(bytes, size);
    }
    return QString::fromUtf8(bytes, size);
}

} // namespace

TextSink::TextSink(QIODevice *device, const QString &encoding, bool byteOrderMark)
    : m_device(device)
    , m_codec(QTextCodec::codecForName(encoding.toUtf8()))
    , m_markPending(byteOrderMark)
    , m_state(byteOrderMark ? QTextCodec::DefaultConversion : QTextCodec::IgnoreHeader)
    , m_buffer(new char[bufferSize])
    , m_next(m_buffer.get())
    , m_end(m_buffer.get() + bufferSize)
{
    if (!m_codec) {
        m_codec = QTextCodec::codecForLocale();
    }
    m_isUtf8 = m_codec->mibEnum() == utf8Mib;
}

void TextSink::append(const QString &text)
{
    QByteArray stored;
    TextCoding::appendEncoded(stored, text.constData(), text.size());
    append(stored);
}

void TextSink::append(int count, char byte)
{
    while (count > 0) {
        char *const next = room(1);
        const int piece = static_cast<int>(qMin<qint64>(count, m_end - next));
        std::memset(next, byte, static_cast<size_t>(piece));
        m_next = next + piece;
        count -= piece;
    }
}

void TextSink::appendInPieces(const char *bytes, int size)
{
    while (size > 0) {
        char *const next = room(1);
        const int piece = static_cast<int>(qMin<qint64>(size, m_end - next));
        std::memcpy(next, bytes, static_cast<size_t>(piece));
        m_next = next + piece;
        bytes += piece;
        size -= piece;
    }
}

bool TextSink::finish()
{
    writeBuffer(true);
    return !m_failed;
}

int TextSink::invalidCharacters() const
{
    return m_isUtf8 ? m_loneSurrogates : m_state.invalidChars;
}

void TextSink::writeBuffer(bool atEnd)
{
    char *const start = m_buffer.get();
    const int held = static_cast<int>(m_next - start);
    const int size = atEnd ? held : completeSize(start, held);
    if (size > 0 && m_isUtf8) {
        writeUtf8(start, size);
    } else if (size > 0) {
        writeEncoded(start, size);
    }
    std::memmove(start, start + size, static_cast<size_t>(held - size));
    m_next = start + held - size;
}

void TextSink::writeUtf8(const char *bytes, int size)
{
    if (m_markPending) {
        writeToDevice("\xEF\xBB\xBF", 3);
        m_markPending = false;
    }
    const char *const end = bytes + size;
    const char *surrogate = findSurrogate(bytes, end);
    if (Q_LIKELY(surrogate == end)) {
        writeToDevice(bytes, size);
        return;
    }
    QByteArray mended;
    mended.reserve(size);
    while (surrogate != end) {
        mended.append(bytes, static_cast<int>(surrogate - bytes));
        if (isHighSurrogateAt(surrogate, end) && isLowSurrogateAt(surrogate + 3, end)) {
            // Two texts side by side can make a whole character of their halves.
            mended.append(TextCoding::decode(surrogate, 6).toUtf8());
            bytes = surrogate + 6;
        } else {
            mended.append('?');
            ++m_loneSurrogates;
            bytes = surrogate + 3;
        }
        surrogate = findSurrogate(bytes, end);
    }
    mended.append(bytes, static_cast<int>(end - bytes));
    writeToDevice(mended.constData(), mended.size());
}

void TextSink::writeEncoded(const char *bytes, int size)
{
    const QString text = decodeBlock(bytes, size);
    const bool withMark = !(m_state.flags & QTextCodec::IgnoreHeader);
    QByteArray encoded = m_codec->fromUnicode(text.constData(), text.size(), &m_state);
    if (isUtf32(*m_codec)) {
        // Qt's encoder leaves garbage behind its result, four bytes for each pair of surrogates.
        encoded.truncate(4 * (characterCount(text) + withMark));
    }
    writeToDevice(encoded.constData(), encoded.size());
}

void TextSink::writeToDevice(const char *bytes, qint64 size)
{
    if (!m_failed) {
        m_failed = m_device->write(bytes, size) != size;
    }
}
