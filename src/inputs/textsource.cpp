#include "inputs/textsource.h"

#include "data/textcoding.h"

#include <QIODevice>
#include <cstring>

namespace {

constexpr int utf8Mib = 106;
constexpr char replacement[] = "\xEF\xBF\xBD"; // U+FFFD
constexpr int replacementSize = 3;
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

/// Bytes of the text before its first replacement character that isn't one in `bytes`, which it was decoded from.
int validSize(const QString &text, const char *bytes, int size)
{
    int at = 0;
    int begin = 0;
    while (true) {
        const int found = text.indexOf(QChar(QChar::ReplacementCharacter), begin);
        at += text.midRef(begin, found < 0 ? -1 : found - begin).toUtf8().size();
        if (found < 0 || size - at < replacementSize
            || std::memcmp(bytes + at, replacement, static_cast<size_t>(replacementSize)) != 0) {
            return at;
        }
        at += replacementSize;
        begin = found + 1;
    }
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

QString TextSource::encodingName() const
{
    return m_codec ? QString::fromLatin1(m_codec->name()) : automatic();
}

int TextSource::read(char *out, int room)
{
    const int size = readNext(out, room);
    m_given += size;
    return size;
}

int TextSource::readNext(char *out, int room)
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
        if (tail > 0 && tail == size) {
            // Nothing but the beginning of a character is left of a file that was cut off.
            noteBroken(1, 0);
            std::memcpy(out, replacement, static_cast<size_t>(replacementSize));
            return replacementSize;
        }
        m_carried = QByteArray(out + size - tail, tail);
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
        const int invalidBefore = state.invalidChars;
        const int waiting = state.remainingChars;
        const QString text = m_codec->toUnicode(bytes + done, piece, &state);
        if (state.invalidChars > invalidBefore) {
            noteBroken(state.invalidChars - invalidBefore, validSize(text, bytes + done - waiting, piece + waiting));
        }
        appendDecoded(text);
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
            decodeRest();
            break;
        }
        const QString text = m_codec->toUnicode(piece.constData(), size, &m_state);
        const int first = marksBroken() ? text.indexOf(QChar(QChar::ReplacementCharacter)) : -1;
        if (first >= 0) {
            noteBroken(text.count(QChar(QChar::ReplacementCharacter)), text.leftRef(first).toUtf8().size());
        }
        appendDecoded(text);
    }
    return takePending(out, room);
}

/// What the end of the text leaves unfinished: half a character, of bytes or of surrogates.
void TextSource::decodeRest()
{
    if (m_ended) {
        return;
    }
    m_ended = true;
    // A lone first half is text as well.
    TextCoding::appendEncoded(m_pending, &m_highSurrogate, m_highSurrogate.isNull() ? 0 : 1);
    m_highSurrogate = QChar();
    bool cut = m_state.remainingChars > 0;
    if (!cut && marksBroken()) {
        // Some codecs keep what waits to themselves. A line end can't go on with it, so it shows.
        cut = m_codec->toUnicode("\n", 1, &m_state).contains(QChar(QChar::ReplacementCharacter));
    }
    if (cut) {
        noteBroken(1, 0);
        m_pending.append(replacement, replacementSize);
    }
}

/// True for encodings that replacement characters can't stand in, so that each one tells of broken bytes.
bool TextSource::marksBroken() const
{
    return !m_codec->name().startsWith("UTF-");
}

/// `position` is that of the first one, in bytes of text behind what is pending.
void TextSource::noteBroken(qint64 count, qint64 position)
{
    m_brokenCount += count;
    if (m_firstBroken < 0) {
        m_firstBroken = m_given + m_pending.size() + position;
    }
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
