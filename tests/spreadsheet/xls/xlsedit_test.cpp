#include "spreadsheet/xls/compoundfile.h"
#include "xlseditbook.h"
#include "xlsstreamcheck.h"

#include "support/printers.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

const QList<RecordId> cellRecords = {RecordId::Dimensions, RecordId::Row, RecordId::Formula, RecordId::SharedFormula,
    RecordId::LabelShared, RecordId::Number, RecordId::Rk, RecordId::MultipleRk, RecordId::Blank, RecordId::DBCell,
    RecordId::Index};

/// The foreign workbook, loaded from a file, and what it is once it has been saved.
class XlsEdit : public testing::Test
{
protected:
    void SetUp() override { load(foreignXls().stream()); }

    void load(const QByteArray &stream)
    {
        before = stream;
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(foreignXlsFile(stream));
        file.close();
        ASSERT_TRUE(book.load(path())) << book.errorMessage().toStdString();
        data = book.getSheet(0);
        ASSERT_TRUE(data) << book.errorMessage().toStdString();
    }

    /// Over the file that was read.
    void save()
    {
        ASSERT_TRUE(book.save(path())) << book.errorMessage().toStdString();
        after = workbookStream(path());
        EXPECT_EQ(streamFaults(after), QStringList());
        ASSERT_TRUE(read.load(path())) << read.errorMessage().toStdString();
    }

    QString path() const { return m_folder.filePath(QStringLiteral("book.xls")); }

    QTemporaryDir m_folder;
    Book book{FileKind::Xls}, read{FileKind::Xls};
    Sheet *data = nullptr;
    QByteArray before, after;
};

/// Tokens of the formulas of a sheet, in hexadecimal digits.
QStringList formulaTokens(const QByteArray &sheet)
{
    QStringList tokens;
    for (const QByteArray &formula : recordsOf(sheet, RecordId::Formula)) {
        tokens.append(QString::fromLatin1(formula.mid(22).toHex()));
    }
    return tokens;
}

} // namespace

TEST_F(XlsEdit, TheTestsOwnWorkbookIsRight)
{
    // But for the index of its texts, which is never kept.
    EXPECT_EQ(streamFaults(before), QStringList({QStringLiteral("index to a wrong place (0)"),
                                        QStringLiteral("index into a record is wrong (0)")}));
}

TEST_F(XlsEdit, UnchangedSheetsStayByteForByte)
{
    Sheet *added = book.addSheet(QStringLiteral("Added"));
    added->writeStr(0, 0, QStringLiteral("plain"));
    added->writeFormula(1, 0, QStringLiteral("Other!A1&Added!A1&Data!A1"));
    save();
    EXPECT_EQ(sheetBytes(after, 0), sheetBytes(before, 0));
    EXPECT_EQ(withoutRecords(sheetBytes(after, 1), {RecordId::Index}),
        withoutRecords(sheetBytes(before, 1), {RecordId::Index}));
    EXPECT_EQ(recordsOf(sheetBytes(after, 1), RecordId::Index).size(), 1);
    EXPECT_NE(sheetBegin(after, 1), sheetBegin(before, 1)) << "or the index proves nothing";
    EXPECT_EQ(sheetBytes(after, 2), sheetBytes(before, 2));
    ASSERT_EQ(read.sheetCount(), 4);
    EXPECT_EQ(read.sheetType(2), 2);
    EXPECT_EQ(read.getSheet(3)->readStr(0, 0), QStringLiteral("plain"));
    // "Other" has a number already, the first one; the second one is of another workbook.
    EXPECT_EQ(formulaTokens(sheetBytes(after, 3)),
        QStringList({QStringLiteral("5a0000000000c05a0200000000c0085a0300000000c008")}));
    EXPECT_EQ(
        recordsOf(after, RecordId::ExternSheet), QList<QByteArray>({words({4, 1, 1, 1, 0, 0, 0, 1, 3, 3, 1, 0, 0})}));
}

