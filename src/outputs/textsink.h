#pragma once

#include "data/cell.h"

#include <QByteArray>
#include <QTextCodec>
#include <memory>

class QIODevice;

/// Writes text in WTF-8 to a device in a named encoding, through one large buffer. The
/// bytes are those that a QTextStream with this codec name and setting of the byte order mark would write: an unknown
/// name leaves the locale's codec, the mark goes in front of the first text, and no text gives no mark.
class TextSink
{
public:
    /// The device is open for writing and outlives the sink.
    TextSink(QIODevice *device, const QString &encoding, bool byteOrderMark);
    Q_DISABLE_COPY(TextSink)

    void append(const char *bytes, int size)
    {
        if (Q_LIKELY(size <= m_end - m_next)) {
            std::memcpy(m_next, bytes, static_cast<size_t>(size));
            m_next += size;
        } else {
            appendInPieces(bytes, size);
        }
    }
    void append(char byte) { append(&byte, 1); }
    void append(const QByteArray &stored) { append(stored.constData(), stored.size()); }
    void append(const Cell &cell) { append(cell.bytes(), cell.size()); }
    void append(const QString &text);
    /// Appends `byte` `count` times.
    void append(int count, char byte);

    // For loops that fill the buffer themselves
    static constexpr int bufferSize = 1 << 18;
    /// Where the next byte goes; at least `size` bytes are free there. `size` is at most bufferSize / 2.
    char *room(int size)
    {
        if (Q_UNLIKELY(size > m_end - m_next)) {
            writeBuffer(false);
        }
        return m_next;
    }
    /// End of what room() has given.
    char *roomEnd() const { return m_end; }
    /// Text has been put into the buffer up to `next`.
    void setNext(char *next) { m_next = next; }

    /// Writes what the buffer still holds; false when the device has refused anything since the sink was made. What
    /// the device itself buffers is not flushed.
    bool finish();
    /// How many characters the encoding has no place for, or were half of a surrogate pair.
    int invalidCharacters() const;

private:
    void appendInPieces(const char *bytes, int size);
    void writeBuffer(bool atEnd);
    void writeUtf8(const char *bytes, int size);
    void writeEncoded(const char *bytes, int size);
    void writeToDevice(const char *bytes, qint64 size);

    QIODevice *m_device;
    QTextCodec *m_codec;
    bool m_isUtf8;
    bool m_markPending;
    bool m_failed = false;
    int m_loneSurrogates = 0;
    QTextCodec::ConverterState m_state;
    std::unique_ptr<char[]> m_buffer;
    char *m_next;
    char *m_end;
};
