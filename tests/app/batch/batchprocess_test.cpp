#include "app/batch/batchprocess.h"
#include "app/report/reportsink.h"
#include "app/testdocument.h"
#include "document/documentfile.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "support/printers.h"

#include <QColor>
#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// Keeps the lines; errors begin with an exclamation mark.
class Lines final : public ReportSink
{
public:
    void info(const QString &line) override { text += line + QLatin1Char('\n'); }
    void error(const QString &line) override { info(QLatin1Char('!') + line); }
    bool openLog(const QString &path, bool overwrite) override
    {
        log = path;
        overwritten = overwrite;
        return !refusesLog;
    }
    QString logPath() const override { return refusesLog ? QString() : log; }

    QString text;
    QString log;
    bool overwritten = false;
    bool refusesLog = false;
};

class BatchProcessTest : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char *name : {"a", "b", "c"}) {
            writeFile(path((QString::fromLatin1(name) + QStringLiteral(".csv"))), QByteArray("id\n") + name + "\n");
        }
        open(plain());
        m_settings.verbosity = 1;
    }
    void TearDown() override { stopRequested = false; }

    TestDocument plain(int writeMode = 1) const
    {
        TestDocument document;
        document.inputs = inputXml(1, QStringLiteral("in"), path(QStringLiteral("a.csv")));
        document.outputs = outputXml(2, QStringLiteral("out"), path(QStringLiteral("own.csv")), writeMode);
        document.connections = connectionXml(1, 2);
        return document;
    }

    void open(const TestDocument &document)
    {
        const QString file = path(QStringLiteral("flow.transform"));
        writeFile(file, document.xml());
        m_scene = std::make_unique<GraphScene>();
        m_scene->setDocumentPath(file);
        LoadedDocument loaded;
        QString error;
        ASSERT_TRUE(loadDocument(file, *m_scene, {}, loaded, error)) << error.toStdString();
    }

    QString root() const { return QDir(m_folder.path()).canonicalPath(); }
    QString path(const QString &name) const { return root() + QLatin1Char('/') + name; }

    void setRow(int row, const QString &in, const QString &out)
    {
        m_settings.values.insert({row, QStringLiteral("in")}, path(in));
        m_settings.values.insert({row, QStringLiteral("out")}, path(out));
    }

    /// What is reported, with the folder and times taken out.
    QString run()
    {
        BatchProcess batch(*m_scene, m_settings, m_lines);
        batch.setClearBeforeAppend(m_clears);
        QObject::connect(&batch, &BatchProcess::rowProgressed, &batch, [this, &batch](int row, int percent) {
            m_progress.append(row * 1000 + percent);
            if (m_afterRun) {
                m_afterRun(batch);
            }
        });
        m_errors = batch.run();
        QString text = m_lines.text;
        m_lines.text.clear();
        text.replace(root(), QStringLiteral("{dir}"));
        text.replace(QRegularExpression(QStringLiteral("(Started|Finished): [^\n]*")), QStringLiteral("\\1: {when}"));
        text.replace(
            QRegularExpression(QStringLiteral("lapsed: \\d+\\.\\d{3} second")), QStringLiteral("lapsed: {s} second"));
        text.replace(QRegularExpression(QStringLiteral("cols?, [^,\n]* second\\(s\\)")), QStringLiteral("cols, {s}"));
        return text;
    }

    QByteArray written(const char *name) const { return readFile(path(QString::fromLatin1(name))); }

    QTemporaryDir m_folder;
    std::unique_ptr<GraphScene> m_scene;
    BatchSettings m_settings;
    Lines m_lines;
    bool m_clears = false;
    int m_errors = 0;
    QList<int> m_progress;
    std::function<void(BatchProcess &)> m_afterRun;
};

