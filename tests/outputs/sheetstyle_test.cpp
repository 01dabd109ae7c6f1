#include "outputs/sheetstyle.h"

#include "settings/filetypes.h"
#include "sheetview.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using spreadsheet::Book;
using spreadsheet::FileKind;
using spreadsheet::Sheet;

int typeOf(const QString &path)
{
    return path.endsWith(".xls") ? FileType::ExcelXls : FileType::ExcelXlsx;
}

class SheetStyleTest : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_dir.filePath(name); }

    /// A sheet "Model" with a bold cell, a wide column, a hidden one, a high row and a merged range.
    void writeModel(const QString &name) const
    {
        Book book(kindOfPath(name));
        Sheet *sheet = book.addSheet("Model");
        spreadsheet::Font *font = book.addFont();
        font->setBold(true);
        spreadsheet::Format *bold = book.addFormat();
        bold->setFont(font);
        sheet->writeStr(0, 0, "content that stays here", bold);
        sheet->setCellFormat(1, 0, bold);
        sheet->setCellFormat(2, 3, bold);
        sheet->setCol(0, 33, false);
        sheet->setCol(1, 10, true);
        sheet->setRow(1, 41, false);
        sheet->setRow(2, 20, true);
        sheet->setMerge({4, 5, 0, 1});
        ASSERT_TRUE(book.save(path(name)));
    }
    void writeTarget(const QString &name) const
    {
        Book book(kindOfPath(name));
        Sheet *sheet = book.addSheet("Data");
        spreadsheet::Format *date = book.addFormat();
        date->setNumFormat(14);
        sheet->writeStr(0, 0, "head");
        sheet->writeNum(1, 0, 45291, date);
        sheet->writeNum(2, 0, 5);
        ASSERT_TRUE(book.save(path(name)));
    }
    bool copy(const QString &from, const QString &fromSheet, const QString &to, const QString &toSheet)
    {
        m_error.clear();
        const bool copied = copySheetStyle(
            {typeOf(from), path(from), fromSheet}, {typeOf(to), path(to), toSheet}, &m_error);
        m_error.replace(m_dir.path(), "DIR");
        return copied;
    }

    QTemporaryDir m_dir;
    QString m_error;
};

} // namespace

TEST_F(SheetStyleTest, CopiesTheLookAndNoContent)
{
    for (const char *from : {"model.xlsx", "model.xls"}) {
        for (const char *to : {"out.xlsx", "out.xls"}) {
            SCOPED_TRACE(std::string(from) + " to " + to);
            writeModel(from);
            writeTarget(to);
            ASSERT_TRUE(copy(from, "model", to, "DATA")) << m_error.toStdString();
            Book book(kindOfPath(to));
            ASSERT_TRUE(book.load(path(to)));
            const Sheet &sheet = *book.getSheet(0);
            EXPECT_EQ(shown(sheet, 0, 0), "'head");
            EXPECT_TRUE(sheet.cellFormat(0, 0)->style().font.bold);
            EXPECT_TRUE(sheet.cellFormat(2, 3)->style().font.bold);
            EXPECT_FALSE(sheet.cellFormat(2, 0)->style().font.bold);
            EXPECT_NEAR(sheet.colWidth(0), 33, 0.01);
            EXPECT_TRUE(sheet.colHidden(1));
            EXPECT_FALSE(sheet.colHidden(0));
            EXPECT_EQ(sheet.rowHeight(1), 41);
            EXPECT_TRUE(sheet.rowHidden(2));
            ASSERT_EQ(sheet.mergeSize(), 1);
            EXPECT_EQ(sheet.merge(0).rowFirst, 4);
            // A date is no look: it would be a number otherwise.
            EXPECT_EQ(shown(sheet, 1, 0), "45291/14");
            EXPECT_TRUE(sheet.cellFormat(1, 0)->style().font.bold);
            EXPECT_EQ(sheet.cellFormat(0, 0)->index(), sheet.cellFormat(2, 3)->index());
        }
    }
}

TEST_F(SheetStyleTest, SpansOfTimeAreALookForTimesOnly)
{
    Book model(FileKind::Xlsx);
    spreadsheet::Format *span = model.addFormat();
    span->setNumFormat(46);
    Sheet *look = model.addSheet("Model");
    look->setCellFormat(0, 0, span);
    look->setCellFormat(1, 0, span);
    ASSERT_TRUE(model.save(path("model.xlsx")));
    Book book(FileKind::Xlsx);
    Sheet *data = book.addSheet("Data");
    spreadsheet::Format *date = book.addFormat();
    date->setNumFormat(14);
    spreadsheet::Format *time = book.addFormat();
    time->setNumFormat(21);
    data->writeNum(0, 0, 45291, date);
    data->writeNum(1, 0, 0.25, time);
    ASSERT_TRUE(book.save(path("out.xlsx")));
    ASSERT_TRUE(copy("model.xlsx", "Model", "out.xlsx", "Data")) << m_error.toStdString();
    EXPECT_EQ(shownBook(path("out.xlsx")), (QStringList{"Data", "45291/14", "0.25/46"}));
}

TEST_F(SheetStyleTest, SaysWhatCannotBeCopied)
{
    writeModel("model.xlsx");
    writeTarget("out.xlsx");
    QFile::link(path("out.xlsx"), path("link.xlsx"));
    struct FailCase
    {
        const char *what;
        QString from, fromSheet, to, toSheet;
        QString error;
    };
    const FailCase cases[] = {
        {"a sheet from itself", "out.xlsx", "Data", "out.xlsx", "data",
            "Cannot use a sheet as it's own style template."},
        {"by another name of the file", "link.xlsx", "DATA", "out.xlsx", "Data",
            "Cannot use a sheet as it's own style template."},
        {"no template file", "none.xlsx", "Model", "out.xlsx", "Data", "Unable to read 'DIR/none.xlsx'."},
        {"no template sheet", "model.xlsx", "Nope", "out.xlsx", "Data",
            "Unable to read sheet 'Nope' from 'DIR/model.xlsx'."},
        {"no target file", "model.xlsx", "Model", "none.xlsx", "Data", "Unable to read 'DIR/none.xlsx'."},
        {"no target sheet", "model.xlsx", "Model", "out.xlsx", "Nope",
            "Unable to read sheet 'Nope' from 'DIR/out.xlsx'."},
    };
    for (const FailCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_FALSE(copy(c.from, c.fromSheet, c.to, c.toSheet));
        EXPECT_EQ(m_error, c.error);
    }
}
