#include "files/delimiters.h"
#include "graph/connection.h"
#include "graph/runcontrol.h"
#include "outputflow.h"
#include "support/printers.h"

#include <QDir>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

const char autoLines[] =
    "Line endings=Automatic sets line endings as Mac\\Unix (LF), set 'Line endings' option to change";

QStringList withPath(QStringList texts, const Flow &flow)
{
    return texts.replaceInStrings("{out}", QDir::toNativeSeparators(flow.path("out.csv")));
}

} // namespace

TEST(OutputNode, WritesByItsModeAndTellsWhatItDid)
{
    struct
    {
        const char *what;
        const char *before; // null for no file
        std::function<void(OutputOptions &)> change;
        std::string after;
        NodeState state;
        QStringList warnings;
        QString info; // empty for none
    } const cases[] = {
        {"Overwrite makes a file", nullptr, [](OutputOptions &) {}, "a,b\n1,\"x,y\"\n", NodeState::Processed, {},
            "Created file '{out}'"},
        {"Overwrite replaces a longer file", "something much longer than what follows", [](OutputOptions &) {},
            "a,b\n1,\"x,y\"\n", NodeState::Processed, {}, "Overwrote file '{out}'"},
        {"Append adds rows without a second header", "a,b\n", [](OutputOptions &o) { o.writeMode = WriteMode::Append; },
            "a,b\n1,\"x,y\"\n", NodeState::Processed, {}, "Appended file '{out}'"},
        {"Append repeats the header when told so", "a,b\n",
            [](OutputOptions &o) {
                o.writeMode = WriteMode::Append;
                o.headerOnlyIfEmpty = false;
            },
            "a,b\na,b\n1,\"x,y\"\n", NodeState::Processed, {}, "Appended file '{out}'"},
        {"a file of three bytes counts as empty for the header, not for the mark", "\xEF\xBB\xBF",
            [](OutputOptions &o) {
                o.writeMode = WriteMode::Append;
                o.writeBom = true;
            },
            "\xEF\xBB\xBF"
            "a,b\n1,\"x,y\"\n",
            NodeState::Processed, {}, "Appended file '{out}'"},
        {"a file of four bytes doesn't", "abc\n", [](OutputOptions &o) { o.writeMode = WriteMode::Append; },
            "abc\n1,\"x,y\"\n", NodeState::Processed, {}, "Appended file '{out}'"},
        {"Append to an empty file begins with the mark", "",
            [](OutputOptions &o) {
                o.writeMode = WriteMode::Append;
                o.writeBom = true;
            },
            "\xEF\xBB\xBF"
            "a,b\n1,\"x,y\"\n",
            NodeState::Processed, {}, "Appended file '{out}'"},
        {"Append makes a file", nullptr, [](OutputOptions &o) { o.writeMode = WriteMode::Append; }, "a,b\n1,\"x,y\"\n",
            NodeState::Processed, {}, "Created file '{out}'"},
        {"New makes a file", nullptr, [](OutputOptions &o) { o.writeMode = WriteMode::New; }, "a,b\n1,\"x,y\"\n",
            NodeState::Processed, {}, "Created file '{out}'"},
        {"New leaves a file alone and succeeds", "old", [](OutputOptions &o) { o.writeMode = WriteMode::New; }, "old",
            NodeState::Processed, {"Write mode='New' and '{out}' already exists"}, ""},
        {"no header", nullptr, [](OutputOptions &o) { o.writeHeader = false; }, "1,\"x,y\"\n", NodeState::Processed, {},
            "Created file '{out}'"},
        {"Never quotes tells how many values it changed", nullptr, [](OutputOptions &o) { o.quoting = Quoting::Never; },
            "a,b\n1,x y\n", NodeState::Processed,
            {"Delimiter, Line Feed or Carriage Return characters were found within 1 unquoted data value(s). These "
             "have "
             "been replaced with ' '. You may want to use a 'Replace' transform to replace these characters or output "
             "the file with 'Quoting' set to 'As needed'."},
            "Created file '{out}'"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Flow flow;
        if (c.before) {
            flow.put("out.csv", c.before);
        }
        flow.changeOptions(c.change);
        EXPECT_EQ(flow.run(), c.state);
        EXPECT_EQ(flow.bytes(), c.after);
        EXPECT_EQ(flow.output->warnings(), withPath(c.warnings, flow));
        QStringList infos{autoLines};
        if (!c.info.isEmpty()) {
            infos.append(c.info);
        }
        EXPECT_EQ(flow.output->infos(), withPath(infos, flow));
        EXPECT_EQ(flow.output->writtenFiles(), QSet<QString>{flow.path("out.csv")});
        EXPECT_EQ(rows(flow.output->datasetConst()), QStringList{"1|x,y"});
    }
}

TEST(OutputNode, FailsWithAWordWhereNothingCanBeWritten)
{
    struct
    {
        const char *what;
        int mode;
        const char *path;
        const char *warning;
    } const cases[] = {
        {"no such folder", WriteMode::Overwrite, "/no/such/folder/a.csv", "Unable to write '/no/such/folder/a.csv'"},
        {"nothing to append to", WriteMode::Append, "/no/such/folder/a.csv",
            "Unable to append to '/no/such/folder/a.csv'"},
        {"nothing to make", WriteMode::New, "/no/such/folder/a.csv", "Unable to create '/no/such/folder/a.csv'"},
        {"a folder is no file", WriteMode::Overwrite, "/proc", "Unable to write '/proc'"},
        {"the disk is full", WriteMode::Overwrite, "/dev/full", "Unable to write '/dev/full'"},
        {"the extension is blocked", WriteMode::Overwrite, "/tmp/{date}.Exe",
            "The extension for this file is blocked in 'Preferences>Output Extensions':\n/tmp/{date}.Exe"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Flow flow;
        flow.output->setPath(c.path, QString());
        flow.output->setWriteMode(c.mode);
        EXPECT_EQ(flow.run(), NodeState::Failed);
        EXPECT_EQ(flow.output->warnings(), QStringList{c.warning});
        EXPECT_EQ(flow.output->resultText(), QString("Error writing"));
        EXPECT_TRUE(flow.output->writtenFiles().isEmpty());
    }
}

TEST(OutputNode, TouchesNothingWhenDisabled)
{
    Flow flow;
    flow.put("out.csv", "old");
    flow.output->setWriteMode(WriteMode::Disabled);
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes(), "old");
    EXPECT_EQ(flow.output->warnings(), QStringList{"Write mode='Disabled'"});
    EXPECT_EQ(flow.output->resultText(), QString("Disabled"));
    EXPECT_EQ(flow.output->datasetConst().rowCount(), 1) << "the table can still be looked at";
    flow.output->setWriteMode(99);
    EXPECT_EQ(flow.output->writeMode(), int(WriteMode::Disabled)) << "a mode that nobody knows writes nothing";
}

TEST(OutputNode, WarnsOfNamesThatOccurTwiceAndOfATypeThatTheExtensionBelies)
{
    Flow flow(grid({"b|a|b|c|a|b", "1|2|3|4|5|6"}));
    flow.output->setPath(flow.path("out.txt"), QString());
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.output->warnings(),
        QStringList({QString("'%1' extension is 'txt' but file type is Delimited text").arg(flow.path("out.txt")),
            "Duplicate column header names:", "'a' occurs 2 times", "'b' occurs 3 times"}));
    flow.changeOptions([](OutputOptions &o) {
        o.writeHeader = false;
        o.writeMode = WriteMode::Disabled;
    });
    flow.run();
    EXPECT_EQ(flow.output->warnings(), QStringList{"Write mode='Disabled'"});
}

