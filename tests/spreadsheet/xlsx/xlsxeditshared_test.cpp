#include "spreadsheet/xlsx/xlsxeditfixture.h"

#include <gtest/gtest.h>

using namespace spreadsheet;
using namespace foreignbook;

namespace {

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

} // namespace
