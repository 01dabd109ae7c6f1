#include "xlstestbook.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

const QByteArray standardLink = QByteArray::fromHex("d0c9ea79f9bace118c8200aa004ba90b");
const QByteArray urlMoniker = QByteArray::fromHex("e0c9ea79f9bace118c8200aa004ba90b");
const QByteArray fileMoniker = QByteArray::fromHex("0303000000000000c000000000000046");
const QByteArray compositeMoniker = QByteArray::fromHex("0903000000000000c000000000000046");

QByteArray wide(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

QByteArray counted(const QString &text)
{
    return dword(quint32(text.size()) + 1) + wide(text) + words({0});
}

QByteArray url(const QString &text)
{
    return urlMoniker + dword(quint32(text.size()) * 2 + 2) + wide(text) + words({0});
}

QByteArray file(unsigned stepsUp, const QByteArray &narrow, const QString &path = {})
{
    const QByteArray unicode = path.isNull() ? QByteArray() : dword(quint32(path.size()) * 2) + words({3}) + wide(path);
    return fileMoniker + words({stepsUp}) + dword(quint32(narrow.size()) + 1) + narrow + '\0' + words({0xFFFF, 0xDEAD})
           + QByteArray(20, '\0') + dword(quint32(unicode.size())) + unicode;
}

QByteArray linkData(quint32 flags, const QByteArray &parts)
{
    return words({2, 3, 1, 4}) + standardLink + dword(2) + dword(flags) + parts;
}

QByteArray row(unsigned number, unsigned height, quint32 options)
{
    return record(RecordId::Row, words({number, 0, 1, height, 0, 0}) + dword(options));
}

QByteArray columns(unsigned first, unsigned last, unsigned width, unsigned format, unsigned options)
{
    return record(RecordId::ColumnInfo, words({first, last, width, format, options, 0}));
}

} // namespace

TEST(XlsLayout, HyperlinkTargets)
{
    struct
    {
        const char *what;
        QByteArray data;
        QString target;
    } const cases[] = {
        {"an address", linkData(3, url("http://example.org/ü?a=1")), "http://example.org/ü?a=1"},
        {"an address with a mark", linkData(0x0B, url("http://example.org") + counted("top")),
            "http://example.org#top"},
        {"a mark alone", linkData(8, counted("'Other One'!B2")), "'Other One'!B2"},
        {"a display name and a frame before the address",
            linkData(0x97, counted("shown") + counted("_blank") + url("http://example.org")), "http://example.org"},
        {"an address with more behind its end",
            linkData(3, urlMoniker + dword(2 * 7 + 24) + wide("http:a") + words({0}) + QByteArray(24, '\7')), "http:a"},
        {"a path in characters of one byte", linkData(1, file(0, "C:\\a.xls")), "C:\\a.xls"},
        {"a path in both forms", linkData(1, file(0, "C:\\_.xls", "C:\\日.xls")), "C:\\日.xls"},
        {"a path from two folders up, with a mark", linkData(9, file(2, "a.xls") + counted("S!A1")),
            "..\\..\\a.xls#S!A1"},
        {"a target as plain text", linkData(0x101, counted("\\\\server\\share")), "\\\\server\\share"},
        {"a target in a list of targets", linkData(1, compositeMoniker + dword(1) + url("http:b")), "http:b"},
        {"a target of an unknown kind", linkData(1, QByteArray(40, '\1')), ""},
        {"an address that isn't all there", linkData(3, urlMoniker + dword(0xFFFFFFFF) + wide("http:c")), "http:c"},
        {"lists in lists", linkData(1, (compositeMoniker + dword(0xFFFFFFFF)).repeated(100)), ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const auto loaded = LoadedXls::sheet(record(RecordId::HyperLink, c.data));
        ASSERT_TRUE(loaded->first()) << qPrintable(loaded->error());
        ASSERT_EQ(loaded->first()->hyperlinkSize(), 1);
        const Hyperlink &link = loaded->first()->hyperlink(0);
        EXPECT_EQ(link.target, c.target);
        EXPECT_EQ(link.stored, c.data);
        EXPECT_EQ(link.range.rowFirst, 2);
        EXPECT_EQ(link.range.rowLast, 3);
        EXPECT_EQ(link.range.columnFirst, 1);
        EXPECT_EQ(link.range.columnLast, 4);
    }
}

TEST(XlsLayout, HyperlinksWithoutARangeAreLeftOut)
{
    const QByteArray rest = standardLink + dword(2) + dword(8) + counted("A1");
    const auto loaded = LoadedXls::sheet(record(RecordId::HyperLink, words({3, 2, 0, 0}) + rest)
                                         + record(RecordId::HyperLink, words({0, 0, 300, 400}) + rest)
                                         + record(RecordId::HyperLink, words({0, 0, 5, 400}) + rest)
                                         + record(RecordId::HyperLink, words({0, 0})));
    ASSERT_TRUE(loaded->first());
    ASSERT_EQ(loaded->first()->hyperlinkSize(), 1);
    EXPECT_EQ(loaded->first()->hyperlink(0).range.columnLast, 255);
}

TEST(XlsLayout, Rows)
{
    const auto loaded = LoadedXls::sheet(record(RecordId::DefaultRowHeight, words({0, 300})) + row(0, 300, 0x000F0100)
                                         + row(1, 600, 0x000F0140) + row(2, 300, 0x000F0120) + row(3, 450, 0x000F0100)
                                         + row(4, 300, 0x00020180) + row(5, 300, 0x000F0102) + row(6, 300, 0xFFF0180));
    Sheet *sheet = loaded->first();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->layout().defaultHeight, 15.0);
    EXPECT_FALSE(sheet->cells().row(0)) << "a usual row takes no memory";
    EXPECT_EQ(sheet->rowHeight(1), 30.0);
    EXPECT_FALSE(sheet->rowHidden(1));
    EXPECT_TRUE(sheet->rowHidden(2));
    EXPECT_LT(sheet->rowHeight(2), 0);
    EXPECT_LT(sheet->rowHeight(3), 0) << "an automatic height is none of its own";
    EXPECT_EQ(sheet->cells().row(3)->otherAttributes, words({450, 0, 0}) + dword(0x000F0100));
    EXPECT_TRUE(sheet->cells().row(4)->hasFormat);
    EXPECT_EQ(sheet->cells().row(4)->format, 2u);
    EXPECT_EQ(sheet->cells().row(5)->otherAttributes, words({300, 0, 0}) + dword(0x000F0102));
    EXPECT_FALSE(sheet->cells().row(6)) << "a format that doesn't exist";
    EXPECT_EQ(sheet->lastRow(), 0) << "rows without cells aren't used";
}

