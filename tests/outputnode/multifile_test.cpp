#include "files/filesheet.h"
#include "outputflow.h"
#include "outputs/multifilesummary.h"
#include "outputs/multifiletargets.h"
#include "outputs/sheetview.h"
#include "support/printers.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

/// A flow whose output takes its files from the column "file"; relative paths begin in the flow's folder.
class MultiFlow : public Flow
{
public:
    explicit MultiFlow(const QStringList &lines)
        : Flow(grid(lines))
    {
        scene.setDocumentPath(path("flow.transform"));
        const Dataset &table = input->datasetConst();
        output->columns().setMultiFileColumn(table.columnId(table.columnIndexOfName("file")), &table);
        changeOptions([](OutputOptions &o) {
            o.outputTarget = OutputTarget::MultipleFiles;
            o.confirmMultiFile = false;
            o.lineEndings = LineEndings::Unix;
        });
    }
};

QStringList targetTexts(const MultiFileTargets &plan)
{
    QStringList texts;
    for (const MultiFileTargets::Target &target : plan.targets) {
        QString text = fileSheetText(target.file, target.sheet) + ':';
        for (const int row : target.rows) {
            text += ' ' + QString::number(row);
        }
        texts.append(text);
    }
    return texts;
}

} // namespace

TEST(MultiFileTargets, SayWhereEachRowGoes)
{
    const ScopedSettings settings;
    QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir("sub"));
    struct
    {
        const char *what;
        QStringList cells;
        QStringList targets; // {dir} is the folder of the document
        QStringList warnings;
    } const cases[] = {
        {"rows of one file are gathered, in order of first appearance", {"b.csv", "a.csv", " b.csv "},
            {"{dir}/b.csv: 0 2", "{dir}/a.csv: 1"}, {}},
        {"paths are relative to the document, with either separator",
            {"sub/a.csv", "sub\\a.csv", "{dir}/sub/a.csv", "sub/../sub/./a.csv"}, {"{dir}/sub/a.csv: 0 1 2 3"}, {}},
        {"case tells files apart", {"a.csv", "A.csv"}, {"{dir}/a.csv: 0", "{dir}/A.csv: 1"}, {}},
        {"each sheet is a target", {"x.xlsx[a]", "x.xlsx[b]", "x.xlsx", "x[1].xlsx[a]"},
            {"{dir}/x.xlsx[a]: 0", "{dir}/x.xlsx[b]: 1", "{dir}/x.xlsx: 2", "{dir}/x[1].xlsx[a]: 3"}, {}},
        {"a slash in a sheet is for the workbook to refuse", {"x.xlsx[Q1/Q2]", "sub\\x.xlsx[Q1\\Q2]", "sub/[a]/x"},
            {"{dir}/x.xlsx[Q1/Q2]: 0", "{dir}/sub/x.xlsx[Q1\\Q2]: 1"},
            {"Folder does not exist for 'sub/[a]/x' at row 3"}},
        {"brackets that end elsewhere are of the file", {"sub/y[a]z]", "sub/]"},
            {"{dir}/sub/y[a]z]: 0", "{dir}/sub/]: 1"}, {}},
        {"rows without a file name are left out", {"", " ", "sub/", "C:\\", "[s]", "a.csv"}, {"{dir}/a.csv: 5"},
            {"Empty value for row 1", "Empty value for row 2", "no file name for row 3", "no file name for row 4",
                "No file name for '[s]' at row 5"}},
        {"folders must be there", {"no/a.csv", "/no/such/b.csv", "no/a.csv", "sub"}, {"{dir}/sub: 3"},
            {"Folder does not exist for 'no/a.csv' at row 1", "Folder does not exist for '/no/such/b.csv' at row 2",
                "Folder does not exist for 'no/a.csv' at row 3"}},
        {"a percent sign is no place for anything", {"%1%2/a"}, {}, {"Folder does not exist for '%1%2/a' at row 1"}},
        {"a blocked extension is told of once a file", {"a.EXE", "sub/a.exe", "./a.EXE", "a.EXE[s]", "b.csv"},
            {"{dir}/b.csv: 4"},
            {"Extension for '{dir}/a.EXE' is blocked in 'Preferences>Output Extensions'.",
                "Extension for '{dir}/sub/a.exe' is blocked in 'Preferences>Output Extensions'."}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const auto placed = [&](QStringList texts) { return texts.replaceInStrings("{dir}", folder.path()); };
        QStringList warnings;
        const Dataset table = column(placed(c.cells));
        const MultiFileTargets plan = MultiFileTargets::of(
            table.column(ColumnIndex(0)), folder.filePath("flow.transform"), warnings);
        EXPECT_EQ(targetTexts(plan), placed(c.targets));
        EXPECT_EQ(warnings, placed(c.warnings));
        EXPECT_FALSE(plan.warningsCapped);
    }
}

