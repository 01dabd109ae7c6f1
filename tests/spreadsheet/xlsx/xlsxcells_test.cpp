#include "spreadsheet/datesystem.h"
#include "spreadsheet/xlsx/xlsxtestbook.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

struct CellsCase
{
    const char *what;
    QByteArray rows;
    QString cells;
};

const QByteArray threeTexts = "<si><t>zero</t></si><si><t>one</t></si><si><t/></si>";
const QByteArray threeFormats = "<cellXfs><xf/><xf numFmtId=\"14\"/><xf/></cellXfs>";

void expectCells(const CellsCase &c)
{
    SCOPED_TRACE(c.what);
    // Once as written, and once so that no cell has the plain form that is read past the parser.
    for (const char *cellStart : {"<c ", "<c  "}) {
        QByteArray rows = c.rows;
        rows.replace("<c ", cellStart);
        LoadedXlsx loaded(XlsxTestBook().rows(rows).texts(threeTexts).styles(threeFormats));
        EXPECT_EQ(loaded.cells().toStdString(), c.cells.toStdString());
    }
}

TEST(XlsxCells, ReadsEveryTypeOfCell)
{
    const CellsCase cases[] = {
        {"no cell at all", "", ""},
        {"numbers in all their forms",
            "<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"B1\" t=\"n\"><v>-0.5</v></c><c r=\"C1\"><v>1.5E+10</v></c>"
            "<c r=\"D1\"><v> 7 </v></c><c r=\"E1\"><v>+2</v></c><c r=\"F1\"><v>.5</v></c><c r=\"G1\"><v>5e-324</v></c>"
            "</row>",
            "A1=1 B1=-0.5 C1=15000000000 D1=7 E1=2 F1=0.5 G1=4.94065645841247e-324"},
        {"what is no finite number stays as text",
            "<row r=\"1\"><c r=\"A1\"><v>1,5</v></c><c r=\"B1\"><v>INF</v></c><c r=\"C1\"><v>1e999</v></c>"
            "<c r=\"D1\"><v>NaN</v></c><c r=\"E1\"><v>12 x</v></c><c r=\"F1\"><v>+-1</v></c></row>",
            "A1=\"1,5\" B1=\"INF\" C1=\"1e999\" D1=\"NaN\" E1=\"12 x\" F1=\"+-1\""},
        {"texts of the shared ones",
            "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>1</v></c><c r=\"B1\" t=\"s\"><v>0</v></c></row>",
            "A1=\"one\" B1=\"zero\""},
        {"a shared text that is empty is a text", "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>2</v></c></row>", "A1=\"\""},
        {"texts of their own keep spaces",
            "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t> a </t></is></c><c r=\"B1\" t=\"str\"><v> b "
            "</v></c></row>",
            "A1=\" a \" B1=\" b \""},
        {"texts of their own beside a value of another type",
            "<row r=\"1\"><c r=\"A1\" t=\"b\"><is><t>1</t></is></c><c r=\"B1\"><is><t></t></is></c><c r=\"C1\" "
            "t=\"s\"><is>"
            "<t>0_x0041_</t></is></c></row>",
            "A1=\"1\" B1=\"\" C1=\"0A\""},
        {"runs are put together, without guides to pronunciation",
            "<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><r><rPr><b/><rFont val=\"x\"/></rPr><t>a</t></r>"
            "<r><t xml:space=\"preserve\"> b</t></r><rPh sb=\"0\" eb=\"1\"><t>no</t></rPh><phoneticPr "
            "fontId=\"1\"/></is>"
            "</c></row>",
            "A1=\"a b\""},
        {"a text where a number is expected",
            "<row r=\"1\"><c r=\"A1\"><is><t>a</t></is></c><c r=\"B1\" t=\"inlineStr\"><v>b</v></c>"
            "<c r=\"C1\" t=\"new\"><v>c</v></c></row>",
            "A1=\"a\" B1=\"b\" C1=\"c\""},
        {"escaped units are characters",
            "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>a_x0041_b_x005F_x0042__x000g_</v></c>"
            "<c r=\"B1\" t=\"inlineStr\"><is><t>_xD83D__xDE00_</t></is></c></row>",
            QString("A1=\"aAb_x0042__x000g_\" B1=\"%1\"").arg("\U0001F600")},
        {"half a pair can't be a character and stays",
            "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>_xD83D_</v></c><c r=\"B1\" t=\"str\"><v>_xDE00_x</v></c></row>",
            "A1=\"_xD83D_\" B1=\"_xDE00_x\""},
        {"an escape doesn't reach over two runs",
            "<row r=\"1\"><c r=\"A1\"><is><r><t>_x00</t></r><r><t>41_</t></r></is></c></row>", "A1=\"_x0041_\""},
        {"booleans",
            "<row r=\"1\"><c r=\"A1\" t=\"b\"><v>1</v></c><c r=\"B1\" t=\"b\"><v>0</v></c><c r=\"C1\" "
            "t=\"b\"><v>true</v></c>"
            "<c r=\"D1\" t=\"b\"><v>maybe</v></c></row>",
            "A1=true B1=false C1=true D1=\"maybe\""},
        {"errors", "<row r=\"1\"><c r=\"A1\" t=\"e\"><v>#DIV/0!</v></c><c r=\"B1\" t=\"e\"><v>#NEW!</v></c></row>",
            "A1=#DIV/0! B1=#VALUE!"},
        {"strict dates",
            "<row r=\"1\"><c r=\"A1\" t=\"d\"><v>2024-01-31</v></c><c r=\"B1\" t=\"d\"><v>2024-01-31T12:00:00Z</v></c>"
            "<c r=\"C1\" t=\"d\"><v>06:00:00</v></c><c r=\"D1\" t=\"d\"><v>1900-01-01T00:00</v></c>"
            "<c r=\"E1\" t=\"d\"><v>2024-01-31T18:00:00.000+02:00</v></c></row>",
            "A1=d:45322 B1=d:45322.5 C1=d:0.25 D1=d:1 E1=d:45322.75"},
        {"what is no date stays as text",
            "<row r=\"1\"><c r=\"A1\" t=\"d\"><v>2024-02-30</v></c><c r=\"B1\" t=\"d\"><v>yesterday</v></c>"
            "<c r=\"C1\" t=\"d\"><v>1899-01-01</v></c><c r=\"D1\" t=\"d\"><v>2024-01-31Tx</v></c></row>",
            "A1=\"2024-02-30\" B1=\"yesterday\" C1=\"1899-01-01\" D1=\"2024-01-31Tx\""},
        {"empty cells count when they have a format",
            "<row r=\"1\"><c r=\"A1\"/><c r=\"B1\" s=\"0\"/><c r=\"C1\" s=\"2\"/><c r=\"D1\" s=\"1\"><v></v></c>"
            "<c r=\"E1\" t=\"s\"/><c r=\"F1\" t=\"str\"><v></v></c></row>",
            "C1=~/2 D1=~/1 F1=\"\""},
        {"a format that isn't there is the first one",
            "<row r=\"1\"><c r=\"A1\" s=\"1\"><v>1</v></c><c r=\"B1\" s=\"3\"><v>2</v></c><c r=\"C1\" "
            "s=\"-1\"><v>3</v></c>"
            "<c r=\"D1\" s=\"99999999999\"><v>4</v></c></row>",
            "A1=1/1 B1=2 C1=3 D1=4"},
        {"formulas with their last results",
            "<row r=\"1\"><c r=\"A1\"><f>B1&amp;\"x\"</f><v>3</v></c><c r=\"B1\" t=\"str\"><f t=\"shared\" "
            "si=\"0\"/><v>x</v></c>"
            "<c r=\"C1\" t=\"b\"><f ca=\"1\">1&lt;2</f><v>1</v></c><c r=\"D1\"><f>1+1</f></c></row>",
            "A1=3{<f>B1&amp;&quot;x&quot;</f>} B1=\"x\"{<f t=\"shared\" si=\"0\"></f>} C1=true{<f ca=\"1\">1&lt;2</f>} "
            "D1=~{<f>1+1</f>}"},
    };
    for (const CellsCase &c : cases) {
        expectCells(c);
    }
}

