#include "outputs/excelwriter.h"

#include "hostiletext.h"
#include "settings/filetypes.h"
#include "sheetview.h"
#include "support/grid.h"
#include "support/scopeduser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class ExcelWriterTest : public testing::TestWithParam<const char *>
{
protected:
    QString path(const QString &name) const { return m_dir.filePath(name + "." + GetParam()); }
    int fileType() const { return path("a").endsWith(".xls") ? FileType::ExcelXls : FileType::ExcelXlsx; }
    QString withDir(QString text) const { return text.replace(m_dir.path(), "DIR"); }

    ExcelWriteRequest request(const Dataset &dataset, const QString &name = "out", const QString &sheet = "Data") const
    {
        ExcelWriteRequest request;
        request.fileType = fileType();
        request.path = path(name);
        request.sheet = sheet;
        request.dataset = &dataset;
        return request;
    }
    bool write(const ExcelWriteRequest &request)
    {
        ExcelWriteReport report;
        const bool written = writeSheet(request, &report);
        m_error = report.error;
        m_warnings = report.warnings;
        return written;
    }
    QString notSaved(const QString &name, const QString &reason) const
    {
        return QString("Unable to save to 'DIR/%1.%2'. If this file is already open, close it and click the write to "
                       "file button in the 'Data' tab.\nError: %3")
            .arg(name, GetParam(), reason);
    }
    /// A file with the sheets "First" and "Data".
    void writeTwoSheets()
    {
        const Dataset first = grid({"f", "1"});
        ASSERT_TRUE(write(request(first, "out", "First")));
        const Dataset second = grid({"a|b|c", "1|2|3", "4|5|http://x"});
        ExcelWriteRequest more = request(second);
        more.overwriteSheet = true;
        more.formats.formats = {{2, ExcelColumnFormat::Hyperlink}};
        ASSERT_TRUE(write(more));
    }

    QTemporaryDir m_dir;
    QString m_error;
    QStringList m_warnings;
};

INSTANTIATE_TEST_SUITE_P(Kinds, ExcelWriterTest, testing::Values("xlsx", "xls"));

} // namespace

TEST_P(ExcelWriterTest, WritesIntoTheSheetThatItIsTold)
{
    struct ScopeCase
    {
        const char *what;
        bool before;
        bool overwriteSheet, append, writeHeader;
        QString sheet;
        QStringList after;
    };
    const ScopeCase cases[] = {
        {"a new file", false, true, false, true, "Data", {"Data", "'x/49", "'7/49"}},
        {"without a header", false, false, false, false, "Data", {"Data", "'7/49"}},
        {"the whole file is replaced", true, false, false, true, "Data", {"Data", "'x/49", "'7/49"}},
        {"a sheet is replaced, whatever it held", true, true, false, true, "Data",
            {"First", "'f/49", "'1/49", "Data", "'x/49", "'7/49"}},
        {"a sheet is added behind the others", true, true, false, true, "New",
            {"First", "'f/49", "'1/49", "Data", "'a/49|'b/49|'c/49", "'1/49|'2/49|'3/49", "'4/49|'5/49|'http://x/49",
                "New", "'x/49", "'7/49"}},
        {"rows are appended", true, true, true, false, "First",
            {"First", "'f/49", "'1/49", "'7/49", "Data", "'a/49|'b/49|'c/49", "'1/49|'2/49|'3/49",
                "'4/49|'5/49|'http://x/49"}},
        {"with a header on request", true, true, true, true, "First",
            {"First", "'f/49", "'1/49", "'x/49", "'7/49", "Data", "'a/49|'b/49|'c/49", "'1/49|'2/49|'3/49",
                "'4/49|'5/49|'http://x/49"}},
    };
    for (const ScopeCase &c : cases) {
        SCOPED_TRACE(c.what);
        QFile::remove(path("out"));
        if (c.before) {
            writeTwoSheets();
        }
        const Dataset dataset = grid({"x", "7"});
        ExcelWriteRequest one = request(dataset, "out", c.sheet);
        one.overwriteSheet = c.overwriteSheet;
        one.append = c.append;
        one.writeHeader = c.writeHeader;
        EXPECT_TRUE(write(one)) << m_error.toStdString();
        EXPECT_EQ(m_warnings, QStringList());
        EXPECT_EQ(shownBook(path("out")), c.after);
    }
}