TEST(OutputNode, WritesEachTypeInItsEncoding)
{
    struct
    {
        const char *what;
        int type;
        const char *encoding;
        int lines;
        std::string start;
    } const cases[] = {
        {"plain text in UTF-16 with its mark", FileType::PlainText, "UTF-16", LineEndings::Unix,
            std::string("\xFF\xFE\xE9\0\n\0", 6)},
        {"Latin-1 has no mark", FileType::Delimited, "ISO-8859-1", LineEndings::Windows, "\xE9\r\n"},
        {"Markdown with the comment in front", FileType::Markdown, "UTF-8", LineEndings::Unix,
            "\xEF\xBB\xBF<!--for source-->\n\n| \xC3\xA9   |\n"},
        {"HTML", FileType::Html, "utf-8", LineEndings::Unix, "\xEF\xBB\xBF<!--for source-->\n<!DOCTYPE html>\n"},
        {"YAML", FileType::Yaml, "UTF-8", LineEndings::OldMac, "\xEF\xBB\xBF#for source\r---\r-\r  \xC3\xA9: "},
        {"vCard", FileType::VCard, "windows-1252", LineEndings::RecordSeparator, "BEGIN:VCARD\x1EVERSION:3.0\x1E\xE9:"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Flow flow(grid({"\xC3\xA9", "\xE2\x82\xAC"}));
        flow.output->setFileType(c.type);
        flow.output->setEncoding(c.encoding);
        flow.changeOptions([&](OutputOptions &o) {
            o.writeBom = true;
            o.lineEndings = c.lines;
            o.fileComment = "for {in}";
        });
        EXPECT_EQ(flow.run(), NodeState::Processed);
        EXPECT_EQ(flow.bytes().substr(0, c.start.size()), c.start);
        EXPECT_EQ(flow.output->infos().size(), 1) << "nothing about automatic line endings";
        EXPECT_EQ(flow.output->options().fileComment, QString("for {in}"));
    }
}

TEST(OutputNode, WarnsOfCharactersThatTheEncodingLacks)
{
    Flow flow(grid({"a", "\xE2\x82\xAC"}));
    flow.output->setEncoding("ISO-8859-1");
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes(), "a\n?\n");
    EXPECT_EQ(flow.output->warnings(),
        QStringList{"1 character(s) can't be written in encoding 'ISO-8859-1' and have been replaced"});
}