TEST(XlsxCells, FindsThePlaceOfEveryCell)
{
    const CellsCase cases[] = {
        {"places that aren't stated go on from the one before",
            "<row><c><v>1</v></c><c><v>2</v></c></row><row><c r=\"C2\"><v>3</v></c><c><v>4</v></c></row>"
            "<row r=\"9\"><c><v>5</v></c></row><row><c><v>6</v></c></row>",
            "A1=1 B1=2 C2=3 D2=4 A9=5 A10=6"},
        {"rows and cells in any order",
            "<row r=\"3\"><c r=\"C3\"><v>1</v></c><c r=\"A3\"><v>2</v></c><c r=\"B3\"><v>3</v></c></row>"
            "<row r=\"1\"><c r=\"A1\"><v>4</v></c></row>",
            "A1=4 A3=2 B3=3 C3=1"},
        {"the last of two cells at a place counts, an empty one too",
            "<row r=\"1\"><c r=\"A1\"><f>1</f><v>1</v></c><c r=\"A1\"><v>2</v></c><c r=\"B1\"><v>1</v></c><c "
            "r=\"B1\"/></row>"
            "<row r=\"1\"><c r=\"C1\"><v>3</v></c></row>",
            "A1=2 B1=~ C1=3"},
        {"a cell that names another row stands there",
            "<row r=\"1\"><c r=\"A7\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row>", "B1=2 A7=1"},
        {"the last place of a sheet", "<row r=\"1048576\"><c r=\"XFD1048576\"><v>1</v></c></row>", "XFD1048576=1"},
        {"a cell below the sheet is refused", "<row r=\"1\"><c r=\"A1048577\"><v>1</v></c></row>",
            "The sheet has a cell at 'A1048577', which is no place in a sheet"},
        {"a cell to the right of the sheet is refused", "<row r=\"1\"><c r=\"XFE1\"><v>1</v></c></row>",
            "The sheet has a cell at 'XFE1', which is no place in a sheet"},
        {"a cell without a row is refused", "<row r=\"1\"><c r=\"A\"><v>1</v></c></row>",
            "The sheet has a cell at 'A', which is no place in a sheet"},
        {"a row below the sheet is refused", "<row r=\"1048577\"/>",
            "The sheet has a row that lies outside of any sheet"},
        {"row 0 is refused", "<row r=\"0\"/>", "The sheet has a row that lies outside of any sheet"},
        {"a row behind the last one is refused", "<row r=\"1048576\"/><row/>",
            "The sheet has a row that lies outside of any sheet"},
        {"a row that is no number is refused", "<row r=\"x\"/>", "The sheet has a row that lies outside of any sheet"},
        {"a text that isn't there is refused", "<row r=\"1\"><c r=\"B1\" t=\"s\"><v>3</v></c></row>",
            "The cell B1 refers to a text that the workbook doesn't have"},
        {"a negative text is refused", "<row r=\"1\"><c r=\"B1\" t=\"s\"><v>-1</v></c></row>",
            "The cell B1 refers to a text that the workbook doesn't have"},
    };
    for (const CellsCase &c : cases) {
        expectCells(c);
    }
}

