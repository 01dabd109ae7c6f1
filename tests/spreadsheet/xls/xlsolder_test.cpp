#include "spreadsheet/xls/compoundfile.h"
#include "xlstestbook.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

constexpr unsigned version5 = 0x0500;

/// A text as older workbooks hold it, behind its length of one or two bytes.
QByteArray shortBytes(const QByteArray &text)
{
    return static_cast<char>(text.size()) + text;
}

QByteArray longBytes(const QByteArray &text)
{
    return words({unsigned(text.size())}) + text;
}

QByteArray codePage(unsigned number)
{
    return record(RecordId::CodePage, words({number}));
}

/// An XF record of sixteen bytes.
QByteArray olderFormat(unsigned font, unsigned number, unsigned place = 0x20, quint32 fill = 0, quint32 sides = 0)
{
    return record(RecordId::ExtendedFormat, words({font, number, 1, place}) + dword(fill) + dword(sides));
}

QByteArray label(unsigned row, const QByteArray &text)
{
    return record(RecordId::Label, words({row, 0, 0}) + longBytes(text));
}

/// A workbook of version 5.0 with one sheet.
QByteArray olderFile(const QByteArray &globals, const QByteArray &records, const QString &sheet = "Data")
{
    XlsTestBook book;
    book.version = version5;
    book.globals = globals;
    book.sheets = {{sheet, records}};
    return compoundFile(book.stream(), "Book");
}

} // namespace

TEST(XlsOlder, TextsAreInTheCodePage)
{
    struct
    {
        const char *what;
        QByteArray globals;
        QByteArray bytes;
        QString text;
    } const cases[] = {
        {"without one, western Windows", {},
            "Gr\xF6\xDF"
            "e \x80",
            "Größe €"},
        {"western Windows", codePage(1252), "\xE9", "é"},
        {"the number that older programs wrote for it", codePage(32769), "\xE9", "é"},
        {"cyrillic Windows", codePage(1251), "\xC6\xF3\xEA", "Жук"},
        {"a console's", codePage(850), "\x81", "ü"},
        {"another computer's", codePage(10000), "\x8A", "ä"},
        {"and by its other number", codePage(32768), "\x8A", "ä"},
        {"Japanese in one and two bytes", codePage(932), "a\x93\xFA\x96\x7B", "a日本"},
        {"Chinese", codePage(936), "\xD6\xD0", "中"},
        {"ASCII", codePage(367), "plain", "plain"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QByteArray runs = words({1}) + QByteArray(2, '\0');
        const QByteArray cells = label(0, c.bytes)
                                 + record(RecordId::RichLabel, words({1, 0, 0}) + longBytes(c.bytes) + runs)
                                 + record(RecordId::Formula,
                                     words({2, 0, 0}) + QByteArray(6, '\0') + words({0xFFFF, 0, 0, 0, 0}))
                                 + record(RecordId::String, longBytes(c.bytes)) + label(3, "");
        LoadedXls loaded(olderFile(c.globals + olderFormat(0, 0), cells, QString::fromLatin1(c.bytes)));
        ASSERT_TRUE(loaded.isLoaded()) << qPrintable(loaded.error());
        EXPECT_EQ(loaded.book().getSheetName(0), c.text);
        const Sheet *sheet = loaded.first();
        ASSERT_TRUE(sheet) << qPrintable(loaded.error());
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(sheet->readStr(row, 0), c.text) << row;
        }
        EXPECT_EQ(sheet->cellType(3, 0), CellType::String);
    }
}

TEST(XlsOlder, ALongTextGoesOnInTheNextRecord)
{
    const QByteArray cells = record(RecordId::Label, words({0, 0, 0, 7}) + "abc")
                             + record(RecordId::Continue, "d\xE9"
                                                          "fg");
    LoadedXls loaded(olderFile(olderFormat(0, 0), cells));
    ASSERT_TRUE(loaded.first()) << qPrintable(loaded.error());
    EXPECT_EQ(loaded.first()->readStr(0, 0), QString("abcdéfg"));
    LoadedXls cut(olderFile(olderFormat(0, 0), record(RecordId::Label, words({0, 0, 0, 7}) + "abc")));
    EXPECT_FALSE(cut.first());
    EXPECT_EQ(cut.error(), QString("The workbook is damaged: cell A1 isn't readable."));
}

