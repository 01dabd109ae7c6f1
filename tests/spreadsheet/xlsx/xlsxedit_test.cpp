#include "spreadsheet/book.h"
#include "spreadsheet/xlsx/xlsxeditbook.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

constexpr int data = 0, other = 2; // worksheets of the foreign workbook
const QString dataPart = QStringLiteral("xl/worksheets/sheet1.xml");
const QString dataRelations = QStringLiteral("xl/worksheets/_rels/sheet1.xml.rels");
const QString tablePart = QStringLiteral("xl/tables/table1.xml");
const QString textsPart = QStringLiteral("xl/sharedStrings.xml");
const QString stylesPart = QStringLiteral("xl/styles.xml");
const QString workbookPart = QStringLiteral("xl/workbook.xml");

class XlsxEdit : public ::testing::Test
{
protected:
    QString source() const { return m_folder.filePath(QStringLiteral("source.xlsx")); }
    QString target() const { return m_folder.filePath(QStringLiteral("target.xlsx")); }

    /// A book of the package, which is kept as m_before.
    std::unique_ptr<Book> load(const TestPackage &package = foreignWorkbook())
    {
        EXPECT_TRUE(package.write(source()));
        m_before = TestPackage::read(source());
        auto book = std::make_unique<Book>(FileKind::Xlsx);
        EXPECT_TRUE(book->load(source())) << qPrintable(book->errorMessage());
        return book;
    }
    TestPackage saved(Book &book)
    {
        EXPECT_TRUE(book.save(target())) << qPrintable(book.errorMessage());
        EXPECT_EQ(checkPackage(target()).join(QLatin1Char('\n')).toStdString(), "");
        return TestPackage::read(target());
    }
    /// The parts that aren't what they were, byte for byte as they are compressed.
    QStringList changedParts(const TestPackage &after) const
    {
        QStringList changed;
        for (const TestPackage::Part &part : m_before.parts) {
            const TestPackage::Part *now = after.find(part.name);
            if (!now || now->packed != part.packed || now->bytes != part.bytes) {
                changed << part.name;
            }
        }
        changed.sort();
        return changed;
    }

    QTemporaryDir m_folder;
    TestPackage m_before;
};

QByteArray without(QByteArray part, const char *pattern)
{
    return QString::fromUtf8(part)
        .remove(QRegularExpression(QLatin1String(pattern), QRegularExpression::DotMatchesEverythingOption))
        .toUtf8();
}

void clearAll(Sheet *sheet)
{
    sheet->clear(0, 1048575, 0, 16383);
    for (int i = sheet->hyperlinkSize() - 1; i >= 0; --i) {
        sheet->delHyperlink(i);
    }
}

TEST_F(XlsxEdit, TheForeignWorkbookIsSound)
{
    load();
    EXPECT_EQ(checkPackage(source()), QStringList());
}