TEST(XlsxCells, MixesPlainCellsWithAllOthers)
{
    const CellsCase cases[] = {
        {"comments, instructions and sections hold no cells",
            "<row r=\"1\"><!-- <c r=\"A1\"><v>1</v></c> --><c r=\"B1\"><v>2</v></c><?x <c r=\"C1\"><v>3</v></c> ?>"
            "<![CDATA[ <c r=\"D1\"><v>4</v></c> ]]><c r=\"E1\"><v>5</v></c></row>",
            "B1=2 E1=5"},
        {"nor do elements of other programs",
            "<row r=\"1\"><mc:AlternateContent><c r=\"A1\"><v>1</v></c></mc:AlternateContent><extLst><c "
            "r=\"B1\"><v>2</v></c>"
            "</extLst><c r=\"C1\"><v>3</v></c><c r=\"D1\" x:new=\"1\"><v>4</v><x:v>5</x:v></c></row>",
            "C1=3 D1=4"},
        {"entities of XML, characters by number and sections in a value",
            "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>a&amp;b</v></c><c r=\"B1\"><v>&#49;</v></c>"
            "<c r=\"C1\" t=\"str\"><v><![CDATA[<v>]]></v></c><c r=\"&#68;1\"><v>4</v></c></row>",
            "A1=\"a&b\" B1=1 C1=\"<v>\" D1=4"},
        {"characters outside of ASCII",
            "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>\xC3\xA9</v></c><c r=\"B1\"><v>1</v></c></row>",
            QString("A1=\"%1\" B1=1").arg(QChar(0xE9))},
        {"spaces, quotes and line ends in tags",
            "<row r=\"1\"><c\nr='A1'\tt = \"n\" ><v>1</v ></c><c r=\"B1\"><v>2</v>\n</c>\n<c "
            "r=\"C1\"><v\n>3</v></c></row>",
            "A1=1 B1=2 C1=3"},
        {"a line end in a text is one line feed", "<row r=\"1\"><c r=\"A1\" t=\"str\"><v>a\r\nb</v></c></row>",
            "A1=\"a\nb\""},
    };
    for (const CellsCase &c : cases) {
        expectCells(c);
    }
}