TEST(XlsOlder, NumbersAndLooks)
{
    const QByteArray font = record(
        RecordId::Font, words({280, 2, 0x7FFF, 700, 0}) + QByteArray(4, '\0') + shortBytes("\xC6uri"));
    // Yellow within; a thin line to the left, a thick one above, dashes to the right and double ones below.
    const quint32 fill = 13 | (0u << 7) | (1u << 16) | (6u << 22) | (10u << 25);
    const quint32 sides = 5u | (1u << 3) | (3u << 6) | (12u << 9) | (8u << 16) | (9u << 23);
    const QByteArray globals = codePage(1251) + font
                               + record(RecordId::NumberFormat, words({170}) + shortBytes("yyyy\"\xE3.\""))
                               + olderFormat(0, 0) + olderFormat(0, 170, 0x020A, fill, sides)
                               + record(RecordId::Date1904, words({1}));
    const QByteArray cells = record(RecordId::Number, words({0, 0, 1}) + real(1000))
                             + record(RecordId::MultipleRk,
                                 words({1, 0, 0}) + dword(6) + words({1}) + dword(10) + words({1}))
                             + record(RecordId::BoolError, words({2, 0, 0, 1}));
    LoadedXls loaded(olderFile(globals, cells));
    const Sheet *sheet = loaded.first();
    ASSERT_TRUE(sheet) << qPrintable(loaded.error());
    EXPECT_EQ(sheet->readNum(0, 0), 1000);
    EXPECT_TRUE(sheet->isDate(0, 0));
    EXPECT_EQ(sheet->readNum(1, 0), 1);
    EXPECT_FALSE(sheet->isDate(1, 0));
    EXPECT_EQ(sheet->readNum(1, 1), 2);
    EXPECT_TRUE(sheet->readBool(2, 0));
    const CellStyle &style = sheet->cellFormat(0, 0)->style();
    EXPECT_EQ(style.numberCode, QString("yyyy\"г.\""));
    EXPECT_EQ(style.font.name, QString("Жuri"));
    EXPECT_EQ(style.font.size, 14);
    EXPECT_TRUE(style.font.bold && style.font.italic);
    EXPECT_EQ(style.alignment.horizontal, 2);
    EXPECT_TRUE(style.alignment.wrap);
    EXPECT_EQ(style.alignment.vertical, 0);
    EXPECT_EQ(style.alignment.rotation, 90);
    EXPECT_EQ(style.fill.pattern, 1);
    EXPECT_EQ(style.fill.foreground.rgb, qRgb(255, 255, 0));
    EXPECT_EQ(style.border.left.style, 1);
    EXPECT_EQ(style.border.right.style, 3);
    EXPECT_EQ(style.border.top.style, 5);
    EXPECT_EQ(style.border.bottom.style, 6);
}

TEST(XlsOlder, OnlyTheBeginningOfTheStreamDecides)
{
    XlsTestBook newer;
    newer.globals = formatRecord();
    newer.sheets = {{"N", record(RecordId::Label, words({0, 0, 0}) + biffText("日本"))}};
    for (const char *name : {"Workbook", "WORKBOOK", "Book", "BOOK"}) {
        SCOPED_TRACE(name);
        LoadedXls loaded(compoundFile(newer.stream(), name));
        ASSERT_TRUE(loaded.first()) << qPrintable(loaded.error());
        EXPECT_EQ(loaded.first()->readStr(0, 0), QString("日本"));
        EXPECT_EQ(loaded.book().whyUnchangeable(), QString());
        // Written back to where it was.
        loaded.first()->writeNum(1, 0, 5);
        QTemporaryDir folder;
        const QString path = folder.filePath("saved.xls");
        ASSERT_TRUE(loaded.book().save(path)) << qPrintable(loaded.book().errorMessage());
        Book read(FileKind::Xls);
        ASSERT_TRUE(read.load(path)) << qPrintable(read.errorMessage());
        EXPECT_EQ(read.getSheet(0)->readStr(0, 0), QString("日本"));
        EXPECT_EQ(read.getSheet(0)->readNum(1, 0), 5);
        CompoundFile file;
        ASSERT_TRUE(file.open(path));
        EXPECT_EQ(file.parts().size(), 2u);
        EXPECT_EQ(file.parts().back().path, QString(name));
    }
    LoadedXls older(olderFile(olderFormat(0, 0), label(0, "x")));
    ASSERT_TRUE(older.first()) << qPrintable(older.error());
    older.first()->writeNum(1, 0, 5);
    EXPECT_FALSE(older.book().save("/does/not/matter.xls"));
    EXPECT_EQ(older.book().errorMessage(),
        QString("The workbook is of version 5.0 or 95, which can be read but not changed."));
}