TEST(OutputNode, ReplacesVariablesInThePath)
{
    Flow flow;
    flow.output->setPath(flow.path("{in.fname}-{in.ext}.csv"), QString());
    EXPECT_EQ(flow.output->listName(), flow.path("{in.fname}-{in.ext}.csv"));
    EXPECT_EQ(flow.output->expandedPath(), flow.path("source-csv.csv"));
    flow.run();
    EXPECT_EQ(flow.bytes("source-csv.csv"), "a,b\n1,\"x,y\"\n");
    EXPECT_EQ(flow.output->lastFilePath(), flow.path("source-csv.csv"));
    EXPECT_EQ(flow.output->listName(), flow.path("source-csv.csv"));
    EXPECT_EQ(flow.output->name(), QString("{in.fname}-{in.ext}.csv"));
}

TEST(OutputNode, RunsOnlyWhenThereIsSomethingToDo)
{
    Flow flow;
    QSignalSpy started(flow.output, &Node::processingStart);
    QSignalSpy ended(flow.output, &Node::processingEnd);
    stopRequested = true;
    flow.output->process(true, false);
    stopRequested = false;
    EXPECT_EQ(flow.output->state(), NodeState::NeedsProcessing) << "after a stop";
    flow.input->setState(NodeState::Failed, false);
    flow.output->process(true, false);
    EXPECT_EQ(started.count(), 0) << "the input has failed";
    flow.input->setState(NodeState::Processed, false);
    flow.output->process(true, false);
    flow.output->process(true, false);
    EXPECT_EQ(started.count(), 1) << "the second call finds it up to date";
    EXPECT_EQ(ended.count(), 1);

    flow.output->deleteConnections(Direction::Incoming);
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.output->warnings(), QStringList{"No transforms or inputs connected"});
    EXPECT_TRUE(flow.output->isEmpty());
}

TEST(OutputNode, LetsGoOfItsTableAndThatUpstreamWhenToldSo)
{
    Flow flow;
    int reported = 0;
    QObject::connect(flow.output, &Node::processingEnd, [&](Node *node) { reported = node->rowCount(); });
    flow.output->process(true, true);
    EXPECT_TRUE(flow.input->isEmpty());
    EXPECT_TRUE(flow.output->isEmpty());
    EXPECT_EQ(reported, 1) << "while it is reported the table is still there";
}

TEST(OutputNode, KeepsColumnTextsOfADocumentUntilItRuns)
{
    Flow flow;
    flow.output->columns().setStored("2", "4^2", "0^3");
    flow.input->setTable(Dataset());
    EXPECT_EQ(flow.output->storedMultiFileColumn(), QString("2"));
    EXPECT_EQ(flow.output->storedExcelFormats(), QString("4^2"));
    flow.input->setTable(grid({"a|b"}));
    flow.run();
    EXPECT_EQ(flow.output->columns().multiFileColumn(), flow.input->datasetConst().columnId(ColumnIndex(1)));
    EXPECT_EQ(flow.output->storedJsonTypes(), QString("0\x1F"
                                                      "3"));
}