TEST(XlsxCells, ReadsTheSameFromPiecesOfEverySize)
{
    // Plain and other cells meet the ends of the pieces in which a part is inflated.
    QByteArray rows;
    for (int row = 1; row <= 4000; ++row) {
        const QByteArray number = QByteArray::number(row);
        rows += "<row r=\"" + number + "\"><c r=\"A" + number + "\"><v>" + number + "</v></c><c r=\"B" + number
                + "\" t=\"str\"><v>" + QByteArray(row % 23, 'x') + (row % 7 == 0 ? "\xC3\xA9" : "") + "</v></c></row>";
    }
    LoadedXlsx loaded(XlsxTestBook().rows(rows));
    const Sheet *sheet = loaded.first();
    ASSERT_TRUE(sheet) << loaded.book().errorMessage().toStdString();
    EXPECT_EQ(sheet->lastRow(), 4000);
    for (int row = 1; row <= 4000; ++row) {
        ASSERT_EQ(sheet->readNum(row - 1, 0), row);
        const QString text = QString(row % 23, 'x') + (row % 7 == 0 ? QString(QChar(0xE9)) : QString());
        ASSERT_EQ(sheet->readStr(row - 1, 1), text);
    }
}

TEST(XlsxCells, KeepsTextsThatWereWrittenBeforeTheFirstSheetWasRead)
{
    LoadedXlsx loaded(XlsxTestBook().rows("<row><c t=\"s\"><v>1</v></c></row>").texts(threeTexts));
    Sheet *added = loaded.book().addSheet("New");
    added->writeStr(0, 0, "mine");
    EXPECT_EQ(loaded.cells(), "A1=\"one\"");
    EXPECT_EQ(added->readStr(0, 0), "mine");
}

TEST(XlsxCells, FindsOutWhetherASheetHasCells)
{
    struct
    {
        const char *what;
        QByteArray rows;
        bool hasCells;
    } const cases[] = {
        {"nothing", "", false},
        {"a value", "<row><c><v>1</v></c></row>", true},
        {"a text that isn't read for it", "<row><c t=\"s\"><v>99</v></c></row>", true},
        {"empty cells and rows", "<row hidden=\"1\"/><row><c/><c r=\"B9\"/></row>", false},
        {"a format", "<row><c s=\"1\"/></row>", true},
        {"a formula", "<row><c><f>1</f></c></row>", true},
        {"damage behind the first cell isn't reached", "<row><c><v>1</v></c><oops></row>", true},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        LoadedXlsx loaded(XlsxTestBook().rows(c.rows).styles(threeFormats));
        EXPECT_EQ(loaded.book().sheetHasCells(0), c.hasCells);
    }
}

TEST(XlsxCells, TellsDatesByFormatAndSystem)
{
    XlsxTestBook book;
    book.rows("<row><c s=\"1\"><v>1.5</v></c><c><v>1.5</v></c><c t=\"d\"><v>1904-01-02T12:00</v></c></row>");
    book.styles(threeFormats);
    book.replace("xl/workbook.xml", "<sheets>", "<workbookPr date1904=\"1\"/><sheets>");
    LoadedXlsx loaded(book);
    const Sheet *sheet = loaded.first();
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(sheet->isDate(0, 0));
    EXPECT_FALSE(sheet->isDate(0, 1));
    EXPECT_TRUE(sheet->isDate(0, 2));
    EXPECT_EQ(sheet->readNum(0, 2), 1.5);
    DateParts parts;
    ASSERT_TRUE(loaded.book().dateUnpack(1.5, &parts));
    EXPECT_EQ(parts.year, 1904);
    EXPECT_EQ(parts.day, 2);
    EXPECT_EQ(parts.hour, 12);
}

} // namespace