TEST_F(BatchProcessTest, ReportByVerbosity)
{
    writeFile(path(QStringLiteral("d.csv")), "");
    QFile::remove(path(QStringLiteral("c.csv")));
    setRow(0, QStringLiteral("a.csv"), QStringLiteral("x.csv"));
    setRow(1, QStringLiteral("c.csv"), QStringLiteral("y.csv"));
    setRow(2, QStringLiteral("b.csv"), QStringLiteral("x.csv"));
    const char *const reports[] = {
        "!Input file '{dir}/c.csv' not found.\n",
        "Batch row: 1\nProcessed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nElapsed: {s} second(s)\n"
        "Results: 0 error(s)\n"
        "\nBatch row: 2\n!Input file '{dir}/c.csv' not found.\n"
        "\nBatch row: 3\nProcessed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nElapsed: {s} second(s)\n"
        "Results: 0 error(s)\n"
        "\nTotal elapsed: {s} second(s)\nTotal .transform runs: 2, 0 with errors\n!Total results: 1 error(s)\n",
        "File: {dir}/flow.transform\nStarted: {when}\n"
        "Batch row: 1\nProcessing:\n  Input: 'a.csv', Id=1, [Read], Up to date\n"
        "  Output: '{dir}/x.csv', Id=2, [Written], Up to date\n"
        "Processed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nOutputs written: 1\n"
        "Elapsed: {s} second(s)\nResults: 0 error(s), 0 warning(s)\n"
        "\nBatch row: 2\n!Input file '{dir}/c.csv' not found.\n"
        "\nBatch row: 3\nProcessing:\n  Input: 'b.csv', Id=1, [Read], Up to date\n"
        "  Output: '{dir}/x.csv', Id=2, [Written], Up to date\n"
        "Processed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nOutputs written: 1\n"
        "Elapsed: {s} second(s)\nResults: 0 error(s), 0 warning(s)\n"
        "\nFinished: {when}\n\nOutputs written: 1\nOverwritten multiple times: 1\n"
        "Total elapsed: {s} second(s)\nTotal .transform runs: 2, 0 with errors\n"
        "!Total results: 1 error(s), 0 warning(s)\n",
        "File: {dir}/flow.transform\nStarted: {when}\n"
        "Batch row: 1\nProcessing:\n"
        "  Input: 'a.csv', Id=1, 1 row x 1 cols, {s}, 0 warning(s), [Read], Up to date\n"
        "  Output: '{dir}/x.csv', Id=2, 1 row x 1 cols, {s}, 0 warning(s), [Written], Up to date\n"
        "Processed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nOutputs written: 1\n  {dir}/x.csv\n"
        "Elapsed: {s} second(s)\nResults: 0 error(s), 0 warning(s)\n"
        "\nBatch row: 2\n!Input file '{dir}/c.csv' not found.\n"
        "\nBatch row: 3\nProcessing:\n"
        "  Input: 'b.csv', Id=1, 1 row x 1 cols, {s}, 0 warning(s), [Read], Up to date\n"
        "  Output: '{dir}/x.csv', Id=2, 1 row x 1 cols, {s}, 0 warning(s), [Written], Up to date\n"
        "Processed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\nOutputs written: 1\n  {dir}/x.csv\n"
        "Elapsed: {s} second(s)\nResults: 0 error(s), 0 warning(s)\n"
        "\nFinished: {when}\n\nOutputs written: 1\n  {dir}/x.csv\nOverwritten multiple times: 1\n"
        "  Warning: Overwrote '{dir}/x.csv' 2 times\n"
        "Total elapsed: {s} second(s)\nTotal .transform runs: 2, 0 with errors\n"
        "!Total results: 1 error(s), 0 warning(s)\n",
    };
    for (int verbosity = 0; verbosity < 4; ++verbosity) {
        SCOPED_TRACE(verbosity);
        m_settings.verbosity = verbosity;
        EXPECT_EQ(run(), QString::fromLatin1(reports[verbosity]));
        EXPECT_EQ(m_errors, 1);
        EXPECT_EQ(written("x.csv"), "id\nb\n");
    }
    m_settings.verbosity = 4;
    EXPECT_TRUE(run().contains(QStringLiteral("[Read], Up to date\n    Info: Read file '{dir}/a.csv'\n    Info: ")));
    EXPECT_EQ(written("own.csv"), "no file") << "the document's own output isn't written";
}