TEST(XlsLayout, OtherRowsHidden)
{
    const auto loaded = LoadedXls::sheet(record(RecordId::DefaultRowHeight, words({2, 300})) + row(0, 300, 0x000F0100));
    ASSERT_TRUE(loaded->first());
    EXPECT_FALSE(loaded->first()->rowHidden(0));
    EXPECT_TRUE(loaded->first()->rowHidden(1));
}

TEST(XlsLayout, Columns)
{
    const auto loaded = LoadedXls::sheet(record(RecordId::DefaultColumnWidth, words({8})) + columns(1, 3, 2560, 15, 0)
                                         + columns(2, 2, 1280, 2, 0x0101) + columns(250, 256, 512, 0, 1)
                                         + columns(9, 5, 1, 0, 1) + record(RecordId::ColumnInfo, words({20, 20, 256})));
    Sheet *sheet = loaded->first();
    ASSERT_TRUE(sheet);
    const std::vector<ColumnRecord> &read = sheet->layout().columns;
    ASSERT_EQ(read.size(), 4u);
    EXPECT_EQ(sheet->layout().defaultWidth, 8.0);
    EXPECT_EQ(sheet->colWidth(1), 10.0);
    EXPECT_EQ(sheet->colWidth(2), 5.0) << "the later record wins";
    EXPECT_EQ(sheet->colWidth(3), 10.0);
    EXPECT_FALSE(sheet->colHidden(1));
    EXPECT_TRUE(sheet->colHidden(2));
    EXPECT_FALSE(read[0].hasFormat);
    EXPECT_TRUE(read[1].hasFormat);
    EXPECT_EQ(read[1].format, 2u);
    EXPECT_EQ(read[1].otherAttributes, words({0x0101}));
    EXPECT_TRUE(read[3].otherAttributes.isEmpty());
    EXPECT_EQ(read[3].last, 255);
}

TEST(XlsLayout, StatedWidthComesBeforeCountedOne)
{
    const QByteArray stated = record(RecordId::StandardWidth, words({3072}));
    const QByteArray counted = record(RecordId::DefaultColumnWidth, words({8}));
    for (const QByteArray &records : {stated + counted, counted + stated}) {
        const auto loaded = LoadedXls::sheet(records);
        ASSERT_TRUE(loaded->first());
        EXPECT_EQ(loaded->first()->layout().defaultWidth, 12.0);
    }
}

TEST(XlsLayout, MergedRanges)
{
    // The second list says that it has more than it has; reversed and outer ranges are left out.
    const auto loaded = LoadedXls::sheet(record(RecordId::MergedCells, words({3, 0, 1, 0, 2, 5, 4, 0, 0, 0, 0, 9, 300}))
                                         + record(RecordId::MergedCells, words({7, 8, 9, 3, 3})));
    Sheet *sheet = loaded->first();
    ASSERT_TRUE(sheet);
    ASSERT_EQ(sheet->mergeSize(), 2);
    EXPECT_EQ(sheet->merge(0).columnLast, 2);
    EXPECT_EQ(sheet->merge(1).rowFirst, 8);
    EXPECT_EQ(sheet->merge(1).columnLast, 3);
}

