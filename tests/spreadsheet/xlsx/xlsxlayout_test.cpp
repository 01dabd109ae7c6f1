#include "spreadsheet/xlsx/xlsxtestbook.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

QString rangesOf(const std::vector<CellRange> &ranges)
{
    QStringList texts;
    for (const CellRange &range : ranges) {
        texts.append(QString::fromLatin1(rangeReference(range)));
    }
    return texts.join(' ');
}

TEST(XlsxLayout, ReadsRows)
{
    LoadedXlsx loaded(
        XlsxTestBook()
            .styles("<cellXfs><xf/><xf numFmtId=\"9\"/></cellXfs>")
            .rows("<row r=\"1\" spans=\"1:3\" hidden=\"1\"/><row r=\"2\" ht=\"30.5\" customHeight=\"1\"/>"
                  "<row r=\"3\" ht=\"40\"/><row r=\"4\" s=\"1\" customFormat=\"true\"/><row r=\"5\" s=\"1\"/>"
                  "<row r=\"6\" outlineLevel=\"2\" d:y=\"0.25\" hidden=\"0\"><c><v>1</v></c></row>"
                  "<row r=\"8\" d:y=\"0.25\"/><row r=\"9\" ht=\"-3\" customHeight=\"1\" hidden=\"true\"/>"));
    const Sheet *sheet = loaded.first();
    ASSERT_TRUE(sheet) << loaded.book().errorMessage().toStdString();
    EXPECT_TRUE(sheet->rowHidden(0));
    EXPECT_FALSE(sheet->rowHidden(1));
    EXPECT_EQ(sheet->rowHeight(1), 30.5);
    EXPECT_LT(sheet->rowHeight(2), 0) << "a height that no user gave";
    const GridRow *formatted = sheet->cells().row(3);
    ASSERT_TRUE(formatted);
    EXPECT_TRUE(formatted->hasFormat);
    EXPECT_EQ(formatted->format, 1u);
    EXPECT_FALSE(sheet->cells().row(4)) << "a format that isn't in use";
    EXPECT_EQ(sheet->cells().row(5)->otherAttributes, " outlineLevel=\"2\" d:y=\"0.25\"");
    EXPECT_FALSE(sheet->rowHidden(5));
    EXPECT_FALSE(sheet->cells().row(7)) << "a row that has nothing of its own";
    EXPECT_LT(sheet->rowHeight(8), 0);
    EXPECT_TRUE(sheet->rowHidden(8));
    EXPECT_EQ(sheet->firstRow(), 5);
    EXPECT_EQ(sheet->lastRow(), 6) << "rows without cells are not used";
}

TEST(XlsxLayout, KeepsARowsOwnWhenOneOfItsCellsStandsElsewhere)
{
    LoadedXlsx loaded(XlsxTestBook().rows("<row r=\"1\" hidden=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"A5\"><v>2</v></c>"
                                          "<c r=\"B1\"><v>3</v></c></row>"));
    EXPECT_EQ(loaded.cells(), "A1=1 B1=3 A5=2");
    EXPECT_TRUE(loaded.first()->rowHidden(0));
    EXPECT_FALSE(loaded.first()->rowHidden(4));
}

TEST(XlsxLayout, HidesRowsThatAreNotThere)
{
    LoadedXlsx loaded(XlsxTestBook().sheet("<sheetFormatPr defaultRowHeight=\"15\" zeroHeight=\"1\"/><sheetData>"
                                           "<row r=\"1\"/><row r=\"3\"><c><v>1</v></c></row></sheetData>"));
    const Sheet *sheet = loaded.first();
    ASSERT_TRUE(sheet);
    EXPECT_FALSE(sheet->rowHidden(0));
    EXPECT_TRUE(sheet->rowHidden(1));
    EXPECT_FALSE(sheet->rowHidden(2));
    EXPECT_TRUE(sheet->rowHidden(3));
    EXPECT_EQ(sheet->layout().defaultHeight, 15);
    EXPECT_LT(sheet->layout().defaultWidth, 0);
}

