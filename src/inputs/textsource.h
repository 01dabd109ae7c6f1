#pragma once

#include <QByteArray>
#include <QString>
#include <QTextCodec>

class QIODevice;

/// Turns the bytes of a device into text in WTF-8, with the meaning that a QTextStream with
/// the same codec gives. UTF-8, the usual case, passes through without being decoded as long as it is valid.
class TextSource
{
public:
    /// Room that read() must be given at least.
    static constexpr int leastRoom = 16;

    /// Reads `device`, which is open, from where it stands. The encoding is "Automatic", UTF-8 unless a byte order
    /// mark says otherwise, or the name of a codec; an unknown name stands for the codec of the locale.
    TextSource(QIODevice *device, const QString &encoding);
    /// A text that is in memory already.
    explicit TextSource(const QString &text);
    Q_DISABLE_COPY(TextSource)

    /// Writes at most `room` bytes of text to `out` and returns their number; 0 at the end. A character may lie
    /// across two reads.
    int read(char *out, int room);
    /// True when the device failed before its end; the text ends there.
    bool failed() const { return m_failed; }
    /// Bytes taken so far and in all, for progress; the total is 0 when the device can't tell.
    qint64 position() const { return m_position; }
    qint64 total() const { return m_total; }

    /// Bytes that the encoding has no meaning for, each replaced by U+FFFD; a sequence that the end cuts off is one.
    qint64 brokenCount() const { return m_brokenCount; }
    /// How many bytes of text stand before the first replacement; -1 for none.
    qint64 firstBroken() const { return m_firstBroken; }
    /// The encoding in use, once something has been read.
    QString encodingName() const;

    static QString automatic() { return QStringLiteral("Automatic"); }

private:
    int readNext(char *out, int room);
    int fill(char *out, int room);
    void detectEncoding();
    int readUtf8(char *out, int room);
    int readDecoded(char *out, int room);
    int takePending(char *out, int room);
    void decodeBrokenUtf8(const char *bytes, int size);
    void decodeRest();
    bool marksBroken() const;
    void noteBroken(qint64 count, qint64 position);
    void appendDecoded(const QString &text);

    QIODevice *m_device = nullptr;
    QTextCodec *m_codec = nullptr;
    bool m_detect = false;
    bool m_started = false;
    bool m_failed = false;
    bool m_ended = false;
    qint64 m_position = 0;
    qint64 m_total = 0;
    QByteArray m_carried; // bytes read that wait for the rest of their character
    QByteArray m_pending; // text decoded that didn't fit
    int m_pendingTaken = 0;
    QChar m_highSurrogate; // the first half of a character whose second half comes with the next piece
    QTextCodec::ConverterState m_state;
    qint64 m_given = 0; // bytes of text handed out
    qint64 m_brokenCount = 0;
    qint64 m_firstBroken = -1;
};
