#include "spreadsheet/book.h"
#include "spreadsheet/xlsx/xlsxeditbook.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

const QString stylesPart = QStringLiteral("xl/styles.xml");

int formatCount(const Book &book)
{
    int count = 0;
    while (book.format(static_cast<quint32>(count))) {
        ++count;
    }
    return count;
}

class FormatGrowth : public ::testing::Test
{
protected:
    QString path() const { return m_folder.filePath(QStringLiteral("book")); }

    /// Writes a row with formats made anew, as each run of a program does; the formats that the file has then.
    int append(FileKind kind, int row)
    {
        Book book(kind);
        Sheet *sheet = row > 0 && book.load(path()) ? book.getSheet(0) : book.addSheet(QStringLiteral("Log"));
        Font *bold = book.addFont();
        bold->setBold(true);
        Font *blue = book.addFont();
        blue->setColor(12);
        for (int i = 0; i < 5; ++i) {
            constexpr int numbers[] = {0, 49, 14, 21, 49};
            Format *format = book.addFormat();
            format->setNumFormat(numbers[i]);
            if (i > 3) {
                format->setFont(row % 2 ? bold : blue);
            }
            sheet->writeNum(row, i, 45000 + row, format);
        }
        CellStyle style;
        style.numberCode = QStringLiteral("yyyy");
        style.fill.pattern = 1;
        style.fill.foreground = {true, qRgb(1, 2, 3)};
        style.border.top.style = 2;
        style.alignment.wrap = true;
        style.locked = false;
        const Format foreign(0, style);
        sheet->writeNum(row, 5, 45000, book.addFormat(&foreign));
        EXPECT_TRUE(book.save(path())) << qPrintable(book.errorMessage());
        Book read(kind);
        EXPECT_TRUE(read.load(path())) << qPrintable(read.errorMessage());
        EXPECT_EQ(read.getSheet(0)->lastRow(), row + 1);
        EXPECT_TRUE(read.getSheet(0)->isDate(row, 2));
        EXPECT_EQ(read.getSheet(0)->cellFormat(row, 4)->style().font.bold, row % 2 == 1);
        EXPECT_EQ(read.getSheet(0)->cellFormat(row, 5)->style().numberCode, style.numberCode);
        return formatCount(read);
    }

    QTemporaryDir m_folder;
};

TEST_F(FormatGrowth, AWorkbookThatIsWrittenAgainAndAgainDoesNotGrow)
{
    for (const FileKind kind : {FileKind::Xlsx, FileKind::Xls}) {
        SCOPED_TRACE(kind == FileKind::Xlsx ? ".xlsx" : ".xls");
        append(kind, 0);
        const int count = append(kind, 1);
        for (int row = 2; row < 6; ++row) {
            EXPECT_EQ(append(kind, row), count);
        }
    }
}