TEST_P(ExcelWriterTest, AReplacedSheetHasNoOldLinksAndMergedRanges)
{
    writeTwoSheets();
    {
        spreadsheet::Book book(kindOfPath(path("out")));
        ASSERT_TRUE(book.load(path("out")));
        EXPECT_GT(book.getSheet(1)->hyperlinkSize(), 0);
        EXPECT_TRUE(book.getSheet(1)->setMerge({0, 1, 0, 1}));
        ASSERT_TRUE(book.save(path("out")));
    }
    const Dataset dataset = grid({"x", "7"});
    ExcelWriteRequest one = request(dataset);
    one.overwriteSheet = true;
    EXPECT_TRUE(write(one));
    spreadsheet::Book book(kindOfPath(path("out")));
    ASSERT_TRUE(book.load(path("out")));
    EXPECT_EQ(book.getSheet(1)->hyperlinkSize(), 0);
    EXPECT_EQ(book.getSheet(1)->mergeSize(), 0);
}

TEST_P(ExcelWriterTest, ExplainsWhyASheetIsRefused)
{
    struct NameCase
    {
        const char *what;
        QString name;
        QString error; // behind "Unable to add sheet to '...'."
    };
    const NameCase cases[] = {
        {"no name", "", "\nSheet name cannot be empty."},
        {"a long name", QString(32, 'x'),
            "\nSheet name length is 32 characters. Excel maximum sheet name length is 31 characters."},
        {"characters in their order", "]a[:?*/\\",
            "\n'\\' is not allowed in Excel sheet names.\n'/' is not allowed in Excel sheet names.\n'*' is not allowed "
            "in Excel sheet names.\n'?' is not allowed in Excel sheet names.\n':' is not allowed in Excel sheet "
            "names.\n'[' is not allowed in Excel sheet names.\n']' is not allowed in Excel sheet names."},
        {"an apostrophe at an end", "a'",
            "\nApostrophes (') are not allowed at the start or end of Excel sheet names."},
        {"a reserved name", "HISTORY", "\n'History' is a reserved Excel sheet name."},
    };
    const Dataset dataset = grid({"x", "7"});
    for (const NameCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_FALSE(write(request(dataset, "out", c.name)));
        EXPECT_EQ(withDir(m_error), QString("Unable to add sheet to 'DIR/out.%1'.").arg(GetParam()) + c.error);
        EXPECT_FALSE(QFile::exists(path("out")));
    }
    EXPECT_TRUE(write(request(dataset, "out", "isn't wrong")));
    ExcelWriteRequest otherCase = request(dataset, "out", "Isn't Wrong");
    otherCase.overwriteSheet = true;
    EXPECT_FALSE(write(otherCase));
    EXPECT_EQ(shownBook(path("out"), false), QStringList("isn't wrong"));
}

TEST_P(ExcelWriterTest, TellsWhatWentWrongWithTheFile)
{
    const Dataset dataset = grid({"x", "7"});
    EXPECT_FALSE(write(request(dataset, "none/out")));
    EXPECT_EQ(withDir(m_error), notSaved("none/out", "The folder doesn't exist"));
    ExcelWriteRequest blank = request(dataset);
    blank.path = " ";
    EXPECT_FALSE(write(blank));
    EXPECT_EQ(m_error, "");
}

