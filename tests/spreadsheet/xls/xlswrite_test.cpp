#include "spreadsheet/font.h"
#include "spreadsheet/xls/rkencoding.h"
#include "spreadsheet/xls/xlspalette.h"
#include "xlsstreamcheck.h"
#include "xlstestbook.h"

#include "support/printers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <limits>

using namespace spreadsheet;

namespace {

/// A new workbook and the same one read again.
class XlsWrite : public testing::Test
{
protected:
    QString path(const char *name = "book.xls") const { return m_folder.filePath(QLatin1String(name)); }

    /// Saves the book and reads it again, when it is right by all rules.
    void saveAndLoad()
    {
        ASSERT_TRUE(book.save(path())) << book.errorMessage().toStdString();
        EXPECT_EQ(streamFaults(workbookStream(path())), QStringList());
        ASSERT_TRUE(read.load(path())) << read.errorMessage().toStdString();
    }

    QTemporaryDir m_folder;
    Book book{FileKind::Xls};
    Book read{FileKind::Xls};
};

/// A number whose bits are random, or a short decimal one.
double randomNumber(QRandomGenerator &random)
{
    if (random.bounded(2)) {
        return (random.bounded(2000000) - 1000000) / double(random.bounded(2) ? 100 : 1000);
    }
    const quint64 bits = random.generate64();
    double number = 0;
    std::memcpy(&number, &bits, sizeof(number));
    return qIsFinite(number) ? number : -0.0;
}

} // namespace

TEST_F(XlsWrite, CellsComeBack)
{
    Sheet *sheet = book.addSheet(QStringLiteral("Daten €"));
    Format *date = book.addFormat();
    date->setNumFormat(14);
    sheet->writeStr(0, 0, QStringLiteral("plain"));
    sheet->writeStr(0, 1, QStringLiteral("Grüße"));
    sheet->writeStr(0, 2, QString::fromUtf8("€ 𝄞"));
    sheet->writeStr(0, 3, QString());
    sheet->writeStr(1, 0, QStringLiteral("plain"));
    sheet->writeBool(1, 1, true);
    sheet->writeNum(1, 2, book.datePack(2024, 2, 29, 0, 0, 0, 0), date);
    sheet->setCellFormat(2, 5, date);
    sheet->setCellFormat(2, 6, date);
    sheet->setCellFormat(3, 1, date);
    sheet->writeNum(65535, 255, -1.5);
    book.addSheet(QStringLiteral("Empty"));
    saveAndLoad();
    ASSERT_EQ(read.sheetCount(), 2);
    EXPECT_EQ(read.getSheetName(0), QStringLiteral("Daten €"));
    EXPECT_FALSE(read.sheetHasCells(1));
    const Sheet *back = read.getSheet(0);
    ASSERT_TRUE(back);
    for (int column = 0; column < 4; ++column) {
        EXPECT_EQ(back->cellType(0, column), CellType::String);
        EXPECT_EQ(back->readStr(0, column), sheet->readStr(0, column));
    }
    EXPECT_EQ(back->readStr(1, 0), QStringLiteral("plain"));
    EXPECT_EQ(back->cellType(1, 1), CellType::Boolean);
    EXPECT_TRUE(back->readBool(1, 1));
    EXPECT_TRUE(back->isDate(1, 2));
    EXPECT_EQ(back->readNum(1, 2), 45351.0);
    EXPECT_EQ(back->cellType(2, 5), CellType::Blank);
    EXPECT_EQ(back->cellFormat(2, 6)->style().numberFormat, 14);
    EXPECT_EQ(back->readNum(65535, 255), -1.5);
    EXPECT_EQ(back->lastRow(), 65536);
}

TEST_F(XlsWrite, NumbersComeBackToTheLastBit)
{
    QRandomGenerator random(3);
    Sheet *sheet = book.addSheet(QStringLiteral("N"));
    std::vector<double> numbers = {0.0, -0.0, 536870911, -536870911, 536870912, 5368709.11, 0.01, 0.1, 1e300, 5e-324,
        std::numeric_limits<double>::max(), 0.29, 1.005};
    while (numbers.size() < 20000) {
        numbers.push_back(randomNumber(random));
    }
    for (size_t i = 0; i < numbers.size(); ++i) {
        sheet->writeNum(int(i / 20), int(i % 20) + (i % 20 > 7), numbers[i]);
    }
    saveAndLoad();
    const Sheet *back = read.getSheet(0);
    for (size_t i = 0; i < numbers.size(); ++i) {
        const double number = back->readNum(int(i / 20), int(i % 20) + (i % 20 > 7));
        ASSERT_EQ(std::memcmp(&number, &numbers[i], sizeof(number)), 0) << numbers[i] << " became " << number;
    }
}

