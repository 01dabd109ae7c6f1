#include "spreadsheet/xlsx/xlsxeditfixture.h"

#include <QRegularExpression>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

using namespace spreadsheet;
using namespace foreignbook;

namespace {

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

} // namespace
