#include "app/testdocument.h"
#include "support/printers.h"
#include "support/waitfor.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct RunResult
{
    int exitCode = 0;
    QString said; ///< standard error, with folder and times taken out
    QByteArray standardOutput;
};

/// Runs the real program in a folder with an input, a document and settings of their own.
class CommandLineRunTest : public testing::Test
{
protected:
    void SetUp() override
    {
        writeFile(path("in.csv"), "id,name\n1,caf\xc3\xa9\n2,b\n");
        TestDocument document = plain();
        writeFile(path("flow.transform"), document.xml());
    }

    TestDocument plain() const
    {
        TestDocument document;
        document.inputs = inputXml(1, QStringLiteral("in"), path("in.csv"));
        document.outputs = outputXml(2, QStringLiteral("out"), path("out.csv"));
        document.connections = connectionXml(1, 2);
        return document;
    }

    QString path(const char *name) const { return root() + QLatin1Char('/') + QString::fromLatin1(name); }
    QString root() const { return QDir(m_folder.path()).canonicalPath(); }

    RunResult run(const QStringList &arguments, const QStringList &environment = {}) const
    {
        QProcess process;
        QProcessEnvironment variables;
        variables.insert(QStringLiteral("XDG_CONFIG_HOME"), path("config"));
        variables.insert(QStringLiteral("HOME"), root());
        variables.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
        variables.insert(QStringLiteral("LSAN_OPTIONS"), qEnvironmentVariable("LSAN_OPTIONS"));
        for (const QString &entry : environment) {
            variables.insert(entry.section(QLatin1Char('='), 0, 0), entry.section(QLatin1Char('='), 1));
        }
        process.setProcessEnvironment(variables);
        process.setWorkingDirectory(root());
        process.start(QStringLiteral(QUILLMERE_PROGRAM), arguments);
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), cleaned(process.readAllStandardError()), process.readAllStandardOutput()};
    }

    QString cleaned(const QByteArray &bytes) const
    {
        QString text = QString::fromUtf8(bytes);
        text.replace(root(), QStringLiteral("{dir}"));
        text.replace(QRegularExpression(QStringLiteral("(Started|Finished): [^\n]*")), QStringLiteral("\\1: {when}"));
        text.replace(
            QRegularExpression(QStringLiteral("lapsed: \\d+\\.\\d{3} second")), QStringLiteral("lapsed: {s} second"));
        text.replace(QRegularExpression(QStringLiteral("cols?, [^,\n]* second\\(s\\)")), QStringLiteral("cols, {s}"));
        return text;
    }

    QTemporaryDir m_folder;
};

struct ReportCase
{
    const char *what;
    const char *verbosity;
    const char *said;
};

TEST_F(CommandLineRunTest, ReportByVerbosity)
{
    const ReportCase cases[] = {
        {"silent", "0", ""},
        {"a summary", "1",
            "\nProcessed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nOutputs written: 1\nElapsed: {s} "
            "second(s)\n"
            "Results: 0 error(s)\n"},
        {"and items", "2",
            "\nFile: '{dir}/flow.transform'\nStarted: {when}\n  Input: 'in.csv', Id=1, [Read], Up to date\n"
            "  Output: '{dir}/out.csv', Id=2, [Written], Up to date\nFinished: {when}\n"
            "Processed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nOutputs written: 1\nElapsed: {s} "
            "second(s)\n"
            "Results: 0 error(s), 0 warning(s)\n"},
        {"and details", "3",
            "\nFile: '{dir}/flow.transform'\nStarted: {when}\n"
            "  Input: 'in.csv', Id=1, 2 rows x 2 cols, {s}, 0 warning(s), [Read], Up to date\n"
            "  Output: '{dir}/out.csv', Id=2, 2 rows x 2 cols, {s}, 0 warning(s), [Written], Up to date\nFinished: "
            "{when}\n"
            "Processed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nOutputs written: 1\n  {dir}/out.csv\n"
            "Elapsed: {s} second(s)\nResults: 0 error(s), 0 warning(s)\n"},
    };
    for (const ReportCase &c : cases) {
        SCOPED_TRACE(c.what);
        QFile::remove(path("out.csv"));
        const RunResult result = run({path("flow.transform"), "-cli", "-verbosity", QString::fromLatin1(c.verbosity)});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.said, QString::fromLatin1(c.said));
        EXPECT_EQ(result.standardOutput, QByteArray());
        EXPECT_EQ(readFile(path("out.csv")), "id,name\n1,caf\xc3\xa9\n2,b\n");
    }
}