TEST_F(XlsEdit, GlobalsStayButForWhatTheBookHasBeyondThem)
{
    const QList<RecordId> changing = {RecordId::BoundSheet, RecordId::ExtendedStrings};
    book.addSheet(QStringLiteral("Added"))->writeNum(0, 0, 5);
    save();
    const QByteArray old = globalBytes(before), now = globalBytes(after);
    const QList<RecordId> grown = {RecordId::SupBook, RecordId::SheetIds, RecordId(0x01C1)};
    EXPECT_EQ(withoutRecords(now, changing + grown), withoutRecords(old, changing + grown));
    EXPECT_EQ(recordsOf(now, RecordId::SheetIds), QList<QByteArray>({words({4, 9, 2, 10})}));
    EXPECT_EQ(recordsOf(now, RecordId::SupBook).value(0), recordsOf(old, RecordId::SupBook).value(0));
    EXPECT_EQ(recordsOf(now, RecordId::SupBook).value(1), words({4, 0x0401}));
    EXPECT_EQ(recordsOf(now, RecordId(0x01C1)), QList<QByteArray>({words({0x01C1, 0, 0, 0})}))
        << "results are worked out anew";
}

TEST_F(XlsEdit, NothingChangesWithoutAChange)
{
    save();
    const QList<RecordId> index = {RecordId::ExtendedStrings};
    EXPECT_EQ(withoutRecords(after, index + QList<RecordId>{RecordId::BoundSheet, RecordId::Index}),
        withoutRecords(before, index + QList<RecordId>{RecordId::BoundSheet, RecordId::Index}));
}

TEST_F(XlsEdit, AChangedSheetKeepsAllBesideItsCells)
{
    data->writeStr(6, 1, QStringLiteral("new"));
    data->writeNum(6, 2, 4);
    save();
    EXPECT_EQ(withoutRecords(sheetBytes(after, 0), cellRecords), withoutRecords(sheetBytes(before, 0), cellRecords));
    EXPECT_EQ(formulaTokens(sheetBytes(after, 0)), formulaTokens(sheetBytes(before, 0)));
    EXPECT_EQ(recordsOf(sheetBytes(after, 0), RecordId::SharedFormula).size(), 1);
    EXPECT_EQ(recordsOf(sheetBytes(after, 0), RecordId::Row).value(2).mid(6),
        recordsOf(sheetBytes(before, 0), RecordId::Row).value(2).mid(6))
        << "the outline and height of a row";
    EXPECT_EQ(sheetBytes(after, 2), sheetBytes(before, 2));
    // Old texts keep their runs; the new one stands behind them.
    const QByteArray oldTexts = recordsOf(before, RecordId::SharedStrings).value(0).mid(8);
    EXPECT_EQ(recordsOf(after, RecordId::SharedStrings).value(0),
        dword(6) + dword(4) + oldTexts + biffText(QStringLiteral("new")));
    const Sheet *back = read.getSheet(0);
    EXPECT_EQ(back->readStr(0, 0), QStringLiteral("rich text"));
    EXPECT_EQ(back->readStr(6, 1), QStringLiteral("new"));
    EXPECT_EQ(back->readNum(2, 3), 3.0);
    EXPECT_TRUE(back->isFormula(5, 0));
}

TEST_F(XlsEdit, SharedFormulasOutliveTheirFirstCell)
{
    data->writeNum(0, 3, 99);
    save();
    const QByteArray sheet = sheetBytes(after, 0);
    EXPECT_TRUE(recordsOf(sheet, RecordId::SharedFormula).isEmpty());
    EXPECT_EQ(formulaTokens(sheet).mid(0, 3),
        QStringList({QStringLiteral("44010002c01e02000515"), QStringLiteral("44020002c01e02000515"),
            QStringLiteral("44030002c01e02000515")}));
    EXPECT_EQ(qFromLittleEndian<quint16>(recordsOf(sheet, RecordId::Formula).value(0).constData() + 14), 0)
        << "no longer marked as shared";
    EXPECT_EQ(read.getSheet(0)->readNum(1, 3), 2.0);
    EXPECT_EQ(book.warnings(), QStringList());
}

TEST_F(XlsEdit, SharedFormulasThatAreLostLeaveTheirResult)
{
    QByteArray stream = foreignXls().stream();
    stream.replace(QByteArray::fromHex("4c0000ffc0"), QByteArray::fromHex("180000ffc0")); // a code that nobody knows
    load(stream);
    data->writeNum(0, 3, 99);
    save();
    EXPECT_FALSE(read.getSheet(0)->isFormula(2, 3));
    EXPECT_EQ(read.getSheet(0)->readNum(2, 3), 3.0);
    ASSERT_EQ(book.warnings().size(), 3);
    EXPECT_EQ(book.warnings().value(1),
        QStringLiteral("Formula in Data!D3 could not be kept and was replaced by its last result"));
}

