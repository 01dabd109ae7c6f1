#include "outputs/excelformats.h"

#include "outputs/cellrows.h"
#include "outputs/outputenums.h"
#include "outputs/sheetrowwriter.h"
#include "sheetview.h"
#include "support/grid.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"

#include <gtest/gtest.h>

TEST(ExcelFormats, FollowModeAndValues)
{
    const ScopedSettings settings;
    struct FormatCase
    {
        const char *what;
        QStringList values;
        int mode;
        int chosen;
        const char *label;
        QString dateFormat;
    };
    const int automatic = ExcelFormatMode::Automatic;
    const int manual = ExcelFormatMode::Manual;
    const FormatCase cases[] = {
        {"numbers", {"1", "-2.5", "", "nan"}, automatic, 0, "Number", ""},
        {"amounts of money are no numbers", {"$1"}, automatic, 0, "Text", ""},
        {"true and false", {"true", "FALSE"}, automatic, 0, "Boolean", ""},
        {"one and nought are numbers", {"1", "0"}, automatic, 0, "Number", ""},
        {"times", {"1:02", "23:59:59"}, automatic, 0, "Time", ""},
        {"dates by the first format that reads all", {"31/12/2023", "1/2/2023"}, automatic, 0, "Date", "d/M/yyyy"},
        {"dates of two formats are text", {"31/12/2023", "2023-12-31"}, automatic, 0, "Text", ""},
        {"nothing is text", {"", ""}, automatic, 0, "Text", ""},
        {"what is chosen by hand waits for its mode", {"1"}, automatic, ExcelColumnFormat::Text, "Number", ""},
        {"general whatever the values", {"1"}, ExcelFormatMode::General, ExcelColumnFormat::Text, "General", ""},
        {"by hand", {"1"}, manual, ExcelColumnFormat::Hyperlink, "Hyperlink", ""},
        {"by hand, left to the values", {"1"}, manual, 0, "Number", ""},
        {"dates by hand, of the format that reads most", {"x", "2023-12-31", "2023-2-3", "31/12/2023"}, manual,
            ExcelColumnFormat::Date, "Date", "yyyy-M-d"},
        {"dates by hand where there are none", {"x"}, manual, ExcelColumnFormat::Date, "Date", ""},
    };
    for (const FormatCase &c : cases) {
        SCOPED_TRACE(c.what);
        Dataset dataset = column(c.values);
        dataset.assignColumnIds(1);
        const ExcelFormats formats = automaticExcelFormats(
            dataset, c.mode, {{dataset.columnId(ColumnIndex(0)), c.chosen}});
        EXPECT_EQ(ExcelColumnFormat::label(formats.formats.value(0)), c.label);
        EXPECT_EQ(formats.dateFormats.value(0), c.dateFormat);
    }
}

TEST(SheetRowWriter, WritesEachValueAsItsColumnSays)
{
    struct ValueCase
    {
        const char *what;
        int format;
        const char *value;
        const char *cell;
    };
    const ValueCase cases[] = {
        {"a number", ExcelColumnFormat::Number, " -12.50 ", "-12.5"},
        {"a number with groups", ExcelColumnFormat::Number, "1,234.5", "1234.5"},
        {"no number is text", ExcelColumnFormat::Number, "abc", "'abc/49"},
        {"nor is money", ExcelColumnFormat::Number, "$5", "'$5/49"},
        {"nor is infinity", ExcelColumnFormat::Number, "inf", "'inf/49"},
        {"nor what is too large", ExcelColumnFormat::Number, "1e999", "'1e999/49"},
        {"true in any case", ExcelColumnFormat::Boolean, " TRUE ", "true"},
        {"numbers but nought are true", ExcelColumnFormat::Boolean, "2", "true"},
        {"nought is false", ExcelColumnFormat::Boolean, "0", "false"},
        {"other texts aren't", ExcelColumnFormat::Boolean, "yes", "'yes/49"},
        {"a date", ExcelColumnFormat::Date, "31/12/2023", "45291/14"},
        {"the first day", ExcelColumnFormat::Date, "1/1/1900", "1/14"},
        {"before the first day is text", ExcelColumnFormat::Date, "31/12/1899", "'31/12/1899/49"},
        {"a day that isn't is text", ExcelColumnFormat::Date, "31/2/2023", "'31/2/2023/49"},
        {"a time", ExcelColumnFormat::Time, "6:00", "0.25/21"},
        {"with seconds", ExcelColumnFormat::Time, "12:00:00", "0.5/21"},
        {"no time is text", ExcelColumnFormat::Time, "25:00", "'25:00/49"},
        {"general is text without a format", ExcelColumnFormat::General, "12", "'12"},
        {"text", ExcelColumnFormat::Text, " 12 ", "' 12 /49"},
        {"a formula", ExcelColumnFormat::Formula, " =1+A2", "="},
        {"no formula is text without a format", ExcelColumnFormat::Formula, "1+1", "'1+1"},
        {"nor is an equals sign alone", ExcelColumnFormat::Formula, "=", "'="},
        {"a link", ExcelColumnFormat::Hyperlink, "http://a", "'http://a/49"},
        {"a format that nobody knows is text", 99, "1", "'1/49"},
        {"and one that wasn't resolved", ExcelColumnFormat::Automatic, "1", "'1/49"},
        {"an empty value is no cell", ExcelColumnFormat::Text, "", ""},
    };
    for (const auto kind : {spreadsheet::FileKind::Xlsx, spreadsheet::FileKind::Xls}) {
        for (const ValueCase &c : cases) {
            SCOPED_TRACE(c.what);
            spreadsheet::Book book(kind);
            spreadsheet::Sheet *sheet = book.addSheet("S");
            SheetRowWriter writer(&book, sheet, {{{0, c.format}}, {{0, "d/M/yyyy"}}}, 1);
            const Dataset dataset = column(c.value);
            writer.writeRow(3, CellRows(dataset), 0);
            EXPECT_EQ(shown(*sheet, 3, 0), c.cell);
            EXPECT_EQ(sheet->hyperlinkSize(), c.format == ExcelColumnFormat::Hyperlink ? 1 : 0);
            EXPECT_EQ(writer.warnings(), QStringList());
        }
    }
}

