#include "spreadsheet/texttable.h"
#include "spreadsheet/xls/biffstrings.h"
#include "spreadsheet/xls/continueddata.h"
#include "xlstestbook.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

/// A text as it lies in an SST record, and which of its bytes are characters.
struct StoredText
{
    QByteArray head, characters, tail;
    bool isWide = false;
};

StoredText stored(const QString &text, bool isWide, int runs, int phoneticSize)
{
    const int flags = (isWide ? 1 : 0) | (runs > 0 ? 8 : 0) | (phoneticSize > 0 ? 4 : 0);
    ByteBuffer head;
    head.u16(static_cast<unsigned>(text.size()));
    head.u8(static_cast<unsigned>(flags));
    if (runs > 0) {
        head.u16(static_cast<unsigned>(runs));
    }
    if (phoneticSize > 0) {
        head.u32(static_cast<quint32>(phoneticSize));
    }
    StoredText made;
    made.isWide = isWide;
    made.head = head.data();
    made.characters = isWide ? QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2)
                             : text.toLatin1();
    made.tail = QByteArray(runs * 4 + phoneticSize, '\x5A');
    return made;
}

QByteArray narrowed(const QByteArray &wide)
{
    QByteArray narrow;
    for (int i = 0; i < wide.size(); i += 2) {
        narrow.append(wide.at(i));
    }
    return narrow;
}

QByteArray widened(const QByteArray &narrow)
{
    QByteArray wide;
    for (const char c : narrow) {
        wide.append(c);
        wide.append('\0');
    }
    return wide;
}

/// Reads what stands behind the counts of an SST record; the texts, or "cut" when one is.
QStringList readTexts(quint32 count, const QByteArray &first, const QByteArray &second)
{
    QByteArray stream = record(RecordId::SharedStrings, dword(9) + dword(count) + first);
    stream += second.isNull() ? QByteArray() : record(RecordId::Continue, second);
    RecordReader records(reinterpret_cast<const uchar *>(stream.constData()), static_cast<quint32>(stream.size()));
    records.next();
    ContinuedData data(records, 0);
    TextTable table;
    const bool isWhole = readSharedTexts(data, table);
    QStringList texts;
    for (quint32 i = 0; i < table.size(); ++i) {
        texts.append(QString::fromUtf8(table.text(i).data(), static_cast<int>(table.text(i).size())));
    }
    return isWhole ? texts : QStringList{QStringLiteral("cut")};
}

} // namespace

TEST(XlsStrings, CutAtEveryPlace)
{
    struct
    {
        const char *what;
        QString text;
        bool isWide;
        int runs, phoneticSize;
    } const cases[] = {
        {"characters of one byte", "abcdefg", false, 0, 0},
        {"the upper half of Latin", "Übergröße", false, 0, 0},
        {"characters of two bytes", "日本語abc", true, 0, 0},
        {"Latin in two bytes", "abcdef", true, 0, 0},
        {"a surrogate pair", QString::fromUtf8("a\U0001F600b\U0001F601"), true, 0, 0},
        {"formatted runs", "abcd", false, 3, 0},
        {"phonetic text", "日本", true, 0, 13},
        {"runs and phonetic text", "日本ab", true, 2, 7},
        {"an empty text with both", "", false, 1, 5},
    };
    const QByteArray next = stored("next", false, 0, 0).head + "next";
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const StoredText text = stored(c.text, c.isWide, c.runs, c.phoneticSize);
        const QByteArray all = text.head + text.characters + text.tail + next;
        const QStringList expected{c.text, QStringLiteral("next")};
        EXPECT_EQ(readTexts(2, all, {}), expected);
        const int begin = text.head.size();
        const int end = begin + text.characters.size();
        for (int cut = 0; cut <= all.size(); ++cut) {
            SCOPED_TRACE(cut);
            QByteArray behind = all.mid(cut);
            const bool isInCharacters = cut >= begin && cut < end;
            if (isInCharacters && c.isWide && (cut - begin) % 2 != 0) {
                EXPECT_EQ(readTexts(2, all.left(cut), QByteArray(1, '\1') + behind), QStringList{"cut"});
                continue;
            }
            const bool isInNext = cut >= all.size() - 4 && cut < all.size();
            if (isInCharacters || isInNext) {
                behind.prepend(c.isWide && !isInNext ? '\1' : '\0');
            }
            EXPECT_EQ(readTexts(2, all.left(cut), behind), expected);
            // The end of the stream instead of the rest.
            const QStringList rest = readTexts(2, all.left(cut), {});
            const bool isWhole = cut == 0 || cut == all.size() || cut == all.size() - next.size();
            EXPECT_EQ(rest == QStringList{"cut"}, !isWhole);
        }
    }
}

TEST(XlsStrings, WidthChangesWhereItIsCut)
{
    const QByteArray latin = "abcdef";
    for (int cut = 0; cut < latin.size(); ++cut) {
        SCOPED_TRACE(cut);
        const QByteArray behind = latin.mid(cut);
        const StoredText narrow = stored("abcdef", false, 0, 0);
        EXPECT_EQ(readTexts(1, narrow.head + latin.left(cut), '\1' + widened(behind)), QStringList{"abcdef"});
        const StoredText wide = stored("abcdef", true, 0, 0);
        EXPECT_EQ(readTexts(1, wide.head + wide.characters.left(2 * cut), '\0' + narrowed(widened(behind))),
            QStringList{"abcdef"});
    }
}

TEST(XlsStrings, LoneSurrogatesAreReplaced)
{
    const QString replaced = QString(QChar(0xFFFD));
    struct
    {
        const char *what;
        QString text, expected;
    } const cases[] = {
        {"a first half at the end", QString("a") + QChar(0xD83D), "a" + replaced},
        {"a first half before a letter", QString(QChar(0xD83D)) + "a", replaced + "a"},
        {"a second half alone", QString("a") + QChar(0xDE00) + "b", "a" + replaced + "b"},
        {"two first halves", QString(QChar(0xD83D)) + QChar(0xD83D) + QChar(0xDE00), replaced + "\U0001F600"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const StoredText text = stored(c.text, true, 0, 0);
        EXPECT_EQ(readTexts(1, text.head + text.characters, {}), QStringList{c.expected});
    }
}

TEST(XlsStrings, CountsThatLie)
{
    const QByteArray two = biffText("one") + biffText("two");
    EXPECT_EQ(readTexts(0xFFFFFFFF, two, {}), (QStringList{"one", "two"}));
    EXPECT_EQ(readTexts(1, two, {}), QStringList{"one"});
    EXPECT_EQ(readTexts(0, two, {}), QStringList());
    EXPECT_EQ(readTexts(2, two, QByteArray("")), (QStringList{"one", "two"}));
}