/// Else a sound file would say nothing.
TEST_F(XlsxEdit, TheCheckFindsFaults)
{
    const struct
    {
        const char *what;
        QString part;
        const char *from, *to;
    } cases[] = {
        {"a type of a part that isn't there", QStringLiteral("[Content_Types].xml"), "/xl/comments1", "/xl/comments2"},
        {"a relation that leads nowhere", dataRelations, "drawing1.xml", "drawing9.xml"},
        {"an id without a relation", dataPart, "r:id=\"rId2\"", "r:id=\"rId22\""},
        {"a text's number too high", dataPart, "<v>3</v>", "<v>4</v>"},
        {"a format's number too high", dataPart, "<c r=\"B4\" s=\"1\">", "<c r=\"B4\" s=\"2\">"},
        {"cells in disorder", dataPart, "r=\"C4\"", "r=\"A4\""},
        {"a cell outside the dimension", dataPart, "ref=\"A1:D4\"", "ref=\"A1:C4\""},
        {"elements in disorder", dataPart, "<pageMargins ", "<cols/><pageMargins "},
        {"a table that differs from its cells", tablePart, "\"Qty\"", "\"Amount\""},
        {"a shared formula without its master", dataPart, " ref=\"D2:D4\"", ""},
        {"a wrong count of texts", textsPart, "uniqueCount=\"4\"", "uniqueCount=\"5\""},
        {"a font that isn't there", stylesPart, "fontId=\"1\"", "fontId=\"2\""},
        {"a part that is no XML", workbookPart, "</sheets>", "</sheet>"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        TestPackage package = foreignWorkbook();
        package.edit(c.part, c.from, c.to);
        ASSERT_TRUE(package.write(source()));
        EXPECT_NE(checkPackage(source()), QStringList());
    }
}

TEST_F(XlsxEdit, SavingWithoutChangesCopiesEveryEntry)
{
    const auto book = load();
    ASSERT_TRUE(book->getSheet(data));
    const TestPackage after = saved(*book);
    EXPECT_EQ(changedParts(after), QStringList());
    EXPECT_EQ(after.names(), m_before.names());
}

TEST_F(XlsxEdit, AChangedNumberChangesOneSheetOnly)
{
    const auto book = load();
    ASSERT_TRUE(book->getSheet(data)->writeNum(1, 1, 99));
    const TestPackage after = saved(*book);
    EXPECT_EQ(changedParts(after),
        (QStringList{QStringLiteral("[Content_Types].xml"), QStringLiteral("xl/_rels/workbook.xml.rels"),
            QStringLiteral("xl/calcChain.xml"), textsPart, workbookPart, dataPart}));
    QStringList names = m_before.names();
    names.removeAll(QStringLiteral("xl/calcChain.xml"));
    EXPECT_EQ(after.names(), names) << "the order stays";
    const char *rewritten = "<sheetData>.*</sheetData>";
    EXPECT_EQ(without(after.bytes(dataPart), rewritten), without(m_before.bytes(dataPart), rewritten));
    EXPECT_EQ(after.bytes(workbookPart),
        m_before.bytes(workbookPart)
            .replace("<calcPr calcId=\"191029\"/>", "<calcPr calcId=\"191029\" fullCalcOnLoad=\"1\"/>"));
}

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

TEST_F(XlsxEdit, PartsWhoseRootIsAnEmptyTagGetContent)
{
    const QByteArray name = "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
    const struct
    {
        const char *what;
        QString part;
        QByteArray bytes;
    } cases[] = {
        {"styles", stylesPart, "<styleSheet " + name + "/>"},
        {"styles with a prefix and a remark behind", stylesPart,
            "<?xml version=\"1.0\"?>\n<x:styleSheet " + QByteArray(name).replace("xmlns", "xmlns:x")
                + " /><!-- - -->\n"},
        {"a sheet", QStringLiteral("xl/worksheets/sheet2.xml"), "<worksheet " + name + "/>"},
        {"a sheet with a stated encoding", QStringLiteral("xl/worksheets/sheet2.xml"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><worksheet " + name + "/>"},
        {"texts", textsPart, "<sst " + name + "/>"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        TestPackage package = foreignWorkbook();
        package.set(dataPart, "<worksheet " + name + "><sheetData/></worksheet>");
        package.set(QStringLiteral("xl/worksheets/sheet2.xml"), "<worksheet " + name + "><sheetData/></worksheet>");
        package.set(c.part, c.bytes);
        const auto book = load(package);
        Format *date = book->addFormat();
        date->setNumFormat(14);
        Sheet *sheet = book->getSheet(other);
        sheet->writeNum(0, 0, 45000, date);
        sheet->writeStr(1, 0, QStringLiteral("text"));
        sheet->addHyperlink(QStringLiteral("http://a.example/"), 1, 1, 0, 0);
        sheet->setMerge({3, 4, 0, 1});
        sheet->setCol(2, 20, true);
        saved(*book);
        Book read(FileKind::Xlsx);
        ASSERT_TRUE(read.load(target())) << qPrintable(read.errorMessage());
        const Sheet *back = read.getSheet(other);
        ASSERT_TRUE(back) << qPrintable(read.errorMessage());
        EXPECT_TRUE(back->isDate(0, 0));
        EXPECT_EQ(back->readStr(1, 0), QStringLiteral("text"));
        EXPECT_EQ(back->hyperlinkSize() + back->mergeSize(), 2);
        EXPECT_TRUE(back->colHidden(2));
    }
}

TEST_F(XlsxEdit, AlternativesCountAsOne)
{
    TestPackage package = foreignWorkbook();
    const auto alternatives = [](const char *first, const char *second) {
        return QByteArray("<mc:AlternateContent xmlns:mc=\"urn:mc\"><mc:Choice Requires=\"x14\">") + first
               + "</mc:Choice><mc:Choice Requires=\"x15\">" + second + "</mc:Choice><mc:Fallback>" + second
               + "</mc:Fallback></mc:AlternateContent>";
    };
    const char *italic = "<font><i/><sz val=\"12\"/><name val=\"Arial\"/></font>";
    const char *time = "<xf numFmtId=\"21\" fontId=\"1\" fillId=\"0\" borderId=\"0\" xfId=\"0\"/>";
    package.edit(stylesPart, "<font><b/>", alternatives(italic, italic) + "<font><b/>");
    package.edit(stylesPart, "<fonts count=\"2\">", "<fonts count=\"3\">");
    package.edit(stylesPart, "<xf numFmtId=\"170\" fontId=\"1\"",
        alternatives(time, time) + "<xf numFmtId=\"170\" fontId=\"2\"");
    package.edit(stylesPart, "<cellXfs count=\"2\">", "<cellXfs count=\"3\">");
    package.set(textsPart, package.bytes(textsPart).replace(
                               "<si><t>Qty</t></si>", alternatives("<si><t>Qty</t></si>", "<si><t>Number</t></si>")));
    const auto book = load(package);
    EXPECT_TRUE(book->format(1)->isDate());
    EXPECT_TRUE(book->format(1)->style().font.italic);
    EXPECT_EQ(book->format(2)->style().numberCode, QStringLiteral("0.000"));
    EXPECT_TRUE(book->format(2)->style().font.bold);
    EXPECT_FALSE(book->format(3));
    Format *date = book->addFormat(book->format(2));
    date->setNumFormat(14);
    book->getSheet(data)->writeNum(9, 0, 45000, date);
    book->getSheet(data)->writeStr(9, 1, QStringLiteral("new"));
    ASSERT_TRUE(book->save(target())) << qPrintable(book->errorMessage());
    const TestPackage after = TestPackage::read(target());
    EXPECT_TRUE(after.bytes(stylesPart).contains("<cellXfs count=\"4\">"));
    EXPECT_TRUE(after.bytes(stylesPart).contains("<xf numFmtId=\"14\" fontId=\"2\""))
        << after.bytes(stylesPart).constData();
    EXPECT_TRUE(after.bytes(dataPart).contains("<c r=\"A10\" s=\"3\">"));
    Book read(FileKind::Xlsx);
    ASSERT_TRUE(read.load(target()));
    EXPECT_EQ(read.getSheet(data)->readStr(0, 1), QStringLiteral("Qty"));
    EXPECT_EQ(read.getSheet(data)->readStr(1, 0), QStringLiteral("rich text"));
    EXPECT_EQ(read.getSheet(data)->readStr(9, 1), QStringLiteral("new"));
    EXPECT_TRUE(read.getSheet(data)->isDate(9, 0));
}

TEST_F(XlsxEdit, NewTextsStandBehindTheOldOnes)
{
    const auto book = load();
    Sheet *sheet = book->getSheet(data);
    sheet->writeStr(4, 0, QStringLiteral("new <one>"));
    sheet->writeStr(5, 0, QStringLiteral("two"));
    const QByteArray texts = saved(*book).bytes(textsPart);
    const QByteArray old = m_before.bytes(textsPart);
    const QByteArray items = old.mid(old.indexOf("<si>")).replace("</sst>", "");
    EXPECT_TRUE(texts.contains(" count=\"9\"")) << "uses of the sheet as it is now, and of the other one";
    EXPECT_TRUE(
        texts.endsWith("uniqueCount=\"6\">" + items + "<si><t>inline</t></si><si><t>new &lt;one&gt;</t></si></sst>"))
        << texts.constData();
}

TEST_F(XlsxEdit, NewFormatsStandBehindTheOldOnes)
{
    const auto book = load();
    Sheet *sheet = book->getSheet(other);
    sheet->setCellFormat(5, 0, book->addFormat(book->format(1)));
    Format *date = book->addFormat();
    date->setNumFormat(14);
    sheet->setCellFormat(6, 0, date);
    CellStyle style;
    style.numberCode = QStringLiteral("0 \"x\"");
    style.fill.pattern = 1;
    const Format foreign(0, style);
    sheet->setCellFormat(7, 0, book->addFormat(&foreign));
    const QByteArray styles = saved(*book).bytes(stylesPart);
    const char *expected[] = {"<numFmts count=\"2\"><numFmt numFmtId=\"170\" formatCode=\"0.000\"/>"
                              "<numFmt numFmtId=\"171\" formatCode=\"0 &quot;x&quot;\"/></numFmts>",
        "<cellXfs count=\"4\">",
        "<xf numFmtId=\"171\" fontId=\"2\" fillId=\"2\" borderId=\"0\" xfId=\"0\" applyNumberFormat",
        "<xf numFmtId=\"14\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyNumberFormat=\"1\"/>",
        "<fills count=\"3\">", "<borders count=\"1\">"};
    for (const char *text : expected) {
        EXPECT_TRUE(styles.contains(text)) << text << "\n" << styles.constData();
    }
    const QByteArray tail = m_before.bytes(stylesPart).mid(m_before.bytes(stylesPart).indexOf("<cellStyles"));
    EXPECT_TRUE(styles.endsWith(tail));
}

TEST_F(XlsxEdit, AClearedSheetDropsItsLinksAndKeepsTheRest)
{
    const auto book = load();
    Sheet *sheet = book->getSheet(data);
    clearAll(sheet);
    sheet->writeStr(0, 0, QStringLiteral("Name"));
    sheet->writeStr(0, 1, QStringLiteral("Qty"));
    sheet->writeNum(1, 1, 5);
    const TestPackage after = saved(*book);
    const char *rewritten = "<sheetData>.*</sheetData>|<dimension[^>]*>|<hyperlinks>.*</hyperlinks>";
    EXPECT_EQ(without(after.bytes(dataPart), rewritten), without(m_before.bytes(dataPart), rewritten));
    EXPECT_FALSE(after.bytes(dataPart).contains("hyperlink"));
    EXPECT_FALSE(after.bytes(dataRelations).contains("hyperlink"));
    EXPECT_TRUE(after.bytes(tablePart).contains("ref=\"A1:B2\" totalsRowShown=\"0\"><autoFilter ref=\"A1:B2\"/>"));
    EXPECT_EQ(changedParts(after).count(QStringLiteral("xl/charts/chart1.xml")), 0);
    EXPECT_EQ(book->warnings(), QStringList());
}

TEST_F(XlsxEdit, LinksAreAddedBesideTheOldOnes)
{
    const auto book = load();
    Sheet *sheet = book->getSheet(data);
    sheet->delHyperlink(1);
    sheet->addHyperlink(QStringLiteral("http://new.example/"), 3, 3, 0, 0);
    const TestPackage after = saved(*book);
    EXPECT_TRUE(after.bytes(dataPart).contains("<hyperlinks><hyperlink ref=\"A2\" r:id=\"rId1\" tooltip=\"tip\"/>"
                                               "<hyperlink ref=\"A4\" r:id=\"rId6\"/></hyperlinks>"));
    EXPECT_TRUE(after.bytes(dataRelations).contains("http://old.example/?a=1&amp;b=2"));

    const auto plain = load();
    plain->getSheet(other)->addHyperlink(QStringLiteral("http://new.example/"), 0, 0, 0, 0);
    EXPECT_TRUE(saved(*plain).find(QStringLiteral("xl/worksheets/_rels/sheet2.xml.rels")));
}

TEST_F(XlsxEdit, TablesFollowTheirCells)
{
    const struct
    {
        const char *what;
        std::function<void(Sheet *)> change;
        const char *range; ///< null when the table goes
    } cases[] = {
        {"rows below the table belong to it",
            [](Sheet *sheet) {
                sheet->writeNum(4, 1, 1);
                sheet->writeStr(5, 0, QStringLiteral("x"));
            },
            "A1:B6"},
        {"rows beside it don't", [](Sheet *sheet) { sheet->writeNum(4, 2, 1); }, "A1:B4"},
        {"rows behind a gap don't", [](Sheet *sheet) { sheet->writeNum(5, 0, 1); }, "A1:B4"},
        {"rows that are gone leave it", [](Sheet *sheet) { sheet->clear(2, 9, 0, 9); }, "A1:B2"},
        {"one row of data stays", [](Sheet *sheet) { sheet->clear(1, 9, 0, 9); }, "A1:B2"},
        {"another header ends it", [](Sheet *sheet) { sheet->writeStr(0, 1, QStringLiteral("Amount")); }, nullptr},
        {"a number as header ends it", [](Sheet *sheet) { sheet->writeNum(0, 1, 1); }, nullptr},
        {"no cells end it", [](Sheet *sheet) { clearAll(sheet); }, nullptr},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const auto book = load();
        c.change(book->getSheet(data));
        const TestPackage after = saved(*book);
        EXPECT_EQ(book->warnings().size(), c.range ? 0 : 1);
        if (c.range) {
            EXPECT_EQ(after.bytes(tablePart).count(QByteArray("ref=\"") + c.range + '"'), 2)
                << after.bytes(tablePart).constData();
            continue;
        }
        EXPECT_FALSE(after.find(tablePart));
        EXPECT_FALSE(after.bytes(dataPart).contains("tablePart"));
        EXPECT_FALSE(after.bytes(dataRelations).contains("table"));
    }
}

TEST_F(XlsxEdit, ATableWithoutDataWaitsForIt)
{
    const struct
    {
        const char *what;
        bool hasHeader;
        std::function<void(Sheet *)> change;
        const char *range;
        bool isWaiting;
    } cases[] = {
        {"it stays while none comes", true, [](Sheet *sheet) { sheet->writeNum(0, 3, 1); }, "A1:B2", true},
        {"without a header too", false, [](Sheet *sheet) { sheet->writeNum(0, 3, 1); }, "A2:B2", true},
        {"the first row fills its place", true, [](Sheet *sheet) { sheet->writeNum(1, 0, 1); }, "A1:B2", false},
        {"and more follow", true,
            [](Sheet *sheet) {
                sheet->writeNum(1, 0, 1);
                sheet->writeNum(2, 1, 1);
            },
            "A1:B3", false},
        {"without a header too", false,
            [](Sheet *sheet) {
                sheet->writeNum(1, 0, 1);
                sheet->writeNum(2, 1, 1);
            },
            "A2:B3", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        TestPackage package = foreignWorkbook();
        const QByteArray sheet = package.bytes(dataPart);
        const QByteArray rows = sheet.mid(
            sheet.indexOf("<row r=\"2\""), sheet.indexOf("</sheetData>") - sheet.indexOf("<row r=\"2\""));
        package.edit(dataPart, rows, "");
        package.edit(dataPart, "A1:D4", "A1:B1");
        package.edit(tablePart, " totalsRowShown=\"0\"",
            c.hasHeader ? " insertRow=\"1\" totalsRowShown=\"0\""
                        : " headerRowCount=\"0\" insertRow=\"1\" totalsRowShown=\"0\"");
        package.set(tablePart, package.bytes(tablePart).replace("A1:B4", c.hasHeader ? "A1:B2" : "A2:B2"));
        const auto book = load(package);
        c.change(book->getSheet(data));
        const QByteArray table = saved(*book).bytes(tablePart);
        EXPECT_EQ(table.count(QByteArray("ref=\"") + c.range + '"'), 2) << table.constData();
        EXPECT_EQ(table.contains("insertRow"), c.isWaiting) << table.constData();
        EXPECT_EQ(book->warnings(), QStringList());
    }
}

TEST_F(XlsxEdit, ATotalsRowHasToStay)
{
    TestPackage package = foreignWorkbook();
    package.edit(tablePart, "totalsRowShown=\"0\"", "totalsRowCount=\"1\"");
    package.edit(tablePart, "<autoFilter ref=\"A1:B4\"/>", "");
    package.edit(tablePart, "name=\"Name\"", "name=\"Name\" totalsRowLabel=\"inline\"");
    const auto kept = load(package);
    kept->getSheet(data)->writeNum(1, 1, 5);
    kept->getSheet(data)->writeNum(4, 1, 5);
    EXPECT_TRUE(saved(*kept).bytes(tablePart).contains("ref=\"A1:B4\""));
    const auto gone = load(package);
    gone->getSheet(data)->writeStr(3, 0, QStringLiteral("data"));
    EXPECT_FALSE(saved(*gone).find(tablePart));
}

TEST_F(XlsxEdit, SharedFormulasWithoutTheirMasterBecomeValues)
{
    const auto book = load();
    book->getSheet(data)->writeNum(1, 3, 7);
    const QByteArray part = saved(*book).bytes(dataPart);
    EXPECT_TRUE(part.contains("<c r=\"D3\"><v>4</v></c>")) << part.constData();
    EXPECT_FALSE(part.contains("t=\"shared\""));
}

TEST_F(XlsxEdit, ASheetIsAddedBehindTheOthers)
{
    const auto book = load();
    Sheet *sheet = book->addSheet(QStringLiteral("Added & new"));
    ASSERT_TRUE(sheet);
    sheet->writeStr(0, 0, QStringLiteral("two"));
    sheet->writeStr(0, 1, QStringLiteral("three"));
    const TestPackage after = saved(*book);
    EXPECT_EQ(changedParts(after),
        (QStringList{QStringLiteral("[Content_Types].xml"), QStringLiteral("xl/_rels/workbook.xml.rels"),
            QStringLiteral("xl/calcChain.xml"), textsPart, workbookPart}));
    EXPECT_TRUE(
        after.bytes(workbookPart).contains("<sheet name=\"Added &amp; new\" sheetId=\"10\" r:id=\"rId9\"/></sheets>"));
    Book read(FileKind::Xlsx);
    ASSERT_TRUE(read.load(target()));
    ASSERT_EQ(read.sheetCount(), 4);
    EXPECT_EQ(read.getSheet(3)->readStr(0, 0), QStringLiteral("two")) << "texts of a file whose texts weren't read";
    EXPECT_EQ(read.getSheet(3)->readStr(0, 1), QStringLiteral("three"));
    EXPECT_EQ(read.getSheet(data)->readStr(1, 0), QStringLiteral("rich text"));
}

TEST_F(XlsxEdit, TextsWrittenBeforeASheetIsReadKeepTheirCells)
{
    const auto book = load();
    book->addSheet(QStringLiteral("First"))->writeStr(0, 0, QStringLiteral("early"));
    book->getSheet(data)->writeStr(9, 0, QStringLiteral("late"));
    saved(*book);
    Book read(FileKind::Xlsx);
    ASSERT_TRUE(read.load(target()));
    EXPECT_EQ(read.getSheet(3)->readStr(0, 0), QStringLiteral("early"));
    EXPECT_EQ(read.getSheet(data)->readStr(0, 1), QStringLiteral("Qty"));
    EXPECT_EQ(read.getSheet(data)->readStr(9, 0), QStringLiteral("late"));
    EXPECT_EQ(read.getSheet(other)->readStr(0, 0), QStringLiteral("Name"));
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

TEST_F(XlsxEdit, PartsThatAreMissingAreMade)
{
    TestPackage package = foreignWorkbook();
    for (const QString &part : {textsPart, stylesPart}) {
        package.parts.erase(std::find_if(package.parts.begin(), package.parts.end(),
            [&part](const TestPackage::Part &item) { return item.name == part; }));
        package.edit(
            QStringLiteral("[Content_Types].xml"), "<Override PartName=\"/" + part.toUtf8(), "<Ignored PartName=\"");
    }
    package.edit(QStringLiteral("xl/_rels/workbook.xml.rels"),
        "<Relationship Id=\"rId7\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles\" "
        "Target=\"styles.xml\"/>",
        "");
    package.edit(QStringLiteral("xl/_rels/workbook.xml.rels"),
        "<Relationship Id=\"rId8\" "
        "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings\" "
        "Target=\"sharedStrings.xml\"/>",
        "");
    package.set(
        dataPart, without(without(package.bytes(dataPart), "<c r=\"[AB]\\d\" t=\"s\">.*?</c>| s=\"1\"| style=\"1\""),
                      "<tableParts.*</tableParts>"));
    package.set(QStringLiteral("xl/worksheets/sheet2.xml"),
        without(package.bytes(QStringLiteral("xl/worksheets/sheet2.xml")), "<c r=\"[AB]\\d\" t=\"s\">.*?</c>"));
    const auto book = load(package);
    Format *date = book->addFormat();
    date->setNumFormat(14);
    Sheet *sheet = book->getSheet(data);
    ASSERT_TRUE(sheet) << qPrintable(book->errorMessage());
    sheet->writeNum(9, 0, 44000, date);
    sheet->writeStr(9, 1, QStringLiteral("text"));
    ASSERT_TRUE(book->save(target())) << qPrintable(book->errorMessage());
    Book read(FileKind::Xlsx);
    ASSERT_TRUE(read.load(target())) << qPrintable(read.errorMessage());
    EXPECT_TRUE(read.getSheet(data)->isDate(9, 0));
    EXPECT_EQ(read.getSheet(data)->readStr(9, 1), QStringLiteral("text"));
    EXPECT_FALSE(read.getSheet(data)->isDate(1, 1));
}

TEST_F(XlsxEdit, OtherSpellingsOfTheSamePartsAreKept)
{
    const auto prefixed = [](QByteArray part) {
        return QString::fromUtf8(part)
            .replace(QRegularExpression(QStringLiteral("<(/?)(?![?!/]|x:any)")), QStringLiteral("<\\1m:"))
            .replace(QLatin1String(" xmlns="), QLatin1String(" xmlns:m="))
            .toUtf8();
    };
    const auto utf16 = [](const QByteArray &part) {
        const QString text = QChar(QChar::ByteOrderMark)
                             + QString::fromUtf8(part).replace(QLatin1String("UTF-8"), QLatin1String("UTF-16"));
        return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    };
    const struct
    {
        const char *what;
        std::function<QByteArray(const QByteArray &)> spelled;
    } cases[] = {
        {"names with a prefix", prefixed},
        {"UTF-16", utf16},
        {"a byte order mark", [](const QByteArray &part) { return "\xEF\xBB\xBF" + part; }},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        TestPackage package = foreignWorkbook();
        for (const QString &part : {dataPart, textsPart, stylesPart, workbookPart, tablePart}) {
            package.set(part, c.spelled(package.bytes(part)));
        }
        const auto book = load(package);
        Sheet *sheet = book->getSheet(data);
        ASSERT_TRUE(sheet) << qPrintable(book->errorMessage());
        Format *date = book->addFormat();
        date->setNumFormat(14);
        sheet->writeNum(4, 0, 44000, date);
        sheet->writeStr(5, 0, QStringLiteral("näw"));
        sheet->writeFormula(5, 1, QStringLiteral("=B2+1"));
        sheet->addHyperlink(QStringLiteral("http://new.example/"), 5, 5, 0, 0);
        sheet->setMerge({8, 9, 0, 1});
        book->addSheet(QStringLiteral("Added"))->writeStr(0, 0, QStringLiteral("Name"));
        const TestPackage after = saved(*book);
        EXPECT_TRUE(after.bytes(tablePart).contains("ref=\"A1:B6\""));
        Book read(FileKind::Xlsx);
        ASSERT_TRUE(read.load(target())) << qPrintable(read.errorMessage());
        Sheet *back = read.getSheet(data);
        ASSERT_TRUE(back) << qPrintable(read.errorMessage());
        EXPECT_TRUE(back->isDate(4, 0));
        EXPECT_EQ(back->readStr(5, 0), QStringLiteral("näw"));
        EXPECT_EQ(back->readStr(1, 0), QStringLiteral("rich text"));
        EXPECT_TRUE(back->isFormula(5, 1) && back->isFormula(2, 3));
        EXPECT_EQ(back->hyperlinkSize(), 3);
        EXPECT_EQ(back->mergeSize(), 1);
        EXPECT_EQ(read.getSheet(3)->readStr(0, 0), QStringLiteral("Name"));
    }
}

TEST_F(XlsxEdit, StrictFilesGetStrictRelations)
{
    TestPackage package = foreignWorkbook();
    for (TestPackage::Part &part : package.parts) {
        part.bytes.replace("http://schemas.openxmlformats.org/spreadsheetml/2006/main",
            "http://purl.oclc.org/ooxml/spreadsheetml/main");
        part.bytes.replace("http://schemas.openxmlformats.org/officeDocument/2006/relationships",
            "http://purl.oclc.org/ooxml/officeDocument/relationships");
    }
    const auto book = load(package);
    book->getSheet(data)->addHyperlink(QStringLiteral("http://new.example/"), 5, 5, 0, 0);
    ASSERT_TRUE(book->save(target())) << qPrintable(book->errorMessage());
    const QByteArray relations = TestPackage::read(target()).bytes(dataRelations);
    EXPECT_FALSE(relations.contains("2006/relationships/hyperlink")) << relations.constData();
    EXPECT_TRUE(TestPackage::read(target()).bytes(dataPart).contains("r:id=\"rId6\""));
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

TEST_F(XlsxEdit, TheLoadedFileItselfCanBeTheTarget)
{
    const auto book = load();
    for (int round = 0; round < 3; ++round) {
        Sheet *sheet = book->getSheet(data);
        sheet->writeStr(10 + round, 0, QStringLiteral("round %1").arg(round));
        ASSERT_TRUE(book->save(source())) << qPrintable(book->errorMessage());
        EXPECT_EQ(checkPackage(source()), QStringList());
        Book read(FileKind::Xlsx);
        ASSERT_TRUE(read.load(source()));
        EXPECT_EQ(read.getSheet(data)->lastRow(), 11 + round);
        EXPECT_EQ(read.getSheet(data)->readStr(10 + round, 0), QStringLiteral("round %1").arg(round));
    }
}

/// What was put into a sheet at random has to come out of the saved file, whatever the order.
TEST_F(XlsxEdit, RandomChangesComeBack)
{
    unsigned seed = 4711;
    const auto random = [&seed](int below) {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<int>((seed >> 8) % static_cast<unsigned>(below));
    };
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        const auto book = load();
        Sheet *sheet = round % 3 == 2 ? book->addSheet(QStringLiteral("New"))
                                      : book->getSheet(round % 3 == 0 ? data : other);
        Format *date = book->addFormat();
        date->setNumFormat(14);
        for (int step = 0; step < 40; ++step) {
            const int row = random(12), column = random(8);
            const Format *format = random(3) == 0 ? date : nullptr;
            switch (random(9)) {
            case 0:
                sheet->writeStr(row, column, QStringLiteral("text %1").arg(random(5)), format);
                break;
            case 1:
                sheet->writeNum(row, column, random(1000) / 7.0, format);
                break;
            case 2:
                sheet->writeBool(row, column, random(2) == 1, format);
                break;
            case 3:
                sheet->writeFormula(row, column, QStringLiteral("=A1+%1").arg(random(9)), format);
                break;
            case 4:
                sheet->clear(row, row + random(3), column, column + random(3));
                break;
            case 5:
                sheet->setCellFormat(row, column, format);
                break;
            case 6:
                sheet->addHyperlink(QStringLiteral("http://x.example/%1").arg(random(4)), row, row, column, column);
                break;
            case 7:
                if (sheet->hyperlinkSize() > 0) {
                    sheet->delHyperlink(random(sheet->hyperlinkSize()));
                }
                break;
            default:
                sheet->setMerge({row + 20, row + 20 + random(3), column, column + 1});
                sheet->setRow(row, random(40), random(2) == 1);
                sheet->setCol(column, random(40), random(2) == 1);
            }
        }
        saved(*book);
        Book read(FileKind::Xlsx);
        ASSERT_TRUE(read.load(target()));
        Sheet *back = read.getSheet(round % 3 == 2 ? 3 : round % 3 == 0 ? data : other);
        ASSERT_TRUE(back) << qPrintable(read.errorMessage());
        EXPECT_EQ(back->hyperlinkSize(), sheet->hyperlinkSize());
        EXPECT_EQ(back->mergeSize(), sheet->mergeSize());
        for (int row = 0; row < 40; ++row) {
            EXPECT_EQ(back->rowHidden(row), sheet->rowHidden(row));
            for (int column = 0; column < 12; ++column) {
                SCOPED_TRACE(row * 100 + column);
                if (sheet->isFormula(row, column) && sheet->cells().formula(row, column)->stored.isEmpty()) {
                    EXPECT_TRUE(back->isFormula(row, column));
                    continue;
                }
                EXPECT_EQ(back->readStr(row, column), sheet->readStr(row, column));
                EXPECT_EQ(back->readNum(row, column), sheet->readNum(row, column));
                EXPECT_EQ(back->isDate(row, column), sheet->isDate(row, column));
            }
        }
    }
}

/// Damage of any part is found, or what is written is whole.
TEST_F(XlsxEdit, DamagedWorkbooksAreRefusedOrSavedWhole)
{
    unsigned seed = 99;
    const auto random = [&seed](int below) {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<int>((seed >> 8) % static_cast<unsigned>(below));
    };
    const TestPackage sound = foreignWorkbook();
    int savedCount = 0;
    for (int round = 0; round < 150; ++round) {
        SCOPED_TRACE(round);
        TestPackage package = sound;
        TestPackage::Part &part = package.parts[static_cast<size_t>(random(static_cast<int>(package.parts.size())))];
        for (int change = 0; change <= random(3); ++change) {
            const int place = random(qMax(part.bytes.size(), 1));
            const int length = 1 + random(30);
            switch (random(4)) {
            case 0:
                part.bytes[place] = static_cast<char>(random(256));
                break;
            case 1:
                part.bytes.remove(place, length);
                break;
            case 2:
                part.bytes.insert(place, part.bytes.mid(random(qMax(part.bytes.size(), 1)), length));
                break;
            default:
                part.bytes.replace(place, 1, QByteArray::number(random(100000)));
            }
        }
        ASSERT_TRUE(package.write(source()));
        Book book(FileKind::Xlsx);
        Sheet *sheet = book.load(source()) ? book.getSheet(data) : nullptr;
        if (!sheet) {
            EXPECT_FALSE(book.errorMessage().isEmpty() && book.sheetType(data) == 0);
            continue;
        }
        sheet->writeStr(1, 0, QStringLiteral("written"), book.addFormat());
        sheet->addHyperlink(QStringLiteral("http://new.example/"), 1, 1, 0, 0);
        const bool hasAdded = book.addSheet(QStringLiteral("Added"));
        if (!book.save(target())) {
            EXPECT_FALSE(book.errorMessage().isEmpty());
            continue;
        }
        ++savedCount;
        Book read(FileKind::Xlsx);
        ASSERT_TRUE(read.load(target())) << qPrintable(part.name + read.errorMessage());
        ASSERT_EQ(read.sheetCount(), book.sheetCount());
        Sheet *back = read.getSheet(data);
        ASSERT_TRUE(back) << qPrintable(part.name + read.errorMessage());
        EXPECT_EQ(back->readStr(1, 0), QStringLiteral("written")) << qPrintable(part.name);
        EXPECT_EQ(back->hyperlinkSize(), sheet->hyperlinkSize()) << qPrintable(part.name);
        EXPECT_TRUE(!hasAdded || read.getSheet(read.sheetCount() - 1)) << qPrintable(part.name);
    }
    EXPECT_GT(savedCount, 20);
}

} // namespace