TEST_F(CommandLineRunTest, InfosComeAtMaximum)
{
    const RunResult result = run({path("flow.transform"), "-cli", "-verbosity", "4"});
    EXPECT_TRUE(
        result.said.contains(QStringLiteral("[Read], Up to date\n    Info: Read file '{dir}/in.csv'\n    Info: ")))
        << result.said.toStdString();
}

struct ExitCase
{
    const char *what;
    QStringList arguments;
    int exitCode;
    const char *said;
};

TEST_F(CommandLineRunTest, ExitCodes)
{
    writeFile(path("empty.transform"), TestDocument().xml());
    writeFile(path("nothing.transform"), "");
    writeFile(path("broken.transform"), "<root");
    TestDocument missing = plain();
    missing.inputs = inputXml(1, QStringLiteral("in"), path("gone.csv"));
    writeFile(path("missing.transform"), missing.xml());
    const char *const aborted = "\033[31mAborted processing\033[0m\n";
    const ExitCase cases[] = {
        {"an empty document", {"empty.transform", "--CLI", "-verbose"}, 0,
            "\nFile: '{dir}/empty.transform'\nStarted: {when}\nFinished: {when}\n"
            "Processed: 0 Input(s), 0 Transform(s), 0 Output(s), 0 Chart(s)\nOutputs written: 0\nElapsed: {s} "
            "second(s)\n"
            "Results: 0 error(s), 0 warning(s)\n"},
        {"a failed item, silently", {"missing.transform", "-cli"}, 1, ""},
        {"a failed item and what waits for it", {"missing.transform", "-cli", "-verbosity", "3"}, 1,
            "\nFile: '{dir}/missing.transform'\nStarted: {when}\n"
            "\033[31m Input: 'gone.csv', Id=1, 0 rows x 0 cols, {s}, 1 warning(s), [Error reading], Error\033[0m\n"
            "    Warning: File '{dir}/gone.csv' not found\n"
            "\033[31m Output: '{dir}/out.csv', Id=2, 0 rows x 0 cols, {s}, 0 warning(s), Needs "
            "updating\033[0m\n"
            "Finished: {when}\nProcessed: 0 Input(s), 0 Transform(s), 0 Output(s), 0 Chart(s)\nOutputs written: 0\n"
            "Elapsed: {s} second(s)\nResults: 2 error(s), 1 warning(s)\n"},
        {"no document", {"-cli"}, 255, "\n\033[31mNo .transform file specified.\033[0m\n"},
        {"a bad argument", {"-cli", "-bad"}, 255, "\033[31mUnrecognized argument: -bad\033[0m\n"},
        {"a document without content", {"nothing.transform", "-cli"}, 255,
            "\033[31mUnable to open '{dir}/nothing.transform': File '{dir}/nothing.transform' is empty "
            "(size=0).\033[0m\n"},
        {"an override without value", {"flow.transform", "-cli", "-file", "in"}, 255,
            "\033[31mExpected <alias>=<value> for in argument\033[0m\n"},
        {"an override with two", {"flow.transform", "-cli", "-file", "in=b=c"}, 255,
            "\033[31mExpected <alias>=<value> for in=b=c argument\033[0m\n"},
        {"an unknown alias", {"flow.transform", "-cli", "-folder", "other=x"}, 255,
            "\033[31mAlias 'other' not recognized\033[0m\n"},
        {"a file that isn't there", {"flow.transform", "-cli", "-file", "in=no.csv"}, 255,
            "\033[31mFile 'no.csv' does not exist\033[0m\n"},
    };
    for (const ExitCase &c : cases) {
        SCOPED_TRACE(c.what);
        const RunResult result = run(c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode);
        EXPECT_EQ(
            result.said, QString::fromUtf8(c.said) + (c.exitCode == 255 ? QString::fromLatin1(aborted) : QString()));
    }
    EXPECT_EQ(run({"broken.transform", "-cli"}).exitCode, 255);
}

