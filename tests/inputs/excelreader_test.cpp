#include "inputs/excelreader.h"

#include "data/controlspace.h"
#include "inputs/excelsheets.h"
#include "settings/filetypes.h"
#include "spreadsheet/datesystem.h"
#include "spreadsheet/format.h"
#include "support/grid.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

using spreadsheet::Book;
using spreadsheet::FileKind;
using spreadsheet::Format;
using spreadsheet::Sheet;

namespace {

/// A workbook in memory with one sheet, "Data", and a date format.
class ExcelReaderTest : public testing::Test
{
protected:
    ExcelReaderTest()
        : book(FileKind::Xlsx)
        , sheet(*book.addSheet("Data"))
        , dateFormat(book.addFormat())
    {
        dateFormat->setNumFormat(14);
    }

    void writeDate(int row, int column, int year, int month, int day, int hour = 0, int minute = 0, int second = 0,
        int millisecond = 0)
    {
        const double value = book.datePack(year, month, day, hour, minute, second, millisecond);
        ASSERT_TRUE(sheet.writeNum(row, column, value, dateFormat));
    }

    QStringList read(const QString &name = QString())
    {
        EXPECT_TRUE(readExcelSheet(book, "/dir/book.xlsx", name, options, nullptr, &result))
            << qPrintable(result.error);
        return rows(result.dataset);
    }

    Book book;
    Sheet &sheet;
    Format *dateFormat;
    ExcelReadOptions options;
    ExcelReadResult result;
};

/// What one step after another and cell by cell gives for a cell, without links.
QString cellText(
    const Book &book, const Sheet &sheet, int row, int column, int precision, const ExcelReadOptions &options)
{
    QString text;
    const int type = static_cast<int>(sheet.cellType(row, column));
    if (type == 2) {
        text = sheet.readStr(row, column);
    } else if (type == 3) {
        text = sheet.readBool(row, column) ? "true" : "false";
    } else if ((type == 1 || type == 6) && sheet.isDate(row, column)) {
        spreadsheet::DateParts p;
        if (book.dateUnpack(sheet.readNum(row, column), &p)) {
            const QChar zero('0');
            text = QString("%1-%2-%3").arg(p.year, 4, 10, zero).arg(p.month, 2, 10, zero).arg(p.day, 2, 10, zero);
            const QString time = QString("T%1:%2:%3.%4")
                                     .arg(p.hour, 2, 10, zero)
                                     .arg(p.minute, 2, 10, zero)
                                     .arg(p.second, 2, 10, zero)
                                     .arg(p.millisecond, 3, 10, zero);
            text += precision == 1 ? "" : precision == 2 ? time.left(6) : precision == 3 ? time.left(9) : time;
        }
    } else if (type == 1 || type == 6) {
        const QLocale locale;
        text = locale.toString(sheet.readNum(row, column), 'f', QLocale::FloatingPointShortest);
        text.remove(locale.groupSeparator());
    }
    if (options.trim) {
        text = text.trimmed();
    }
    if (options.simplify) {
        simplifyControlSpace(text);
    } else {
        text.replace("\r\n", "\n");
    }
    return text;
}

} // namespace

TEST_F(ExcelReaderTest, TurnsEachKindOfCellIntoText)
{
    sheet.writeStr(0, 1, "  two\tlines\r\nhere ");
    sheet.writeNum(0, 2, 1500);
    sheet.writeNum(0, 3, 0.1);
    sheet.writeBool(0, 4, true);
    sheet.writeBool(1, 4, false);
    writeDate(0, 5, 2024, 1, 31);
    sheet.writeNum(1, 5, -5, dateFormat); // no date
    sheet.writeNum(1, 2, -1234567.25);
    sheet.setCellFormat(1, 1, dateFormat); // blank
    sheet.cells().cellFor(1, 3).type = spreadsheet::CellType::Error;
    sheet.cells().cellFor(1, 3).number = 42;
    EXPECT_EQ(read(), (QStringList{"two lines here|1500|0.1|true|2024-01-31", "|-1234567.25||false|"}));
    EXPECT_EQ(result.sheetName, "Data");
    options.simplify = false;
    EXPECT_EQ(read().first().section('|', 0, 0), "two\tlines\nhere");
    options.trim = false;
    EXPECT_EQ(read().first().section('|', 0, 0), "  two\tlines\nhere ");
    const ScopedLocale german("de_DE");
    EXPECT_EQ(read().at(1).section('|', 1, 1), "-1234567,25");
}

