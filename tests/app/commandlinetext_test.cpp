#include "app/commandlineitems.h"
#include "app/commandlinetext.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

CommandLineItem item(
    CommandLineItem::Kind kind, const char *alias, const char *path = "/d/x.csv", bool isConnected = true)
{
    CommandLineItem made;
    made.kind = kind;
    made.alias = QString::fromLatin1(alias);
    made.path = QString::fromLatin1(path);
    made.isConnected = isConnected;
    made.writeMode = WriteMode::Overwrite;
    return made;
}

CommandLineItem input(const char *alias, const char *path = "/d/x.csv", bool isConnected = true)
{
    return item(CommandLineItem::Input, alias, path, isConnected);
}

CommandLineItem output(const char *alias, const char *path = "/d/o.csv", bool isConnected = true)
{
    return item(CommandLineItem::Output, alias, path, isConnected);
}

CommandLineItem chart(const char *alias, const char *path = "/d/c.png", bool isConnected = true)
{
    return item(CommandLineItem::Chart, alias, path, isConnected);
}

CommandLineItem disabled(const char *alias)
{
    CommandLineItem made = output(alias);
    made.writeMode = WriteMode::Disabled;
    return made;
}

CommandLineItem withoutFilesColumn(const char *alias)
{
    CommandLineItem made = output(alias);
    made.lacksFilesColumn = true;
    return made;
}

CommandLineItem folder(const char *alias, const char *path)
{
    CommandLineItem made = input(alias, path);
    made.isFolder = true;
    return made;
}

CommandLineText textOf(const QList<CommandLineItem> &items, const CommandLineTextOptions &options = {})
{
    return commandLineText(QStringLiteral("/bin/q"), QStringLiteral("/d/f.transform"), items, options);
}

struct WarningCase
{
    const char *what;
    QList<CommandLineItem> items;
    QStringList warnings;
    const char *aliases; ///< what is left of the command
};

TEST(CommandLineText, Warnings)
{
    const WarningCase cases[] = {
        {"all is well", {input("a"), output("b"), chart("c")}, {},
            " -file \"a=/d/x.csv\" -file \"b=/d/o.csv\" -file \"c=/d/c.png\""},
        {"an input without alias, and so none to use", {input(""), output("b")},
            {"Empty input alias.", "No input aliases that can be used."}, " -file \"b=/d/o.csv\""},
        {"an alias twice is said once, and neither is used",
            {input("a"), input("a"), input("a"), input("b"), output("c")}, {"Input alias 'a' occurs more than once."},
            " -file \"b=/d/x.csv\" -file \"c=/d/o.csv\""},
        {"an input that leads nowhere", {input("a", "/d/x.csv", false), input("b"), output("c")},
            {"Input with alias 'a' is not connected to an output and will be ignored."},
            " -file \"b=/d/x.csv\" -file \"c=/d/o.csv\""},
        {"outputs that aren't written", {input("a"), disabled("b")},
            {"Output with alias 'b' has 'Write mode'='Disabled' and will be ignored.",
                "No Output items are written to."},
            " -file \"a=/d/x.csv\""},
        {"one alias for both", {input("a"), output("a"), output("b")}, {"Alias 'a' occurs for both input and output."},
            " -file \"b=/d/o.csv\""},
        {"outputs without alias and with the same", {input("a"), output(""), output("b"), output("b")},
            {"Empty output alias", "Output alias 'b' occurs more than once.", "No Output items are written to."},
            " -file \"a=/d/x.csv\""},
        {"many files without the column of their names", {input("a"), withoutFilesColumn("b"), output("c")},
            {"Files column not set for multi-file output with alias 'b'."},
            " -file \"a=/d/x.csv\" -file \"c=/d/o.csv\""},
        {"an output that nothing feeds", {input("a"), output("b", "/d/o.csv", false), output("c")},
            {"Output with alias 'b' is not connected to an input and will be ignored."},
            " -file \"a=/d/x.csv\" -file \"c=/d/o.csv\""},
        {"everything that charts can get wrong",
            {input("a"), chart("a"), chart(""), chart("b"), chart("b"), chart("c", "/c", false)},
            {"Alias 'a' occurs for both Input and Chart items.", "Empty chart alias",
                "Chart alias 'b' occurs more than once.",
                "Chart with alias 'c' is not connected to an Input item and will be ignored.",
                "No Output/Chart items are written to."},
            ""},
        {"a document without items", {}, {"No input aliases that can be used.", "No Output items are written to."}, ""},
    };
    for (const WarningCase &c : cases) {
        SCOPED_TRACE(c.what);
        const CommandLineText result = textOf(c.items);
        EXPECT_EQ(result.warnings, c.warnings);
        EXPECT_EQ(
            result.text, QStringLiteral("\"/bin/q\" \"/d/f.transform\"%1 -cli").arg(QString::fromLatin1(c.aliases)));
    }
    CommandLineTextOptions unsaved;
    unsaved.hasUnsavedChanges = true;
    EXPECT_EQ(
        textOf({input("a"), output("b")}, unsaved).warnings, QStringList{"This .transform file has unsaved changes."});
}

