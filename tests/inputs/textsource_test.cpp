#include "inputs/textsource.h"

#include "data/textcoding.h"
#include "support/printers.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QTextStream>
#include <gtest/gtest.h>

namespace {

QString sourceText(const QByteArray &bytes, const QString &encoding, int room)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    TextSource source(&buffer, encoding);
    QByteArray stored;
    QByteArray piece(room, Qt::Uninitialized);
    while (const int size = source.read(piece.data(), room)) {
        stored.append(piece.constData(), size);
    }
    EXPECT_EQ(source.position(), bytes.size());
    EXPECT_FALSE(source.failed());
    return TextCoding::decode(stored.constData(), stored.size());
}

QString streamText(const QByteArray &bytes, const QString &encoding)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QTextStream stream(&buffer);
    const bool automatic = encoding == TextSource::automatic();
    stream.setCodec(automatic ? "UTF-8" : encoding.toLatin1().constData());
    stream.setAutoDetectUnicode(automatic);
    return stream.readAll();
}

struct EncodingCase
{
    const char *what;
    const char *encoding;
    QByteArray bytes;
    QString text;
};

QByteArray utf16(const char16_t *text, int size, bool bigEndian)
{
    QByteArray bytes;
    for (int i = 0; i < size; ++i) {
        const char high = char(text[i] >> 8);
        const char low = char(text[i]);
        bytes.append(bigEndian ? high : low).append(bigEndian ? low : high);
    }
    return bytes;
}

const char16_t marked[] = u"\uFEFFa\u00E9\U0001F600\n";
const int markedSize = 6;

} // namespace

TEST(TextSource, DecodesAsTheEncodingSays)
{
    const QString sample = QString::fromUtf8("a\u00E9\U0001F600\n");
    const EncodingCase cases[] = {
        {"an empty file is an empty text", "Automatic", "", ""},
        {"plain UTF-8 passes through", "Automatic", "a\u00E9\U0001F600\n", sample},
        {"a UTF-8 byte order mark goes", "Automatic",
            "\xEF\xBB\xBF"
            "a\u00E9\U0001F600\n",
            sample},
        {"it goes too when UTF-8 is chosen", "UTF-8", "\xEF\xBB\xBFx", "x"},
        {"only the first one goes", "Automatic", "\xEF\xBB\xBF\xEF\xBB\xBFx", QString(QChar(0xFEFF)) + "x"},
        {"a mark of UTF-16LE overrides Automatic", "Automatic", utf16(marked, markedSize, false), sample},
        {"a mark of UTF-16BE overrides Automatic", "Automatic", utf16(marked, markedSize, true), sample},
        {"a mark of UTF-32LE overrides Automatic", "Automatic", QByteArray("\xFF\xFE\0\0a\0\0\0\x00\xF6\x01\0", 12),
            QString::fromUtf8("a\U0001F600")},
        {"a mark doesn't override a chosen codec", "ISO-8859-1", "\xEF\xBB\xBFx",
            QString::fromUtf8("\u00EF\u00BB\u00BFx")},
        {"Latin-1 by name", "ISO-8859-1", "caf\xE9", QString::fromUtf8("caf\u00E9")},
        {"Windows-1252 by name", "windows-1252", "\x80 1", QString::fromUtf8("\u20AC 1")},
        {"UTF-16 by name needs no mark", "UTF-16LE", utf16(marked + 1, markedSize - 1, false), sample},
        {"a code of two bytes", "Shift_JIS", "\x93\xFA\x96\x7B", QString::fromUtf8("\u65E5\u672C")},
        {"an invalid byte becomes a replacement character", "Automatic",
            "a\xFF"
            "b",
            QString::fromUtf8("a\uFFFDb")},
        {"an encoded surrogate isn't UTF-8", "Automatic", "\xED\xA0\x80", QString(3, QChar(0xFFFD))},
        {"zero bytes are text", "Automatic", QByteArray("a\0b", 3), QString::fromLatin1("a\0b", 3)},
    };
    for (const EncodingCase &c : cases) {
        SCOPED_TRACE(c.what);
        for (int room : {16, 17, 4096}) {
            EXPECT_EQ(sourceText(c.bytes, c.encoding, room), c.text) << "room " << room;
        }
        EXPECT_EQ(streamText(c.bytes, c.encoding), c.text) << "what a text stream gives";
    }
}