TEST_F(ExcelReaderTest, ShowsTheTimeThatTheFirstDatesOfAColumnHave)
{
    writeDate(0, 0, 2024, 1, 31);
    writeDate(1, 0, 2024, 2, 1);
    writeDate(0, 1, 2024, 1, 31, 8);
    writeDate(1, 1, 2024, 1, 31, 8, 30, 0);
    writeDate(0, 2, 2024, 1, 31, 8, 30, 15);
    writeDate(1, 2, 2024, 1, 31);
    writeDate(0, 3, 2024, 1, 31, 23, 59, 59, 999);
    writeDate(1, 3, 2024, 1, 31, 8);
    // The second column of dates has a time only behind the twentieth, the next ones only behind the sample.
    for (int i = 0; i < 21; ++i) {
        writeDate(2 + i, 1, 2024, 3, 1, 10, 0, i == 20 ? 7 : 0);
    }
    writeDate(1500, 0, 2024, 5, 6, 7, 8);
    writeDate(1500, 4, 2024, 5, 6, 7, 8);
    options.ignoreEmptyRows = false;
    const QStringList lines = read();
    EXPECT_EQ(lines.at(0), "2024-01-31|2024-01-31T08:00|2024-01-31T08:30:15|2024-01-31T23:59:59.999|");
    EXPECT_EQ(lines.at(1), "2024-02-01|2024-01-31T08:30|2024-01-31T00:00:00|2024-01-31T08:00:00.000|");
    EXPECT_EQ(lines.at(22), "|2024-03-01T10:00|||");
    EXPECT_EQ(lines.at(1500), "2024-05-06||||2024-05-06T07:08:00.000");
    // Ignored rows aren't in the sample.
    options.ignoredRows = 3;
    EXPECT_EQ(read().at(19), "|2024-03-01T10:00:07|||");
}

TEST_F(ExcelReaderTest, TellsWhichDatesItCannotTell)
{
    for (int row = 0; row < 8; ++row) {
        sheet.writeNum(row, 1, row == 4 ? 45000 : -1 - row, dateFormat);
        sheet.writeNum(row, 2, -1);
    }
    sheet.writeNum(1, 0, 2958466, dateFormat); // beyond the year 9999
    sheet.setRow(2, 15, true);
    read();
    EXPECT_EQ(result.unknownDates.lines("other", "others"), (QStringList{"B1", "A2", "B2", "B3", "B4", "+ 3 others"}));
    options.ignoreHiddenRows = true;
    options.ignoredRows = 1;
    read();
    EXPECT_EQ(result.unknownDates.lines("other", "others"), (QStringList{"A2", "B2", "B4", "B6", "B7", "+ 1 other"}))
        << "as far as they are in the table";
    sheet.setCol(1, 10, true);
    options.ignoreHiddenColumns = true;
    read();
    EXPECT_EQ(result.unknownDates.lines("other", "others"), QStringList{"A2"});
}

TEST_F(ExcelReaderTest, SpansOfTimeAreNumbers)
{
    Format *span = book.addFormat();
    span->setNumFormat(46);
    sheet.writeNum(0, 0, 123.45, span);
    sheet.writeNum(1, 0, -0.5, span);
    sheet.writeNum(2, 0, 45000, dateFormat);
    sheet.writeNum(3, 0, 123.45, span);
    sheet.cells().cellFor(3, 0).type = spreadsheet::CellType::StrictDate;
    EXPECT_EQ(read(), (QStringList{"123.45", "-0.5", "2023-03-15", "123.45"}));
    EXPECT_EQ(result.unknownDates.count(), 0);
}