TEST(CommandLineText, ValuesAndOptions)
{
    CommandLineTextOptions options;
    options.logging = true;
    options.logPath = QStringLiteral("/d/r.log");
    options.overwriteLog = true;
    const QList<CommandLineItem> items{folder("f\"x", "/d/in put"), output("b")};
    const QString start = QStringLiteral(
        "\"/bin/q\" \"/d/f.transform\" -folder \"f\\\"x=/d/in put\" -file \"b=/d/o.csv\" -cli");
    EXPECT_EQ(textOf(items, options).text, start) << "a silent run has no log";
    options.verbosity = Verbosity::Extra;
    EXPECT_EQ(textOf(items, options).text, start + QStringLiteral(" -verbosity 3 -log \"/d/r.log\" -overwrite"));
    options.overwriteLog = false;
    EXPECT_EQ(textOf(items, options).text, start + QStringLiteral(" -verbosity 3 -log \"/d/r.log\""));
    options.logPath = QStringLiteral("  ");
    EXPECT_EQ(textOf(items, options).text, start + QStringLiteral(" -verbosity 3"));
}

TEST(CommandLineText, Loop)
{
    CommandLineTextOptions options;
    options.loop = true;
    options.loopAlias = QStringLiteral("a");
    options.loopFolder = QStringLiteral("/d");
    options.loopMatching = QStringLiteral("*.xlsx");
    const QList<CommandLineItem> items{input("a", "/d/x%1.xlsx[S 1]"), input("b"), output("c")};
    const QString command = QStringLiteral(
        "\"/bin/q\" \"/d/f.transform\" -file \"a=%1[S 1]\" -file \"b=/d/x.csv\" -file \"c=/d/o.csv\" -cli");
    EXPECT_EQ(textOf(items, options).text, QStringLiteral("for /f \"delims=\" %f in ('dir /b /d/*.xlsx') do ( %1 )")
                                               .arg(command.arg(QStringLiteral("%f"))));
    options.format = CommandLineTextOptions::BatFile;
    options.pauseSeconds = 3;
    EXPECT_EQ(textOf(items, options).text,
        QStringLiteral("for /f \"delims=\" %%f in ('dir /b /d/*.xlsx') do ( %1 & timeout /t 3 > nil )")
            .arg(command.arg(QStringLiteral("%%f"))));
}

struct PatternCase
{
    const char *what;
    const char *path;
    const char *folder;
    const char *matching;
    const char *suffix;
};

TEST(CommandLineText, LoopPatternOfAPath)
{
    const PatternCase cases[] = {
        {"a plain file", "/d/e/x.csv", "/d/e", "*.csv", ""},
        {"everything behind the first point", "/d/x.tar.gz", "/d", "*.tar.gz", ""},
        {"no point", "/d/x", "/d", "*", ""},
        {"a sheet", "/d/x.xlsx[Sheet 1]", "/d", "*.xlsx", "[Sheet 1]"},
        {"a sheet of an odd name", "/d/x.xlsx[Q1/Q2]", "/d", "*.xlsx", "[Q1/Q2]"},
        {"a bracket in the folder is no sheet", "/d[1]/x]", "/d[1]", "*", ""},
        {"a name that ends in a point", "/d/x.", "/d", "*.", ""},
    };
    for (const PatternCase &c : cases) {
        SCOPED_TRACE(c.what);
        const LoopPattern pattern = loopPatternOf(QString::fromLatin1(c.path));
        EXPECT_EQ(pattern.folder, QString::fromLatin1(c.folder));
        EXPECT_EQ(pattern.matching, QString::fromLatin1(c.matching));
        EXPECT_EQ(pattern.worksheetSuffix, QString::fromLatin1(c.suffix));
    }
}

TEST(CommandLineItems, TakenFromTheScene)
{
    GraphScene scene;
    const auto addInput = [&scene](const InputOptions &options, const char *alias) {
        auto *node = new InputNode(options);
        node->setAlias(QString::fromLatin1(alias));
        scene.insertNode(node, QPointF(0, 0));
        return node;
    };
    InputOptions sheet = InputOptions::forFile(QStringLiteral("/d/x.xlsx"));
    sheet.worksheet = QStringLiteral("S");
    FolderInput source;
    source.folder = QStringLiteral("/d/in");
    InputNode *file = addInput(sheet, "file");
    addInput(InputOptions::forFolder(source, FileType::Delimited), "folder");
    addInput(InputOptions::forClipboard(QStringLiteral("a,b")), "clipboard");
    auto *written = new OutputNode(QStringLiteral("/d/o.csv"));
    written->setAlias(QStringLiteral("out"));
    scene.insertNode(written, QPointF(300, 0));
    scene.insertConnection(file, written);

    const QList<CommandLineItem> items = commandLineItems(scene);
    ASSERT_EQ(items.size(), 3) << "a clipboard has no path to replace";
    EXPECT_EQ(items[0].path, QStringLiteral("/d/x.xlsx[S]"));
    EXPECT_TRUE(items[0].isConnected);
    EXPECT_FALSE(items[0].isFolder);
    EXPECT_EQ(items[1].path, QStringLiteral("/d/in"));
    EXPECT_TRUE(items[1].isFolder);
    EXPECT_FALSE(items[1].isConnected);
    EXPECT_EQ(items[2].kind, CommandLineItem::Output);
    EXPECT_EQ(items[2].alias, QStringLiteral("out"));
    EXPECT_EQ(items[2].writeMode, int(WriteMode::Overwrite));
    EXPECT_TRUE(items[2].isConnected);
}

} // namespace