TEST(MultiFileTargets, NeedASavedDocumentForRelativePaths)
{
    const ScopedSettings settings;
    QTemporaryDir folder;
    QStringList warnings;
    const Dataset table = column(QStringList{"a.csv", folder.filePath("b.csv")});
    const MultiFileTargets plan = MultiFileTargets::of(table.column(ColumnIndex(0)), QString(), warnings);
    EXPECT_EQ(targetTexts(plan), QStringList{folder.filePath("b.csv") + ": 1"});
    EXPECT_EQ(warnings,
        QStringList{"Relative file path for 'a.csv' at row 1, but .transform not saved for it to be relative to."});
}

TEST(MultiFileSummary, NamesWhatIsReplacedAndWhatIsNew)
{
    struct
    {
        const char *what;
        QStringList existing;
        QStringList created;
        int mode;
        bool isExcel;
        const char *text;
        int count;
    } const cases[] = {
        {"both, the new ones in alphabetical order", {"/z", "/y"}, {"/b", "/a", "/B"}, WriteMode::Overwrite, false,
            "2 existing file(s) to be overwritten:\n/z\n/y\n\n3 new file(s) to be created:\n/B\n/a\n/b\n\n"
            "5 file(s) will be written",
            5},
        {"existing alone", {"/z"}, {}, WriteMode::Append, false,
            "1 existing file(s) to be appended to:\n/z\n\n1 file(s) will be written", 1},
        {"new alone", {}, {"/a[s]"}, WriteMode::Append, true,
            "1 new file(s)/sheets(s) to be created:\n/a[s]\n\n1 file(s)/sheets(s) will be written", 1},
        {"New leaves existing ones alone", {"/z"}, {"/a"}, WriteMode::New, false,
            "1 existing file(s) will not be overwritten:\n/z\n\n1 new file(s) to be created:\n/a\n\n"
            "1 file(s) will be written",
            1},
        {"nothing to do", {"/z"}, {}, WriteMode::New, false,
            "1 existing file(s) will not be overwritten:\n/z\n\n0 file(s) will be written", 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const MultiFileSummary summary = MultiFileSummary::of(c.existing, c.created, c.mode, c.isExcel);
        EXPECT_EQ(summary.text, QString(c.text));
        EXPECT_EQ(summary.count, c.count);
    }
}

TEST(OutputNode, WritesAFileForEachTextOfTheFilesColumn)
{
    MultiFlow flow({"a|file|b", "1|x.csv|p", "2|y.csv|q", "3|x.csv|r", "4||s"});
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes("x.csv"), "a,b\n1,p\n3,r\n");
    EXPECT_EQ(flow.bytes("y.csv"), "a,b\n2,q\n");
    EXPECT_EQ(flow.output->warnings(), QStringList{"Empty value for row 4"});
    EXPECT_EQ(flow.output->infos(), QStringList({"Created file '" + flow.path("x.csv") + "'",
                                        "Created file '" + flow.path("y.csv") + "'", "2 file(s) written"}));
    EXPECT_EQ(flow.output->writtenFiles(), QSet<QString>({flow.path("x.csv"), flow.path("y.csv")}));
    EXPECT_EQ(flow.output->listName(), QString("Multiple files: 2 file(s) written"));
    EXPECT_EQ(flow.output->resultText(), QString("Written"));
    EXPECT_EQ(flow.output->datasetConst().columnCount(), 3) << "the whole table can be looked at";
}

