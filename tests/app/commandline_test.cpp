#include "app/commandline.h"
#include "app/platformchoice.h"
#include "app/testdocument.h"
#include "support/printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct ParseCase
{
    const char *what;
    QStringList arguments; ///< without the program
    const char *error;
};

class CommandLineTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_before = QDir::currentPath();
        QDir::setCurrent(m_folder.path());
        for (const char *name : {"a.transform", "b.transform", "data.csv", "plain", "UPPER.TRANSFORM"}) {
            QFile file(QString::fromLatin1(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    void TearDown() override { QDir::setCurrent(m_before); }

    static CommandLine parse(const QStringList &arguments)
    {
        return parseCommandLine(QStringList{QStringLiteral("quillmere")} + arguments);
    }
    QString path(const char *name) const
    {
        return QDir(m_folder.path()).canonicalPath() + QLatin1Char('/') + QString::fromLatin1(name);
    }

    QTemporaryDir m_folder;
    QString m_before;
};

TEST_F(CommandLineTest, Errors)
{
    const ParseCase cases[] = {
        {"nothing at all", {}, ""},
        {"a last argument that wants a value", {"-log"}, "No value following -log argument"},
        {"as typed, dashes and case", {"--Verbosity"}, "No value following --Verbosity argument"},
        {"for -file too", {"-cli", "-file"}, "No value following -file argument"},
        {"and -folder", {"a.transform", "-folder"}, "No value following -folder argument"},
        {"5 is too much", {"-verbosity", "5"}, "Verbosity value '5' not recognised, 0-4 expected"},
        {"less than nothing", {"-verbosity", "-1"}, "Verbosity value '-1' not recognised, 0-4 expected"},
        {"no number", {"-verbosity", "x"}, "Verbosity value 'x' not recognised, 0-4 expected"},
        {"an empty one", {"-verbosity", ""}, "Verbosity value '' not recognised, 0-4 expected"},
        {"an unknown option", {"-Cly"}, "Unrecognized argument: -Cly"},
        {"three dashes are one too many", {"---cli"}, "Unrecognized argument: ---cli"},
        {"a dash alone", {"-"}, "Unrecognized argument: -"},
        {"a document that isn't there", {"no.transform"}, "'no.transform' not found"},
        {"a file of another kind", {"data.csv"}, "Unrecognized file suffix 'csv' in 'data.csv'"},
        {"a file without suffix", {"plain"}, "Unrecognized file suffix '' in 'plain'"},
        {"a second path doesn't matter", {"a.transform", "no.transform", "data.csv"}, ""},
        {"the first error counts", {"-bad", "no.transform"}, "Unrecognized argument: -bad"},
        {"an override is looked at later", {"-file", "a=b=c", "-folder", "nothing"}, ""},
        {"a value may look like an option", {"-log", "-cli"}, ""},
        {"a batch in a window", {"a.transform", "-batch"}, "-batch only works with -cli"},
        {"a batch on files of the command line", {"a.transform", "-batch", "-cli", "-file", "x=y"},
            "-file and -folder can't be used with -batch, whose rows name the files"},
        {"a report of a window", {"a.transform", "-report", "x.html"},
            "-report only works with -cli, for a single run"},
        {"a report of a batch", {"a.transform", "-cli", "-batch", "-report", "x.html"},
            "-report only works with -cli, for a single run"},
        {"a batch", {"a.transform", "--Batch", "-CLI", "-verbose"}, ""},
    };
    for (const ParseCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(parse(c.arguments).error, QString::fromLatin1(c.error));
    }
}

TEST_F(CommandLineTest, EveryOptionArrives)
{
    const CommandLine all = parse(
        {"-cli", "a.transform", "-log", "{date}.log", "-overwrite", "-verbosity", "3", "-file", "x=1.csv", "-version",
            "-folder", "y=/tmp", "-build", "-new_window", "b.transform", "-file", "x=2.csv"});
    EXPECT_EQ(all.error, QString());
    EXPECT_TRUE(all.commandLine && all.overwriteLog && all.printVersion && all.printBuild && all.newWindow);
    EXPECT_EQ(all.document, path("a.transform")) << "the first path, absolute";
    EXPECT_EQ(all.logPath, QStringLiteral("{date}.log"));
    EXPECT_EQ(all.verbosity, 3);
    EXPECT_EQ(all.overrides, (QStringList{"x=1.csv", "y=/tmp", "x=2.csv"})) << "one list in the order typed";
    const CommandLine none = parse({});
    EXPECT_FALSE(none.commandLine || none.overwriteLog || none.printVersion || none.printBuild || none.newWindow);
    EXPECT_EQ(none.verbosity, 0);
}

TEST_F(CommandLineTest, CaseAndDashesDontCount)
{
    for (const char *spelling : {"-cli", "--cli", "-CLI", "--Cli"}) {
        SCOPED_TRACE(spelling);
        EXPECT_TRUE(parse({QString::fromLatin1(spelling)}).commandLine);
    }
    EXPECT_EQ(parse({"--VERBOSE"}).verbosity, 2);
    EXPECT_EQ(parse({"-verbose", "-verbosity", "1"}).verbosity, 1) << "the last one counts";
    EXPECT_EQ(parse({"UPPER.TRANSFORM"}).document, path("UPPER.TRANSFORM"));
}

struct EarlyCase
{
    const char *what;
    std::vector<const char *> arguments;
    bool commandLine;
    bool platform;
};

TEST(CommandLine, LookBeforeTheApplication)
{
    const EarlyCase cases[] = {
        {"a window", {"quillmere", "a.transform"}, false, false},
        {"a run", {"quillmere", "a.transform", "--CLI"}, true, false},
        {"the program's own name is no option", {"-cli"}, false, false},
        {"nor is the value of one", {"quillmere", "-log", "-cli"}, false, false},
        {"a platform of the user's choice", {"quillmere", "-cli", "-platform", "minimal"}, true, true},
    };
    for (const EarlyCase &c : cases) {
        SCOPED_TRACE(c.what);
        char **argv = const_cast<char **>(c.arguments.data());
        EXPECT_EQ(asksForCommandLine(int(c.arguments.size()), argv), c.commandLine);
        EXPECT_EQ(namesPlatform(int(c.arguments.size()), argv), c.platform);
    }
}

TEST(CommandLine, VerbosityInWords)
{
    EXPECT_EQ(Verbosity::name(Verbosity::Extra), QStringLiteral("Extra"));
    EXPECT_EQ(Verbosity::description(4), QStringLiteral("Summary + processing + warnings + info."));
    EXPECT_EQ(Verbosity::name(5), QString());
    EXPECT_EQ(Verbosity::description(-1), QString());
}

} // namespace

TEST(PlatformChoice, FontsAreOpenedOnlyWhereAChartMayBeDrawn)
{
    struct Case
    {
        const char *what;
        const char *name;
        QByteArray content;
        bool opensFonts;
    };
    const Case cases[] = {
        {"an empty group of charts", "a.transform", "<root><charts/></root>", false},
        {"no group at all, the suffix in capitals", "a.TRANSFORM", "<root></root>", false},
        {"a chart", "a.transform", "<root><charts><chart id=\"1\"/></charts></root>", true},
        {"a chart after the group's end", "a.transform", "<root><charts></charts><chart/></root>", true},
        {"bytes that aren't ASCII", "a.transform", QByteArray("<\0r\0o\0o\0t\0", 10), true},
        {"another kind of file isn't looked at", "a.txt", "<chart/>", false},
    };
    const QTemporaryDir folder;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const QString path = folder.filePath(QString::fromLatin1(c.name));
        writeFile(path, c.content);
        const std::string first = platformsWithoutWindow({"quillmere", "-cli", path.toStdString()});
        EXPECT_EQ(first == "offscreen", c.opensFonts) << first;
    }
    EXPECT_EQ(platformsWithoutWindow({"quillmere", "-cli", "gone.transform"}), "offscreen");
}