TEST_F(XlsEdit, ChangedLayoutTakesThePlaceOfTheOld)
{
    EXPECT_TRUE(data->setCol(2, 30, true));
    EXPECT_TRUE(data->setMerge({20, 21, 0, 1}));
    EXPECT_TRUE(data->addHyperlink(QStringLiteral("http://example.org/"), 3, 3, 0, 0));
    save();
    const QByteArray old = sheetBytes(before, 0), now = sheetBytes(after, 0);
    const QList<RecordId> changed = {RecordId::ColumnInfo, RecordId::MergedCells, RecordId::HyperLink};
    EXPECT_EQ(withoutRecords(now, cellRecords + changed), withoutRecords(old, cellRecords + changed));
    EXPECT_EQ(recordsOf(now, RecordId::ColumnInfo),
        QList<QByteArray>({words({1, 1, 5120, 15, 0x0100, 0}), words({2, 2, 7680, 15, 0x0101, 0}),
            words({3, 3, 5120, 15, 0x0100, 0})}))
        << "with the outline level";
    EXPECT_EQ(recordsOf(now, RecordId::MergedCells), QList<QByteArray>({words({2, 10, 11, 0, 1, 20, 21, 0, 1})}));
    EXPECT_EQ(recordsOf(now, RecordId::HyperLink).size(), 2);
    EXPECT_EQ(recordsOf(now, RecordId::HyperLink).value(0), recordsOf(old, RecordId::HyperLink).value(0));
}

TEST_F(XlsEdit, DeletedLinksTakeTheirToolTipsAlong)
{
    data->delHyperlink(0);
    save();
    const QList<RecordId> links = {RecordId::HyperLink, RecordId::HyperLinkTooltip};
    EXPECT_EQ(
        withoutRecords(sheetBytes(after, 0), cellRecords), withoutRecords(sheetBytes(before, 0), cellRecords + links));
}

TEST_F(XlsEdit, ASheetThatHadNoneGetsColumnsMergesAndLinks)
{
    Sheet *other = book.getSheet(1);
    ASSERT_TRUE(other);
    other->setCol(0, 20, false);
    other->setMerge({4, 5, 0, 1});
    other->addHyperlink(QStringLiteral("mailto:a@example.org"), 0, 0, 0, 0);
    save();
    const Sheet *back = read.getSheet(1);
    EXPECT_EQ(back->colWidth(0), 20);
    EXPECT_EQ(back->mergeSize(), 1);
    EXPECT_EQ(back->hyperlinkSize(), 1);
    EXPECT_EQ(back->readStr(0, 0), QStringLiteral("plain"));
    EXPECT_TRUE(recordsOf(sheetBytes(after, 1), RecordId::Index).isEmpty());
}

TEST_F(XlsEdit, FormatsAreAddedBehindThoseOfTheFile)
{
    Font *font = book.addFont();
    font->setBold(true);
    Format *bold = book.addFormat();
    bold->setFont(font);
    Format *same = book.addFormat(bold);
    Format *three = book.addFormat(book.format(2)); // with a number format of the file's own
    data->setCellFormat(0, 0, bold);
    data->setCellFormat(1, 0, same);
    data->setCellFormat(2, 0, three);
    save();
    const QList<QByteArray> fonts = recordsOf(after, RecordId::Font),
                            formats = recordsOf(after, RecordId::ExtendedFormat);
    EXPECT_EQ(fonts.mid(0, 5), recordsOf(before, RecordId::Font));
    EXPECT_EQ(fonts.size(), 6);
    EXPECT_EQ(formats.mid(0, 16), recordsOf(before, RecordId::ExtendedFormat));
    EXPECT_EQ(formats.size(), 18);
    EXPECT_EQ(recordsOf(after, RecordId::NumberFormat), recordsOf(before, RecordId::NumberFormat));
    const Sheet *back = read.getSheet(0);
    EXPECT_TRUE(back->cellFormat(0, 0)->style().font.bold);
    EXPECT_EQ(back->cellFormat(1, 0), back->cellFormat(0, 0));
    EXPECT_EQ(back->cellFormat(2, 0)->style().numberCode, QStringLiteral("0.000"));
    EXPECT_FALSE(back->cellFormat(4, 0)->style().font.bold);
    EXPECT_EQ(back->readNum(2, 0), 12.5);
}