TEST(OutputNode, JudgesColumnsByTheWholeTableOfManyFiles)
{
    MultiFlow flow({"a|file|b", "1|x.json|7", "2|y.json|no"});
    flow.output->setFileType(FileType::Json);
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes("x.json"), "[\n  {\n    \"a\": 1,\n    \"b\": \"7\"\n  }\n]\n");
    EXPECT_EQ(flow.bytes("y.json"), "[\n  {\n    \"a\": 2,\n    \"b\": \"no\"\n  }\n]\n");

    flow.output->columns().setJsonTypes(
        {{flow.input->datasetConst().columnId(ColumnIndex(2)), JsonColumnType::Number}}, nullptr);
    flow.changeOptions([](OutputOptions &o) { o.jsonTypeMode = JsonTypeMode::Manual; });
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes("y.json"), "[\n  {\n    \"a\": 2,\n    \"b\": null\n  }\n]\n");
    EXPECT_EQ(flow.output->warnings(), QStringList({"'no' not of type Number in column 2.", ""}));
}

TEST(OutputNode, WritesManySheetsOfOneWorkbook)
{
    MultiFlow flow({"a|file|b|c", "x|w.xlsx[one]|7|no", "y|w.xlsx[two]|8|1", "z|w.xlsx[one]|9|2"});
    flow.output->setFileType(FileType::ExcelXlsx);
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(shownBook(flow.path("w.xlsx")), QStringList({"one", "'a/49|'b/49|'c/49", "'x/49|7|'no/49",
                                                  "'z/49|9|'2/49", "two", "'a/49|'b/49|'c/49", "'y/49|8|'1/49"}))
        << "formats are those of the whole table";
    EXPECT_EQ(flow.output->infos().last(), QString("2 file(s) written"));
    EXPECT_EQ(flow.output->writtenFiles(), QSet<QString>{flow.path("w.xlsx")});
}

TEST(OutputNode, LeavesAWorkbookThatCantBeLoadedAmongMany)
{
    MultiFlow flow({"a|file", "1|bad.xlsx[s]", "2|good.xlsx[s]", "3|bad.xlsx[t]", "4|good.xlsx[Q1/Q2]"});
    flow.output->setFileType(FileType::ExcelXlsx);
    flow.put("bad.xlsx", "no workbook");
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes("bad.xlsx"), "no workbook");
    EXPECT_EQ(shownBook(flow.path("good.xlsx")), (QStringList{"s", "'a/49", "2"}));
    const QString unloaded = "Unable to load Excel workbook '" + flow.path("bad.xlsx")
                             + "' information.\nError: The file is not an .xlsx workbook or is damaged";
    EXPECT_EQ(flow.output->warnings(),
        (QStringList{unloaded, unloaded,
            "Unable to add sheet to '" + flow.path("good.xlsx") + "'.\n'/' is not allowed in Excel sheet names."}));
    EXPECT_EQ(flow.output->infos().last(), QString("1 file(s) written"));
}

TEST(OutputNode, WritesNothingWithoutAFilesColumn)
{
    MultiFlow flow({"a|file", "1|x.csv"});
    flow.output->columns().setMultiFileColumn(ColumnId(), nullptr);
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.output->warnings(), QStringList{"No column set for 'Files column'"});
    EXPECT_EQ(flow.output->resultText(), QString("Not written"));
    flow.output->columns().setMultiFileColumn(ColumnId(77, 1), nullptr);
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.output->warnings(), QStringList{"No column set for 'Files column'"}) << "the column is gone";
    EXPECT_EQ(flow.bytes("x.csv"), "no file");
}