TEST_F(BatchProcessTest, AFailedItemIsAnErrorOfItsRun)
{
    setRow(0, QStringLiteral("a.csv"), QStringLiteral("gone/x.csv"));
    setRow(1, QStringLiteral("b.csv"), QStringLiteral("y.csv"));
    m_settings.verbosity = 3;
    const QString report = run();
    EXPECT_TRUE(report.contains(QStringLiteral("!  Output: '{dir}/gone/x.csv', Id=2"))) << report.toStdString();
    EXPECT_TRUE(report.contains(QStringLiteral("    Warning: "))) << report.toStdString();
    EXPECT_TRUE(report.contains(QStringLiteral("!Results: 1 error(s), 1 warning(s)\n"))) << report.toStdString();
    EXPECT_TRUE(report.contains(QStringLiteral("!Total .transform runs: 2, 1 with errors\n"))) << report.toStdString();
    EXPECT_EQ(m_errors, 1);
    EXPECT_EQ(written("y.csv"), "id\nb\n") << "the batch goes on";
}

TEST_F(BatchProcessTest, AFileThatVanishesBetweenTwoRuns)
{
    setRow(0, QStringLiteral("*.csv"), QStringLiteral("out/{in}.txt"));
    QDir(root()).mkpath(QStringLiteral("out"));
    m_settings.verbosity = 2;
    m_afterRun = [this](BatchProcess &) { QFile::remove(path(QStringLiteral("b.csv"))); };
    const QString report = run();
    EXPECT_TRUE(report.contains(QStringLiteral("!  Input: 'b.csv', Id=1, [Error reading], Error\n")))
        << report.toStdString();
    EXPECT_EQ(m_errors, 1);
    EXPECT_EQ(written("out/c.txt"), "id\nc\n");
    EXPECT_EQ(m_progress, (QList<int>{33, 66, 100}));
}

TEST_F(BatchProcessTest, AllCombinationsTheLastAliasFastest)
{
    TestDocument document = plain();
    document.inputs += inputXml(3, QStringLiteral("more"), path(QStringLiteral("a.csv")));
    document.outputs += outputXml(4, QStringLiteral("second"), path(QStringLiteral("own2.csv")));
    document.connections += connectionXml(3, 4);
    open(document);
    setRow(0, QStringLiteral("[ab].c*"), QStringLiteral("{in}-{more}.txt"));
    m_settings.values.insert({0, QStringLiteral("more")}, path(QStringLiteral("?.csv")));
    m_settings.values.insert({0, QStringLiteral("second")}, path(QStringLiteral("{more}-{in}.txt")));
    m_settings.verbosity = 2;
    QStringList order;
    for (const QString &line : run().split(QLatin1Char('\n'))) {
        if (line.contains(QStringLiteral("Input: '"))) {
            order.append(line.section(QLatin1Char('\''), 1, 1));
        }
    }
    EXPECT_EQ(order, (QStringList{"a.csv", "a.csv", "a.csv", "b.csv", "a.csv", "c.csv", "b.csv", "a.csv", "b.csv",
                         "b.csv", "b.csv", "c.csv"}));
    EXPECT_EQ(written("b-c.txt"), "id\nb\n");
    EXPECT_EQ(written("c-b.txt"), "id\nc\n");
}

TEST_F(BatchProcessTest, StopEndsItAfterTheRunUnderWay)
{
    setRow(0, QStringLiteral("?.csv"), QStringLiteral("{in}.txt"));
    setRow(1, QStringLiteral("a.csv"), QStringLiteral("later.txt"));
    m_afterRun = [](BatchProcess &batch) { batch.requestStop(); };
    EXPECT_EQ(run(), QStringLiteral("Batch row: 1\nProcessed: 1 Input(s), 0 Transform(s), 1 Output(s), 0 Chart(s)\n"
                                    "Elapsed: {s} second(s)\nResults: 0 error(s)\n!Stopped by user\n"
                                    "\nTotal elapsed: {s} second(s)\nTotal .transform runs: 1, 0 with errors\n"
                                    "Total results: 0 error(s)\n"));
    EXPECT_EQ(written("a.txt"), "id\na\n");
    EXPECT_EQ(written("b.txt"), "no file");
    EXPECT_EQ(written("later.txt"), "no file");
}