TEST_P(ExcelWriterTest, NeverReplacesADeviceOrAPipe)
{
    const Dataset dataset = grid({"x", "7"});
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(path("pipe"), path("link")));
    for (const char *name : {"pipe", "link"}) {
        for (const bool overwriteSheet : {false, true}) {
            SCOPED_TRACE(name);
            ExcelWriteRequest one = request(dataset, name);
            one.overwriteSheet = overwriteSheet;
            one.append = overwriteSheet;
            EXPECT_FALSE(write(one));
            EXPECT_EQ(withDir(m_error), notSaved(name, "It is a device or a pipe, and only files can be replaced"));
        }
    }
    spreadsheet::Book book(kindOfPath(path("pipe")));
    EXPECT_FALSE(book.load(path("pipe"))) << "nor does it wait for what comes out of it";
    struct stat status;
    ASSERT_EQ(::lstat(QFile::encodeName(path("pipe")).constData(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST_P(ExcelWriterTest, NeverReplacesAWorkbookThatItCannotLoad)
{
    const Dataset dataset = grid({"x", "7"});
    QFile file(path("broken"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no workbook");
    file.close();
    ExcelWriteRequest over = request(dataset, "broken");
    over.overwriteSheet = true;
    for (const bool append : {false, true}) {
        over.append = append;
        EXPECT_FALSE(write(over));
        const QString text = QString("Unable to load Excel workbook 'DIR/broken.%1' information.\nError: ")
                                 .arg(GetParam());
        EXPECT_EQ(withDir(m_error).left(text.size()), text);
        EXPECT_GT(withDir(m_error).size(), text.size()) << "with a reason";
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), "no workbook");
        file.close();
    }
    over.overwriteSheet = over.append = false;
    EXPECT_TRUE(write(over)) << "a whole file is replaced whatever it was";
    EXPECT_EQ(shownBook(path("broken")), (QStringList{"Data", "'x/49", "'7/49"}));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.close();
    over.overwriteSheet = true;
    EXPECT_TRUE(write(over)) << "an empty file is as good as none";
    EXPECT_EQ(shownBook(path("broken")), (QStringList{"Data", "'x/49", "'7/49"}));
}

TEST_P(ExcelWriterTest, WritesIntoAClosedFolderWhereTheFileIsOpen)
{
    writeTwoSheets();
    const Dataset dataset = grid({"x", "7"});
    const QByteArray folder = QFile::encodeName(m_dir.path());
    ASSERT_EQ(::chmod(folder.constData(), 0555), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(path("out")).constData(), 0666), 0);
    {
        const ScopedUser user;
        ASSERT_TRUE(user.isBound());
        ExcelWriteRequest one = request(dataset);
        one.overwriteSheet = one.append = true;
        one.writeHeader = false;
        EXPECT_TRUE(write(one)) << m_error.toStdString();
        EXPECT_FALSE(write(request(dataset, "new")));
        EXPECT_EQ(withDir(m_error), notSaved("new", "The folder can't be written"));
    }
    EXPECT_EQ(shownBook(path("out")).last(), "'7/49||");
    EXPECT_EQ(shownBook(path("out"), false), (QStringList{"First", "Data"}));
    ::chmod(folder.constData(), 0700);
}

TEST_P(ExcelWriterTest, AWriteThatIsBrokenOffLeavesTheFile)
{
    writeTwoSheets();
    const QStringList before = shownBook(path("out"));
    const Dataset dataset = grid({"x", "7"});
    ExcelWriteRequest one = request(dataset);
    one.overwriteSheet = true;
    one.progress = [](int, int) { throw 1; };
    EXPECT_THROW(write(one), int);
    EXPECT_EQ(shownBook(path("out")), before);
}

TEST_P(ExcelWriterTest, AnyTextComesBack)
{
    HostileText texts(5, "=<&>\"'_x0041_\r\n\t");
    Dataset dataset;
    dataset.setSize(300, 7);
    for (int row = 0; row < 300; ++row) {
        for (int column = 0; column < 7; ++column) {
            QString text = texts.next(row < 3 ? 4000 : 12);
            // Half characters can't be written, which is told.
            dataset.setValue(RowIndex(row), ColumnIndex(column), text.remove(QChar(0xD83D)).remove(QChar(0xDE00)));
        }
    }
    ExcelWriteRequest one = request(dataset);
    one.writeHeader = false;
    one.formats.formats = {{0, ExcelColumnFormat::General}, {1, ExcelColumnFormat::Number}};
    ASSERT_TRUE(write(one)) << m_error.toStdString();
    EXPECT_EQ(m_warnings, QStringList());
    spreadsheet::Book book(kindOfPath(path("out")));
    ASSERT_TRUE(book.load(path("out")));
    const spreadsheet::Sheet &sheet = *book.getSheet(0);
    for (int row = 0; row < 300; ++row) {
        for (int column = 0; column < 7; ++column) {
            const QString text = dataset.value(RowIndex(row), ColumnIndex(column));
            if (sheet.cellType(row, column) != spreadsheet::CellType::Number) {
                ASSERT_EQ(sheet.readStr(row, column), text) << row << ", " << column;
            } else {
                EXPECT_EQ(sheet.readNum(row, column), text.toDouble());
            }
        }
    }
}

TEST_P(ExcelWriterTest, KnowsAnEmptySheet)
{
    writeTwoSheets();
    const Dataset nothing = grid({"x"});
    ExcelWriteRequest empty = request(nothing, "out", "Empty");
    empty.overwriteSheet = true;
    empty.writeHeader = false;
    ASSERT_TRUE(write(empty)) << m_error.toStdString();
    EXPECT_TRUE(isSheetEmpty(fileType(), path("out"), "Empty"));
    EXPECT_TRUE(isSheetEmpty(fileType(), path("out"), "No such sheet"));
    EXPECT_TRUE(isSheetEmpty(fileType(), path("no such file"), "Data"));
    EXPECT_FALSE(isSheetEmpty(fileType(), path("out"), "data"));
}