TEST(TextSource, CountsWhatTheEncodingCannotRead)
{
    const struct
    {
        const char *what;
        const char *encoding;
        QByteArray bytes;
        QString text;
        qint64 count;
        qint64 first; // in bytes of text
    } cases[] = {
        {"nothing, though the file holds a replacement character", "Automatic", "a\xEF\xBF\xBD",
            QString::fromUtf8("a\uFFFD"), 0, -1},
        {"each byte that begins nothing", "Automatic",
            "\u00E9\xFF\xFF"
            "b",
            QString::fromUtf8("\u00E9\uFFFD\uFFFDb"), 2, 2},
        {"behind a replacement character of the file's own", "UTF-8", "\xEF\xBF\xBD \xFF",
            QString::fromUtf8("\uFFFD \uFFFD"), 1, 4},
        {"far inside", "Automatic", QByteArray(20000, 'x') + "\xFF", QString(20000, 'x') + QChar(0xFFFD), 1, 20000},
        {"a character that the end of the file cuts off", "Automatic", "a\xE2\x82", QString::fromUtf8("a\uFFFD"), 1, 1},
        {"the same behind a broken one", "Automatic", "\xFF\xF0\x9F", QString::fromUtf8("\uFFFD\uFFFD"), 2, 0},
        {"half a mark", "Automatic", "\xEF\xBB", QString::fromUtf8("\uFFFD"), 1, 0},
        {"half a UTF-16 unit", "UTF-16LE", QByteArray("a\0b", 3), QString::fromUtf8("a\uFFFD"), 1, 1},
        {"half a code of two bytes", "Shift_JIS", "a\x93\xFA\x93", QString::fromUtf8("a\u65E5\uFFFD"), 1, 4},
        {"a code of two bytes that isn't one", "Shift_JIS", "a\x93\nb", QString::fromUtf8("a\uFFFD\nb"), 1, 1},
        {"bytes of one each are all read", "ISO-8859-1", "a\xFF\x81", QString::fromUtf8("a\u00FF\u0081"), 0, -1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        for (int room : {16, 17, 4096}) {
            QBuffer buffer;
            buffer.setData(c.bytes);
            buffer.open(QIODevice::ReadOnly);
            TextSource source(&buffer, c.encoding);
            QByteArray stored;
            QByteArray piece(room, Qt::Uninitialized);
            while (const int size = source.read(piece.data(), room)) {
                stored.append(piece.constData(), size);
            }
            EXPECT_EQ(TextCoding::decode(stored.constData(), stored.size()), c.text) << "room " << room;
            EXPECT_EQ(source.brokenCount(), c.count) << "room " << room;
            EXPECT_EQ(source.firstBroken(), c.first) << "room " << room;
        }
    }
}

TEST(TextSource, UnknownEncodingIsThatOfTheLocale)
{
    EXPECT_EQ(sourceText("caf\xC3\xA9", "no such codec", 64), QTextCodec::codecForLocale()->toUnicode("caf\xC3\xA9"));
}

TEST(TextSource, TextInMemoryComesAsItIs)
{
    const QString text = QChar(0xFEFF) + QString("a\r\n") + QChar(0xD800) + QString::fromUtf8("\u00E9") + QChar(0xDC00);
    TextSource source(text);
    QByteArray stored(64, Qt::Uninitialized);
    int size = 0;
    while (const int got = source.read(stored.data() + size, TextSource::leastRoom)) {
        size += got;
    }
    EXPECT_EQ(TextCoding::decode(stored.constData(), size), text);
    EXPECT_EQ(source.position(), source.total());
}

/// Broken and valid stretches in turn, so that each way of reading takes over from the other in the middle.
TEST(TextSource, AgreesWithATextStreamOnBrokenText)
{
    QRandomGenerator random(20);
    const QByteArray parts[] = {"plain ", "\u00E9", "\u20AC", "\U0001F600", "\xFF", "\xE2", "\xF0\x9F", "\x80", "\xC3",
        "\xED\xA0\x80", "\n", QByteArray(200, 'x'), QByteArray(16300, 'y')};
    for (const char *encoding : {"Automatic", "UTF-8", "UTF-16LE", "Shift_JIS", "ISO-8859-15", "GB18030"}) {
        for (int i = 0; i < 60; ++i) {
            QByteArray bytes(i % 3 ? 1 : 16370 + random.bounded(14), 'x');
            for (int length = random.bounded(40); length > 0; --length) {
                bytes += parts[random.bounded(int(std::size(parts)))];
            }
            bytes += "\n\n"; // what the end cuts off is another matter
            bytes += QByteArray(bytes.size() % 2, '\n');
            const int room = i % 2 ? 16 + random.bounded(40) : 16384 + random.bounded(40);
            ASSERT_EQ(sourceText(bytes, encoding, room), streamText(bytes, encoding))
                << encoding << ", room " << room << ", bytes " << bytes.toHex(' ').left(2000).constData();
        }
    }
}