TEST_F(CommandLineRunTest, HelpAndVersionNeedNoDisplay)
{
    for (const char *argument : {"--help", "-h", "--version"}) {
        SCOPED_TRACE(argument);
        const RunResult result = run({QString::fromLatin1(argument)});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.said, QString());
        EXPECT_TRUE(result.standardOutput.contains("uillmere")) << result.standardOutput.toStdString();
    }
}

TEST_F(CommandLineRunTest, VersionAndBuild)
{
    const RunResult result = run({"empty.transform", "-cli", "-version", "-build"});
    EXPECT_EQ(result.exitCode, 255) << "a document that isn't there comes first";
    const RunResult shown = run({"flow.transform", "-cli", "-version", "-build"});
    EXPECT_EQ(shown.exitCode, 0);
    EXPECT_TRUE(shown.said.startsWith(QStringLiteral("\nVersion: Quillmere 1."))) << shown.said.toStdString();
    EXPECT_TRUE(shown.said.contains(QStringLiteral("\nBuild: 1.")));
}

TEST_F(CommandLineRunTest, OtherFilesInPlaceOfTheDocuments)
{
    writeFile(path("other.csv"), "a\n7\n");
    const RunResult result = run({"flow.transform", "-cli", "-folder", " in = other.csv ", "-file", "out=new.csv"});
    EXPECT_EQ(result.exitCode, 255) << "blanks belong to the path, though not to the alias";
    EXPECT_EQ(run({"flow.transform", "-cli", "-folder", " in =other.csv", "-file", "out=new.csv"}).exitCode, 0);
    EXPECT_EQ(readFile(path("new.csv")), "a\n7\n") << "relative paths start from the working folder";
    EXPECT_FALSE(QFile::exists(path("out.csv")));
}

TEST_F(CommandLineRunTest, EveryItemWithTheAliasIsChanged)
{
    TestDocument document = plain();
    document.inputs += inputXml(3, QStringLiteral("in"), path("in.csv"));
    document.outputs += outputXml(4, QStringLiteral("second"), path("second.csv"));
    document.connections += connectionXml(3, 4);
    writeFile(path("two.transform"), document.xml());
    writeFile(path("other.csv"), "a\n7\n");
    EXPECT_EQ(run({"two.transform", "-cli", "-file", "in=other.csv"}).exitCode, 0);
    EXPECT_EQ(readFile(path("out.csv")), "a\n7\n");
    EXPECT_EQ(readFile(path("second.csv")), "a\n7\n");
}

