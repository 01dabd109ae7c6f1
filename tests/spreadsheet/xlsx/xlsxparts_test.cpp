#include "spreadsheet/xlsx/relationships.h"
#include "spreadsheet/xlsx/xlsxtestbook.h"

#include <QTextCodec>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

const QByteArray oneCell = "<row><c t=\"s\"><v>0</v></c></row>";
const QByteArray oneText = "<si><t>found</t></si>";

XlsxTestBook smallBook()
{
    return XlsxTestBook().rows(oneCell).texts(oneText);
}

void move(XlsxTestBook *book, const QByteArray &from, const QByteArray &to)
{
    const QByteArray content = book->parts()[from];
    book->without(from).part(to, content);
}

TEST(XlsxParts, FindsThemHoweverTheyAreNamed)
{
    struct
    {
        const char *what;
        void (*change)(XlsxTestBook *);
    } const cases[] = {
        {"targets from the part's folder", [](XlsxTestBook *) {}},
        {"targets from the root",
            [](XlsxTestBook *book) {
                book->replace("xl/_rels/workbook.xml.rels", "worksheets/data", "/xl/worksheets/data");
            }},
        {"targets that go up and stay",
            [](XlsxTestBook *book) {
                book->replace("xl/_rels/workbook.xml.rels", "texts.xml", "../xl/./sub/../texts.xml");
            }},
        {"a workbook in the root under another name",
            [](XlsxTestBook *book) {
                move(book, "xl/workbook.xml", "Book One.xml");
                move(book, "xl/_rels/workbook.xml.rels", "_rels/Book One.xml.rels");
                book->replace("_rels/.rels", "xl/workbook.xml", "Book%20One.xml");
                book->replace("_rels/Book One.xml.rels", "Target=\"", "Target=\"xl/");
            }},
        {"other case", [](XlsxTestBook *book) { move(book, "xl/worksheets/data.xml", "XL/Worksheets/DATA.XML"); }},
        {"backslashes in the archive",
            [](XlsxTestBook *book) { move(book, "xl/worksheets/data.xml", "xl\\worksheets\\data.xml"); }},
        {"backslashes in a target",
            [](XlsxTestBook *book) {
                book->replace("xl/_rels/workbook.xml.rels", "worksheets/data", "worksheets\\data");
            }},
        {"a slash in front of names in the archive",
            [](XlsxTestBook *book) { move(book, "xl/texts.xml", "/xl/texts.xml"); }},
        {"the strict form's namespaces",
            [](XlsxTestBook *book) {
                for (const QByteArray &name : book->parts().keys()) {
                    book->replace(name, "http://schemas.openxmlformats.org/officeDocument/2006",
                        "http://purl.oclc.org/ooxml/officeDocument");
                    book->replace(name, "http://schemas.openxmlformats.org/spreadsheetml/2006",
                        "http://purl.oclc.org/ooxml/spreadsheetml");
                }
            }},
        {"prefixes in all parts",
            [](XlsxTestBook *book) {
                for (const QByteArray &name :
                    {QByteArray("xl/workbook.xml"), XlsxTestBook::sheetName, QByteArray("xl/texts.xml")}) {
                    book->replace(name, "<", "<x:").replace(name, "<x:/", "</x:").replace(name, "<x:?", "<?");
                    book->replace(name, "xmlns=", "xmlns:x=").replace(name, "r:id", "rel:id");
                }
            }},
        {"UTF-16 with a mark of its order",
            [](XlsxTestBook *book) {
                for (const QByteArray &name : {XlsxTestBook::sheetName, QByteArray("xl/texts.xml")}) {
                    book->replace(name, "UTF-8", "UTF-16");
                    book->part(name, QTextCodec::codecForName("UTF-16LE")->fromUnicode(QString(book->parts()[name])));
                }
            }},
        {"UTF-8 with a mark",
            [](XlsxTestBook *book) {
                book->part(XlsxTestBook::sheetName, "\xEF\xBB\xBF" + book->parts()[XlsxTestBook::sheetName]);
            }},
        {"no declaration",
            [](XlsxTestBook *book) {
                book->replace(XlsxTestBook::sheetName, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>", "");
            }},
        {"two relations of one id, of which the first counts",
            [](XlsxTestBook *book) {
                book->replace("xl/_rels/workbook.xml.rels", "</Relationships>",
                    "<Relationship Id=\"s1\" Type=\"x/chartsheet\" Target=\"gone.xml\"/></Relationships>");
            }},
        {"relations to parts that aren't there and to the part itself",
            [](XlsxTestBook *book) {
                book->replace("xl/_rels/workbook.xml.rels", "</Relationships>",
                    "<Relationship Id=\"x\" Type=\"x/officeDocument\" Target=\"workbook.xml\"/><Relationship Id=\"y\" "
                    "Type=\"x/customXml\" Target=\"gone.xml\"/></Relationships>");
            }},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        XlsxTestBook book = smallBook();
        c.change(&book);
        EXPECT_EQ(LoadedXlsx(book).cells(), "A1=\"found\"");
    }
}

TEST(XlsxParts, ListsSheetsInOrder)
{
    XlsxTestBook book;
    book.replace("xl/workbook.xml", "</sheets>",
        "<sheet name=\"A &amp; B\" sheetId=\"9\" state=\"hidden\" r:id=\"c\"/><sheet name=\"Macros\" sheetId=\"1\" "
        "r:id=\"m\"/>"
        "<sheet name=\"Gone\" sheetId=\"2\" r:id=\"nothing\"/><sheet name=\"Missing\" sheetId=\"4\" r:id=\"g\"/>"
        "<sheet name=\"Itself\" sheetId=\"5\" r:id=\"i\"/></sheets>");
    book.replace("xl/_rels/workbook.xml.rels", "</Relationships>",
        "<Relationship Id=\"c\" Type=\"x/chartsheet\" Target=\"charts/c.xml\"/><Relationship Id=\"m\" "
        "Type=\"x/xlMacrosheet\" Target=\"m.xml\"/><Relationship Id=\"g\" Type=\"x/worksheet\" Target=\"gone.xml\"/>"
        "<Relationship Id=\"i\" Type=\"x/worksheet\" Target=\"workbook.xml\"/></Relationships>");
    LoadedXlsx loaded(book);
    ASSERT_TRUE(loaded.isLoaded());
    QStringList sheets;
    for (int i = 0; i < loaded.book().sheetCount(); ++i) {
        sheets.append(loaded.book().getSheetName(i) + ' ' + QString::number(loaded.book().sheetType(i)));
    }
    EXPECT_EQ(sheets, QStringList({"Data 0", "A & B 1", "Macros 2", "Gone 0", "Missing 0", "Itself 0"}));
    EXPECT_FALSE(loaded.book().getSheet(1));
    EXPECT_FALSE(loaded.book().getSheet(3));
    EXPECT_EQ(loaded.book().errorMessage(), "The file has no part for the sheet");
    EXPECT_FALSE(loaded.book().getSheet(4));
    EXPECT_EQ(loaded.book().errorMessage(), "The file has no part 'xl/gone.xml'");
    EXPECT_FALSE(loaded.book().getSheet(5));
    EXPECT_EQ(loaded.book().errorMessage(), "The sheet is not a worksheet");
    EXPECT_TRUE(loaded.book().getSheet(0)) << "the others can still be read";
}

TEST(XlsxParts, DoesWithoutThoseThatMayBeMissing)
{
    LoadedXlsx loaded(XlsxTestBook().rows("<row><c s=\"5\"><v>7</v></c></row>"));
    EXPECT_EQ(loaded.cells(), "A1=7");
    EXPECT_TRUE(loaded.book().format(0));
}

TEST(XlsxParts, ResolvesTargets)
{
    struct
    {
        const char *what;
        QString part, target, resolved;
    } const cases[] = {
        {"in the same folder", "xl/workbook.xml", "styles.xml", "xl/styles.xml"},
        {"of the whole file", "", "xl/workbook.xml", "xl/workbook.xml"},
        {"not above the root", "xl/workbook.xml", "../../../../etc/passwd", "etc/passwd"},
        {"nothing", "xl/workbook.xml", "", "xl"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(Relationships::resolve(c.part, c.target), c.resolved);
    }
    EXPECT_EQ(Relationships::partFor("xl/workbook.xml"), "xl/_rels/workbook.xml.rels");
    EXPECT_EQ(Relationships::partFor(""), "_rels/.rels");
}

} // namespace