TEST_F(XlsWrite, TextsOfAllLengthsComeBack)
{
    QRandomGenerator random(11);
    const QChar letters[] = {QLatin1Char('a'), QChar(0xE9), QChar(0x20AC)};
    Sheet *sheet = book.addSheet(QStringLiteral("T"));
    QStringList texts;
    for (int i = 0; i < 3000; ++i) {
        const int kind = random.bounded(8);
        const int length = kind == 0 ? random.bounded(32768) : kind < 3 ? random.bounded(2000) : random.bounded(20);
        QString text = QString::number(i) + QString(length, letters[random.bounded(3)]);
        text.truncate(32767);
        texts.append(text);
        sheet->writeStr(i, 0, text);
    }
    saveAndLoad();
    const Sheet *back = read.getSheet(0);
    for (int i = 0; i < texts.size(); ++i) {
        ASSERT_TRUE(back->readStr(i, 0) == texts[i]) << i;
    }
    EXPECT_EQ(book.warnings(), QStringList());
}

TEST_F(XlsWrite, PairsStayWholeAtTheEndOfARecord)
{
    // Each text moves the pairs of the next one by a byte, two characters or half a record.
    Sheet *sheet = book.addSheet(QStringLiteral("T"));
    const QString pairs = QString::fromUtf8("\U0001F600\U00020BB7").repeated(3000);
    QStringList texts;
    for (int i = 0; i < 60; ++i) {
        texts.append(QString(i % 7, QLatin1Char('x')) + pairs.mid(0, i % 2 ? 12000 : 4110) + QString::number(i));
        texts.append(QString(i, QLatin1Char('a')));
    }
    for (int i = 0; i < 4200; ++i) { // borders right behind the length of a text
        texts.append(QString::fromUtf8("\U0001F601") + QString::number(i));
    }
    for (int i = 0; i < texts.size(); ++i) {
        sheet->writeStr(i, 0, texts[i]);
    }
    saveAndLoad();
    for (int i = 0; i < texts.size(); ++i) {
        ASSERT_TRUE(read.getSheet(0)->readStr(i, 0) == texts[i]) << i;
    }
}

TEST_F(XlsWrite, TooLongTextsAreCutWithAWarning)
{
    Sheet *sheet = book.addSheet(QStringLiteral("T"));
    sheet->writeStr(0, 0, QString(32766, QLatin1Char('x')) + QString::fromUtf8("𝄞"));
    sheet->writeStr(1, 1, QString(32767, QChar(0x20AC)));
    saveAndLoad();
    EXPECT_EQ(book.warnings(),
        QStringList({QStringLiteral("Text in T!A1 has more than 32767 characters and was cut in .xls")}));
    EXPECT_EQ(read.getSheet(0)->readStr(0, 0), QString(32766, QLatin1Char('x')));
    EXPECT_EQ(read.getSheet(0)->readStr(1, 1).size(), 32767);
}

TEST_F(XlsWrite, FormulasThatCantBeWrittenBecomeTexts)
{
    Sheet *sheet = book.addSheet(QStringLiteral("F"));
    sheet->writeFormula(0, 0, QStringLiteral("=1+1"));
    for (int row = 1; row <= 7; ++row) {
        sheet->writeFormula(row, 0, QStringLiteral("=FROB(%1)").arg(row));
    }
    saveAndLoad();
    QStringList warnings;
    for (int row = 1; row <= 5; ++row) {
        warnings.append(QStringLiteral("Formula in F!A%1 could not be written to .xls and was written as text: the "
                                       "function FROB is unknown")
                            .arg(row + 1));
    }
    warnings.append(QStringLiteral("+ 2 others"));
    EXPECT_EQ(book.warnings(), warnings);
    EXPECT_TRUE(read.getSheet(0)->isFormula(0, 0));
    EXPECT_FALSE(read.getSheet(0)->isFormula(1, 0));
    EXPECT_EQ(read.getSheet(0)->readStr(7, 0), QStringLiteral("=FROB(7)"));
}

TEST_F(XlsWrite, FormulasReferToSheetsBeforeAndBehind)
{
    Sheet *first = book.addSheet(QStringLiteral("One"));
    first->writeFormula(0, 0, QStringLiteral("Two!A1+One!B1+two!A2"));
    book.addSheet(QStringLiteral("Two"))->writeFormula(0, 0, QStringLiteral("One!C1"));
    saveAndLoad();
    EXPECT_EQ(book.warnings(), QStringList());
    const QByteArray stream = workbookStream(path());
    // The workbook itself has two sheets; "Two" was asked for first, once for both of its places.
    EXPECT_TRUE(stream.contains(
        record(RecordId::SupBook, words({2, 0x0401})) + record(RecordId::ExternSheet, words({2, 0, 1, 1, 0, 0, 0}))));
    EXPECT_EQ(read.getSheet(0)->cells().formula(0, 0)->stored.right(23).toHex(),
        "5a0000000000c05a0100000001c0035a0000010000c003");
}

