#include "spreadsheet/xlsx/xlsxeditfixture.h"

#include <gtest/gtest.h>

using namespace spreadsheet;
using namespace foreignbook;

namespace {

TEST_F(XlsxEdit, CellsRowsAndColumnsKeepWhatTheyHad)
{
    const auto book = load();
    Sheet *sheet = book->getSheet(data);
    sheet->writeNum(0, 4, 1);
    sheet->setCol(1, 20, true);
    const QByteArray part = saved(*book).bytes(dataPart);
    const char *kept[] = {"<row r=\"1\" x14ac:dyDescent=\"0.25\">", "<row r=\"2\" ht=\"30\" customHeight=\"1\">",
        "<row r=\"4\" s=\"1\" customFormat=\"1\">",
        "<c r=\"D2\"><f t=\"shared\" ref=\"D2:D4\" si=\"0\">B2*2</f><v>2</v></c>",
        "<c r=\"D3\"><f t=\"shared\" si=\"0\"></f><v>4</v></c>", "<c r=\"C4\" t=\"e\"><v>#N/A</v></c>",
        "<c r=\"B4\" s=\"1\"><v>3.5</v></c>", "<c r=\"A2\" t=\"s\"><v>2</v></c>", "<dimension ref=\"A1:E4\"/>",
        "<cols><col min=\"1\" max=\"1\" width=\"12.5\" style=\"1\" customWidth=\"1\" bestFit=\"1\"/>"
        "<col min=\"2\" max=\"2\" width=\"20\" style=\"1\" hidden=\"1\" customWidth=\"1\" bestFit=\"1\"/>"
        "<col min=\"3\" max=\"3\" width=\"12.5\" style=\"1\" customWidth=\"1\" bestFit=\"1\"/></cols>"};
    for (const char *text : kept) {
        EXPECT_TRUE(part.contains(text)) << text << "\n" << part.constData();
    }
}

TEST_F(XlsxEdit, UntouchedCellsKeepWhatOnlyOtherProgramsKnow)
{
    TestPackage package = foreignWorkbook();
    const QByteArray runs =
        "<is><r><t xml:space=\"preserve\">rich &amp; </t></r><r><rPr><b></b><sz val=\"9\"></sz></rPr>"
        "<t>_x0041_</t></r><rPh sb=\"0\" eb=\"1\"><t>guide</t></rPh></is>";
    const QByteArray cells[] = {"<c r=\"A5\" cm=\"1\"><f t=\"array\" ref=\"A5:A6\">UNIQUE(B2:B3)</f><v>1</v></c>",
        "<c r=\"B5\" vm=\"1\" t=\"e\"><v>#VALUE!</v></c>", "<c r=\"C5\" t=\"e\"><v>#SPILL!</v></c>",
        "<c r=\"D5\" s=\"1\" cm=\"2\" vm=\"3\" t=\"s\"><v>0</v></c>",
        "<c r=\"E5\" vm=\"9\" t=\"inlineStr\">" + runs + "</c>", "<c r=\"F5\" ph=\"1\" t=\"b\"><v>1</v></c>"};
    QByteArray row = "<row r=\"5\">";
    for (const QByteArray &cell : cells) {
        row += cell;
    }
    package.edit(dataPart, "</sheetData>", row + "</row></sheetData>");
    package.edit(dataPart, "A1:D4", "A1:F5");
    const auto kept = load(package);
    EXPECT_EQ(kept->getSheet(data)->readStr(4, 4), QStringLiteral("rich & A"));
    kept->getSheet(data)->writeNum(9, 0, 1);
    const QByteArray part = saved(*kept).bytes(dataPart);
    for (const QByteArray &cell : cells) {
        EXPECT_TRUE(part.contains(cell)) << cell.constData() << "\n" << part.constData();
    }

    const auto changed = load(package);
    changed->getSheet(data)->writeStr(4, 3, QStringLiteral("x"));
    changed->getSheet(data)->writeStr(4, 4, QStringLiteral("y"));
    changed->getSheet(data)->writeFormula(4, 0, QStringLiteral("=1"));
    changed->getSheet(data)->clear(4, 4, 1, 1);
    const QByteArray now = saved(*changed).bytes(dataPart);
    for (const char *gone : {"cm=\"", "vm=\"", "rich", "guide"}) {
        EXPECT_FALSE(now.contains(gone)) << gone << "\n" << now.constData();
    }
}

TEST_F(XlsxEdit, APlainTextKeepsItsGuide)
{
    const struct
    {
        const char *what, *text, *written;
    } cases[] = {
        {"a guide behind the text", "<t>a &amp; _x0001_ </t><rPh sb=\"0\" eb=\"1\"><t>b</t></rPh>",
            "<is><t xml:space=\"preserve\">a &amp; _x0001_ </t><rPh sb=\"0\" eb=\"1\"><t>b</t></rPh></is>"},
        {"an empty text", "<t/><phoneticPr fontId=\"1\"/>",
            "<is><t xml:space=\"preserve\"></t><phoneticPr fontId=\"1\"></phoneticPr></is>"},
        {"nothing but a text", "<t xml:space=\"preserve\"> a</t>", "<c r=\"A9\" t=\"s\">"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        TestPackage package = foreignWorkbook();
        package.edit(dataPart, "</sheetData>",
            QByteArray("<row r=\"9\"><c r=\"A9\" t=\"inlineStr\"><is>") + c.text + "</is></c></row></sheetData>");
        package.edit(dataPart, "A1:D4", "A1:D9");
        const auto book = load(package);
        book->getSheet(data)->writeNum(8, 1, 1);
        const QByteArray part = saved(*book).bytes(dataPart);
        EXPECT_TRUE(part.contains(c.written)) << part.constData();
    }
}

TEST_F(XlsxEdit, RunsGetThePrefixOfTheirPart)
{
    TestPackage package = foreignWorkbook();
    package.set(QStringLiteral("xl/worksheets/sheet2.xml"),
        "<x:worksheet xmlns:x=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><x:sheetData><x:row "
        "r=\"1\">"
        "<x:c r=\"A1\" t=\"inlineStr\"><x:is><x:r><x:t>a</x:t></x:r></x:is></x:c></x:row></x:sheetData></x:worksheet>");
    const auto book = load(package);
    book->getSheet(other)->writeNum(1, 0, 1);
    const QByteArray part = saved(*book).bytes(QStringLiteral("xl/worksheets/sheet2.xml"));
    EXPECT_TRUE(part.contains("<x:is><x:r><x:t>a</x:t></x:r></x:is>")) << part.constData();
}

TEST_F(XlsxEdit, RowsWithoutCellsKeepWhatTheySay)
{
    TestPackage package = foreignWorkbook();
    const QByteArray rows[] = {"<row r=\"6\" outlineLevel=\"1\">", "<row r=\"7\" collapsed=\"1\">",
        "<row r=\"8\" thickTop=\"1\">", "<row r=\"9\" thickBot=\"true\" x14ac:dyDescent=\"0.25\">",
        "<row r=\"10\" ht=\"15.75\">", "<row r=\"12\" ht=\"30\" hidden=\"1\" outlineLevel=\"2\">"};
    QByteArray all;
    for (const QByteArray &row : rows) {
        all += row + "</row>";
    }
    package.edit(
        dataPart, "</sheetData>", all + "<row r=\"13\" outlineLevel=\"0\" x14ac:dyDescent=\"0.25\"/></sheetData>");
    const auto book = load(package);
    EXPECT_EQ(book->getSheet(data)->rowHeight(9), -1) << "fitted to its cells, which may change";
    EXPECT_EQ(book->getSheet(data)->lastRow(), 4);
    book->getSheet(data)->writeNum(10, 0, 1);
    const QByteArray part = saved(*book).bytes(dataPart);
    for (const QByteArray &row : rows) {
        EXPECT_TRUE(part.contains(row)) << row.constData() << "\n" << part.constData();
    }
    EXPECT_FALSE(part.contains("<row r=\"13\"")) << "it says nothing";
}

TEST_F(XlsxEdit, AFittedHeightGoesWithTheCellsThatItFitted)
{
    TestPackage package = foreignWorkbook();
    package.edit(dataPart, "<row r=\"3\">", "<row r=\"3\" ht=\"45\">");
    package.edit(dataPart, "<row r=\"4\" ", "<row r=\"4\" ht=\"60\" ");
    const auto book = load(package);
    book->getSheet(data)->writeNum(2, 1, 1);
    book->getSheet(data)->clear(3, 3, 0, 0);
    const QByteArray part = saved(*book).bytes(dataPart);
    EXPECT_TRUE(part.contains("<row r=\"2\" ht=\"30\" customHeight=\"1\">"));
    EXPECT_FALSE(part.contains("ht=\"45\"") || part.contains("ht=\"60\"")) << part.constData();
}

TEST_F(XlsxEdit, SharedFormulasWithoutTheirMasterBecomeValues)
{
    const auto book = load();
    book->getSheet(data)->writeNum(1, 3, 7);
    const QByteArray part = saved(*book).bytes(dataPart);
    EXPECT_TRUE(part.contains("<c r=\"D3\"><v>4</v></c>")) << part.constData();
    EXPECT_FALSE(part.contains("t=\"shared\""));
}

TEST_F(XlsxEdit, MergesGoToTheirPlace)
{
    const auto book = load();
    book->getSheet(data)->setMerge({8, 9, 0, 1});
    book->getSheet(other)->setMerge({8, 9, 0, 1});
    const TestPackage after = saved(*book);
    EXPECT_TRUE(after.bytes(dataPart).contains(
        "</sheetData><mergeCells count=\"1\"><mergeCell ref=\"A9:B10\"/></mergeCells><conditionalFormatting"));
    EXPECT_TRUE(after.bytes(QStringLiteral("xl/worksheets/sheet2.xml"))
                    .contains("<autoFilter ref=\"A1:B3\"/><mergeCells count=\"2\"><mergeCell ref=\"D1:E2\"/>"
                              "<mergeCell ref=\"A9:B10\"/></mergeCells></worksheet>"));
}

TEST_F(XlsxEdit, StrictDatesStayDates)
{
    TestPackage package = foreignWorkbook();
    package.edit(dataPart, "<c r=\"B2\"><v>1</v></c>", "<c r=\"B2\" t=\"d\"><v>2024-01-31T12:30:00</v></c>");
    package.edit(dataPart, "<c r=\"B3\"><v>2</v></c>", "<c r=\"B3\" t=\"d\"><v>2024-02-29</v></c>");
    const auto book = load(package);
    book->getSheet(data)->writeNum(9, 0, 1);
    const QByteArray part = saved(*book).bytes(dataPart);
    EXPECT_TRUE(part.contains("<c r=\"B2\" t=\"d\"><v>2024-01-31T12:30:00</v></c>")) << part.constData();
    EXPECT_TRUE(part.contains("<c r=\"B3\" t=\"d\"><v>2024-02-29</v></c>"));
}

} // namespace
