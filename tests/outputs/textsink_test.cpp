#include "hostiletext.h"
#include "outputs/textsink.h"
#include "support/printers.h"
#include "written.h"

#include <QTextStream>

namespace {

std::string byStream(const QString &text, const QString &encoding, bool byteOrderMark)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QTextStream stream(&buffer);
    stream.setCodec(encoding.toUtf8().constData());
    stream.setGenerateByteOrderMark(byteOrderMark);
    stream << text;
    stream.flush();
    return buffer.data().toStdString();
}

/// Takes `limit` bytes and then no more, as a full disk does.
class FullDevice : public QIODevice
{
public:
    explicit FullDevice(qint64 limit)
        : m_left(limit)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 size) override
    {
        const qint64 taken = qMin(size, m_left);
        m_left -= taken;
        return taken > 0 ? taken : -1;
    }

private:
    qint64 m_left;
};

} // namespace

TEST(TextSink, WritesWhatATextStreamWrites)
{
    const char *const encodings[] = {"UTF-8", "UTF-16", "UTF-16LE", "UTF-16BE", "ISO-8859-1", "ISO-8859-15",
        "windows-1252", "Shift_JIS", "ISO-2022-JP", "GB18030", "no-such-codec", ""};
    for (const char *encoding : encodings) {
        for (const bool mark : {false, true}) {
            SCOPED_TRACE(testing::Message() << encoding << " mark " << mark);
            HostileText random(7, QStringLiteral("\n"));
            const QString name = QString::fromLatin1(encoding);
            for (int round = 0; round < 20; ++round) {
                QString all;
                const std::string bytes = written(
                    [&](TextSink &sink) {
                        for (int pieces = random.below(30); pieces >= 0; --pieces) {
                            const QString text = random.next(40);
                            all += text;
                            sink.append(text);
                        }
                        // A half of a pair at the very end waits for ever in a stream.
                        all += QLatin1Char('\n');
                        sink.append('\n');
                    },
                    name, mark);
                ASSERT_EQ(bytes, byStream(all, name, mark));
            }
        }
    }
}

TEST(TextSink, KeepsCharactersWholeAtTheEdgesOfItsBuffer)
{
    // Characters of one to four bytes and halves of pairs, so that every edge falls on each of their bytes in turn.
    const QString period = QString::fromUtf8("aé漢😀") + QChar(0xD83D) + QStringLiteral("b");
    for (const char *encoding : {"UTF-8", "UTF-16LE", "ISO-2022-JP"}) {
        for (int shift = 0; shift < 14; ++shift) {
            SCOPED_TRACE(testing::Message() << encoding << " shifted by " << shift);
            const QString text = QString(shift, QLatin1Char('x')) + period.repeated(2 * TextSink::bufferSize / 14);
            const QString name = QString::fromLatin1(encoding);
            ASSERT_EQ(written([&](TextSink &sink) { sink.append(text); }, name), byStream(text, name, false));
        }
    }
}

TEST(TextSink, JoinsHalvesOfAPairFromTwoTexts)
{
    const auto halves = [](TextSink &sink) {
        sink.append(QString(QChar(0xD83D)));
        sink.append(QString(QChar(0xDE00)));
    };
    EXPECT_EQ(written(halves), "\xF0\x9F\x98\x80");
}

TEST(TextSink, PutsTheMarkInFrontOfTextOnly)
{
    struct
    {
        const char *what;
        const char *encoding;
        bool mark;
        const char *text;
        std::string bytes;
    } const cases[] = {
        {"the mark of UTF-8", "UTF-8", true, "a",
            "\xEF\xBB\xBF"
            "a"},
        {"no mark where none is wanted", "UTF-8", false, "a", "a"},
        {"nothing written gives no mark", "UTF-8", true, "", ""},
        {"nothing written gives no mark in UTF-16 either", "UTF-16", true, "", ""},
        {"UTF-16 in the machine's order", "UTF-16", true, "a",
            std::string("\xFF\xFE"
                        "a\0",
                4)},
        {"UTF-16 with the larger byte first", "UTF-16BE", true, "a", std::string("\xFE\xFF\0a", 4)},
        {"UTF-16 without a mark", "UTF-16LE", false, "a", std::string("a\0", 2)},
        {"UTF-32 writes nothing but the characters", "UTF-32", true, "\xF0\x9F\x98\x80z",
            std::string("\xFF\xFE\0\0\0\xF6\x01\0z\0\0\0", 12)},
        {"Latin-1 has no mark", "ISO-8859-1", true, "\xC3\xA9", "\xE9"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const auto write = [&](TextSink &sink) { sink.append(QString::fromUtf8(c.text)); };
        EXPECT_EQ(written(write, QString::fromLatin1(c.encoding), c.mark), c.bytes);
    }
}

TEST(TextSink, CountsWhatTheEncodingLacks)
{
    struct
    {
        const char *what;
        const char *encoding;
        QString text;
        int invalid;
    } const cases[] = {
        {"UTF-8 has every character", "UTF-8", QString::fromUtf8("é漢😀"), 0},
        {"half a pair is no character", "UTF-8", QString(QChar(0xD83D)) + QLatin1Char('a') + QChar(0xDE00), 2},
        {"Latin-1 lacks the euro sign", "ISO-8859-1", QString::fromUtf8("é€"), 1},
        {"another single-byte encoding has it", "windows-1252", QString::fromUtf8("é€"), 0},
        {"an encoding from the platform lacks some letters", "windows-1252", QString::fromUtf8("漢ф"), 2},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        TextSink sink(&buffer, QString::fromLatin1(c.encoding), false);
        // Enough for several blocks.
        const int repeats = 1000000 / c.text.size();
        for (int i = 0; i < repeats; ++i) {
            sink.append(c.text);
            sink.append('\n');
        }
        EXPECT_TRUE(sink.finish());
        EXPECT_EQ(sink.invalidCharacters(), c.invalid * repeats);
    }
}

TEST(TextSink, TellsOfADeviceThatTakesNoMore)
{
    struct
    {
        const char *what;
        qint64 limit;
        int size;
        bool taken;
    } const cases[] = {
        {"enough room", 100, 100, true},
        {"the last byte doesn't fit", 99, 100, false},
        {"nothing fits", 0, 1, false},
        {"a block in the middle doesn't fit, later ones are not tried", 2 * TextSink::bufferSize - 1,
            5 * TextSink::bufferSize, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        FullDevice device(c.limit);
        TextSink sink(&device, QStringLiteral("UTF-8"), false);
        sink.append(c.size, 'x');
        EXPECT_EQ(sink.finish(), c.taken);
    }
}
