#include "spreadsheet/book.h"
#include "spreadsheet/xlsx/xlsxwritepackage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <limits>
#include <sys/resource.h>

using namespace spreadsheet;

namespace {

class XlsxWrite : public ::testing::Test
{
protected:
    QString path(const char *name = "book.xlsx") const { return m_folder.filePath(QLatin1String(name)); }
    /// Saves, checks the file and gives it as it reads.
    std::unique_ptr<Book> saved(Book &book)
    {
        EXPECT_TRUE(book.save(path())) << qPrintable(book.errorMessage());
        EXPECT_EQ(checkPackage(path()), QStringList());
        auto read = std::make_unique<Book>(FileKind::Xlsx);
        EXPECT_TRUE(read->load(path())) << qPrintable(read->errorMessage());
        return read;
    }

    QTemporaryDir m_folder;
};

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::unique_ptr<Book> smallBook()
{
    auto book = std::make_unique<Book>(FileKind::Xlsx);
    book->addSheet(QStringLiteral("S"))->writeNum(0, 0, 1.0);
    return book;
}

TEST_F(XlsxWrite, TextsComeBackAsTheyWere)
{
    const struct
    {
        const char *what;
        std::string text;
        std::string file; ///< the text's element in the file
        std::string read; ///< when it can't be what was written
    } cases[] = {
        {"markup is escaped", "a<b>&\"c\"", "<t>a&lt;b&gt;&amp;\"c\"</t>", {}},
        {"blanks at the ends are kept", " a ", "<t xml:space=\"preserve\"> a </t>", {}},
        {"a lone line feed is kept", "\n", "<t xml:space=\"preserve\">\n</t>", {}},
        {"line feeds and tabs stay", "a\n\tb", "<t>a\n\tb</t>", {}},
        {"a carriage return would be read as a line feed", "a\r\nb", "<t>a_x000D_\nb</t>", {}},
        {"control characters have a form of their own", "\x01\x1F", "<t>_x0001__x001F_</t>", {}},
        {"what looks like this form isn't taken for it", "_x0041_ _x004_ _X0041_",
            "<t>_x005F_x0041_ _x004_ _x005F_X0041_</t>", {}},
        {"forms may share an underscore", "_x0041_x0042_", "<t>_x005F_x0041_x005F_x0042_</t>", {}},
        {"characters beyond the first plane stay", "\xF0\x9F\x98\x80", "<t>\xF0\x9F\x98\x80</t>", {}},
        {"noncharacters that XML refuses", "\xEF\xBF\xBE", "<t>_xFFFE_</t>", {}},
        {"a lone surrogate is replaced", "a\xED\xA0\x80z", "<t>a\xEF\xBF\xBDz</t>", "a\xEF\xBF\xBDz"},
        {"bytes that are no UTF-8 are replaced", "\xFF\xC3", "<t>\xEF\xBF\xBD\xEF\xBF\xBD</t>",
            "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"an overlong form is replaced", "\xC0\x80", "<t>\xEF\xBF\xBD</t>", "\xEF\xBF\xBD"},
        {"a null is a character", std::string("a\0b", 3), "<t>a_x0000_b</t>", {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Book book(FileKind::Xlsx);
        book.addSheet(QStringLiteral("S"))->writeText(0, 0, c.text);
        const auto read = saved(book);
        const QByteArray texts = TestPackage::read(path()).bytes(QStringLiteral("xl/sharedStrings.xml"));
        EXPECT_NE(texts.indexOf(QByteArray::fromStdString("<si>" + c.file + "</si>")), -1) << texts.constData();
        ASSERT_TRUE(read->getSheet(0));
        const CellRecord *cell = read->getSheet(0)->cells().cell(0, 0);
        ASSERT_TRUE(cell);
        EXPECT_EQ(std::string(read->text(cell->textId())), c.read.empty() ? c.text : c.read);
    }
}

TEST_F(XlsxWrite, SharesEqualTexts)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    for (int row = 0; row < 6; ++row) {
        sheet->writeStr(row, 0, row % 2 ? QStringLiteral("odd") : QStringLiteral("even"));
    }
    sheet->writeStr(6, 0, QStringLiteral("gone"));
    sheet->writeNum(6, 0, 1.0);
    saved(book);
    const QByteArray texts = TestPackage::read(path()).bytes(QStringLiteral("xl/sharedStrings.xml"));
    EXPECT_TRUE(texts.endsWith("count=\"6\" uniqueCount=\"2\"><si><t>even</t></si><si><t>odd</t></si></sst>"))
        << texts.constData();
}

TEST_F(XlsxWrite, NumbersComeBackToTheLastBit)
{
    const double numbers[] = {0.0, -0.0, 0.1, 1.0 / 3.0, -1e300, 5e-324, 1e15, 123456789012345678.0, -42.0, 1e21,
        std::numeric_limits<double>::max(), 45351.51041666667};
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    for (size_t i = 0; i < std::size(numbers); ++i) {
        EXPECT_TRUE(sheet->writeNum(static_cast<int>(i), static_cast<int>(i) * 27, numbers[i]));
    }
    const auto read = saved(book);
    for (size_t i = 0; i < std::size(numbers); ++i) {
        const double number = read->getSheet(0)->readNum(static_cast<int>(i), static_cast<int>(i) * 27);
        EXPECT_EQ(memcmp(&number, &numbers[i], sizeof number), 0) << numbers[i];
    }
}

TEST_F(XlsxWrite, LayoutAndFormatsComeBack)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("A & B"));
    CellStyle style;
    style.font = {QStringLiteral("Arial & Co"), 9.5, true, true, true, 33, 2, 3, 238, {true, 0xFF123456}};
    style.fill = {1, {true, 0xFFFFFF00}, {true, 0xFF000001}};
    style.border.left = {6, {true, 0xFF00FF00}};
    style.border.diagonal = {1, {}};
    style.border.diagonalUp = true;
    style.alignment = {6, 0, true, true, 45, 2, 1};
    style.numberFormat = 8; // of another book, which calls its own format so
    style.numberCode = QStringLiteral("0.0 \"<kg>\"");
    style.locked = false;
    style.hiddenFormula = true;
    const Format foreign(3, style);
    Format *date = book.addFormat();
    date->setNumFormat(14);
    sheet->setCellFormat(3, 2, book.addFormat(&foreign));
    sheet->writeNum(0, 0, 44000, date);
    sheet->writeBool(1, 0, true);
    sheet->setCol(0, 30.5, false);
    sheet->setCol(16383, -1, true);
    sheet->setRow(0, 33.75, false);
    sheet->setRow(9, -1, true);
    sheet->setMerge({5, 6, 0, 3});
    book.addSheet(QStringLiteral("Empty"));
    const auto read = saved(book);
    Sheet *back = read->getSheet(0);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->name(), QStringLiteral("A & B"));
    EXPECT_TRUE(back->isDate(0, 0));
    EXPECT_EQ(back->cellType(1, 0), CellType::Boolean);
    EXPECT_EQ(back->cellType(3, 2), CellType::Blank);
    EXPECT_EQ(back->colWidth(0), 30.5);
    EXPECT_TRUE(back->colHidden(16383));
    EXPECT_FALSE(back->colHidden(16382));
    EXPECT_EQ(back->rowHeight(0), 33.75);
    EXPECT_TRUE(back->rowHidden(9));
    ASSERT_EQ(back->mergeSize(), 1);
    EXPECT_EQ(back->merge(0).columnLast, 3);
    const CellStyle &kept = back->cellFormat(3, 2)->style();
    EXPECT_EQ(kept.font.name, style.font.name);
    EXPECT_EQ(kept.font.size, style.font.size);
    EXPECT_TRUE(kept.font.bold && kept.font.italic && kept.font.strikeOut);
    EXPECT_EQ(kept.font.underline, 33);
    EXPECT_EQ(kept.font.script, 2);
    EXPECT_EQ(kept.font.family, 3);
    EXPECT_EQ(kept.font.charset, 238);
    EXPECT_TRUE(kept.font.color == style.font.color);
    EXPECT_EQ(kept.fill.pattern, 1);
    EXPECT_TRUE(kept.fill.foreground == style.fill.foreground && kept.fill.background == style.fill.background);
    EXPECT_EQ(kept.border.left.style, 6);
    EXPECT_TRUE(kept.border.left.color == style.border.left.color);
    EXPECT_TRUE(kept.border.diagonalUp && !kept.border.diagonalDown);
    EXPECT_EQ(kept.border.top.style, 0);
    EXPECT_EQ(kept.alignment.horizontal, 6);
    EXPECT_EQ(kept.alignment.vertical, 0);
    EXPECT_TRUE(kept.alignment.wrap && kept.alignment.shrink);
    EXPECT_EQ(kept.alignment.rotation, 45);
    EXPECT_EQ(kept.alignment.indent, 2);
    EXPECT_EQ(kept.alignment.readingOrder, 1);
    EXPECT_EQ(kept.numberCode, style.numberCode);
    EXPECT_TRUE(!kept.locked && kept.hiddenFormula);
    EXPECT_EQ(read->getSheet(1)->lastRow(), 0);
}