TEST(OutputNode, ShowsTheOptionsThatApply)
{
    struct
    {
        const char *what;
        int type;
        const char *encoding;
        int mode;
        QStringList labels;
        QString modeText;
        QString headerText; // empty where the type has no header
    } const cases[] = {
        {"delimited", FileType::Delimited, "UTF-8", WriteMode::Append,
            {"Delimiter", "Quoting", "Line endings", "Encoding", "Byte Order Mark", "Write mode", "Write header",
                "Alias"},
            "Append", "Yes (if empty)"},
        {"no mark outside Unicode", FileType::PlainText, "ISO-8859-1", WriteMode::Overwrite,
            {"Line endings", "Encoding", "Write mode", "Write header", "Alias"}, "Overwrite", "Yes"},
        {"Excel", FileType::ExcelXls, "UTF-8", WriteMode::Overwrite,
            {"Formatting", "Write mode", "Write header", "Alias"}, "Overwrite/Sheet", "Yes"},
        {"XML", FileType::Xml, "utf-16", WriteMode::New,
            {"Line endings", "Encoding", "Byte Order Mark", "Remove empty", "Above root", "Root name", "Below root",
                "Row name", "Write mode", "Alias"},
            "New", ""},
        {"HTML", FileType::Html, "UTF-8", WriteMode::Disabled,
            {"Line endings", "Encoding", "Byte Order Mark", "Escape special", "Write mode", "Write header", "Alias"},
            "Disabled", "Yes"},
        {"JSON", FileType::Json, "UTF-8", WriteMode::Overwrite,
            {"Line endings", "Encoding", "Byte Order Mark", "Remove empty", "Types", "Write mode", "Alias"},
            "Overwrite", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        OutputNode node("/x/a", c.type);
        node.setEncoding(c.encoding);
        node.setWriteMode(c.mode);
        QStringList labels;
        QHash<QString, QString> values;
        for (const InfoRow &row : node.optionRows()) {
            labels.append(row.first);
            values.insert(row.first, row.second);
        }
        EXPECT_EQ(labels, c.labels);
        EXPECT_EQ(values.value("Write mode"), c.modeText);
        EXPECT_EQ(values.value("Write header"), c.headerText);
    }
}

TEST(OutputNode, NamesItselfByItsTarget)
{
    OutputNode node("/x/a.xlsx", FileType::ExcelXlsx);
    EXPECT_EQ(node.name(), QString("a.xlsx"));
    node.setPath("/x/a.xlsx", "S");
    EXPECT_EQ(node.name(), QString("a.xlsx[S]"));
    node.setFileType(FileType::Delimited);
    EXPECT_EQ(node.name(), QString("a.xlsx"));
    node.setPath(QString(), QString());
    EXPECT_EQ(node.name(), QString("<no file name>"));
    OutputOptions options;
    options.outputTarget = OutputTarget::MultipleFiles;
    node.setOptions(options);
    EXPECT_EQ(node.name(), QString("Multiple files"));
    EXPECT_EQ(node.listName(), QString("Multiple files: 0 file(s) written"));
    EXPECT_EQ(node.description(), QString("Output to File."));
    node.setPreview(true);
    EXPECT_EQ(node.name(), QString("Output.csv"));
}

TEST(OutputNode, ClonesWithEveryOption)
{
    OutputNode node("/x/a.csv", FileType::Delimited);
    node.setPath("/x/b.tsv", "S");
    node.setAlias("out");
    node.setComment("why");
    node.setPos(20, 40);
    node.setEncoding("UTF-16");
    node.setDelimiterKind(DelimiterKind::Custom);
    node.setCustomDelimiter('~');
    OutputOptions options = node.options();
    options.writeMode = WriteMode::New;
    options.xmlRowName = "row";
    options.quoting = Quoting::Always;
    options.headerOnlyIfEmpty = false;
    node.setOptions(options);
    node.columns().setStored("1", "2", "3");
    const std::unique_ptr<OutputNode> copy(static_cast<OutputNode *>(node.clone()));
    EXPECT_EQ(copy->summaryRow(), node.summaryRow());
    EXPECT_EQ(copy->pos(), node.pos());
    EXPECT_EQ(copy->sheetName(), QString("S"));
    EXPECT_EQ(copy->storedExcelFormats(), QString("2"));
    options.xmlRowName = "other";
    copy->setOptions(options);
    EXPECT_NE(copy->summaryRow(), node.summaryRow()) << "every option counts in a comparison";
}
