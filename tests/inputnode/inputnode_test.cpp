#include "inputnode/inputnode.h"

#include "graph/runcontrol.h"
#include "inputs/delimitedreader.h"
#include "settings/settings.h"
#include "support/grid.h"

#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class InputNodeTest : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_dir.filePath(name); }

    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path(name);
    }

    /// Messages with the test's folder as DIR.
    QStringList shown(QStringList messages) const { return messages.replaceInStrings(m_dir.path(), "DIR"); }

    QTemporaryDir m_dir;
};

InputOptions fileOptions(const QString &path)
{
    InputOptions options;
    options.path = path;
    options.delimiter = DelimiterKind::Comma;
    options.quoting = InputQuoting::Quoted;
    options.encoding = "UTF-8";
    return options;
}

const char *const varies = "Number of columns per row vary:";

} // namespace

TEST_F(InputNodeTest, ReadsAFileByItsOptions)
{
    struct ReadCase
    {
        const char *what;
        QByteArray bytes;
        std::function<void(InputOptions &)> change;
        QStringList header;
        QStringList rows;
        QStringList infos; // but for the first, which names the file
        QStringList warnings;
    };
    const ReadCase cases[] = {
        {"the first row is the header", "id,qty\n1,5\n", [](InputOptions &) {}, {"id", "qty"}, {"1|5"}, {}, {}},
        {"no header", "id,qty\n1,5\n", [](InputOptions &o) { o.headerMode = 0; }, {}, {"id|qty", "1|5"}, {}, {}},
        {"an empty file", "", [](InputOptions &) {}, {}, {}, {}, {}},
        {"automatic choices are told in order", "id;qty\n1;5\n",
            [](InputOptions &o) {
                o.delimiter = DelimiterKind::Automatic;
                o.quoting = InputQuoting::Automatic;
                o.encoding = "Automatic";
            },
            {"id", "qty"}, {"1|5"},
            {"Encoding=Automatic guesses 'UTF-8', set 'Encoding' option to change",
                "Delimiter=Automatic guesses 'Semi-colon (;)', set 'Delimiter' option to changeFirst 11 characters "
                "contain: 0 Comma (,), 2 Semi-colon (;), 0 Pipe (|), 0 Caret (^), 0 Tab (\\t), 0 Unit separator (0x1F)",
                "Quoting=Automatic guesses 'Quoted', set 'Quoting' option to change"},
            {}},
        {"types that are only written are read as delimited text, without a word on the encoding", "a\nb\n",
            [](InputOptions &o) {
                o.fileType = FileType::Markdown;
                o.encoding = "Automatic";
            },
            {"a"}, {"b"}, {}, {"File extension 'csv' may not match data type: Markdown"}},
        {"a decided header of text only", "id,qty\n1,5\n", [](InputOptions &o) { o.headerMode = 2; }, {"id", "qty"},
            {"1|5"}, {}, {}},
        {"a number in the first row is no header", "id,5\n1,5\n", [](InputOptions &o) { o.headerMode = 2; }, {},
            {"id|5", "1|5"}, {}, {}},
        {"nor is an amount of money", "id,$5.20\n1,$5\n", [](InputOptions &o) { o.headerMode = 2; }, {},
            {"id|$5.20", "1|$5"}, {}, {}},
        {"nor is a date", "id,31/12/2023\n1,5\n", [](InputOptions &o) { o.headerMode = 2; }, {},
            {"id|31/12/2023", "1|5"}, {}, {}},
        {"one row alone is no header", "id,qty\n", [](InputOptions &o) { o.headerMode = 2; }, {}, {"id|qty"}, {}, {}},
        {"empty columns go on request", "a,b,c\n1,,3\n4,,6\n", [](InputOptions &o) { o.ignoreEmptyColumns = true; },
            {"a", "c"}, {"1|3", "4|6"}, {"1 empty column(s) ignored"}, {}},
        {"a meta column isn't empty", "a,b\n1,\n",
            [](InputOptions &o) {
                o.ignoreEmptyColumns = true;
                o.metaPosition = InputOptions::MetaColumn;
                o.metaText = "$(DataRows)x$(DataColumns)";
                o.metaColumnName = "Source";
            },
            {"a", "Source"}, {"1|1x2"}, {"1 empty column(s) ignored"}, {}},
        {"a meta row first keeps an empty column", ",b\n,1\n",
            [](InputOptions &o) {
                o.ignoreEmptyColumns = true;
                o.metaPosition = InputOptions::MetaFirstRow;
                o.metaText = "$(FileName)";
            },
            {"", "b"}, {"in.csv|", "|1"}, {}, {}},
        {"a meta row last, padded", "a,b\n1,2\n",
            [](InputOptions &o) {
                o.metaPosition = InputOptions::MetaLastRow;
                o.metaText = "$(FileSizeBytes) bytes";
            },
            {"a", "b"}, {"1|2", "8 bytes|"}, {}, {}},
        {"a meta column without a header has no name", "1,2\n",
            [](InputOptions &o) {
                o.headerMode = 0;
                o.metaPosition = InputOptions::MetaColumn;
                o.metaText = "x";
            },
            {}, {"1|2|x"}, {}, {}},
        {"no meta information for an empty table", "",
            [](InputOptions &o) { o.metaPosition = InputOptions::MetaFirstRow; }, {}, {}, {}, {}},
        {"header names that occur twice", "b,a,b,a,c,b\n1,2,3,4,5,6\n", [](InputOptions &) {},
            {"b", "a", "b", "a", "c", "b"}, {"1|2|3|4|5|6"}, {},
            {"Duplicate column header names:", "'a' occurs 2 times", "'b' occurs 3 times"}},
        {"ragged rows", "a,b\n1\n", [](InputOptions &) {}, {"a", "b"}, {"1|"}, {},
            {varies, "1 input row has 1 value: E.g. input row 2", "1 input row has 2 values: E.g. input row 1"}},
        {"binary data is read without harm",
            QByteArray("\x7f"
                       "ELF\0\1\xff\xfe,\x80\n\0",
                12),
            [](InputOptions &o) { o.headerMode = 0; }, {},
            {QString::fromUtf8("\x7f"
                               "ELF\0\1\xEF\xBF\xBD\xEF\xBF\xBD|\xEF\xBF\xBD",
                 16),
                QString::fromUtf8("\0|", 2)},
            {},
            {varies, "1 input row has 1 value: E.g. input row 2", "1 input row has 2 values: E.g. input row 1",
                "3 character(s) can't be read in encoding 'UTF-8' and have been replaced: E.g. input row 1"}},
    };
    for (const ReadCase &c : cases) {
        SCOPED_TRACE(c.what);
        InputOptions options = fileOptions(write("in.csv", c.bytes));
        c.change(options);
        InputNode node(options);
        node.process(false, false);
        EXPECT_EQ(node.state(), NodeState::Processed);
        EXPECT_EQ(node.datasetConst().header(), c.header);
        EXPECT_EQ(rows(node.datasetConst()), c.rows);
        EXPECT_EQ(shown(node.infos()), QStringList("Read file 'DIR/in.csv'") + c.infos);
        EXPECT_EQ(shown(node.warnings()), c.warnings);
        EXPECT_EQ(node.resultText(), "Read");
    }
}