TEST(XlsxLayout, ReadsColumns)
{
    struct
    {
        const char *what;
        QByteArray columns;
        QString read;
    } const cases[] = {
        {"width, hidden state, format and the rest",
            "<col min=\"2\" max=\"3\" width=\"12.5\" customWidth=\"1\"/><col min=\"5\" max=\"5\" hidden=\"1\" "
            "width=\"0\"/>"
            "<col min=\"6\" max=\"16384\" style=\"1\" bestFit=\"1\" width=\"9\"/>",
            "B-C w12.5|E-E w0 hidden|F-XFD w9 f1 bestFit=\"1\""},
        {"without a width", "<col min=\"1\" max=\"1\" outlineLevel=\"1\"/>", "A-A w-1 outlineLevel=\"1\""},
        {"in any order", "<col min=\"5\" max=\"6\" width=\"1\"/><col min=\"1\" max=\"2\" width=\"2\"/>",
            "A-B w2|E-F w1"},
        {"of two that overlap the second has what is left",
            "<col min=\"1\" max=\"4\" width=\"1\"/><col min=\"2\" max=\"6\" width=\"2\"/><col min=\"3\" max=\"3\" "
            "width=\"3\"/>",
            "A-D w1|E-F w2"},
        {"what no sheet has is left out",
            "<col min=\"0\" max=\"2\" width=\"1\"/><col min=\"4\" max=\"3\" width=\"1\"/><col width=\"1\"/>"
            "<col min=\"16385\" max=\"16390\" width=\"1\"/><col min=\"16384\" max=\"99999\" width=\"7\"/>",
            "XFD-XFD w7"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        LoadedXlsx loaded(
            XlsxTestBook().styles("<cellXfs><xf/><xf/></cellXfs>").sheet("<cols>" + c.columns + "</cols><sheetData/>"));
        const Sheet *sheet = loaded.first();
        ASSERT_TRUE(sheet);
        QStringList read;
        for (const ColumnRecord &column : sheet->layout().columns) {
            read.append(QString("%1-%2 w%3%4%5%6")
                            .arg(QString(columnLetters(column.first)), QString(columnLetters(column.last)))
                            .arg(column.width)
                            .arg(column.hidden ? " hidden" : "")
                            .arg(column.hasFormat ? QString(" f%1").arg(column.format) : QString())
                            .arg(QString(column.otherAttributes)));
        }
        EXPECT_EQ(read.join('|'), c.read);
    }
}

TEST(XlsxLayout, ReadsMergedRanges)
{
    LoadedXlsx loaded(XlsxTestBook().sheet("<sheetData/><mergeCells count=\"5\"><mergeCell ref=\"A1:B2\"/>"
                                           "<mergeCell ref=\"D9:C4\"/><mergeCell ref=\"#REF!\"/><mergeCell/>"
                                           "<mergeCell ref=\"F:G\"/></mergeCells>"));
    const Sheet *sheet = loaded.first();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(rangesOf(sheet->layout().merges), "A1:B2 C4:D9 F1:G1048576");
}

TEST(XlsxLayout, ReadsHyperlinks)
{
    const QByteArray type = "Type=\"" + XlsxTestBook::officeRelations + "hyperlink\" TargetMode=\"External\"";
    LoadedXlsx loaded(
        XlsxTestBook()
            .relations("xl/worksheets/_rels/data.xml.rels",
                "<Relationship Id=\"web\" " + type
                    + " Target=\"http://ex.org/?a=1&amp;b=%20\"/><Relationship Id=\"file\" " + type
                    + " Target=\"..\\other.xlsx\"/><Relationship Id=\"web\" " + type + " Target=\"second\"/>")
            .sheet("<sheetData/><hyperlinks><hyperlink ref=\"A1\" r:id=\"web\" display=\"x &amp; y\"/>"
                   "<hyperlink ref=\"B1:C2\" r:id=\"file\" location=\"Sheet1!A1\"/>"
                   "<hyperlink ref=\"D1\" location=\"'My sheet'!A1\"/><hyperlink ref=\"E1\" other:id=\"web\"/>"
                   "<hyperlink ref=\"F1\" r:id=\"gone\"/><hyperlink ref=\"nowhere\" r:id=\"web\"/></hyperlinks>"));
    const Sheet *sheet = loaded.first();
    ASSERT_TRUE(sheet) << loaded.book().errorMessage().toStdString();
    QStringList links;
    for (int i = 0; i < sheet->hyperlinkSize(); ++i) {
        links.append(QString(rangeReference(sheet->hyperlink(i).range)) + ' ' + sheet->hyperlink(i).target);
    }
    const QStringList expected = {"A1 http://ex.org/?a=1&b=%20", "B1:C2 ..\\other.xlsx#Sheet1!A1", "D1 'My sheet'!A1",
        "E1 http://ex.org/?a=1&b=%20", "F1 "};
    EXPECT_EQ(links, expected);
    EXPECT_EQ(sheet->hyperlink(0).stored, "<hyperlink ref=\"A1\" r:id=\"web\" display=\"x &amp; y\"/>");
}

} // namespace
