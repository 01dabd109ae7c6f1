#include "spreadsheet/book.h"

#include <gtest/gtest.h>
#include <limits>

using namespace spreadsheet;

namespace {

TEST(Sheet, RefusesPlacesThatItDoesNotHave)
{
    for (const FileKind kind : {FileKind::Xlsx, FileKind::Xls}) {
        Book book(kind);
        Sheet *sheet = book.addSheet("S");
        const int rows = maxRows(kind), columns = maxColumns(kind);
        EXPECT_TRUE(sheet->writeNum(rows - 1, columns - 1, 1));
        for (const auto &[row, column] : {std::pair(rows, 0), {0, columns}, {-1, 0}, {0, -1}}) {
            EXPECT_FALSE(sheet->writeStr(row, column, "x"));
            EXPECT_FALSE(sheet->writeNum(row, column, 1));
            EXPECT_FALSE(sheet->writeBool(row, column, true));
            EXPECT_FALSE(sheet->writeFormula(row, column, "=1"));
            EXPECT_FALSE(sheet->setCellFormat(row, column, nullptr));
            EXPECT_FALSE(sheet->addHyperlink("http://x", row, row, column, column));
            EXPECT_FALSE(sheet->setMerge({row, row, column, column}));
            EXPECT_EQ(sheet->cellType(row, column), CellType::Empty);
            EXPECT_EQ(sheet->readStr(row, column), "");
        }
        EXPECT_FALSE(sheet->setMerge({5, 4, 0, 0})) << "ends in the wrong order";
        EXPECT_FALSE(sheet->addHyperlink("http://x", 0, 0, 5, 4));
        EXPECT_EQ(sheet->lastRow(), rows);
        EXPECT_EQ(sheet->firstRow(), rows - 1);
    }
}

TEST(Sheet, ReadsWhatWasWritten)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet("S");
    Format *date = book.addFormat();
    date->setNumFormat(14);
    const QString text = QString("\u00e9\U0001F600") + QChar(0) + " x";
    EXPECT_TRUE(sheet->writeStr(0, 0, text));
    EXPECT_TRUE(sheet->writeNum(0, 1, 1.5, date));
    EXPECT_TRUE(sheet->writeBool(0, 2, true));
    EXPECT_TRUE(sheet->writeFormula(0, 3, " =A1+1 "));
    EXPECT_FALSE(sheet->writeFormula(0, 4, " = "));
    EXPECT_FALSE(sheet->writeNum(0, 5, std::numeric_limits<double>::infinity()));
    EXPECT_EQ(sheet->readStr(0, 0), text);
    EXPECT_TRUE(sheet->isDate(0, 1));
    EXPECT_FALSE(sheet->isDate(0, 2));
    EXPECT_TRUE(sheet->readBool(0, 2));
    EXPECT_EQ(sheet->cells().formula(0, 3)->text, "A1+1");
    EXPECT_EQ(sheet->lastCol(), 4) << "what was refused takes no place";
    EXPECT_TRUE(sheet->setCellFormat(0, 3, date));
    EXPECT_TRUE(sheet->isFormula(0, 3)) << "a format leaves the formula";
    EXPECT_TRUE(sheet->setCellFormat(2, 2, date));
    EXPECT_EQ(sheet->cellType(2, 2), CellType::Blank);
    EXPECT_TRUE(sheet->writeStr(0, 3, ""));
    EXPECT_FALSE(sheet->isFormula(0, 3));
    EXPECT_EQ(sheet->cellType(0, 3), CellType::String);
    EXPECT_EQ(sheet->cellFormat(0, 3), book.format(0));
    EXPECT_FALSE(sheet->cellFormat(9, 9));
}

TEST(Sheet, KeepsMergedRangesApart)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet("S");
    EXPECT_TRUE(sheet->setMerge({2, 4, 2, 4}));
    EXPECT_FALSE(sheet->setMerge({4, 9, 4, 9})) << "they share a corner";
    EXPECT_FALSE(sheet->setMerge({0, 9, 3, 3})) << "one goes through the other";
    EXPECT_TRUE(sheet->setMerge({5, 9, 2, 4}));
    EXPECT_EQ(sheet->mergeSize(), 2);
}

TEST(Sheet, DeletesHyperlinks)
{
    Book book(FileKind::Xlsx);
    Sheet *sheet = book.addSheet("S");
    EXPECT_FALSE(sheet->addHyperlink("", 0, 0, 0, 0));
    EXPECT_FALSE(sheet->addHyperlink(QString(2080, 'x'), 0, 0, 0, 0));
    EXPECT_TRUE(sheet->addHyperlink(QString(2079, 'x'), 0, 0, 0, 0));
    EXPECT_TRUE(sheet->addHyperlink("b", 1, 1, 0, 0));
    sheet->delHyperlink(2);
    sheet->delHyperlink(-1);
    sheet->delHyperlink(0);
    ASSERT_EQ(sheet->hyperlinkSize(), 1);
    EXPECT_EQ(sheet->hyperlink(0).target, "b");
}

TEST(Book, AddsSheetsOfGoodNamesOnly)
{
    struct
    {
        const char *what;
        QString name;
        bool isAdded;
    } const cases[] = {
        {"a plain name", "Data", true},
        {"the same in other case", "dATA", false},
        {"no name", "", false},
        {"31 characters", QString(31, 'x'), true},
        {"32 characters", QString(32, 'y'), false},
        {"reserved in any case", "HISTORY", false},
        {"part of it isn't", "History 2", true},
        {"an apostrophe at the start", "'a", false},
        {"an apostrophe at the end", "a'", false},
        {"an apostrophe between", "a'b", true},
        {"a slash", "a/b", false},
        {"a backslash", "a\\b", false},
        {"brackets", "a[b", false},
        {"the other one", "a]b", false},
        {"a star", "a*", false},
        {"a question", "a?", false},
        {"a colon", "a:b", false},
        {"a line end", "a\nb", false},
        {"spaces and other letters", " \u00e9\u4e00 ", true},
    };
    Book book(FileKind::Xlsx);
    int count = 0;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(book.addSheet(c.name) != nullptr, c.isAdded);
        count += c.isAdded ? 1 : 0;
        EXPECT_EQ(book.sheetCount(), count);
    }
    EXPECT_EQ(book.getSheetName(1), QString(31, 'x'));
    EXPECT_EQ(book.getSheetName(99), "");
    EXPECT_FALSE(book.getSheet(99));
    EXPECT_FALSE(book.getSheet(-1));
}

TEST(Book, TakesOverFormatsOfOthers)
{
    Book from(FileKind::Xls), to(FileKind::Xlsx);
    Font *font = from.addFont();
    font->setBold(true);
    font->setColor(12);
    Format *format = from.addFormat();
    format->setFont(font);
    format->setNumFormat(21);
    Format *copy = to.addFormat(format);
    EXPECT_TRUE(copy->isDate());
    EXPECT_TRUE(copy->style().font.bold);
    EXPECT_EQ(copy->style().font.color.rgb, 0xFF0000FF);
    EXPECT_EQ(copy->style().font.size, 10) << "the usual size of the other kind";
    copy->setNumFormat(0);
    EXPECT_FALSE(copy->isDate());
    EXPECT_TRUE(format->isDate());
}

} // namespace
