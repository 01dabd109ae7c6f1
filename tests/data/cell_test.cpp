#include "data/cellcolumn.h"
#include "data/valuepool.h"
#include "support/printers.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

struct TextCase
{
    const char *what;
    QString text;
};

const TextCase texts[] = {
    {"no text", QString()},
    {"seven bytes lie in the cell", "1234567"},
    {"eight bytes lie in the arena", "12345678"},
    {"seven characters of eight bytes", "123456\u00e9"},
    {"a NUL is a character like others", QString("a") + QChar(0) + "b"},
    {"only NULs", QString(7, QChar(0))},
    {"characters of two, three and four bytes", "\u00e9\u20ac\U0001F600"},
    {"half a surrogate pair", QString(QChar(0xD83D))},
    {"the other half first", QString(QChar(0xDE00)) + QChar(0xD83D)},
    {"half a pair at the end of a long text", QString(300, 'x') + QChar(0xD83D)},
    {"the largest size that a cell holds itself", QString(32766, 'x')},
    {"the first that stands before the text", QString(32767, 'y')},
    {"more than that", QString(40000, 'z')},
    {"a megabyte and more", QString(400000, QChar(0x20AC))},
};

TEST(Cell, GivesBackEveryText)
{
    TextArena arena;
    for (const TextCase &c : texts) {
        SCOPED_TRACE(c.what);
        const Cell cell = arena.store(c.text);
        EXPECT_EQ(cell.text(), c.text);
        EXPECT_EQ(cell.isEmpty(), c.text.isEmpty());
        EXPECT_TRUE(cell.sameText(arena.store(c.text)));
        EXPECT_FALSE(cell.sameText(arena.store(c.text + "x")));
        EXPECT_EQ(TextCoding::unitCount(cell.bytes(), cell.size()), c.text.size());
    }
}

TEST(Cell, SameInlineTextHasSameBits)
{
    TextArena arena;
    EXPECT_EQ(arena.store("1234567").bits(), arena.store("1234567").bits());
    EXPECT_NE(arena.store("a").bits(), arena.store(QString("a") + QChar(0)).bits());
    EXPECT_EQ(arena.store(QString()).bits(), Cell().bits());
}

TEST(TextArena, KeepsTextsOfAllSizesApart)
{
    // Blocks grow while they fill, and long texts get blocks of their own: every size meets every kind of block.
    QRandomGenerator random(3);
    TextArena arena;
    QVector<QPair<QString, Cell>> stored;
    for (int i = 0; i < 3000; ++i) {
        const int size = random.bounded(i % 50 == 0 ? 70000 : i % 7 == 0 ? 2000 : 40);
        const QString text(size, QChar('a' + i % 26));
        stored.append({text, arena.store(text)});
    }
    for (const auto &entry : stored) {
        ASSERT_EQ(entry.second.text(), entry.first);
    }
}

struct Utf8Case
{
    const char *what;
    QByteArray bytes;
    bool valid;
};

TEST(TextCoding, TellsValidUtf8)
{
    const Utf8Case cases[] = {
        {"nothing", "", true},
        {"ASCII", "plain text of more than eight", true},
        {"two to four bytes behind eight of ASCII", "12345678\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", true},
        {"Latin-1", "caf\xE9", false},
        {"a lone continuation", "\x80", false},
        {"cut short", "12345678\xE2\x82", false},
        {"overlong blank", "\xC0\xA0", false},
        {"overlong of three bytes", "\xE0\x80\xA0", false},
        {"a surrogate", "\xED\xA0\xBD", false},
        {"the last code point", "\xF4\x8F\xBF\xBF", true},
        {"one behind the last", "\xF4\x90\x80\x80", false},
    };
    for (const Utf8Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(TextCoding::isValidUtf8(c.bytes.constData(), c.bytes.size()), c.valid);
        if (c.valid) {
            EXPECT_EQ(TextCoding::decode(c.bytes.constData(), c.bytes.size()), QString::fromUtf8(c.bytes));
        }
    }
}

TEST(TextCoding, RandomUnitsSurvive)
{
    QRandomGenerator random(5);
    const QVector<ushort> units{'a', 0, 0x7F, 0x80, 0x7FF, 0x800, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFF};
    for (int i = 0; i < 20000; ++i) {
        QString text;
        for (int left = random.bounded(12); left > 0; --left) {
            text.append(QChar(units.at(random.bounded(units.size()))));
        }
        QByteArray bytes;
        TextCoding::appendEncoded(bytes, text.constData(), text.size());
        ASSERT_EQ(TextCoding::decode(bytes.constData(), bytes.size()), text);
        if (text == QString::fromUtf8(text.toUtf8())) {
            ASSERT_EQ(bytes, text.toUtf8());
        }
    }
}

TEST(ValuePool, FindsOnlyTheSameText)
{
    TextArena arena;
    ValuePool pool;
    const auto entered = [&](const QByteArray &text) {
        Cell cell = pool.find(text.constData(), text.size());
        if (cell.isEmpty()) {
            cell = arena.store(text.constData(), text.size());
            pool.enter(cell);
        }
        return cell;
    };
    // The same ends and size give the same hash, so these two take turns in one place.
    const QByteArray first = "Springfield, North, 12345";
    const QByteArray second = "Springfield, South, 12345";
    for (int i = 0; i < 10000; ++i) {
        const QByteArray &text = i % 3 ? first : second;
        ASSERT_EQ(entered(text).text(), QString(text));
    }
    EXPECT_EQ(entered(first).bits(), entered(first).bits());
}

TEST(ValuePool, GivesUpOnTextsThatDoNotRepeat)
{
    TextArena arena;
    ValuePool pool;
    for (int i = 0; i < 10000; ++i) {
        const QByteArray text = "unique text " + QByteArray::number(i);
        ASSERT_TRUE(pool.find(text.constData(), text.size()).isEmpty());
        pool.enter(arena.store(text.constData(), text.size()));
    }
    const QByteArray last = "unique text 9999";
    EXPECT_TRUE(pool.find(last.constData(), last.size()).isEmpty());
}

TEST(CellVector, CopiesAreIndependent)
{
    CellVector first(3);
    first.data()[1] = Cell::inlined("a", 1);
    CellVector second = first;
    EXPECT_TRUE(second.sharesWith(first));
    second.append(Cell::inlined("b", 1));
    second.insert(0, Cell::inlined("c", 1));
    second.remove(2);
    EXPECT_EQ(first.size(), 3);
    EXPECT_EQ(first.at(1).text(), "a");
    EXPECT_EQ(second.size(), 4);
    EXPECT_EQ(second.at(0).text(), "c");
    EXPECT_TRUE(second.at(2).isEmpty());
    EXPECT_EQ(second.at(3).text(), "b");
}

TEST(CellColumn, GathersRowsAndKeepsTheirTexts)
{
    CellColumn gathered;
    {
        CellColumn column;
        const TextArenaPointer arena(new TextArena);
        column.keep(arena);
        column.cells.append(arena->store(QStringLiteral("a text in the arena")));
        column.cells.append(Cell::inlined("b", 1));
        gathered = column.gathered({1, -1, 0});
    }
    ASSERT_EQ(gathered.size(), 3);
    EXPECT_EQ(gathered.at(0).text(), "b");
    EXPECT_TRUE(gathered.at(1).isEmpty());
    EXPECT_EQ(gathered.at(2).text(), "a text in the arena");
}

} // namespace