TEST_F(InputNodeTest, SaysWhatCannotBeRead)
{
    write("in.csv", "a\n1\n");
    write("in.exe", "a\n1\n");
    QDir(m_dir.path()).mkdir("folder.csv");
    QFile::link("/dev/zero", path("endless.csv"));
    QFile::link(path("gone"), path("dangling.csv"));
    struct FailCase
    {
        const char *what;
        QString name;
        std::function<void(InputOptions &)> change;
        QStringList warnings;
    };
    const auto nothing = [](InputOptions &) {};
    const FailCase cases[] = {
        {"a file that isn't there", "none.csv", nothing, {"File 'DIR/none.csv' not found"}},
        {"a link to nothing", "dangling.csv", nothing, {"File 'DIR/dangling.csv' not found"}},
        {"a blocked extension", "in.exe", nothing,
            {"The extension for this file is blocked in 'Preferences>Input Extensions':\nDIR/in.exe"}},
        {"a folder", "folder.csv", nothing, {"Unable to read 'DIR/folder.csv'"}},
        {"a device without end", "endless.csv", nothing, {"Unable to read 'DIR/endless.csv'"}},
        {"a file that is no workbook, and another extension", "in.csv",
            [](InputOptions &o) { o.fileType = FileType::ExcelXlsx; },
            {"Unable to load Excel workbook 'DIR/in.csv' information.\nError: The file is not an .xlsx workbook or is "
             "damaged",
                "File extension 'csv' may not match data type: Excel XLSX"}},
        {"a device in place of a workbook", "endless.csv", [](InputOptions &o) { o.fileType = FileType::ExcelXls; },
            {"Unable to load Excel workbook 'DIR/endless.csv' information.",
                "File extension 'csv' may not match data type: Excel XLS"}},
        {"a schema that doesn't fit", "in.csv",
            [](InputOptions &o) {
                o.schema.inUse = true;
                o.schema.extraMode = InputSchema::ExtraIsError;
            },
            {"Schema error: Extra column 'a' at position 1", "Schema validation failed"}},
    };
    for (const FailCase &c : cases) {
        SCOPED_TRACE(c.what);
        InputOptions options = fileOptions(path(c.name));
        c.change(options);
        InputNode node(options);
        node.process(false, false);
        EXPECT_EQ(node.state(), NodeState::Failed);
        EXPECT_EQ(shown(node.warnings()), c.warnings);
        EXPECT_EQ(node.resultText(), "Error reading");
    }
}