TEST_F(FormatGrowth, OnlyAFormatThatLooksTheSameIsTaken)
{
    const struct
    {
        const char *what, *attributes, *content;
        bool isTaken;
    } cases[] = {
        {"the same", " numFmtId=\"49\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyNumberFormat=\"1\"", "",
            true},
        {"written in another way",
            " xfId=\"0\" applyFont=\"0\" borderId=\"0\" fillId=\"0\" fontId=\"0\" numFmtId=\"49\"", "", true},
        {"what is usual may be said", " numFmtId=\"49\" quotePrefix=\"0\" applyAlignment=\"1\"",
            "<alignment vertical=\"bottom\"/>", true},
        {"another number format", " numFmtId=\"50\" xfId=\"0\"", "", false},
        {"one that doesn't count", " numFmtId=\"49\" xfId=\"0\" applyNumberFormat=\"0\"", "", false},
        {"another font", " numFmtId=\"49\" fontId=\"1\" xfId=\"0\"", "", false},
        {"another named style", " numFmtId=\"49\" xfId=\"1\"", "", false},
        {"an apostrophe in front", " numFmtId=\"49\" xfId=\"0\" quotePrefix=\"1\"", "", false},
        {"another alignment", " numFmtId=\"49\" xfId=\"0\"", "<alignment horizontal=\"right\"/>", false},
        {"an alignment that styles don't know", " numFmtId=\"49\" xfId=\"0\"", "<alignment justifyLastLine=\"1\"/>",
            false},
        {"an extension", " numFmtId=\"49\" xfId=\"0\"", "<extLst/>", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        TestPackage package = foreignWorkbook();
        package.edit(stylesPart, "<cellXfs count=\"2\">", "<cellXfs count=\"3\">");
        package.edit(stylesPart, "</cellXfs>", QByteArray("<xf") + c.attributes + '>' + c.content + "</xf></cellXfs>");
        ASSERT_TRUE(package.write(path()));
        Book book(FileKind::Xlsx);
        ASSERT_TRUE(book.load(path()));
        Format *text = book.addFormat();
        text->setNumFormat(49);
        book.getSheet(0)->writeStr(9, 0, QStringLiteral("x"), text);
        ASSERT_TRUE(book.save(path()));
        const QByteArray part = TestPackage::read(path()).bytes(QStringLiteral("xl/worksheets/sheet1.xml"));
        EXPECT_EQ(part.contains("<c r=\"A10\" s=\"2\""), c.isTaken) << part.constData();
        EXPECT_EQ(part.contains("<c r=\"A10\" s=\"3\""), !c.isTaken) << part.constData();
    }
}

/// As many as other programs take; in the usual format texts stay what they are, and dates would be numbers.
TEST_F(FormatGrowth, AFullWorkbookSaysSo)
{
    constexpr int most = 65490;
    TestPackage package = foreignWorkbook();
    package.edit(stylesPart, "</cellXfs>", QByteArray("<xf numFmtId=\"1\"/>").repeated(most - 2) + "</cellXfs>");
    ASSERT_TRUE(package.write(path()));
    const QByteArray before = TestPackage::read(path()).bytes(QStringLiteral("xl/worksheets/sheet1.xml"));
    const auto write = [this](int numberFormat) {
        auto book = std::make_unique<Book>(FileKind::Xlsx);
        EXPECT_TRUE(book->load(path()));
        Format *format = book->addFormat();
        format->setNumFormat(numberFormat);
        book->getSheet(0)->writeNum(9, 0, 45000, format);
        return book;
    };
    const auto date = write(14);
    EXPECT_FALSE(date->save(path()));
    EXPECT_TRUE(date->errorMessage().startsWith(QLatin1String("The workbook has as many cell formats as it can hold")))
        << qPrintable(date->errorMessage());
    EXPECT_EQ(TestPackage::read(path()).bytes(QStringLiteral("xl/worksheets/sheet1.xml")), before);
    const auto known = write(1);
    EXPECT_TRUE(known->save(path()));
    EXPECT_EQ(known->warnings(), QStringList());
    const auto text = write(49);
    EXPECT_TRUE(text->save(path()));
    EXPECT_EQ(text->warnings().size(), 1);
    const QByteArray sheet = TestPackage::read(path()).bytes(QStringLiteral("xl/worksheets/sheet1.xml"));
    EXPECT_TRUE(sheet.contains("<c r=\"A10\"><v>45000</v></c>")) << sheet.constData();
}

TEST_F(FormatGrowth, AFullOldWorkbookSaysSo)
{
    constexpr int most = 4100;
    Book full(FileKind::Xls);
    Sheet *sheet = full.addSheet(QStringLiteral("Log"));
    for (int i = 0; i < most; ++i) {
        CellStyle style;
        style.alignment.rotation = i % 181;
        style.alignment.indent = i / 181 % 16;
        style.alignment.wrap = i / 181 / 16 > 0;
        const Format model(0, style);
        sheet->writeNum(i, 0, i, full.addFormat(&model));
    }
    ASSERT_TRUE(full.save(path())) << qPrintable(full.errorMessage());
    EXPECT_EQ(full.warnings().size(), 1);
    for (const bool isDate : {true, false}) {
        SCOPED_TRACE(isDate);
        Book book(FileKind::Xls);
        ASSERT_TRUE(book.load(path()));
        Format *format = book.addFormat();
        format->setNumFormat(isDate ? 14 : 49);
        book.getSheet(0)->writeNum(most, 0, 45000, format);
        EXPECT_EQ(book.save(path()), !isDate);
        EXPECT_EQ(book.errorMessage().isEmpty(), !isDate);
        Book read(FileKind::Xls);
        ASSERT_TRUE(read.load(path()));
        EXPECT_EQ(read.getSheet(0)->lastRow(), isDate ? most : most + 1);
    }
}

} // namespace