TEST(XlsLayout, SystemColorsOfFills)
{
    struct
    {
        const char *what;
        unsigned foreground, background;
        StyleColor expectedForeground, expectedBackground;
    } const cases[] = {
        {"the usual ones", 64, 65, {}, {}},
        {"a solid fill in the window's background", 65, 8, {true, 0xFFFFFFFF}, {true, 0xFF000000}},
        {"both exchanged", 65, 64, {true, 0xFFFFFFFF}, {true, 0xFF000000}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QByteArray xf = record(
            RecordId::ExtendedFormat, words({0, 0, 1, 0x20, 0, 0, 0, 0, 1 << 10, c.foreground | (c.background << 7)}));
        const auto loaded = LoadedXls::sheet({}, xf);
        ASSERT_TRUE(loaded->isLoaded());
        EXPECT_TRUE(loaded->book().format(3)->style().fill.foreground == c.expectedForeground);
        EXPECT_TRUE(loaded->book().format(3)->style().fill.background == c.expectedBackground);
    }
}

TEST(XlsLayout, StylesOfCells)
{
    const auto font = [](unsigned height, unsigned flags, unsigned color, unsigned weight, const QByteArray &name) {
        ByteBuffer data;
        for (unsigned value : {height, flags, color, weight, 1u}) {
            data.u16(value);
        }
        data.bytes(QByteArray::fromHex("22020100")); // double underline for accounting, family, character set
        data.u8(static_cast<unsigned>(name.size()));
        data.u8(0);
        data.bytes(name);
        return record(RecordId::Font, data.data());
    };
    QByteArray fonts;
    for (const char *name : {"zero", "one", "two", "three"}) {
        fonts += font(200, 0, 0x7FFF, 400, name);
    }
    fonts += font(290, 0x0A, 9, 700, "five"); // number 4 is never used
    const QByteArray palette = record(RecordId::Palette, words({2}) + QByteArray::fromHex("1122330044556600"));
    const QByteArray xf = record(
        RecordId::ExtendedFormat, words({5, 2, 0x0002, 0x2D1A, 0x0052, 0x4321, 0xC488, 0xC509, 0x18A2, 0x0608}));
    const auto loaded = LoadedXls::sheet({}, fonts + palette + xf);
    ASSERT_TRUE(loaded->isLoaded());
    const Format *format = loaded->book().format(3);
    ASSERT_TRUE(format);
    const CellStyle &style = format->style();
    EXPECT_EQ(style.font.name, QString("five"));
    EXPECT_EQ(style.font.size, 14.5);
    EXPECT_TRUE(style.font.bold && style.font.italic && style.font.strikeOut);
    EXPECT_EQ(style.font.underline, 34);
    EXPECT_EQ(style.font.script, 1);
    EXPECT_EQ(style.font.color.rgb, 0xFF445566) << "by the file's own palette";
    EXPECT_EQ(style.numberFormat, 2);
    EXPECT_FALSE(style.locked);
    EXPECT_TRUE(style.hiddenFormula);
    EXPECT_EQ(style.alignment.horizontal, 2);
    EXPECT_TRUE(style.alignment.wrap);
    EXPECT_EQ(style.alignment.vertical, 1);
    EXPECT_EQ(style.alignment.rotation, 45);
    EXPECT_EQ(style.alignment.indent, 2);
    EXPECT_TRUE(style.alignment.shrink);
    EXPECT_EQ(style.alignment.readingOrder, 1);
    EXPECT_EQ(style.border.left.style, 1);
    EXPECT_EQ(style.border.right.style, 2);
    EXPECT_EQ(style.border.top.style, 3);
    EXPECT_EQ(style.border.bottom.style, 4);
    EXPECT_EQ(style.border.left.color.rgb, 0xFF112233);
    EXPECT_EQ(style.border.right.color.rgb, 0xFF445566);
    EXPECT_EQ(style.border.top.color.rgb, 0xFF445566);
    EXPECT_EQ(style.border.bottom.color.rgb, 0xFFFF0000) << "by the standard palette";
    EXPECT_EQ(style.border.diagonal.style, 5);
    EXPECT_EQ(style.border.diagonal.color.rgb, 0xFF00FF00);
    EXPECT_EQ(style.fill.pattern, 6);
    EXPECT_EQ(style.fill.foreground.rgb, 0xFF112233);
    EXPECT_EQ(style.fill.background.rgb, 0xFF0000FF);
    EXPECT_TRUE(style.border.diagonalDown && style.border.diagonalUp);
    EXPECT_EQ(loaded->book().format(0)->style().font.name, QString("zero"));
    EXPECT_FALSE(loaded->book().format(0)->style().font.color.isSet);
    EXPECT_FALSE(loaded->book().format(4));
}