TEST_F(InputNodeTest, NothingToReadIsUpToDate)
{
    InputOptions clipboard;
    clipboard.medium = Medium::Clipboard;
    for (const InputOptions &options : {InputOptions(), clipboard}) {
        InputNode node(options);
        node.process(false, false);
        EXPECT_EQ(node.state(), NodeState::Processed);
        EXPECT_FALSE(node.datasetConst().hasColumns());
        EXPECT_EQ(node.warnings() + node.infos(), QStringList());
    }
}

TEST_F(InputNodeTest, APipeWithoutAWriterIsEmpty)
{
    ASSERT_EQ(::mkfifo(path("pipe.csv").toLocal8Bit().constData(), 0600), 0);
    InputNode node(fileOptions(path("pipe.csv")));
    node.process(false, false);
    EXPECT_EQ(node.state(), NodeState::Processed);
    EXPECT_EQ(node.rowCount(), 0);
}

TEST_F(InputNodeTest, ReadsTheClipboardsText)
{
    InputNode node(InputOptions::forClipboard(QString::fromUtf8("\uFEFFid\tqty\r\n1\t\u00E9\n")));
    node.process(false, false);
    EXPECT_EQ(node.state(), NodeState::Processed);
    EXPECT_EQ(node.datasetConst().header(), (QStringList{QString::fromUtf8("\uFEFFid"), "qty"}));
    EXPECT_EQ(rows(node.datasetConst()), QStringList(QString::fromUtf8("1|\u00E9")));
    EXPECT_EQ(node.infos().size(), 2) << "the guesses of delimiter and quoting, none of the encoding";
    EXPECT_EQ(node.name(), "Clipboard");
}