TEST_F(XlsWrite, LayoutComesBack)
{
    Sheet *sheet = book.addSheet(QStringLiteral("L"));
    sheet->writeStr(0, 0, QStringLiteral("x"));
    sheet->setCol(0, 30.5, false);
    sheet->setCol(2, -1, true);
    sheet->setCol(255, 12, true);
    sheet->setRow(3, 40.25, false);
    sheet->setRow(5, -1, true);
    for (int i = 0; i < 1500; ++i) {
        ASSERT_TRUE(sheet->setMerge({i * 2 + 10, i * 2 + 11, 1, 4}));
    }
    const QStringList targets = {QStringLiteral("http://example.org/a?b=1#part"),
        QStringLiteral("mailto:a@example.org"), QStringLiteral("#'L'!B2"), QStringLiteral("..\\up\\with space.txt"),
        QStringLiteral("C:\\x.txt"), QStringLiteral("b.xls#Sheet1!A1"), QString::fromUtf8("http://example.org/€")};
    for (const QString &target : targets) {
        sheet->addHyperlink(target, 1, 2, 3, 4);
    }
    saveAndLoad();
    Sheet *back = read.getSheet(0);
    EXPECT_EQ(back->colWidth(0), 30.5);
    EXPECT_FALSE(back->colHidden(0));
    EXPECT_EQ(back->colWidth(1), -1);
    EXPECT_TRUE(back->colHidden(2));
    EXPECT_TRUE(back->colHidden(255));
    EXPECT_EQ(back->rowHeight(3), 40.25);
    EXPECT_TRUE(back->rowHidden(5));
    EXPECT_FALSE(back->rowHidden(3));
    ASSERT_EQ(back->mergeSize(), 1500);
    EXPECT_EQ(back->merge(1499).rowFirst, 3008);
    ASSERT_EQ(back->hyperlinkSize(), targets.size());
    for (int i = 0; i < targets.size(); ++i) {
        const QString target = back->hyperlink(i).target;
        EXPECT_TRUE(target == targets[i] || QLatin1Char('#') + target == targets[i]) << target.toStdString();
        EXPECT_EQ(back->hyperlink(i).range.columnLast, 4);
    }
}

TEST_F(XlsWrite, StylesComeBack)
{
    CellStyle style;
    style.font = {QStringLiteral("Courier New"), 16.5, true, true, true, 33, 2, 3, 204, {true, 0xFF123456}};
    style.fill = {1, {true, 0xFFABCDEF}, {true, 0xFF00FF00}};
    style.border.left = {5, {true, 0xFF010203}};
    style.border.bottom = {13, {}};
    style.border.diagonal = {1, {true, 0xFF0000FF}};
    style.border.diagonalUp = true;
    style.alignment = {6, 1, true, true, 135, 7, 2};
    style.numberCode = QStringLiteral("0.000\" €\"");
    style.locked = false;
    style.hiddenFormula = true;
    const Format like(0, style);
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    sheet->writeNum(0, 0, 1, book.addFormat(&like));
    sheet->writeNum(0, 1, 1, book.addFormat(&like));
    Font *font = book.addFont();
    font->setBold(true);
    font->setColor(12);
    Format *link = book.addFormat();
    link->setFont(font);
    link->setNumFormat(49);
    sheet->writeNum(0, 2, 1, link);
    saveAndLoad();
    const Sheet *back = read.getSheet(0);
    const CellStyle &found = back->cellFormat(0, 0)->style();
    EXPECT_EQ(found.font.name, style.font.name);
    EXPECT_EQ(found.font.size, 16.5);
    EXPECT_TRUE(found.font.bold && found.font.italic && found.font.strikeOut);
    EXPECT_EQ(found.font.underline, 33);
    EXPECT_EQ(found.font.script, 2);
    EXPECT_EQ(found.font.charset, 204);
    EXPECT_TRUE(found.font.color == style.font.color);
    EXPECT_EQ(found.fill.pattern, 1);
    EXPECT_TRUE(found.fill.foreground == style.fill.foreground);
    EXPECT_TRUE(found.fill.background == style.fill.background);
    EXPECT_EQ(found.border.left.style, 5);
    EXPECT_TRUE(found.border.left.color == style.border.left.color);
    EXPECT_EQ(found.border.bottom.style, 13);
    EXPECT_FALSE(found.border.bottom.color.isSet);
    EXPECT_TRUE(found.border.diagonalUp && !found.border.diagonalDown);
    EXPECT_TRUE(found.border.diagonal.color == style.border.diagonal.color);
    EXPECT_EQ(found.alignment.horizontal, 6);
    EXPECT_EQ(found.alignment.vertical, 1);
    EXPECT_TRUE(found.alignment.wrap && found.alignment.shrink);
    EXPECT_EQ(found.alignment.rotation, 135);
    EXPECT_EQ(found.alignment.indent, 7);
    EXPECT_EQ(found.alignment.readingOrder, 2);
    EXPECT_EQ(found.numberCode, style.numberCode);
    EXPECT_FALSE(found.locked);
    EXPECT_TRUE(found.hiddenFormula);
    EXPECT_EQ(back->cellFormat(0, 0), back->cellFormat(0, 1)) << "equal formats are written once";
    EXPECT_EQ(back->cellFormat(0, 2)->style().font.color.rgb, 0xFF0000FF);
    EXPECT_EQ(back->cellFormat(0, 2)->style().font.name, QStringLiteral("Arial"));
    EXPECT_EQ(back->cellFormat(0, 2)->style().numberFormat, 49);
}