TEST_F(XlsxWrite, EqualFormatsAndTheirPartsStandOnce)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    for (int i = 0; i < 5; ++i) {
        Font *bold = book.addFont();
        bold->setBold(true);
        Format *format = book.addFormat();
        format->setFont(bold);
        format->setNumFormat(i % 2 ? 49 : 14);
        sheet->writeNum(i, 0, i, format);
    }
    saved(book);
    const QByteArray styles = TestPackage::read(path()).bytes(QStringLiteral("xl/styles.xml"));
    for (const char *count :
        {"<fonts count=\"2\">", "<fills count=\"2\">", "<borders count=\"1\">", "<cellXfs count=\"3\">"}) {
        EXPECT_TRUE(styles.contains(count)) << count;
    }
}

TEST_F(XlsxWrite, LinksHaveRelationsOrPlaces)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    sheet->addHyperlink(QStringLiteral("http://example.org/a b"), 0, 0, 0, 0);
    sheet->addHyperlink(QStringLiteral("http://example.org/a b"), 1, 2, 1, 3);
    sheet->addHyperlink(QStringLiteral("#'S'!A1"), 3, 3, 0, 0);
    sheet->addHyperlink(QStringLiteral("  "), 4, 4, 0, 0);
    const auto read = saved(book);
    Sheet *back = read->getSheet(0);
    ASSERT_EQ(back->hyperlinkSize(), 3);
    EXPECT_EQ(back->hyperlink(0).target, QStringLiteral("http://example.org/a%20b"));
    EXPECT_EQ(back->hyperlink(1).range.columnLast, 3);
    EXPECT_EQ(book.warnings().size(), 1);
    const QByteArray relations = TestPackage::read(path()).bytes(QStringLiteral("xl/worksheets/_rels/sheet1.xml.rels"));
    EXPECT_EQ(relations.count("<Relationship "), 1) << relations.constData();
}