TEST(OutputNode, GoesOnAfterAFileThatCantBeWritten)
{
    MultiFlow flow({"a|file", "1|sub", "2|x.csv"});
    ASSERT_TRUE(QDir(flow.folder.path()).mkdir("sub"));
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes("x.csv"), "a\n2\n");
    EXPECT_EQ(flow.output->warnings(), QStringList{"Unable to write '" + flow.path("sub") + "'"});
    EXPECT_EQ(flow.output->infos().last(), QString("1 file(s) written"));
}

TEST(OutputNode, StopsWarningAtAThousand)
{
    QStringList lines{"a|file"};
    for (int i = 0; i < 1500; ++i) {
        lines.append("1|");
    }
    MultiFlow flow(lines);
    EXPECT_EQ(flow.run(), NodeState::Processed);
    const QStringList warnings = flow.output->warnings();
    ASSERT_EQ(warnings.size(), 1002);
    EXPECT_EQ(warnings.mid(999), QStringList({"Empty value for row 1000", "\n...etc", "0 files written"}));
}

TEST(OutputNode, AsksBeforeItWritesManyFiles)
{
    struct
    {
        const char *what;
        int mode;
        bool answer;
        QStringList asked;
        NodeState state;
        QStringList warnings; // {dir} is the folder
        const char *old;      // what old.csv holds in the end
        const char *fresh;
    } const cases[] = {
        {"a yes", WriteMode::Overwrite, true,
            {"Multi file output",
                "1 existing file(s) to be overwritten:\n{dir}/old.csv\n\n1 new file(s) to be created:\n"
                "{dir}/new.csv\n\n2 file(s) will be written"},
            NodeState::Processed, {}, "a\n1\n", "a\n2\n"},
        {"a no", WriteMode::New, false,
            {"Multi file output",
                "1 existing file(s) will not be overwritten:\n{dir}/old.csv\n\n1 new file(s) to be created:\n"
                "{dir}/new.csv\n\n1 file(s) will be written"},
            NodeState::Failed, {"Output cancelled by user", "0 files written"}, "old", "no file"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        MultiFlow flow({"a|file", "1|old.csv", "2|{in.fname}.csv"});
        flow.put("old.csv", "old");
        flow.input->setPath("/from/new.csv", QString());
        flow.changeOptions([&](OutputOptions &o) {
            o.confirmMultiFile = true;
            o.writeMode = c.mode;
        });
        QStringList asked;
        flow.scene.document()->hooks.askAboutFiles = [&](const QString &title, const QString &text) {
            asked = QStringList{title, text};
            return c.answer;
        };
        EXPECT_EQ(flow.run(), c.state);
        asked.replaceInStrings(flow.folder.path(), "{dir}").replaceInStrings("{in.fname}", "new");
        EXPECT_EQ(asked, c.asked);
        EXPECT_EQ(flow.output->warnings(), c.warnings);
        EXPECT_EQ(flow.bytes("old.csv"), c.old);
        EXPECT_EQ(flow.bytes("new.csv"), c.fresh);
    }
}

TEST(OutputNode, AsksNothingWhereNothingWouldBeWritten)
{
    MultiFlow flow({"a|file", "1|old.csv"});
    flow.put("old.csv", "old");
    bool asked = false;
    flow.scene.document()->hooks.askAboutFiles = [&](const QString &, const QString &) { return asked = true; };
    flow.changeOptions([](OutputOptions &o) { o.writeMode = WriteMode::New; });
    EXPECT_EQ(flow.run(), NodeState::Processed) << "not confirmed: a file that is there is no failure";
    EXPECT_EQ(
        flow.output->warnings(), QStringList{"Write mode='New' and '" + flow.path("old.csv") + "' already exists"});
    flow.changeOptions([](OutputOptions &o) { o.confirmMultiFile = true; });
    EXPECT_EQ(flow.run(), NodeState::Failed);
    EXPECT_EQ(flow.output->warnings(), QStringList{"0 files written"});
    EXPECT_FALSE(asked);
    EXPECT_EQ(flow.bytes("old.csv"), "old");
}

TEST(OutputNode, AsksNobodyWithoutAWindow)
{
    MultiFlow flow({"a|file", "1|x.csv"});
    flow.changeOptions([](OutputOptions &o) { o.confirmMultiFile = true; });
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes("x.csv"), "a\n1\n");
}

