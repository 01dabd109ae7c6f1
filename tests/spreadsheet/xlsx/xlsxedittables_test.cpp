#include "spreadsheet/xlsx/xlsxeditfixture.h"

#include <functional>
#include <gtest/gtest.h>

using namespace spreadsheet;
using namespace foreignbook;

namespace {

void clearAll(Sheet *sheet)
{
    sheet->clear(0, 1048575, 0, 16383);
    for (int i = sheet->hyperlinkSize() - 1; i >= 0; --i) {
        sheet->delHyperlink(i);
    }
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

} // namespace