TEST_F(XlsxWrite, FormulasHaveNoResult)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    sheet->writeFormula(0, 0, QStringLiteral("=IF(B1<\"<\",xlookup(1,A:A,B:B),0)"));
    sheet->writeFormula(0, 1, QStringLiteral("=1+"));
    const auto read = saved(book);
    const QByteArray part = TestPackage::read(path()).bytes(QStringLiteral("xl/worksheets/sheet1.xml"));
    EXPECT_TRUE(part.contains("<c r=\"A1\"><f>IF(B1&lt;\"&lt;\",_xlfn.xlookup(1,A:A,B:B),0)</f></c>"))
        << part.constData();
    EXPECT_EQ(read->getSheet(0)->readStr(0, 1), QStringLiteral("=1+"));
    EXPECT_FALSE(read->getSheet(0)->isFormula(0, 1));
    EXPECT_EQ(book.warnings().size(), 1);
    EXPECT_TRUE(TestPackage::read(path()).bytes(QStringLiteral("xl/workbook.xml")).contains("fullCalcOnLoad=\"1\""));
}

TEST_F(XlsxWrite, OverlongTextsAreWholeAndNamed)
{
    Book book(FileKind::Xlsx);
    const QString most(maxTextLength, QChar(0xE9));
    const QString more(maxTextLength + 1, QLatin1Char('x'));
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    sheet->writeStr(0, 0, most);
    sheet->writeStr(1, 0, more);
    const auto read = saved(book);
    EXPECT_EQ(read->getSheet(0)->readStr(0, 0), most);
    EXPECT_EQ(read->getSheet(0)->readStr(1, 0), more);
    ASSERT_EQ(book.warnings().size(), 1);
    EXPECT_TRUE(book.warnings().front().startsWith(QLatin1String("1 text(s)")));
}

TEST_F(XlsxWrite, AnotherProgramReadsTheSame)
{
    // That of the system, which has the packages.
    const QString program = QStandardPaths::findExecutable(QStringLiteral("python3"), {QStringLiteral("/usr/bin")});
    QProcess python;
    python.start(program, {QStringLiteral("-c"), QStringLiteral("import openpyxl")});
    if (!python.waitForStarted() || !python.waitForFinished() || python.exitCode() != 0) {
        FAIL() << "python3-openpyxl is not installed: scripts/install-packages gnumeric python3-openpyxl";
    }
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("Tab <1>"));
    Format *date = book.addFormat();
    date->setNumFormat(14);
    sheet->writeStr(0, 0, QStringLiteral(" é & <b> "));
    sheet->writeNum(0, 1, 0.1);
    sheet->writeNum(1, 0, book.datePack(2024, 2, 29, 0, 0, 0, 0), date);
    sheet->writeBool(1, 1, true);
    sheet->writeFormula(2, 0, QStringLiteral("=SUM(B1:B2)"));
    sheet->addHyperlink(QStringLiteral("http://a.example/x y"), 0, 0, 0, 0);
    sheet->setMerge({4, 5, 0, 1});
    ASSERT_TRUE(book.save(path()));
    const QString script = QStringLiteral(
        "import sys, openpyxl\n"
        "sheet = openpyxl.load_workbook(sys.argv[1]).worksheets[0]\n"
        "print(sheet.title, ascii([[c.value for c in row] for row in sheet['A1:B3']]), "
        "sheet['A1'].hyperlink.target, *map(str, sheet.merged_cells.ranges))\n");
    python.start(program, {QStringLiteral("-c"), script, path()});
    ASSERT_TRUE(python.waitForFinished());
    EXPECT_EQ(python.readAllStandardOutput().trimmed().toStdString(),
        "Tab <1> [[' \\xe9 & <b> ', 0.1], [datetime.datetime(2024, 2, 29, 0, 0), True], ['=SUM(B1:B2)', None]] "
        "http://a.example/x%20y A5:B6");
    EXPECT_EQ(python.readAllStandardError(), QByteArray());
}