TEST_F(CommandLineRunTest, FoldersBehindLinksAreLeftAsTheSystemDoes)
{
    ASSERT_TRUE(QDir(root()).mkpath(QStringLiteral("far/deep")));
    ASSERT_TRUE(QFile::link(path("far/deep"), path("link")));
    writeFile(path("in.csv"), "a\nnear\n");
    writeFile(path("far/in.csv"), "a\nfar\n");
    TestDocument document = plain();
    document.inputs += "<input id=\"3\" medium=\"2\" header=\"1\" multi_file_match=\"in.csv\" alias=\"folder\" "
                       "multi_file_folder=\""
                       + encoded(path("link/..")) + "\"/>";
    document.outputs += outputXml(4, QStringLiteral("all"), path("all.csv"));
    document.connections += connectionXml(3, 4);
    writeFile(path("links.transform"), document.xml());
    const QStringList arguments{"links.transform", "-cli", "-file", "in=link/../in.csv", "-log", "link/../run.log"};
    EXPECT_EQ(run(arguments).exitCode, 0);
    EXPECT_EQ(readFile(path("out.csv")), "a\nfar\n");
    EXPECT_EQ(readFile(path("all.csv")), "a\nfar\n");
    EXPECT_TRUE(QFile::exists(path("far/run.log")));
    writeFile(path("all.csv"), "");
    EXPECT_EQ(run({"flow.transform", "-cli", "-file", "out=link/../{in.lastfolder}.csv"}).exitCode, 0);
    EXPECT_TRUE(QFile::exists(path("far/") + QDir(root()).dirName() + QStringLiteral(".csv")));
    EXPECT_EQ(run({"links.transform", "-cli", "-folder", "folder=link/.."}).exitCode, 0);
    EXPECT_EQ(readFile(path("all.csv")), "a\nfar\n");
}