TEST_F(XlsWrite, MoreFormatsThanAFileCanHold)
{
    Sheet *sheet = book.addSheet(QStringLiteral("S"));
    for (int i = 0; i < 5000; ++i) {
        CellStyle style;
        style.alignment.indent = i % 15;
        style.alignment.rotation = i / 15 % 180;
        style.fill = {1, {true, 0xFF000000 + unsigned(i / 2700) * 255}, {}};
        const Format like(0, style);
        sheet->writeNum(i, 0, i, book.addFormat(&like));
    }
    saveAndLoad();
    EXPECT_EQ(read.getSheet(0)->readNum(4999, 0), 4999);
    EXPECT_EQ(read.getSheet(0)->cellFormat(1234, 0)->style().alignment.rotation, 1234 / 15);
    ASSERT_EQ(book.warnings().size(), 1);
}

TEST(XlsPalette, TakesUnusedPlacesThenTheNearest)
{
    XlsPalette palette;
    EXPECT_EQ(palette.number({}, 64), 64u);
    EXPECT_EQ(palette.number({true, 0xFFFF0000}, 64), 10u) << "a usual colour has its number";
    EXPECT_EQ(palette.number({true, 0xFF010203}, 64), 63u) << "another one takes the last place";
    EXPECT_EQ(palette.number({true, 0xFF010203}, 64), 63u);
    for (unsigned i = 1; i < 100; ++i) {
        palette.number({true, 0xFF400000 + i}, 64);
    }
    EXPECT_EQ(palette.number({true, 0xFFFE0000}, 64), 10u) << "when all are taken, the nearest one";
    XlsPalette frozen;
    frozen.freeze();
    EXPECT_EQ(frozen.number({true, 0xFF000001}, 64), 8u) << "a file's own colours stay";
}

TEST(XlsNumbers, ShortFormsAreExact)
{
    const struct
    {
        const char *what;
        double number;
        bool isShort;
    } cases[] = {
        {"zero", 0.0, true},
        {"minus zero keeps its sign", -0.0, true},
        {"a price", 12.34, true},
        {"the largest whole one", 536870911, true},
        {"one more is a power of two", 536870912, true},
        {"three decimals", 1.005, false},
        {"a third", 1.0 / 3, false},
        {"a power of two", 0.125, true},
        {"huge", 1e300, false},
        {"the smallest", 5e-324, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        quint32 bits = 0;
        EXPECT_EQ(encodeRk(c.number, &bits), c.isShort);
        const double decoded = rkNumber(bits);
        EXPECT_EQ(std::memcmp(&decoded, &c.number, sizeof(decoded)) == 0, c.isShort);
    }
}

TEST_F(XlsWrite, SavingReplacesAFileAsAWhole)
{
    book.addSheet(QStringLiteral("S"))->writeNum(0, 0, 1);
    QDir(m_folder.path()).mkdir(QStringLiteral("real"));
    const QString target = path("real/book.xls");
    QFile old(target);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    old.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    ASSERT_TRUE(QFile::link(target, path("link.xls")));
    ASSERT_TRUE(book.save(path("link.xls"))) << book.errorMessage().toStdString();
    EXPECT_TRUE(QFileInfo(path("link.xls")).isSymLink());
    EXPECT_TRUE(read.load(target));
    EXPECT_FALSE(QFileInfo(target).permission(QFile::ReadOther));
    EXPECT_TRUE(QFileInfo(target).permission(QFile::ReadGroup));

    EXPECT_FALSE(book.save(path("missing/book.xls")));
    EXPECT_FALSE(book.errorMessage().isEmpty());
    EXPECT_FALSE(book.save(m_folder.path())) << "a folder";
    EXPECT_FALSE(Book(FileKind::Xls).save(path("none.xls"))) << "no sheets";
    EXPECT_FALSE(QFile::exists(path("none.xls")));
}