TEST_F(XlsxWrite, EqualBooksMakeEqualFiles)
{
    ASSERT_TRUE(smallBook()->save(path("a.xlsx")));
    ASSERT_TRUE(smallBook()->save(path("b.xlsx")));
    EXPECT_EQ(readFile(path("a.xlsx")), readFile(path("b.xlsx")));
}

TEST_F(XlsxWrite, EntriesAreOfTheOldFormThatAllProgramsRead)
{
    ASSERT_TRUE(smallBook()->save(path()));
    const QByteArray bytes = readFile(path());
    int headers = 0;
    for (int at = bytes.indexOf("PK\x03\x04"); at >= 0; at = bytes.indexOf("PK\x03\x04", at + 4)) {
        EXPECT_EQ(bytes.at(at + 4), 20) << "version 2.0 can't have 64 bit sizes";
        EXPECT_EQ(bytes.mid(at + 28, 2), QByteArray(2, '\0')) << "no extra fields";
        ++headers;
    }
    EXPECT_EQ(headers, 7);
    EXPECT_EQ(TestPackage::read(path()).names().front(), QStringLiteral("[Content_Types].xml"));
}

TEST_F(XlsxWrite, KeepsModeAndLinkOfTheFile)
{
    ASSERT_TRUE(smallBook()->save(path("target.xlsx")));
    const auto mode = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    ASSERT_TRUE(QFile::setPermissions(path("target.xlsx"), mode));
    ASSERT_TRUE(QFile::link(path("target.xlsx"), path("link.xlsx")));
    Book book(FileKind::Xlsx);
    book.addSheet(QStringLiteral("Other"));
    ASSERT_TRUE(book.save(path("link.xlsx"))) << qPrintable(book.errorMessage());
    EXPECT_TRUE(QFileInfo(path("link.xlsx")).isSymLink());
    EXPECT_EQ(QFile::permissions(path("target.xlsx")) & (mode | QFile::ReadOther), mode);
    Book read(FileKind::Xlsx);
    ASSERT_TRUE(read.load(path("target.xlsx")));
    EXPECT_EQ(read.getSheetName(0), QStringLiteral("Other"));
}

TEST_F(XlsxWrite, FailsWithAReason)
{
    Book empty(FileKind::Xlsx);
    EXPECT_FALSE(empty.save(path()));
    EXPECT_FALSE(empty.errorMessage().isEmpty());
    EXPECT_FALSE(QFile::exists(path()));
    const QString targets[] = {m_folder.path(), path("no/such/folder.xlsx"), QString()};
    for (const QString &target : targets) {
        SCOPED_TRACE(qPrintable(target));
        const auto book = smallBook();
        EXPECT_FALSE(book->save(target));
        EXPECT_FALSE(book->errorMessage().isEmpty());
    }
}

TEST_F(XlsxWrite, AFullDiskLeavesTheOldFile)
{
    ASSERT_TRUE(smallBook()->save(path()));
    const QByteArray before = readFile(path());
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    unsigned seed = 1;
    for (int row = 0; row < 20000; ++row) {
        seed = seed * 1664525u + 1013904223u;
        sheet->writeNum(row, 0, seed);
    }
    rlimit old;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{30000, old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool isSaved = book.save(path());
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(isSaved);
    EXPECT_FALSE(book.errorMessage().isEmpty());
    EXPECT_EQ(readFile(path()), before);
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1) << "nothing is left behind";
    EXPECT_TRUE(book.save(path()));
    EXPECT_EQ(checkPackage(path()), QStringList());
}

TEST_F(XlsxWrite, TheLastPlaceOfASheetCanBeWritten)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    EXPECT_TRUE(sheet->writeStr(1048575, 16383, QStringLiteral("end")));
    EXPECT_FALSE(sheet->writeStr(1048576, 0, QStringLiteral("beyond")));
    const auto read = saved(book);
    EXPECT_EQ(read->getSheet(0)->readStr(1048575, 16383), QStringLiteral("end"));
}

} // namespace
