#include "spreadsheet/xlsx/xlsxtestbook.h"
#include "spreadsheet/xlsx/ziparchive.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

const QByteArray cell = "<row><c><v>1</v></c></row>";

TEST(XlsxBadInput, SaysWhatIsWrongWithAFile)
{
    const QByteArray compound = QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1") + QByteArray(3000, '\0');
    const QString name = "EncryptedPackage";
    const QByteArray encrypted = QByteArray(reinterpret_cast<const char *>(name.utf16()), name.size() * 2);
    const QByteArray good = XlsxTestBook().rows(cell).zip();
    struct
    {
        const char *what;
        QByteArray file;
        QString error;
    } const cases[] = {
        {"nothing", "", "The file is empty"},
        {"text", "a,b\n1,2\n", "The file is not an .xlsx workbook or is damaged"},
        {"the other kind of workbook", compound, "The file is an .xls workbook, not an .xlsx one"},
        {"an encrypted workbook", compound + encrypted + compound, "The file is encrypted"},
        {"one whose mark lies between two pieces of the file",
            compound + QByteArray((1 << 20) - compound.size() - 9, '\0') + encrypted, "The file is encrypted"},
        {"the first half", good.left(good.size() / 2), "The file is not an .xlsx workbook or is damaged"},
        {"all but the end", good.left(good.size() - 1), "The file is not an .xlsx workbook or is damaged"},
        {"an archive of other things", zipped({{"mimetype", "application/other"}, {"content.xml", "<a/>"}}),
            "The file is not an .xlsx workbook"},
        {"a workbook part that is none", XlsxTestBook().part("xl/workbook.xml", "<document/>").zip(),
            "The file is not an .xlsx workbook"},
        {"a missing workbook part", XlsxTestBook().without("xl/workbook.xml").zip(),
            "The file is not an .xlsx workbook"},
        {"a binary workbook",
            XlsxTestBook().replace("_rels/.rels", "workbook.xml", "workbook.bin").part("xl/workbook.bin", "x").zip(),
            "The file is a binary workbook (.xlsb), not an .xlsx one"},
        {"damaged relations", XlsxTestBook().part("_rels/.rels", "<Relationships>").zip(),
            "The part '_rels/.rels' is damaged: no element found at byte 15"},
        {"damaged styles", XlsxTestBook().styles("<fonts></font>").zip(),
            "The part 'xl/styles.xml' is damaged: mismatched tag at byte 203"},
        {"an entity",
            XlsxTestBook().part("xl/workbook.xml", "<!DOCTYPE w [<!ENTITY a \"b\">]><workbook>&a;</workbook>").zip(),
            "The part 'xl/workbook.xml' is damaged: document type declarations are not allowed"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        LoadedXlsx loaded(c.file);
        EXPECT_FALSE(loaded.isLoaded());
        EXPECT_EQ(loaded.book().errorMessage().toStdString(), c.error.toStdString());
        EXPECT_EQ(loaded.book().sheetCount(), 0);
    }
    EXPECT_TRUE(LoadedXlsx(good).isLoaded());
}

TEST(XlsxBadInput, SaysWhatIsWrongWithASheet)
{
    const QByteArray openElements = QByteArray("<a>").repeated(100000);
    QByteArray bomb = "<!DOCTYPE x [<!ENTITY a0 \"aaaaaaaaaa\">";
    for (int i = 1; i < 12; ++i) {
        const QByteArray before = "&a" + QByteArray::number(i - 1) + ';';
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"" + before.repeated(10) + "\">";
    }
    bomb += "]><worksheet><sheetData><row><c t=\"str\"><v>&a11;</v></c></row></sheetData></worksheet>";
    const QByteArray longText = QByteArray((16 << 20) + 1, 'x');
    struct
    {
        const char *what;
        QByteArray part, error;
    } const cases[] = {
        {"another part", "<chartsheet/>", "The sheet is not a worksheet"},
        {"nothing", "", "is damaged: no element found at byte 0"},
        {"an end that is missing", "<worksheet><sheetData>" + cell, "is damaged: no element found at byte 48"},
        {"tags that don't match, behind plain cells", "<worksheet><sheetData><row><c><v>1</v></c><c><v>2</w></c></row>",
            "is damaged: mismatched tag at byte 51"},
        {"an attribute that stands twice", "<worksheet><sheetData><row><c r=\"A1\" r=\"B1\"><v>1</v></c></row>",
            "is damaged: duplicate attribute at byte 37"},
        {"bytes that are no UTF-8",
            "<worksheet><sheetData><row><c t=\"str\"><v>\xFF</v></c></row></sheetData></worksheet>",
            "is damaged: not well-formed (invalid token) at byte 41"},
        {"elements in each other without end", "<worksheet><sheetData><row>" + openElements,
            "is damaged: elements are nested too deeply"},
        {"elements in each other in what is skipped", "<worksheet><extLst>" + openElements,
            "is damaged: elements are nested too deeply"},
        {"entities that expand without end", bomb, "is damaged: document type declarations are not allowed"},
        {"a tag without end", "<worksheet><sheetData><row a=\"" + longText.left(5 << 20),
            "is damaged: a tag is too long"},
        {"a comment without end", "<worksheet><!--" + longText.left(5 << 20), "is damaged: a tag is too long"},
        {"a text without end", "<worksheet><sheetData><row><c t=\"str\"><v>" + longText,
            "The workbook has a text of more than 16 MB"},
        {"the same in a cell's own text", "<worksheet><sheetData><row><c><is><t>" + longText,
            "The workbook has a text of more than 16 MB"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        LoadedXlsx loaded(XlsxTestBook().part(XlsxTestBook::sheetName, c.part));
        ASSERT_TRUE(loaded.isLoaded());
        EXPECT_FALSE(loaded.first());
        const QString start = c.error.startsWith("is ")
                                  ? QString("The part '%1' ").arg(QString(XlsxTestBook::sheetName))
                                  : QString();
        EXPECT_EQ(loaded.book().errorMessage().toStdString(), (start + c.error).toStdString());
    }
}

TEST(XlsxBadInput, RefusesATextWithoutEndAmongTheSharedOnes)
{
    LoadedXlsx loaded(XlsxTestBook().texts("<si><t>" + QByteArray((16 << 20) + 1, 'x') + "</t></si>").rows(cell));
    EXPECT_EQ(loaded.cells(), "The workbook has a text of more than 16 MB");
}

TEST(XlsxBadInput, IgnoresTheSizeThatASheetClaims)
{
    LoadedXlsx loaded(XlsxTestBook().sheet("<dimension ref=\"A1:XFD1048576\"/><sheetData>" + cell + "</sheetData>"));
    ASSERT_TRUE(loaded.first());
    EXPECT_EQ(loaded.first()->lastRow(), 1);
    EXPECT_EQ(loaded.first()->lastCol(), 1);
}

TEST(XlsxBadInput, FindsDamagedBytesByTheirSum)
{
    // The part is stored so that a changed letter is still good XML.
    XlsxTestBook book;
    book.rows("<row><c t=\"str\"><v>unmistakable</v></c></row>");
    QByteArray file = book.zip();
    LoadedXlsx whole(file);
    ASSERT_EQ(whole.cells(), "A1=\"unmistakable\"");
    // The sum of the part stands in front of it and in the directory.
    const int name = file.lastIndexOf(XlsxTestBook::sheetName);
    constexpr int nameInDirectory = 46, sumInDirectory = 16;
    file[name - nameInDirectory + sumInDirectory] = static_cast<char>(
        file[name - nameInDirectory + sumInDirectory] ^ 1);
    LoadedXlsx damaged(file);
    EXPECT_FALSE(damaged.isLoaded() && damaged.first());
    EXPECT_TRUE(damaged.book().errorMessage().contains("damaged")) << damaged.book().errorMessage().toStdString();
}

TEST(XlsxBadInput, RefusesPartsThatExpandBeyondAllMeasure)
{
    constexpr qint64 million = 1000000;
    QTemporaryDir folder;
    QFile file(folder.filePath("a.zip"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(zipped({{"much", QByteArray(million, ' ')}, {"little", "x"}}));
    file.close();
    ZipArchive archive;
    ASSERT_TRUE(archive.open(file.fileName()));
    struct
    {
        const char *what;
        ZipArchive::Limits limits;
        bool isRead;
    } const cases[] = {
        {"the usual limits", {}, true},
        {"one byte too many for any part", {million - 1, 1000000, million}, false},
        {"just as many", {million, 1000000, million}, true},
        {"a great ratio of a small part", {million, 10, million}, true},
        {"a great ratio of a larger part", {million, 10, million - 1}, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        qint64 handed = 0;
        const auto count = [&handed](const char *, int size) {
            handed += size;
            return true;
        };
        EXPECT_EQ(archive.stream("much", count, c.limits), c.isRead);
        EXPECT_EQ(handed == million, c.isRead);
        EXPECT_TRUE(c.isRead || archive.error() == "The part 'much' is too large");
    }
}

TEST(XlsxBadInput, ReadsSmallPartsUpToALimit)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("a.zip"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(zipped({{"a/part.xml", "12345"}}));
    file.close();
    ZipArchive archive;
    ASSERT_TRUE(archive.open(file.fileName()));
    QByteArray bytes;
    EXPECT_TRUE(archive.read("/A/Part.xml", &bytes, 5));
    EXPECT_EQ(bytes, "12345");
    EXPECT_FALSE(archive.read("a/part.xml", &bytes, 4));
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_FALSE(archive.read("a", &bytes));
    EXPECT_EQ(archive.error(), "The file has no part 'a'");
}

} // namespace