TEST(SheetRowWriter, ReadsNumbersByTheLocale)
{
    const ScopedLocale german("de_DE");
    spreadsheet::Book book(spreadsheet::FileKind::Xlsx);
    spreadsheet::Sheet *sheet = book.addSheet("S");
    SheetRowWriter writer(&book, sheet, {{{0, ExcelColumnFormat::Number}}, {}}, 1);
    const Dataset dataset = column(QStringList{"1,5", "1.5x"});
    writer.writeRow(0, CellRows(dataset), 0);
    writer.writeRow(1, CellRows(dataset), 1);
    EXPECT_EQ(shown(*sheet), (QStringList{"1.5", "'1.5x/49"}));
}

TEST(SheetRowWriter, LooksOfHeaderAndLinks)
{
    spreadsheet::Book book(spreadsheet::FileKind::Xlsx);
    spreadsheet::Sheet *sheet = book.addSheet("S");
    SheetRowWriter writer(&book, sheet, {{{0, ExcelColumnFormat::Hyperlink}}, {}}, 1);
    writer.writeHeader(0, {"name", ""});
    const Dataset dataset = column("http://a");
    writer.writeRow(1, CellRows(dataset), 0);
    EXPECT_EQ(shown(*sheet), (QStringList{"'name/49|'/49", "'http://a/49|"}));
    EXPECT_TRUE(sheet->cellFormat(0, 0)->style().font.bold);
    EXPECT_FALSE(sheet->cellFormat(1, 0)->style().font.bold);
    EXPECT_EQ(sheet->cellFormat(1, 0)->style().font.color.rgb, qRgb(0, 0, 255));
    EXPECT_EQ(sheet->hyperlink(0).target, "http://a");
    EXPECT_EQ(sheet->hyperlink(0).range.rowFirst, 1);
}

TEST(SheetRowWriter, TellsWhatASheetCannotTake)
{
    spreadsheet::Book book(spreadsheet::FileKind::Xls);
    spreadsheet::Sheet *sheet = book.addSheet("S");
    Dataset dataset;
    dataset.setSize(2, 258);
    const QString pairs = QString(32766, 'a') + "\U0001F600";
    dataset.setValue(RowIndex(0), ColumnIndex(0), pairs);
    dataset.setValue(RowIndex(0), ColumnIndex(1), QString("a?b").replace('?', QChar(0xD83D)));
    dataset.setValue(RowIndex(0), ColumnIndex(2), QString(2080, 'l'));
    dataset.setValue(RowIndex(0), ColumnIndex(3), QString(32767, QChar(0xE9)));
    dataset.setValue(RowIndex(0), ColumnIndex(255), "last");
    dataset.setValue(RowIndex(0), ColumnIndex(256), "beyond");
    dataset.setValue(RowIndex(1), ColumnIndex(0), "below");
    SheetRowWriter writer(&book, sheet, {{{2, ExcelColumnFormat::Hyperlink}}, {}}, dataset.columnCount());
    writer.writeRow(65535, CellRows(dataset), 0);
    writer.writeRow(65536, CellRows(dataset), 1);
    EXPECT_EQ(sheet->readStr(65535, 0), QString(32766, 'a'));
    EXPECT_EQ(sheet->readStr(65535, 1), QString("a\uFFFDb"));
    EXPECT_EQ(sheet->readStr(65535, 3), QString(32767, QChar(0xE9)));
    EXPECT_EQ(sheet->readStr(65535, 255), "last");
    EXPECT_EQ(sheet->lastRow(), 65536);
    EXPECT_EQ(writer.warnings(),
        (QStringList{"2 value(s) beyond the size of the sheet were not written",
            "1 value(s) longer than a cell can hold were cut to 32,767 characters", "1 hyperlink(s) could not be added",
            "1 character(s) can't be written in encoding 'UTF-8' and have been replaced"}));
}