TEST_F(ExcelReaderTest, DropsHiddenAndEmptyRows)
{
    for (int row = 0; row < 6; ++row) {
        if (row != 3) {
            sheet.writeNum(row, 1, row);
            sheet.writeNum(row, 3, row * 10);
        }
    }
    sheet.setRow(0, -1, true);
    sheet.setRow(4, -1, true);
    sheet.setRow(1000, -1, true); // beyond what is used
    sheet.setCol(3, -1, true);
    EXPECT_EQ(read(), (QStringList{"0||0", "1||10", "2||20", "4||40", "5||50"}));
    EXPECT_EQ(result.emptyRowCount, 1);
    EXPECT_EQ(result.hiddenRowCount + result.hiddenColumnCount, 0);
    options.ignoreHiddenRows = true;
    options.ignoredRows = 1; // a hidden one
    EXPECT_EQ(read(), (QStringList{"1||10", "2||20", "5||50"}));
    EXPECT_EQ(result.hiddenRowCount, 1);
    options.ignoreHiddenColumns = true;
    EXPECT_EQ(read(), (QStringList{"1|", "2|", "5|"}));
    EXPECT_EQ(result.hiddenColumnCount, 1);
    for (int row = 0; row < 6; ++row) {
        sheet.setRow(row, -1, true);
    }
    EXPECT_EQ(read(), QStringList());
    EXPECT_EQ(result.dataset.columnCount(), 2);
    EXPECT_EQ(result.hiddenRowCount, 5);
    options.ignoredRows = 6;
    EXPECT_EQ(read(), QStringList());
    EXPECT_EQ(result.dataset.columnCount(), 0);
    EXPECT_EQ(result.hiddenRowCount, 0);
}

TEST_F(ExcelReaderTest, AppendsTheTargetsOfLinks)
{
    sheet.writeStr(1, 1, "site");
    sheet.writeNum(2, 2, 5);
    sheet.writeStr(2, 1, "site");
    sheet.addHyperlink(QString::fromUtf8("https://a.example/é"), 1, 1, 1, 1);
    sheet.addHyperlink("#Data!A1", 0, 900, 2, 90);
    sheet.addHyperlink("twice", 2, 2, 2, 2);
    options.ignoredRows = 1;
    EXPECT_EQ(read(), (QStringList{QString::fromUtf8("site|https://a.example/é||#Data!A1"), "site|5|#Data!A1|twice"}));
}

TEST_F(ExcelReaderTest, FindsSheets)
{
    book.addSheet("2")->writeStr(0, 0, "two");
    book.addSheet("Third")->writeStr(0, 0, "three");
    sheet.writeStr(0, 0, "one");
    struct Case
    {
        const char *what;
        QString name;
        QString cell;
    };
    const Case cases[] = {
        {"the first when there is no name", "", "one"},
        {"in any case", "tHIRD", "three"},
        {"a sheet named by a number goes before the number", "2", "two"},
        {"by number", "3", "three"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(read(c.name), QStringList(c.cell));
    }
    for (const char *name : {"4", "0", "03", "-1", "Dat"}) {
        EXPECT_FALSE(readExcelSheet(book, "x", name, options, nullptr, &result));
        EXPECT_EQ(result.error, QString("Sheet '%1' not found.").arg(name));
    }
    book.addSheet("Another Empty");
    book.addSheet("Apples")->writeStr(0, 0, "red");
    EXPECT_EQ(matchingSheets(book, "*"), (QStringList{"Data", "2", "Third", "Apples"}));
    EXPECT_EQ(matchingSheets(book, "a*"), QStringList("Apples"));
    EXPECT_EQ(matchingSheets(book, "?"), QStringList("2"));
    EXPECT_EQ(matchingSheets(book, "["), QStringList());
}

TEST_F(ExcelReaderTest, RefusesMoreCellsThanMemoryMayHold)
{
    ScopedSettings settings;
    sheet.writeStr(0, 0, "a");
    sheet.writeStr(1048575, 16383, "b");
    EXPECT_FALSE(readExcelSheet(book, "/dir/book.xlsx", "", options, nullptr, &result));
    EXPECT_EQ(result.error, "'/dir/book.xlsx' is too big for Quillmere to read");
    EXPECT_FALSE(result.dataset.hasColumns());
    // Wide and empty columns cost nothing as long as the whole is allowed.
    sheet.clear(1048575, 1048575, 16383, 16383);
    sheet.writeStr(2000, 16383, "b");
    EXPECT_EQ(read(), QStringList() << QString("a") + QString(16383, '|') << QString(16383, '|') + "b");
}

TEST_F(ExcelReaderTest, RefusesLinksThatGrowWithoutEnd)
{
    ScopedSettings settings;
    settings->setMaxMemoryUsage(0.01);
    sheet.writeStr(0, 0, "a");
    sheet.writeStr(99, 99, "b");
    for (int i = 0; i < 3000; ++i) {
        sheet.addHyperlink(QString(2000, 'x'), 0, 1000, 0, 1000);
    }
    EXPECT_FALSE(readExcelSheet(book, "/dir/book.xlsx", "", options, nullptr, &result));
    EXPECT_EQ(result.error, "'/dir/book.xlsx' is too big for Quillmere to read");
}

TEST_F(ExcelReaderTest, GivesWhatCellByCellGives)
{
    std::mt19937 random(11);
    const auto upTo = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const QStringList texts{
        " a ", "a", "", "  ", "long text of many bytes", "\tx\r\ny", "\r\n", QString::fromUtf8("é\u2003")};
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        sheet.clear(0, 100, 0, 100);
        for (int i = upTo(60); i >= 0; --i) {
            const int row = upTo(12);
            const int column = 2 + upTo(5);
            switch (upTo(5)) {
            case 0:
                sheet.writeNum(row, column, (upTo(2000) - 1000) / 8.0);
                break;
            case 1:
                sheet.writeNum(row, column, 45000 + upTo(100) + (column == 4 ? upTo(1440) / 1440.0 : 0.0), dateFormat);
                break;
            case 2:
                sheet.writeBool(row, column, upTo(2));
                break;
            default:
                sheet.writeStr(row, column, texts.at(upTo(texts.size())));
            }
        }
        options.trim = upTo(2);
        options.simplify = upTo(2);
        options.ignoreEmptyRows = false;
        options.ignoredRows = upTo(4);
        const QVector<ExcelDates::Precision> precisions = ExcelDates::precisions(book, sheet, options.ignoredRows);
        QVector<QStringList> expected;
        for (int row = options.ignoredRows; row < sheet.lastRow(); ++row) {
            QStringList cells;
            for (int column = sheet.firstCol(); column < sheet.lastCol(); ++column) {
                cells.append(cellText(book, sheet, row, column, precisions.at(column - sheet.firstCol()), options));
            }
            expected.append(cells);
        }
        read();
        ASSERT_EQ(result.dataset.rowCount(), expected.size());
        for (int row = 0; row < expected.size(); ++row) {
            EXPECT_EQ(result.dataset.row(RowIndex(row)), expected.at(row));
        }
    }
}