TEST_F(InputNodeTest, ReadsTheClipboardByItsType)
{
    struct Case
    {
        const char *what;
        int type;
        QString text;
        QStringList header;
        QStringList rows;
    };
    const Case cases[] = {
        {"lines of fixed width", FileType::FixedWidth, "id qty\r1  5\r\r\n2  6\n", {"id", "qty"}, {"1|5", "2|6"}},
        {"JSON", FileType::Json, "[{\"id\": 1, \"qty\": 5}]", {"id", "qty"}, {"1|5"}},
        {"plain text", FileType::PlainText, "id,qty\n1,5", {"id,qty"}, {"1,5"}},
        {"a type that isn't text", FileType::ExcelXlsx, "id,qty\n1,5", {"id", "qty"}, {"1|5"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        InputOptions options = InputOptions::forClipboard(c.text);
        options.fileType = c.type;
        InputNode node(options);
        node.process(false, false);
        EXPECT_EQ(node.state(), NodeState::Processed);
        EXPECT_EQ(node.datasetConst().header(), c.header);
        EXPECT_EQ(rows(node.datasetConst()), c.rows);
    }
}

TEST_F(InputNodeTest, GuessedWidthsBecomeTheOptions)
{
    InputOptions options = fileOptions(write("in.txt", "id qty\n1  5\n2  6\n"));
    options.fileType = FileType::FixedWidth;
    InputNode node(options);
    node.process(false, false);
    EXPECT_EQ(node.options().fixedWidths, (QList<int>{3, 3}));
    EXPECT_EQ(node.fixedWidthSample(), (QStringList{"id qty", "1  5", "2  6"}));
    options.fixedWidths = {2, 4};
    options.autoFixedWidths = false;
    node.setOptions(options);
    node.setState(NodeState::NeedsProcessing, false);
    node.process(false, false);
    EXPECT_EQ(node.options().fixedWidths, (QList<int>{2, 4}));
    EXPECT_EQ(node.datasetConst().header(), (QStringList{"id", "qty"}));
}

TEST_F(InputNodeTest, ColumnsKeepTheirIdsFromReadingToReading)
{
    InputNode node(fileOptions(write("in.csv", "a,b\n1,2\n")), 7);
    for (int i = 0; i < 2; ++i) {
        node.setState(NodeState::NeedsProcessing, false);
        node.process(false, false);
        EXPECT_EQ(node.datasetConst().columnIds(), (QList<ColumnId>{ColumnId(7, 1), ColumnId(7, 2)}));
    }
    EXPECT_EQ(node.previousColumnNames(), (QStringList{"a", "b"}));
}

TEST_F(InputNodeTest, AHeaderDecidedAtTheFirstReadingStays)
{
    InputOptions options = fileOptions(write("in.csv", "a,b\n1,2\n"));
    options.headerMode = InputOptions::DecideAtFirstRead;
    InputNode node(options);
    node.process(false, false);
    EXPECT_EQ(node.options().headerMode, InputOptions::FirstRowIsHeader);
}

TEST_F(InputNodeTest, AStoppedRunReadsNothing)
{
    InputNode node(fileOptions(write("in.csv", "a\n1\n")));
    stopRequested = true;
    node.process(true, false);
    stopRequested = false;
    EXPECT_EQ(node.state(), NodeState::NeedsProcessing);
}

TEST_F(InputNodeTest, ThePassedMemoryCeilingEndsTheReading)
{
    RunControl::setMemoryReader([] { return 100.0; });
    InputNode node(fileOptions(write("in.csv", "a\n1\n")));
    EXPECT_THROW(node.process(true, false), MaxMemoryException);
    RunControl::reset();
}

TEST_F(InputNodeTest, ANewPathDropsTheData)
{
    InputNode node(fileOptions(write("in.csv", "a\n1\n")));
    node.process(false, false);
    node.setPath(write("other.csv", "b\n2\n"), QString());
    EXPECT_TRUE(node.isEmpty());
    EXPECT_TRUE(node.hasHeader()) << "as the option says";
    EXPECT_EQ(node.state(), NodeState::NeedsProcessing);
    node.process(false, false);
    EXPECT_EQ(node.datasetConst().header(), QStringList("b"));
    EXPECT_EQ(node.name(), "other.csv");
}

TEST_F(InputNodeTest, ACloneHasAllOptionsAndNoData)
{
    InputOptions options = fileOptions(write("in.csv", "a\n1\n"));
    options.medium = Medium::File;
    options.fileType = FileType::FixedWidth;
    options.worksheet = "Sheet";
    options.customDelimiter = '!';
    options.ignoreRepeatedDelimiter = true;
    options.fixedWidths = {3, 4};
    options.autoFixedWidths = false;
    options.ignoredRows = 2;
    options.trim = options.simplify = options.ignoreEmptyRows = false;
    options.ignoreEmptyColumns = options.ignoreHiddenRows = options.ignoreHiddenColumns = true;
    options.metaPosition = 3;
    options.watching = true;
    options.schema.columnNames = QStringList{"x"};
    options.folder.recurse = true;
    InputNode node(options, 12);
    node.setComment("note");
    node.setAlias("in");
    node.setPos(10, 20);
    const std::unique_ptr<InputNode> copy(static_cast<InputNode *>(node.clone()));
    EXPECT_EQ(copy->options().values(), options.values());
    EXPECT_EQ(copy->summaryRow(), node.summaryRow());
    EXPECT_EQ(copy->id(), 12);
    EXPECT_EQ(copy->pos(), QPointF(10, 20));
}

TEST_F(InputNodeTest, TellsOptionsThatMatterForTheType)
{
    struct SummaryCase
    {
        const char *what;
        int fileType;
        int medium;
        QString labels;
    };
    const QString common =
        "Has header,Trim whitespace,Simplify whitespace,Ignore empty rows,Ignore empty columns,%1Meta "
        "information,Uses schema,Alias";
    const QString hidden = "Ignore hidden Excel rows,Ignore hidden Excel columns,";
    const SummaryCase cases[] = {
        {"delimited", FileType::Delimited, Medium::File,
            "Delimiter,Ignore repeated delim,Quoting,Encoding,Ignore," + common.arg("")},
        {"from the clipboard there is no encoding", FileType::Delimited, Medium::Clipboard,
            "Delimiter,Ignore repeated delim,Quoting,Ignore," + common.arg("")},
        {"fixed width", FileType::FixedWidth, Medium::File, "Columns,Encoding,Ignore," + common.arg("")},
        {"plain text", FileType::PlainText, Medium::File, "Encoding,Ignore," + common.arg("")},
        {"a workbook", FileType::ExcelXls, Medium::File, "Ignore," + common.arg(hidden)},
        {"JSON", FileType::Json, Medium::File, "Format," + common.arg("")},
        {"XML", FileType::Xml, Medium::File, "Encoding,Format," + common.arg("")},
    };
    for (const SummaryCase &c : cases) {
        SCOPED_TRACE(c.what);
        InputOptions options;
        options.fileType = c.fileType;
        options.medium = c.medium;
        QStringList labels;
        for (const InfoRow &row : InputNode(options).optionSummary()) {
            labels.append(row.first);
        }
        EXPECT_EQ(labels.join(','), c.labels);
    }
}

TEST_F(InputNodeTest, NewInputsTakeTypeAndDefaultsOfTheirSource)
{
    Settings settings(path("settings.ini"));
    Settings::setCurrent(&settings);
    SettingsExtensions extensions = settings.inputFileExtensions();
    extensions.insert("dat", FileType::FixedWidth);
    settings.setInputFileExtensions(extensions);
    const auto save = [&settings](const char *type, const char *extension, const char *option, const QVariant &value) {
        settings.setDefaultOption("inputs", type, extension, option, value);
    };
    save("Delimited text", "csv", "delimiter", 5);
    save("Delimited text", "csv", "trim_whitespace", false);
    save("Delimited text", "csv", "custom_delimiter", QString("#"));
    save("Delimited text", "clipboard", "meta_info_col_name", QString("From"));
    save("Delimited text", "(Empty)", "quoting", 2);
    EXPECT_EQ(InputOptions::forFile("a.DAT").fileType, FileType::FixedWidth);
    EXPECT_EQ(InputOptions::forFile("a.unknown").fileType, FileType::Delimited);
    EXPECT_EQ(InputOptions::forFile("a.CSV").delimiter, 5);
    EXPECT_FALSE(InputOptions::forFile("a.csv").trim);
    EXPECT_EQ(InputOptions::forFile("a.csv").customDelimiter, QChar('#'));
    EXPECT_EQ(InputOptions::forFile("a.csv").headerMode, 1);
    EXPECT_EQ(InputOptions::forFile("folder.d/plain").quoting, 2);
    EXPECT_EQ(InputOptions::forClipboard("a").metaColumnName, "From");
    EXPECT_EQ(InputOptions::forFolder({"/data", "*.csv", "*", false}, FileType::Delimited).delimiter, 5);
    Settings::setCurrent(nullptr);
}

TEST_F(InputNodeTest, TellsTheTypeOfATextByItsLook)
{
    struct LookCase
    {
        const char *text;
        int type;
    };
    const LookCase cases[] = {{"a,b\n1,2", FileType::Delimited}, {" {\"a\": 1}\n", FileType::Json},
        {"[1,2]", FileType::Json}, {"[x],y", FileType::Delimited}, {"<a><b/></a>\n", FileType::Xml},
        {"<5,>6,", FileType::Delimited}, {"BEGIN:VCARD\nEND:VCARD", FileType::VCard}};
    for (const LookCase &c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(InputOptions::fileTypeOfText(c.text), c.type);
    }
}