TEST_F(XlsEdit, FormulasInRecordsOfOlderVersionsStayOnce)
{
    const QByteArray tokens = QByteArray::fromHex("17010061"); // "a"
    const QByteArray textFollows = QByteArray(6, '\0') + words({0xFFFF});
    const auto formula = [&](RecordId id, unsigned row) {
        const QByteArray cell = words({row, 0, 0}) + textFollows + words({0, 0, 0, unsigned(tokens.size())}) + tokens;
        return record(id, cell) + record(RecordId::String, biffText("result"));
    };
    XlsTestBook made;
    made.globals = record(RecordId::Font, words({200, 0, 8, 400, 0, 0, 0x0100, 0x0041})) + formatRecord();
    made.sheets = {{"S", formula(RecordId::FormulaOfVersion3, 0) + formula(RecordId::FormulaOfVersion4, 1)}};
    load(made.stream());
    data->writeNum(2, 0, 1);
    save();
    for (int row = 0; row < 2; ++row) {
        EXPECT_TRUE(read.getSheet(0)->isFormula(row, 0));
        EXPECT_EQ(read.getSheet(0)->readStr(row, 0), QString("result"));
    }
    EXPECT_EQ(after.count("result"), 2) << "no cell is written beside its old record";
}

TEST(XlsEditStyles, AFileWithoutFormatsGetsTheUsualOnes)
{
    const QByteArray font = record(RecordId::Font, words({200, 0, 8, 400, 0, 0, 0x0100, 0x0041}));
    const QByteArray cell = record(RecordId::Number, words({0, 0, 15}) + real(45000));
    QTemporaryDir folder;
    for (const QByteArray &globals : {QByteArray(), font}) {
        XlsTestBook made;
        made.globals = globals;
        made.sheets = {{"S", cell}, {"Unchanged", cell}};
        LoadedXls loaded(compoundFile(made.stream()));
        ASSERT_TRUE(loaded.first()) << loaded.error().toStdString();
        Format *date = loaded.book().addFormat();
        Font *bold = loaded.book().addFont();
        bold->setBold(true);
        date->setFont(bold);
        date->setNumFormat(14);
        loaded.first()->writeNum(1, 0, 45000, date);
        loaded.first()->writeNum(2, 0, 45000);
        const QString path = folder.filePath("saved.xls");
        ASSERT_TRUE(loaded.book().save(path)) << loaded.book().errorMessage().toStdString();
        Book read(FileKind::Xls);
        ASSERT_TRUE(read.load(path)) << read.errorMessage().toStdString();
        for (int row = 0; row < 3; ++row) {
            EXPECT_EQ(read.getSheet(0)->isDate(row, 0), row == 1);
            EXPECT_EQ(read.getSheet(0)->cellFormat(row, 0)->style().font.bold, row == 1);
        }
        EXPECT_FALSE(read.getSheet(1)->isDate(0, 0));
    }
}

TEST_F(XlsEdit, OtherStreamsAreCarriedOver)
{
    data->writeNum(0, 0, 1);
    save();
    CompoundFile file;
    ASSERT_TRUE(file.open(path()));
    QByteArray content;
    ASSERT_TRUE(file.read(file.find(QStringLiteral("\5SummaryInformation")), &content));
    EXPECT_EQ(content, "who wrote it");
    ASSERT_TRUE(file.read(file.find(QStringLiteral("_VBA_PROJECT_CUR/PROJECT")), &content));
    EXPECT_EQ(content, QByteArray(5000, 'm'));
    EXPECT_LT(file.find(QStringLiteral("_signatures")), 0) << "no longer right";
}

TEST_F(XlsEdit, SavingTwiceGivesTheSame)
{
    data->writeStr(7, 7, QStringLiteral("twice"));
    save();
    const QByteArray first = after;
    save();
    EXPECT_EQ(after, first);
    QFile::remove(path());
    EXPECT_FALSE(book.save(path())) << "what was read is gone";
    EXPECT_FALSE(book.errorMessage().isEmpty());
}