TEST(OutputNode, TellsTheTypesOfJsonAndTheFaultsOfTags)
{
    Flow flow(grid({"n|1 b|c%1", "1|true|x", "2|FALSE|", "", ""}));
    flow.output->setFileType(FileType::Json);
    flow.output->setPath(flow.path("out.json"), QString());
    flow.changeOptions([](OutputOptions &o) { o.lineEndings = LineEndings::Unix; });
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.output->infos(),
        QStringList({"Value types=Automatic sets JSON column types as:", "n: Number", "1 b: Boolean", "c%1: String",
            "Set 'Value types' option to change", "Created file '" + flow.path("out.json") + "'"}));
    EXPECT_TRUE(flow.output->warnings().isEmpty());

    flow.output->setFileType(FileType::Xml);
    flow.output->setPath(flow.path("out.xml"), QString());
    flow.changeOptions([](OutputOptions &o) {
        o.fileComment = "from {in}";
        o.xmlRootName = "r";
    });
    EXPECT_EQ(flow.run(), NodeState::Processed);
    EXPECT_EQ(flow.bytes("out.xml").substr(0, 65),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!--from source-->\n<r>\n  <");
    EXPECT_EQ(
        flow.output->warnings(), QStringList({"Column name '1 b' invalid as an XML tag: doesn't start with a letter",
                                     "Column name 'c%1' invalid as an XML tag: invalid character '%'"}));
}

TEST(OutputNode, RefusesNamesThatNestWithoutEnd)
{
    for (const int type : {FileType::Json, FileType::Xml}) {
        SCOPED_TRACE(type);
        Flow flow(grid({"a|" + QString(1000, '.'), "1|2"}));
        flow.put("out.csv", "old");
        flow.output->setFileType(type);
        EXPECT_EQ(flow.run(), NodeState::Failed);
        EXPECT_EQ(
            flow.output->warnings(), QStringList{"Unable to write '" + flow.path("out.csv") + "': column name '"
                                                 + QString(49, '.') + "\xE2\x80\xA6' has more than 1,000 levels"});
        EXPECT_EQ(flow.bytes(), "old");
        flow.input->setTable(grid({QString(999, '.'), "1"}));
        EXPECT_EQ(flow.run(), NodeState::Processed);
    }
}

TEST(OutputNode, CountsTheJsonIssuesThatItDoesntList)
{
    struct
    {
        const char *what;
        int bad;
        QStringList end;
    } const cases[] = {
        {"five are all told", 5, {"'x' not of type Number in column 1.", ""}},
        {"one more", 6, {"+ 1 other JSON type issue", ""}},
        {"many more", 1505, {"+ 1,500 other JSON type issues", ""}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QStringList lines{"a"};
        for (int i = 0; i < c.bad; ++i) {
            lines.append("x");
        }
        Flow flow(grid(lines));
        flow.output->setFileType(FileType::Json);
        flow.output->columns().setJsonTypes(
            {{flow.input->datasetConst().columnId(ColumnIndex(0)), JsonColumnType::Number}}, nullptr);
        flow.changeOptions([](OutputOptions &o) { o.jsonTypeMode = JsonTypeMode::Manual; });
        EXPECT_EQ(flow.run(), NodeState::Processed);
        EXPECT_EQ(flow.output->warnings().mid(4, 1), QStringList{"'x' not of type Number in column 1."});
        QStringList warnings = flow.output->warnings();
        warnings.removeLast(); // the extension is that of another type
        EXPECT_EQ(warnings.mid(warnings.size() - 2), c.end);
    }
}