TEST_F(BatchProcessTest, AppendedFilesAreClearedOnceABatch)
{
    open(plain(2));
    setRow(0, QStringLiteral("?.csv"), QStringLiteral("all.txt"));
    writeFile(path(QStringLiteral("all.txt")), "id\nold\n");
    run();
    EXPECT_EQ(written("all.txt"), "id\nold\na\nb\nc\n") << "not unless it is asked for";
    m_clears = true;
    for (int batch = 0; batch < 2; ++batch) {
        const QString report = run();
        EXPECT_EQ(report.count(QStringLiteral("'{dir}/all.txt' already exists, cleared before first append\n")), 1);
        EXPECT_EQ(written("all.txt"), "id\na\nb\nc\n");
    }
    QFile::remove(path(QStringLiteral("all.txt")));
    EXPECT_FALSE(run().contains(QStringLiteral("cleared")));
    EXPECT_EQ(written("all.txt"), "id\na\nb\nc\n") << "what the first run wrote must not go before the second";
}

TEST_F(BatchProcessTest, EachRunDrawsItsOwnChart)
{
    const struct
    {
        const char *name;
        QColor colour; ///< where only the taller bar reaches
    } cases[] = {{"low", Qt::white}, {"high", QColor(0x20, 0x9f, 0xdf)}};
    writeFile(path(QStringLiteral("low.csv")), "id,n\na,1\nb,1\n");
    writeFile(path(QStringLiteral("high.csv")), "id,n\na,9\nb,9\n");
    TestDocument document = plain();
    document.charts = "<chart id=\"3\" alias=\"plot\" chart_type=\"5\" chart_x_column=\"1*0\" chart_y_columns=\"2*0\" "
                      "write_file=\"1\" path=\"none.png\" chart_image_width=\"400\" chart_image_height=\"300\" "
                      "chart_y_axis_max_range_option=\"1\" chart_y_axis_max_range_custom_value=\"10\"/>";
    document.connections += connectionXml(1, 3);
    open(document);
    for (int row = 0; row < 2; ++row) {
        const QString name = QString::fromLatin1(cases[row].name);
        setRow(row, name + QStringLiteral(".csv"), name + QStringLiteral(".txt"));
        m_settings.values.insert({row, QStringLiteral("plot")}, path(name + QStringLiteral(".png")));
    }
    EXPECT_TRUE(run().contains(QStringLiteral("0 Transform(s), 1 Output(s), 1 Chart(s)")));
    EXPECT_EQ(m_errors, 0);
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QImage picture(path(QString::fromLatin1(c.name) + QStringLiteral(".png")));
        ASSERT_EQ(picture.size(), QSize(400, 300));
        EXPECT_EQ(picture.pixelColor(120, 120), c.colour);
    }
}

TEST_F(BatchProcessTest, WhatIsReadIsNotCleared)
{
    open(plain(2));
    setRow(0, QStringLiteral("a.csv"), QStringLiteral("a.csv"));
    m_clears = true;
    EXPECT_TRUE(run().contains(QStringLiteral("!'{dir}/a.csv' already exists, unable to clear before first append\n")));
    EXPECT_EQ(written("a.csv"), "id\na\na\n");
}

TEST_F(BatchProcessTest, Log)
{
    setRow(0, QStringLiteral("a.csv"), QStringLiteral("x.csv"));
    m_settings.loggingEnabled = true;
    m_settings.logPath = path(QStringLiteral("{transformfname}.log"));
    m_settings.logMode = BatchSettings::Overwrite;
    EXPECT_TRUE(run().startsWith(QStringLiteral("Writing to log file '{dir}/flow.log'\n\nBatch row: 1\n")));
    EXPECT_TRUE(m_lines.overwritten);
    m_lines.refusesLog = true;
    EXPECT_TRUE(run().startsWith(QStringLiteral("!Unable to write to log file '{dir}/flow.log'\n\nBatch row: 1\n")));
    EXPECT_EQ(written("x.csv"), "id\na\n");
}

TEST_F(BatchProcessTest, TheDocumentsSceneIsLeftAlone)
{
    setRow(0, QStringLiteral("b.csv"), QStringLiteral("x.csv"));
    const std::unique_ptr<GraphScene> before = m_scene->copy();
    int told = 0;
    QObject::connect(m_scene.get(), &GraphScene::nodeProcessed, m_scene.get(), [&told] { ++told; });
    run();
    EXPECT_TRUE(m_scene->sameAs(*before));
    EXPECT_EQ(told, 0);
}

} // namespace