TEST(ExcelFiles, ThatCannotBeReadSaySo)
{
    QTemporaryDir dir;
    const QString broken = dir.filePath("broken.xlsx");
    QFile file(broken);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("PK, but no archive");
    file.close();
    const QString empty = dir.filePath("empty.xlsx");
    ASSERT_TRUE(QFile(empty).open(QIODevice::WriteOnly));

    ExcelReadResult result;
    for (const int type : {FileType::ExcelXlsx, FileType::ExcelXls}) {
        EXPECT_FALSE(readExcelSheet(type, broken, "", {}, nullptr, &result));
        const char *const reason = type == FileType::ExcelXlsx ? "The file is not an .xlsx workbook or is damaged"
                                                               : "The file is a text file, not an .xls workbook.";
        EXPECT_EQ(
            result.error, QString("Unable to load Excel workbook '%1' information.\nError: %2").arg(broken, reason));
        EXPECT_EQ(matchingSheets(type, broken, "*"), QStringList());
    }
    EXPECT_FALSE(readExcelSheet(FileType::ExcelXlsx, "  ", "", {}, nullptr, &result));
    EXPECT_EQ(result.error, "");
    EXPECT_FALSE(readExcelSheet(FileType::ExcelXlsx, dir.filePath("none.xlsx"), "", {}, nullptr, &result));
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(openExcelBook(FileType::ExcelXlsx, ""), nullptr);

    QString message;
    EXPECT_EQ(listExcelSheets(FileType::ExcelXlsx, dir.filePath("none.xlsx"), &message).names, QStringList());
    EXPECT_EQ(message, QString("File '%1' not found.").arg(dir.filePath("none.xlsx")));
    EXPECT_EQ(listExcelSheets(FileType::ExcelXlsx, empty, &message).names, QStringList());
    EXPECT_EQ(message, QString("Unable to open Excel document '%1' as size is 0.").arg(empty));
    EXPECT_EQ(listExcelSheets(FileType::ExcelXlsx, broken, &message).names, QStringList());
    const QString unable = QString("Unable to get sheets from '%1'.\nError: ").arg(broken);
    EXPECT_EQ(message.left(unable.size()), unable);
}