TEST_F(XlsEdit, TextResultsKeepTheirPairsWhole)
{
    // Behind three bytes of head there is room for an odd number of characters, further on for an even one.
    const QString text = QString::fromUtf8("\U0001F600").repeated(4000) + QStringLiteral("x")
                         + QString::fromUtf8("\U0001F600").repeated(4000);
    constexpr int inRecord = 4000;
    XlsTestBook made;
    made.globals = record(RecordId::Font, words({200, 0, 8, 400, 0, 0, 0x0100, 0x0041})) + formatRecord();
    QByteArray result = record(RecordId::String,
        words({unsigned(text.size())}) + '\1' + QByteArray(reinterpret_cast<const char *>(text.utf16()), inRecord * 2));
    for (int at = inRecord; at < text.size(); at += inRecord) {
        const int size = qMin(inRecord, text.size() - at);
        result += record(RecordId::Continue,
            QByteArray(1, '\1') + QByteArray(reinterpret_cast<const char *>(text.utf16() + at), size * 2));
    }
    const QByteArray textFollows = QByteArray(6, '\0') + words({0xFFFF});
    const QByteArray tokens = QByteArray::fromHex("17010078"); // "x"
    made.sheets = {{"S",
        record(RecordId::Formula, words({0, 0, 0}) + textFollows + words({0, 0, 0, unsigned(tokens.size())}) + tokens)
            + result}};
    load(made.stream());
    data->writeNum(1, 0, 1);
    save();
    EXPECT_TRUE(read.getSheet(0)->isFormula(0, 0));
    EXPECT_EQ(read.getSheet(0)->readStr(0, 0), text);
}

TEST_F(XlsEdit, ManyTextsBehindThoseOfTheFile)
{
    for (int row = 10; row < 3000; ++row) {
        data->writeStr(row, 0, QString(row % 50, QChar(row % 3 ? 'a' : 0x20AC)) + QString::number(row));
    }
    save();
    for (int row = 10; row < 3000; ++row) {
        ASSERT_EQ(read.getSheet(0)->readStr(row, 0), data->readStr(row, 0));
    }
}

TEST(XlsEditFuzz, DamagedWorkbooksAreSavedAsTheyWereRead)
{
    const QByteArray whole = foreignXls().stream();
    QRandomGenerator random(99);
    QTemporaryDir folder;
    const QString from = folder.filePath(QStringLiteral("from.xls")), to = folder.filePath(QStringLiteral("to.xls"));
    int savedCount = 0;
    for (int i = 0; i < 200; ++i) {
        QByteArray stream = whole;
        for (int n = random.bounded(1, 6); n > 0; --n) {
            stream[random.bounded(stream.size())] = char(random.bounded(2) ? random.bounded(256) : random.bounded(4));
        }
        QFile file(from);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(foreignXlsFile(stream));
        file.close();
        Book book(FileKind::Xls), read(FileKind::Xls);
        Sheet *first = book.load(from) ? book.getSheet(0) : nullptr;
        if (!first) {
            continue;
        }
        first->clear(3, 3, 0, 255);
        book.addSheet(QStringLiteral("X9"))->writeFormula(0, 0, QStringLiteral("Data!A1"));
        ASSERT_TRUE(book.save(to)) << book.errorMessage().toStdString();
        ASSERT_TRUE(read.load(to)) << read.errorMessage().toStdString();
        Sheet *back = read.getSheet(0);
        ASSERT_TRUE(back) << read.errorMessage().toStdString();
        ASSERT_EQ(back->lastRow(), first->lastRow());
        for (int row = first->firstRow(); row < qMin(first->lastRow(), 100); ++row) {
            for (int column = first->firstCol(); column < first->lastCol(); ++column) {
                ASSERT_EQ(back->cellType(row, column), first->cellType(row, column));
                ASSERT_EQ(back->readStr(row, column), first->readStr(row, column));
                ASSERT_EQ(back->readNum(row, column), first->readNum(row, column));
            }
        }
        ++savedCount;
    }
    EXPECT_GT(savedCount, 40);
}