TEST_F(CommandLineRunTest, OneFileWrittenTwiceIsTold)
{
    TestDocument document = plain();
    document.outputs += outputXml(3, QStringLiteral("again"), path("out.csv"));
    document.outputs += outputXml(4, QStringLiteral("off"), path("out.csv"), 0);
    document.connections += connectionXml(1, 3) + connectionXml(1, 4);
    writeFile(path("twice.transform"), document.xml());
    const RunResult result = run({"twice.transform", "-cli", "-verbosity", "3"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.said.contains(
        QStringLiteral("2 Output(s), 0 Chart(s)\nOutputs written: 1\n  {dir}/out.csv\n"
                       "Overwritten multiple times: 1\n  Warning: Overwrote '{dir}/out.csv' 2 times\n")))
        << result.said.toStdString();
}

TEST_F(CommandLineRunTest, AppendingTwiceOverwritesNothing)
{
    TestDocument document = plain();
    document.outputs = outputXml(2, QStringLiteral("out"), path("out.csv"), 2)
                       + outputXml(3, QStringLiteral("more"), path("out.csv"), 2);
    document.connections += connectionXml(1, 3);
    writeFile(path("append.transform"), document.xml());
    const RunResult result = run({"append.transform", "-cli", "-verbosity", "3"});
    EXPECT_FALSE(result.said.contains(QStringLiteral("Overwr"))) << result.said.toStdString();
}

TEST_F(CommandLineRunTest, LogHoldsWhatTheConsoleShows)
{
    const QStringList arguments{"flow.transform", "-cli", "-verbosity", "2", "-log", "run.log"};
    const QString said = run(arguments).said;
    const QString logged = cleaned(readFile(path("run.log")));
    EXPECT_EQ(said, logged + QStringLiteral("Log: {dir}/run.log\n"));
    run(arguments);
    EXPECT_EQ(cleaned(readFile(path("run.log"))), logged + logged) << "appended";
    run(arguments + QStringList{"-overwrite"});
    EXPECT_EQ(cleaned(readFile(path("run.log"))), logged);
    const RunResult none = run({"flow.transform", "-cli", "-log", "no/folder/run.log"});
    EXPECT_EQ(none.exitCode, 0) << "the run goes on without a log";
    EXPECT_EQ(none.said, QStringLiteral("\033[31mCould not open log file at 'no/folder/run.log'\033[0m\n"));
}

TEST_F(CommandLineRunTest, LogPathTakesVariables)
{
    EXPECT_EQ(run({"flow.transform", "-cli", "-verbosity", "1", "-log", "{transformfname}_{year}.log"}).exitCode, 0);
    EXPECT_TRUE(QFile::exists(path("flow_") + QString::number(QDate::currentDate().year()) + QStringLiteral(".log")));
}

TEST_F(CommandLineRunTest, StoredBatch)
{
    TestDocument document = plain();
    writeFile(path("none.transform"), document.xml());
    document.batch = "<batch_values>" + batchXml(0, QStringLiteral("in"), QStringLiteral("*.csv"))
                     + batchXml(0, QStringLiteral("out"), QStringLiteral("{in}.txt"))
                     + "</batch_values><batch_logging verbosity=\"1\" enabled=\"1\" path=\"run.log\" mode=\"1\"/>";
    writeFile(path("batch.transform"), document.xml());
    document.outputs = outputXml(2, QStringLiteral("out"), path("out.csv"), 0);
    writeFile(path("off.transform"), document.xml());
    const QString ofOneRun = QStringLiteral(
        "Batch row: 1\nProcessed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nElapsed: {s} "
        "second(s)\nResults: 0 error(s)\n\nTotal elapsed: {s} second(s)\nTotal .transform runs: 1, 0 with "
        "errors\nTotal results: 0 error(s)\n");
    const RunResult result = run({"batch.transform", "-cli", "-batch"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.said, QStringLiteral("\nWriting to log file '{dir}/run.log'\n\n") + ofOneRun);
    EXPECT_EQ(cleaned(readFile(path("run.log"))), QStringLiteral("Writing to log file '{dir}/run.log'\n\n") + ofOneRun);
    EXPECT_EQ(readFile(path("in.txt")), "id,name\n1,caf\xc3\xa9\n2,b\n");
    QFile::remove(path("in.csv"));
    writeFile(path("run.log"), "old\n");
    const RunResult failed = run({"batch.transform", "-cli", "-batch", "-verbosity", "0"});
    EXPECT_EQ(failed.exitCode, 0) << "a wildcard may match nothing";
    EXPECT_EQ(failed.said, QString());
    EXPECT_EQ(readFile(path("run.log")), "old\n") << "silence isn't logged";
    for (const char *name : {"none.transform", "off.transform"}) {
        EXPECT_EQ(run({QString::fromLatin1(name), "-cli", "-batch"}).exitCode, 255);
    }
    EXPECT_TRUE(
        run({"off.transform", "-cli", "-batch"})
            .said.contains(QStringLiteral("There must be at least 1 Output/Chart item that is writing to a file.")));
}

TEST_F(CommandLineRunTest, ErrorsOfABatchAreMarkedInTheLog)
{
    TestDocument document = plain();
    document.batch = "<batch_values>" + batchXml(0, QStringLiteral("in"), QStringLiteral("gone.csv"))
                     + "</batch_values>";
    writeFile(path("batch.transform"), document.xml());
    const RunResult result = run({"batch.transform", "-cli", "-batch", "-verbosity", "1", "-log", "run.log"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.said.contains(QStringLiteral("\033[31mInput file 'gone.csv' not found.\033[0m\n")));
    EXPECT_TRUE(readFile(path("run.log")).contains("\n** Input file 'gone.csv' not found. **\n"));
    EXPECT_EQ(run({"batch.transform", "-cli", "-batch", "-verbosity", "0"}).exitCode, 1);
}

TEST_F(CommandLineRunTest, FlowReport)
{
    TestDocument document = plain();
    document.meta = "<notes value=\"Sent%20each%20Monday.\"/>";
    document.transforms = "<transform id=\"5\" name=\"Filter\" comment=\"keeps%20b\" pos_v12=\"150\x1f"
                          "0\"><parameters><parameter name=\"Columns\" "
                          "value=\"1\x1f"
                          "1\x1f"
                          "2\x1f"
                          "0\x1f"
                          "b\"/></parameters></transform>";
    document.connections = connectionXml(1, 5) + connectionXml(5, 2);
    writeFile(path("told.transform"), document.xml());
    const RunResult result = run({"told.transform", "-cli", "-verbosity", "2", "-report", "{transformfname}.md"});
    EXPECT_EQ(result.exitCode, 0) << result.said.toStdString();
    EXPECT_TRUE(result.said.endsWith(QStringLiteral("\nReport: {dir}/told.md\n"))) << result.said.toStdString();
    const QString report = QString::fromUtf8(readFile(path("told.md")));
    for (const char *part : {"# Flow: told.transform\n\nSent each Monday.\n\n![The flow](data:image/png;base64,iVBOR",
             "## 1. Input: in.csv\n", "## 2. Transform: Filter\n", "Comment: keeps b\n", "Reads: 1. in.csv\n",
             "Rows: 2 \u2192 1. Columns: 2 \u2192 2.\n", "## 3. Output: "}) {
        EXPECT_TRUE(report.contains(QString::fromUtf8(part))) << part << "\n"
                                                              << report.left(300).toStdString() << "...\n"
                                                              << report.right(1800).toStdString();
    }
    EXPECT_FALSE(report.contains(QStringLiteral("caf"))) << "no data";
    const RunResult mistaken = run({"told.transform", "-cli", "-report", "told.transform"});
    EXPECT_EQ(mistaken.exitCode, 1);
    EXPECT_EQ(readFile(path("told.transform")), document.xml());
    const RunResult refused = run({"told.transform", "-cli", "-report", "no/such/folder/x.html"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.said.contains(QStringLiteral("Unable to write the report 'no/such/folder/x.html': ")));
}

TEST_F(CommandLineRunTest, UnknownTransformsAreTold)
{
    TestDocument document = plain();
    document.transforms = "<transform id=\"5\" name=\"Wobble\"/>";
    writeFile(path("unknown.transform"), document.xml());
    const RunResult result = run({"unknown.transform", "-cli", "-verbosity", "1"});
    EXPECT_TRUE(result.said.contains(
        QStringLiteral("The following unknown transforms were not added:\n'Wobble' (1 occurrence)")))
        << result.said.toStdString();
}

TEST_F(CommandLineRunTest, RepairsOfTheDocumentAreTold)
{
    TestDocument document = plain();
    document.connections += connectionXml(1, 2);
    writeFile(path("repeated.transform"), document.xml());
    document.transforms = "<transform id=\"5\" name=\"Pad\"/>";
    document.connections = connectionXml(1, 5) + connectionXml(5, 5) + connectionXml(5, 2);
    writeFile(path("circle.transform"), document.xml());
    const char *const repeated = "Warning: 1 repeated connection was removed: 1 to 2";
    const struct
    {
        const char *what;
        QStringList arguments;
        int exitCode;
        const char *said;
    } cases[] = {
        {"nothing is lost: a warning in a summary", {"repeated.transform", "-cli", "-verbosity", "1"}, 0, repeated},
        {"which is counted", {"repeated.transform", "-cli", "-verbosity", "2"}, 0, "0 error(s), 1 warning(s)"},
        {"not in a silent run", {"repeated.transform", "-cli"}, 0, ""},
        {"items of a circle are errors", {"circle.transform", "-cli", "-verbosity", "1"}, 1, "Results: 1 error(s)"},
        {"in a silent run too", {"circle.transform", "-cli"}, 1, ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const RunResult result = run(c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode);
        EXPECT_TRUE(*c.said ? result.said.contains(QString::fromLatin1(c.said)) : result.said.isEmpty())
            << result.said.toStdString();
    }
}

TEST_F(CommandLineRunTest, FailingClipboardInputsSayWhy)
{
    TestDocument document;
    document.inputs = "<input id=\"1\" medium=\"1\" file_type=\"4\" text=\"%7B%22a%22%3A\" alias=\"c\"/>";
    writeFile(path("clipboard.transform"), document.xml());
    const RunResult result = run({"clipboard.transform", "-cli", "-verbosity", "3"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.said.contains(QStringLiteral("Error\033[0m\n    Warning: "))) << result.said.toStdString();
    EXPECT_TRUE(result.said.contains(QStringLiteral("1 error(s), 1 warning(s)"))) << result.said.toStdString();
}

TEST_F(CommandLineRunTest, DocumentsLocaleHolds)
{
    TestDocument document = plain();
    document.meta = "<locale value=\"de_DE\"/>";
    document.transforms = "<transform id=\"5\" name=\"Sort\"/>";
    writeFile(path("german.transform"), document.xml());
    EXPECT_EQ(run({"german.transform", "-cli"}).exitCode, 0);
    QFile store(path("config/Marlwick/Quillmere.conf"));
    ASSERT_TRUE(store.open(QIODevice::ReadOnly));
    const QByteArray stored = store.readAll();
    EXPECT_FALSE(stored.contains("locale=")) << "a scheduled run has another locale than its user";
    EXPECT_FALSE(stored.contains("date_formats"));
}

TEST_F(CommandLineRunTest, NeedsNoStoreToWriteTo)
{
    const RunResult result = run(
        {"flow.transform", "-cli", "-verbosity", "1"}, {"XDG_CONFIG_HOME=/proc/version", "HOME=/proc/version"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.said.startsWith(QStringLiteral("\nProcessed: 1 Input(s)"))) << result.said.toStdString();
}

TEST_F(CommandLineRunTest, BrokenStoreDoesntMatter)
{
    ASSERT_TRUE(QDir().mkpath(path("config/Marlwick")));
    writeFile(path("config/Marlwick/Quillmere.conf"), "]]\x01[x\nmax_memory_usage\n");
    EXPECT_EQ(run({"flow.transform", "-cli"}).exitCode, 0);
}

TEST_F(CommandLineRunTest, MemoryCeilingEndsTheRun)
{
    ASSERT_TRUE(QDir().mkpath(path("config/Marlwick")));
    writeFile(path("config/Marlwick/Quillmere.conf"), "[General]\nmax_memory_usage=0.0001\n");
    const RunResult result = run({"flow.transform", "-cli", "-log", "run.log"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(
        result.said.contains(QStringLiteral("You have exceed the maximum process memory set in 'Preferences'.")));
    EXPECT_TRUE(result.said.contains(QStringLiteral("Maximum memory usage=0.0 GB.")));
    EXPECT_TRUE(result.said.contains(
        QStringLiteral("Quillmere has exceeded the memory allocation set in 'Preferences' and will close.")));
    EXPECT_TRUE(readFile(path("run.log")).contains("and will close.\n"));
}

TEST_F(CommandLineRunTest, RunningOutOfMemoryIsTold)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's own memory is above any limit";
#endif
    // A gigabyte of padding, under the ceiling of the settings but not under that of the system.
    QByteArray rows = "id,name\n";
    for (int i = 0; i < 100000; ++i) {
        rows += QByteArray::number(i) + ",b\n";
    }
    writeFile(path("in.csv"), rows);
    TestDocument document = plain();
    document.transforms = "<transform name=\"Pad\" id=\"3\"><parameters><parameter name=\"Columns\" value=\"1\"/>"
                          "<parameter name=\"Length\" value=\"10000\"/></parameters></transform>";
    document.connections = connectionXml(1, 3) + connectionXml(3, 2);
    writeFile(path("flow.transform"), document.xml());
    QProcess shell;
    shell.setWorkingDirectory(root());
    shell.start(QStringLiteral("/bin/sh"),
        {"-c", QStringLiteral("ulimit -c 0; ulimit -v 400000; '%1' flow.transform -cli -log run.log 2>said; echo $?")
                   .arg(QStringLiteral(QUILLMERE_PROGRAM))});
    ASSERT_TRUE(shell.waitForFinished(60000));
    EXPECT_EQ(shell.readAllStandardOutput().trimmed(), "134");
    EXPECT_TRUE(readFile(path("said")).contains("Out of memory"));
    EXPECT_TRUE(readFile(path("run.log")).contains("Out of memory\n"));
}

TEST_F(CommandLineRunTest, MilestoneIsPassedInSilence)
{
    ASSERT_TRUE(QDir().mkpath(path("config/Marlwick")));
    writeFile(path("config/Marlwick/Quillmere.conf"), "[General]\ntotal_rows_processed=12345678\n");
    const RunResult result = run({"flow.transform", "-cli"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.said, QString());
    EXPECT_TRUE(readFile(path("config/Marlwick/Quillmere.conf")).contains("total_next_exp_rows_to_notify=8"));
}

TEST_F(CommandLineRunTest, GoesOnWhenNobodyReadsTheReport)
{
    QProcess shell;
    shell.setWorkingDirectory(root());
    shell.start(
        QStringLiteral("/bin/sh"), {"-c", QStringLiteral("{ '%1' flow.transform -cli -verbosity 4; } 2>&1 | true")
                                              .arg(QStringLiteral(QUILLMERE_PROGRAM))});
    ASSERT_TRUE(shell.waitForFinished(60000));
    EXPECT_TRUE(waitFor([this] { return readFile(path("out.csv")).endsWith("2,b\n"); }));
}

#ifndef __SANITIZE_ADDRESS__ // which takes more address space than any limit leaves

TEST_F(CommandLineRunTest, SaysOnConsoleAndInTheLogThatMemoryIsOut)
{
    // As many zeros behind the document as may be, which take no place on the disk but more memory than the run gets.
    QFile document(path("flow.transform"));
    ASSERT_TRUE(document.resize(512LL * 1024 * 1024));
    QProcess shell;
    shell.setWorkingDirectory(root());
    shell.start(QStringLiteral("/bin/sh"),
        {"-c", QStringLiteral("ulimit -c 0; ulimit -v 524288; exec '%1' flow.transform -cli -log run.log")
                   .arg(QStringLiteral(QUILLMERE_PROGRAM))});
    ASSERT_TRUE(shell.waitForFinished(60000));
    EXPECT_EQ(shell.exitStatus(), QProcess::CrashExit);
    EXPECT_TRUE(shell.readAllStandardError().contains("Out of memory\n"));
    EXPECT_TRUE(readFile(path("run.log")).endsWith("Out of memory\n")) << readFile(path("run.log")).toStdString();
    EXPECT_FALSE(QFile::exists(path("out.csv")));
}

#endif

TEST_F(CommandLineRunTest, WindowTakesOtherFilesTooOrGivesUp)
{
    ASSERT_TRUE(QDir().mkpath(path("config/Marlwick")));
    writeFile(path("config/Marlwick/Quillmere.conf"),
        "[General]\nopen_auto_run=0\nwarn_on_locale_change=false\nshow_getting_started=false\n");
    // No recovery file of another program is offered here.
    const QStringList offscreen{"QT_QPA_PLATFORM=offscreen", "XDG_RUNTIME_DIR=" + root(), "TMPDIR=" + root()};
    const RunResult unknown = run({"flow.transform", "-file", "other=in.csv"}, offscreen);
    EXPECT_EQ(unknown.exitCode, 255);
    EXPECT_TRUE(unknown.said.contains(QStringLiteral("Alias 'other' not recognized"))) << unknown.said.toStdString();
    EXPECT_EQ(run({"-verbosity", "7"}, offscreen).exitCode, 255);
}

TEST_F(CommandLineRunTest, NonAsciiComesOutAsUtf8InThePlainLocale)
{
    const QString name = QStringLiteral("d\u00e9j\u00e0.csv");
    writeFile(root() + QLatin1Char('/') + name, "a\n1\n");
    const RunResult result = run({"flow.transform", "-cli", "-verbosity", "2", "-file", QStringLiteral("in=") + name});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.said.contains(QStringLiteral("Input: '%1'").arg(name))) << result.said.toStdString();
}

} // namespace
