#include "spreadsheet/cellerror.h"
#include "spreadsheet/datesystem.h"
#include "spreadsheet/xls/rknumber.h"
#include "xlstestbook.h"

#include <gtest/gtest.h>
#include <limits>

using namespace spreadsheet;

namespace {

QByteArray cellHead(unsigned row, unsigned column, unsigned format = 0)
{
    return words({row, column, format});
}

QByteArray byte(int value)
{
    return QByteArray(1, static_cast<char>(value));
}

QByteArray sharedTexts(std::initializer_list<QString> texts)
{
    QByteArray data = dword(quint32(texts.size())) + dword(quint32(texts.size()));
    for (const QString &text : texts) {
        data += biffText(text);
    }
    return record(RecordId::SharedStrings, data);
}

/// Result of a formula that is no number.
QByteArray markedResult(int kind, int value = 0)
{
    return byte(kind) + byte(0) + byte(value) + QByteArray(3, '\0') + words({0xFFFF});
}

QByteArray formulaData(unsigned row, unsigned column, const QByteArray &result, const QByteArray &expression)
{
    return cellHead(row, column) + result + words({0}) + dword(0) + words({unsigned(expression.size())}) + expression;
}

} // namespace

TEST(XlsCells, RkNumbers)
{
    struct
    {
        const char *what;
        quint32 bits;
        double value;
    } const cases[] = {
        {"the upper half of a real", 0x3FF00000, 1.0},
        {"a negative real", 0xC0590000, -100.0},
        {"a real with all the bits that fit", 0x3FD55554, 0.333333015441894531250},
        {"a hundredth of a real", 0x40934801, 12.34},
        {"an integer", 0x00000006, 1.0},
        {"a negative integer", 0xFFFFFFFE, -1.0},
        {"the largest integer", 0x7FFFFFFE, 536870911.0},
        {"the smallest integer", 0x80000002, -536870912.0},
        {"a hundredth of an integer", (1234u << 2) | 3, 12.34},
        {"a hundredth of a negative integer", (quint32(-7) << 2) | 3, -0.07},
        {"zero in four forms", 0, 0.0},
        {"zero in four forms", 1, 0.0},
        {"zero in four forms", 2, 0.0},
        {"zero in four forms", 3, 0.0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(rkNumber(c.bits), c.value);
        const auto loaded = LoadedXls::sheet(record(RecordId::Rk, cellHead(3, 2) + dword(c.bits)));
        ASSERT_TRUE(loaded->first()) << qPrintable(loaded->error());
        EXPECT_EQ(loaded->first()->cellType(3, 2), CellType::Number);
        EXPECT_EQ(loaded->first()->readNum(3, 2), c.value);
    }
}

TEST(XlsCells, RecordsOfEveryKind)
{
    struct
    {
        const char *what;
        QByteArray records;
        CellType type;
        double number;
        QString text;
    } const cases[] = {
        {"a number", record(RecordId::Number, cellHead(1, 1) + real(-1e-300)), CellType::Number, -1e-300, {}},
        {"a number that is none", record(RecordId::Number, cellHead(1, 1) + real(qQNaN())), CellType::Error, 0, {}},
        {"an infinite number", record(RecordId::Number, cellHead(1, 1) + real(qInf())), CellType::Error, 0, {}},
        {"true", record(RecordId::BoolError, cellHead(1, 1) + byte(1) + byte(0)), CellType::Boolean, 1, {}},
        {"false", record(RecordId::BoolError, cellHead(1, 1) + byte(0) + byte(0)), CellType::Boolean, 0, {}},
        {"an error", record(RecordId::BoolError, cellHead(1, 1) + byte(7) + byte(1)), CellType::Error, 0, {}},
        {"a blank with a format", record(RecordId::Blank, cellHead(1, 1, 1)), CellType::Blank, 0, {}},
        {"a shared text", record(RecordId::LabelShared, cellHead(1, 1) + dword(1)), CellType::String, 0, "zwei ü"},
        {"a text of its own", record(RecordId::Label, cellHead(1, 1) + biffText("é日")), CellType::String, 0, "é日"},
        {"a text of its own with runs", record(RecordId::RichLabel, cellHead(1, 1) + biffText("ab") + words({1, 0, 1})),
            CellType::String, 0, "ab"},
        {"the later of two records for a place",
            record(RecordId::Number, cellHead(1, 1) + real(5)) + record(RecordId::Blank, cellHead(1, 1)),
            CellType::Blank, 0, {}},
        {"a second number in a row of them",
            record(RecordId::MultipleRk, words({1, 0, 0}) + dword(2) + words({1}) + dword(6) + words({1})),
            CellType::Number, 1, {}},
        {"a second blank in a row of them", record(RecordId::MultipleBlank, words({1, 0, 0, 0, 1})), CellType::Blank, 0,
            {}},
        {"a record that nobody knows before a cell",
            record(RecordId(0x7777), "abc") + record(RecordId::Number, cellHead(1, 1) + real(2)), CellType::Number, 2,
            {}},
        {"a chart inside the sheet, which has cells of its own",
            bofRecord(0x0020) + record(RecordId::Number, cellHead(1, 1) + real(9)) + record(RecordId::Eof)
                + record(RecordId::Number, cellHead(1, 1) + real(2)),
            CellType::Number, 2, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const auto loaded = LoadedXls::sheet(c.records, sharedTexts({"eins", "zwei ü"}));
        EXPECT_TRUE(loaded->book().sheetHasCells(0));
        Sheet *sheet = loaded->first();
        ASSERT_TRUE(sheet) << qPrintable(loaded->error());
        EXPECT_EQ(sheet->cellType(1, 1), c.type);
        EXPECT_EQ(sheet->readNum(1, 1), c.number);
        EXPECT_EQ(sheet->readStr(1, 1), c.text);
        EXPECT_EQ(sheet->lastRow(), 2);
        EXPECT_EQ(sheet->lastCol(), 2);
        EXPECT_FALSE(sheet->isChanged());
    }
}

TEST(XlsCells, UsedAreaIsThatOfCellsWhateverTheFileSays)
{
    const QByteArray dimensions = record(RecordId::Dimensions, dword(0) + dword(60000) + words({0, 200, 0}));
    const auto empty = LoadedXls::sheet(dimensions);
    EXPECT_FALSE(empty->book().sheetHasCells(0));
    ASSERT_TRUE(empty->first());
    EXPECT_EQ(empty->first()->lastRow(), 0);

    const auto corners = LoadedXls::sheet(dimensions + record(RecordId::Number, cellHead(65535, 255) + real(1))
                                          + record(RecordId::Number, cellHead(7, 3) + real(2)));
    ASSERT_TRUE(corners->first());
    EXPECT_EQ(corners->first()->firstRow(), 7);
    EXPECT_EQ(corners->first()->lastRow(), 65536);
    EXPECT_EQ(corners->first()->firstCol(), 3);
    EXPECT_EQ(corners->first()->lastCol(), 256);
}

TEST(XlsCells, FormulasKeepResultAndRecords)
{
    const QByteArray text = record(RecordId::String, biffText("ja ü"));
    const QByteArray cutText = record(RecordId::String, words({4}) + byte(0) + "ab")
                               + record(RecordId::Continue, byte(1) + words({'c', 0x65E5}));
    const QByteArray shared = record(RecordId::SharedFormula, words({1, 1, 0x0101, 0x0200}) + "shared");
    const QByteArray array = record(RecordId::Array, words({1, 1, 0x0101, 0, 0, 0}) + "array");
    const QByteArray table = record(RecordId::Table, words({1, 1, 0x0101, 0, 0, 0, 0, 0}));
    const QByteArray continued = record(RecordId::Continue, "more");
    struct
    {
        const char *what;
        QByteArray result, kept, behind;
        CellType type;
        double number;
        QString text;
    } const cases[] = {
        {"a number", real(2.5), {}, {}, CellType::Number, 2.5, {}},
        {"true", markedResult(1, 1), {}, {}, CellType::Boolean, 1, {}},
        {"an error", markedResult(2, 42), {}, {}, CellType::Error, 0, {}},
        {"an empty text", markedResult(3), {}, {}, CellType::String, 0, ""},
        {"a text", markedResult(0), {}, text, CellType::String, 0, "ja ü"},
        {"a text in two records", markedResult(0), {}, cutText, CellType::String, 0, "abc日"},
        {"a text that is missing", markedResult(0), {}, {}, CellType::String, 0, ""},
        {"a shared formula before the text", markedResult(0), shared, text, CellType::String, 0, "ja ü"},
        {"an array formula", real(1), array, {}, CellType::Number, 1, {}},
        {"a table of results", real(1), table, {}, CellType::Number, 1, {}},
        {"an expression in two records", real(1), continued, {}, CellType::Number, 1, {}},
        {"an array formula in two records", real(1), array + continued, {}, CellType::Number, 1, {}},
    };
    const RecordId ids[] = {RecordId::Formula, RecordId::FormulaOfVersion3, RecordId::FormulaOfVersion4};
    int count = 0;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const RecordId id = ids[count++ % 3];
        const QByteArray formula = record(id, formulaData(1, 1, c.result, "tokens")) + c.kept;
        const QByteArray next = record(RecordId::Number, cellHead(1, 2) + real(77));
        const auto loaded = LoadedXls::sheet(formula + c.behind + next);
        Sheet *sheet = loaded->first();
        ASSERT_TRUE(sheet) << qPrintable(loaded->error());
        EXPECT_TRUE(sheet->isFormula(1, 1));
        EXPECT_EQ(sheet->cellType(1, 1), c.type);
        EXPECT_EQ(sheet->readNum(1, 1), c.number);
        EXPECT_EQ(sheet->readStr(1, 1), c.text);
        EXPECT_EQ(sheet->cells().formula(1, 1)->stored, formula);
        EXPECT_EQ(sheet->readNum(1, 2), 77);
    }
}

TEST(XlsCells, ErrorsKeepTheirCode)
{
    for (const char *text : {"#NULL!", "#DIV/0!", "#VALUE!", "#REF!", "#NAME?", "#NUM!", "#N/A"}) {
        SCOPED_TRACE(text);
        const int code = errorCode(text);
        const auto loaded = LoadedXls::sheet(record(RecordId::BoolError, cellHead(0, 0) + byte(code) + byte(1)));
        ASSERT_TRUE(loaded->first());
        EXPECT_EQ(loaded->first()->cells().cell(0, 0)->number, code);
    }
    const auto loaded = LoadedXls::sheet(record(RecordId::Number, cellHead(0, 0) + real(qQNaN())));
    ASSERT_TRUE(loaded->first());
    EXPECT_EQ(loaded->first()->cells().cell(0, 0)->number, errorCode("#NUM!"));
}

TEST(XlsCells, DatesByFormatAndSystem)
{
    const auto codeRecord = [](unsigned number, const QString &code) {
        return record(RecordId::NumberFormat, words({number}) + biffText(code));
    };
    const QByteArray date1904 = record(RecordId::Date1904, words({1}));
    struct
    {
        const char *what;
        QByteArray globals; ///< behind three formats: general, date 14, number 4
        unsigned format;
        double value;
        bool isDate;
        int year, month, day;
    } const cases[] = {
        {"a built-in date", {}, 1, 45322, true, 2024, 1, 31},
        {"the other date system", date1904, 1, 45322, true, 2028, 2, 1},
        {"a plain number", {}, 2, 45322, false, 2024, 1, 31},
        {"a date code of the file", codeRecord(164, "yyyy\\-mm") + formatRecord(0, 164), 3, 1, true, 1900, 1, 1},
        {"a number code of the file", codeRecord(164, "0.00\" days\"") + formatRecord(0, 164), 3, 1, false, 1900, 1, 1},
        {"a built-in date that the file says anew", codeRecord(14, "dd.mm.yyyy"), 1, 1, true, 1900, 1, 1},
        {"a number format that the file makes a date", codeRecord(50, "yyyy-mm-dd") + formatRecord(0, 50), 3, 1, true,
            1900, 1, 1},
        {"a general format by a name with letters of dates", codeRecord(0, "Standard dmy"), 0, 1, false, 1900, 1, 1},
        {"a format that doesn't exist", {}, 999, 1, false, 1900, 1, 1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const auto loaded = LoadedXls::sheet(
            record(RecordId::Number, cellHead(0, 0, c.format) + real(c.value)), c.globals);
        ASSERT_TRUE(loaded->first()) << qPrintable(loaded->error());
        EXPECT_EQ(loaded->first()->isDate(0, 0), c.isDate);
        DateParts parts;
        ASSERT_TRUE(loaded->book().dateUnpack(loaded->first()->readNum(0, 0), &parts));
        EXPECT_EQ(parts.year, c.year);
        EXPECT_EQ(parts.month, c.month);
        EXPECT_EQ(parts.day, c.day);
    }
}

TEST(XlsCells, SheetsAreListedInOrder)
{
    XlsTestBook made;
    const QByteArray cell = record(RecordId::Number, cellHead(0, 0) + real(1));
    const QByteArray dialogMark = record(RecordId::SheetOptions, words({0x0010}));
    made.sheets = {{"Eins", cell}, {"Diagramm 日", {}, 2}, {"Makro", cell, 1}, {"Dialog", dialogMark, 0}, {"", {}, 0}};
    LoadedXls loaded(compoundFile(made.stream(), QStringLiteral("WORKBOOK")));
    ASSERT_TRUE(loaded.isLoaded()) << qPrintable(loaded.error());
    Book &book = loaded.book();
    ASSERT_EQ(book.sheetCount(), 5);
    EXPECT_EQ(book.getSheetName(1), QString("Diagramm 日"));
    EXPECT_EQ(book.getSheetName(4), QString());
    EXPECT_TRUE(book.getSheet(0) && book.getSheet(4));
    for (int other : {1, 2, 3}) {
        SCOPED_TRACE(other);
        EXPECT_NE(book.sheetType(other), 0);
        EXPECT_FALSE(book.getSheet(other));
        EXPECT_FALSE(book.sheetHasCells(other));
    }
    // A sheet that was put away reads the same again.
    book.releaseSheet(0);
    EXPECT_EQ(book.getSheet(0)->readNum(0, 0), 1);
}
