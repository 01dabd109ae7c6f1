#include "graph/runcontrol.h"
#include "inputnode/inputnode.h"
#include "inputs/clipboardtext.h"
#include "inputs/delimitedreader.h"
#include "inputs/listinputfiles.h"
#include "settings/settings.h"
#include "support/grid.h"
#include "support/scopedsettings.h"

#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace {

class FolderInputTest : public testing::Test
{
protected:
    void write(const QString &name, const QByteArray &bytes) const
    {
        QDir(m_dir.path()).mkpath(QFileInfo(name).path());
        QFile file(m_dir.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    InputOptions options(const QString &match = QStringLiteral("*.csv")) const
    {
        InputOptions o;
        o.medium = Medium::Folder;
        o.folder.folder = m_dir.path();
        o.folder.fileMatch = match;
        o.delimiter = DelimiterKind::Comma;
        o.quoting = InputQuoting::Quoted;
        o.encoding = QStringLiteral("UTF-8");
        return o;
    }

    /// Messages with the test's folder as DIR.
    QStringList shown(QStringList messages) const { return messages.replaceInStrings(m_dir.path(), "DIR"); }

    QTemporaryDir m_dir;
};

QStringList lines(const Dataset &dataset)
{
    return QStringList(dataset.header().join('|')) + rows(dataset);
}

} // namespace

TEST_F(FolderInputTest, StacksFilesByNameThenThoseOfFolders)
{
    write("b.csv", "id,qty\n1,5\n");
    write("a.CSV", "id,qty\n2,6\n3,7\n");
    write("other.txt", "id,qty\n9,9\n");
    write("sub/deep/d.csv", "id,qty\n4,8\n");
    write("sub/c.csv", "id,qty\n5,9\n");
    InputOptions o = options();
    InputNode flat(o);
    flat.process(false, false);
    EXPECT_EQ(flat.state(), NodeState::Processed);
    EXPECT_EQ(lines(flat.datasetConst()), (QStringList{"id|qty", "2|6", "3|7", "1|5"}));
    EXPECT_EQ(
        shown(flat.infos()), (QStringList{"Read file 'DIR/a.CSV'", "DIR/a.CSV Read 2 column(s) x 3 row(s)",
                                 "Read file 'DIR/b.csv'", "DIR/b.csv Read 2 column(s) x 2 row(s)", "2 file(s) read"}));
    EXPECT_EQ(flat.warnings(), QStringList());
    EXPECT_EQ(flat.resultText(), "Read 2 file(s)");
    EXPECT_EQ(flat.previousColumnNames(), (QStringList{"id", "qty"}));
    o.folder.recurse = true;
    InputNode deep(o);
    deep.process(false, false);
    EXPECT_EQ(lines(deep.datasetConst()), (QStringList{"id|qty", "2|6", "3|7", "1|5", "5|9", "4|8"}));
}

TEST_F(FolderInputTest, TellsOfFilesThatDiffer)
{
    struct Case
    {
        const char *what;
        QByteArrayList files; // a.csv, b.csv and so on
        std::function<void(InputOptions &)> change;
        QStringList data;
        QStringList warnings;
    };
    const auto withMeta = [](InputOptions &o) {
        o.metaPosition = InputOptions::MetaColumn;
        o.metaText = "$(FileName) $(DataRows)x$(DataColumns)";
    };
    const Case cases[] = {
        {"another order is a difference of names, and the data stacks by position", {"a,b\n1,2\n", "b,a\n3,4\n"},
            [](InputOptions &) {}, {"a|b", "1|2", "3|4"},
            {"'DIR/b.csv' header mismatch:\n  Column name difference at column 1: 'a' -> 'b'\n"
             "  Column name difference at column 2: 'b' -> 'a'"}},
        {"a wider file gives earlier rows empty cells; the first file stays the measure",
            {"a\n1\n", "a,b\n2,3\n", "a,c\n4,5\n"}, [](InputOptions &) {}, {"a|b", "1|", "2|3", "4|5"},
            {"'DIR/b.csv' header mismatch:\n  Extra column 2: 'b'",
                "'DIR/c.csv' header mismatch:\n  Extra column 2: 'c'"}},
        {"a meta column stays last", {"a,b\n1,2\n", "a\n3\n", "a,b,c\n4,5,6\n"}, withMeta,
            {"a|b|c|Meta Info", "1|2||a.csv 1x2", "3|||b.csv 1x1", "4|5|6|c.csv 1x3"},
            {"'DIR/b.csv' header mismatch:\n  Missing column 3: 'Meta Info'\n"
             "  Column name difference at column 2: 'b' -> 'Meta Info'",
                "'DIR/c.csv' header mismatch:\n  Column name difference at column 3: 'Meta Info' -> 'c'\n"
                "  Extra column 4: 'Meta Info'"}},
        {"each file has its own meta row", {"a\n1\n", "a\n2\n"},
            [](InputOptions &o) {
                o.metaPosition = InputOptions::MetaFirstRow;
                o.metaText = "$(FileName)";
            },
            {"a", "a.csv", "1", "b.csv", "2"}, {}},
        {"empty files are left out, and so are those of blank lines", {"a\n1\n", "", "\n\n"}, [](InputOptions &) {},
            {"a", "1"}, {"File 'DIR/b.csv' is 0 bytes", "'DIR/c.csv' has no data"}},
        {"without a header only widths can differ", {"1,2\n", "3\n"}, [](InputOptions &o) { o.headerMode = 0; },
            {"", "1|2", "3|"}, {"'DIR/b.csv' header mismatch:\n  Missing column 2: '2'"}},
        {"deciding on a header means one", {"1,2\n", "3,4\n5,6\n"}, [](InputOptions &o) { o.headerMode = 2; },
            {"1|2", "5|6"},
            {"'DIR/b.csv' header mismatch:\n  Column name difference at column 1: '1' -> '3'\n"
             "  Column name difference at column 2: '2' -> '4'"}},
        {"the schema holds for each file", {"a,b\n1,2\n", "b,a\n4,3\n", "c\n9\n"},
            [](InputOptions &o) {
                o.schema.inUse = true;
                o.schema.columnNames = QStringList{"a", "b"};
                o.schema.extraMode = InputSchema::ExtraIsError;
            },
            {"a|b", "1|2", "3|4"},
            {"Schema change: Moved column 'a' from position 2 to position 1",
                "Schema change: Moved column 'b' from position 1 to position 2",
                "Schema change: Added missing column 'a' with values '' to position 1",
                "Schema change: Added missing column 'b' with values '' to position 2",
                "Schema error: Extra column 'c' at position 1", "Schema validation failed",
                "'DIR/c.csv' schema validation error"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        for (const QString &old : QDir(m_dir.path()).entryList(QDir::Files)) {
            QFile::remove(m_dir.filePath(old));
        }
        for (int i = 0; i < c.files.size(); ++i) {
            write(QString(QChar('a' + i)) + ".csv", c.files.at(i));
        }
        InputOptions o = options();
        c.change(o);
        InputNode node(o);
        node.process(false, false);
        EXPECT_EQ(node.state(), NodeState::Processed);
        EXPECT_EQ(lines(node.datasetConst()), c.data);
        EXPECT_EQ(shown(node.warnings()), c.warnings);
    }
}

TEST_F(FolderInputTest, FailsWhenNoFileIsRead)
{
    ScopedSettings settings;
    settings->setBlockedInputExtensions("exe");
    write("a.json", "");
    write("b.exe", "MZ");
    struct Case
    {
        const char *what;
        std::function<void(InputOptions &)> change;
        QStringList warnings;
    };
    const Case cases[] = {
        {"no such folder", [](InputOptions &o) { o.folder.folder += "/none"; }, {"Folder 'DIR/none' not found"}},
        {"a file is none", [](InputOptions &o) { o.folder.folder += "/b.exe"; }, {"Folder 'DIR/b.exe' not found"}},
        {"no folder at all", [](InputOptions &o) { o.folder.folder.clear(); }, {"Folder '' not found"}},
        {"nothing matches", [](InputOptions &) {}, {"No files read"}},
        {"only empty files, and another type", [](InputOptions &o) { o.folder.fileMatch = "*.json"; },
            {"File 'DIR/a.json' is 0 bytes", "File match filter '*.json' may not match data type: Delimited text",
                "No files read"}},
        {"a blocked extension", [](InputOptions &o) { o.folder.fileMatch = "b.*"; },
            {"File 'DIR/b.exe' extension blocked in 'Preferences>Input Extensions'", "No files read"}},
        {"no workbooks",
            [](InputOptions &o) {
                o.folder.fileMatch = "b.*";
                o.fileType = FileType::ExcelXlsx;
            },
            {"File 'DIR/b.exe' extension blocked in 'Preferences>Input Extensions'", "No files read"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        InputOptions o = options();
        c.change(o);
        InputNode node(o);
        node.process(false, false);
        EXPECT_EQ(node.state(), NodeState::Failed);
        EXPECT_EQ(shown(node.warnings()), c.warnings);
        EXPECT_EQ(node.resultText(), "Error reading");
        EXPECT_FALSE(node.datasetConst().hasColumns());
    }
}

TEST_F(FolderInputTest, AWorkbookThatCannotBeReadEndsNothing)
{
    write("a.xlsx", "no workbook");
    InputOptions o = options("*.xlsx");
    o.fileType = FileType::ExcelXlsx;
    InputNode node(o);
    node.process(false, false);
    EXPECT_EQ(shown(node.warnings()), (QStringList{"Unable to load Excel workbook 'DIR/a.xlsx' information.\nError: "
                                                   "The file is not an .xlsx workbook or is damaged",
                                          "'DIR/a.xlsx' cannot be read", "No files read"}));
}

TEST_F(FolderInputTest, StopsBetweenFiles)
{
    for (const char *name : {"a.csv", "b.csv", "c.csv"}) {
        write(name, "x\n1\n");
    }
    InputNode node(options());
    QObject::connect(&node, &Node::processed, [](Node *, qreal) { stopRequested = true; });
    node.process(false, false);
    RunControl::reset();
    EXPECT_EQ(node.warnings(), QStringList("Stopped by user"));
    EXPECT_EQ(node.rowCount(), 1);
}

TEST_F(FolderInputTest, ReadsAFolderInACircleOfLinksOnce)
{
    write("sub/a.csv", "x\n1\n");
    ASSERT_TRUE(QFile::link(m_dir.path(), m_dir.filePath("sub/up")));
    ASSERT_TRUE(QFile::link(m_dir.filePath("sub"), m_dir.filePath("again")));
    QStringList warnings;
    EXPECT_EQ(shown(listInputFiles(m_dir.path(), {"*"}, QString(), true, &warnings)), QStringList("DIR/again/a.csv"));
    EXPECT_EQ(warnings, QStringList());
    EXPECT_EQ(listInputFiles(m_dir.filePath("none"), {"*"}, QString(), true, &warnings), QStringList());
}

TEST(FolderInputOptions, GoByTheExtensionOfTheFiles)
{
    const ScopedSettings settings;
    struct Case
    {
        QString match;
        int type;
    };
    for (const Case &c : {Case{"*.XLSX", FileType::ExcelXlsx}, Case{"a*.json", FileType::Json},
             Case{"*.unknown", FileType::Delimited}, Case{"*", FileType::Delimited}}) {
        FolderInput folder;
        folder.fileMatch = c.match;
        EXPECT_EQ(InputOptions::forFolder(folder, FileType::None).fileType, c.type) << qPrintable(c.match);
        EXPECT_EQ(InputOptions::forFolder(folder, FileType::Xml).fileType, FileType::Xml);
    }
}

TEST(ClipboardText, TakesWhatSpreadsheetProgramsOffer)
{
    const QString csv = "application/x-qt-windows-mime;value=\"Csv\"";
    EXPECT_EQ(clipboardText(nullptr), "");
    QMimeData data;
    EXPECT_EQ(clipboardText(&data), "");
    data.setText("a\tb");
    EXPECT_EQ(clipboardText(&data), "a\tb");
    data.setData(csv, QByteArray("a,\xC3\xA9\r\n\0", 8));
    EXPECT_EQ(clipboardText(&data), QString::fromUtf8("a,\xC3\xA9\r\n"));
}
