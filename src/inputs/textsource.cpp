#include "inputs/textsource.h"

#include "data/textcoding.h"

#include <QIODevice>
#include <cstring>

namespace {

constexpr int utf8Mib = 106;
// A text stream decodes pieces of this size. Where a broken sequence lies across two of them, the number of
// replacement characters depends on it.
constexpr int pieceSize = 16384;

bool isContinuation(char c)
{
    return (static_cast<uchar>(c) & 0xC0) == 0x80;
}

/// Number of bytes at the end that may be the beginning of a character.
int incompleteTail(const char *bytes, int size)
{
    for (int tail = 1; tail <= qMin(3, size); ++tail) {
        const auto lead = static_cast<uchar>(bytes[size - tail]);
        if (isContinuation(static_cast<char>(lead))) {
            continue;
        }
        const int needed = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
        return tail < needed ? tail : 0;
    }
    return 0;
}

} // namespace

TextSource::TextSource(QIODevice *device, const QString &encoding)
    : m_device(device)
    , m_detect(encoding == automatic())
    , m_total(device->isSequential() ? 0 : device->size())
{
    m_codec = m_detect ? QTextCodec::codecForMib(utf8Mib) : QTextCodec::codecForName(encoding.toLatin1());
    if (!m_codec) {
        m_codec = QTextCodec::codecForLocale();
    }
}

TextSource::TextSource(const QString &text)
    : m_started(true)
{
    TextCoding::appendEncoded(m_pending, text.constData(), text.size());
    m_total = m_pending.size();
}

int TextSource::read(char *out, int room)
{
    Q_ASSERT(room >= leastRoom);
    if (!m_started) {
        m_started = true;
        detectEncoding();
    }
    if (m_pendingTaken < m_pending.size() || !m_device) {
        return takePending(out, room);
    }
    return m_codec->mibEnum() == utf8Mib ? readUtf8(out, room) : readDecoded(out, room);
}

/// Carried bytes and new ones; only at the end fewer than `room`.
int TextSource::fill(char *out, int room)
{
    int size = m_carried.size();
    std::memcpy(out, m_carried.constData(), static_cast<size_t>(size));
    m_carried.clear();
    while (size < room && !m_failed) {
        const qint64 got = m_device->read(out + size, room - size);
        m_failed = got < 0;
        if (got <= 0) {
            break;
        }
        size += static_cast<int>(got);
        m_position += got;
    }
    return size;
}

void TextSource::detectEncoding()
{
    QByteArray head(4, Qt::Uninitialized);
    head.truncate(fill(head.data(), head.size()));
    if (m_detect) {
        m_codec = QTextCodec::codecForUtfText(head, m_codec);
    }
    if (m_codec->mibEnum() == utf8Mib && head.startsWith("\xEF\xBB\xBF")) {
        head.remove(0, 3);
    }
    m_carried = head;
}

int TextSource::takePending(char *out, int room)
{
    const int size = qMin(room, m_pending.size() - m_pendingTaken);
    std::memcpy(out, m_pending.constData() + m_pendingTaken, static_cast<size_t>(size));
    m_pendingTaken += size;
    if (!m_device) {
        m_position = m_pendingTaken;
    }
    return size;
}

int TextSource::readUtf8(char *out, int room)
{
    const int size = fill(out, room);
    const int tail = incompleteTail(out, size);
    if (TextCoding::isValidUtf8(out, size - tail)) {
        m_carried = QByteArray(out + size - tail, tail);
        // Nothing but the beginning of a character is left at the end of a file that was cut off: no text.
        return size - tail;
    }
    m_pending.resize(0);
    m_pendingTaken = 0;
    decodeBrokenUtf8(out, size);
    return takePending(out, room);
}

void TextSource::decodeBrokenUtf8(const char *bytes, int size)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    qint64 offset = m_position - size;
    for (int done = 0; done < size;) {
        const int piece = static_cast<int>(qMin<qint64>(size - done, pieceSize - offset % pieceSize));
        appendDecoded(m_codec->toUnicode(bytes + done, piece, &state));
        done += piece;
        offset += piece;
    }
    m_carried = QByteArray(bytes + size - state.remainingChars, state.remainingChars);
}

int TextSource::readDecoded(char *out, int room)
{
    m_pending.resize(0);
    m_pendingTaken = 0;
    QByteArray piece(pieceSize, Qt::Uninitialized);
    while (m_pending.isEmpty()) {
        const int size = fill(piece.data(), piece.size());
        if (size == 0) {
            // A lone first half at the very end is text as well.
            TextCoding::appendEncoded(m_pending, &m_highSurrogate, m_highSurrogate.isNull() ? 0 : 1);
            m_highSurrogate = QChar();
            break;
        }
        appendDecoded(m_codec->toUnicode(piece.constData(), size, &m_state));
    }
    return takePending(out, room);
}

void TextSource::appendDecoded(const QString &text)
{
    QString whole = text;
    if (!m_highSurrogate.isNull() && !whole.isEmpty()) {
        whole.prepend(m_highSurrogate);
        m_highSurrogate = QChar();
    }
    if (!whole.isEmpty() && whole.at(whole.size() - 1).isHighSurrogate()) {
        m_highSurrogate = whole.at(whole.size() - 1);
        whole.chop(1);
    }
    TextCoding::appendEncoded(m_pending, whole.constData(), whole.size());
}
