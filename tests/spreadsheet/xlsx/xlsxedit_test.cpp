#include "spreadsheet/xlsx/xlsxeditfixture.h"

#include <gtest/gtest.h>

using namespace spreadsheet;
using namespace foreignbook;

namespace {

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

} // namespace
