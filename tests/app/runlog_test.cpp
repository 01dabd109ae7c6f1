#include "app/report/runlog.h"
#include "support/printers.h"

#include <QDebug>
#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

class RunLogTest : public testing::Test
{
protected:
    void TearDown() override { RunLog::installMessageHandler(true); }
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
    RunLog m_log;
};

TEST_F(RunLogTest, LinesGoToConsoleAndFile)
{
    RunLog::installMessageHandler(true);
    ASSERT_TRUE(m_log.open(path("run.log"), false));
    testing::internal::CaptureStderr();
    m_log.info(QStringLiteral("one \"quoted\" caf\u00e9 "));
    m_log.info(QString());
    m_log.error(QStringLiteral("  two"));
    m_log.infoToConsole(QStringLiteral("three"));
    qWarning("a library complains");
    EXPECT_EQ(m_log.fatal(QStringLiteral("four %1 %s")), -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "one \"quoted\" caf\xc3\xa9 \n\n\033[31m two\033[0m\nthree\n"
                                                      "\033[31mfour %1 %s\033[0m\n\033[31mAborted processing\033[0m\n");
    EXPECT_EQ(contentOf(path("run.log")), "one \"quoted\" caf\xc3\xa9 \n\n  two\nfour %1 %s\nAborted processing\n")
        << "each line is in the file at once";
}

TEST_F(RunLogTest, LibrariesSpeakWhenTheyMay)
{
    RunLog::installMessageHandler(false);
    testing::internal::CaptureStderr();
    qWarning("a library complains");
    RunLog::installMessageHandler(true);
    qCritical("badly");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a library complains\nbadly\n");
}

TEST_F(RunLogTest, AppendsUnlessToldToOverwrite)
{
    RunLog::installMessageHandler(true);
    testing::internal::CaptureStderr();
    const std::pair<bool, const char *> steps[] = {{false, "x\n"}, {false, "x\nx\n"}, {true, "x\n"}, {false, "x\nx\n"}};
    for (const auto &[overwrite, expected] : steps) {
        ASSERT_TRUE(m_log.open(path("run.log"), overwrite));
        m_log.info(QStringLiteral("x"));
        EXPECT_EQ(contentOf(path("run.log")), expected);
    }
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(m_log.logPath(), path("run.log"));
}

TEST_F(RunLogTest, UnopenableFileIsReportedAndTheRunGoesOn)
{
    RunLog::installMessageHandler(true);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(m_log.open(path("no/folder/run.log"), false));
    m_log.info(QStringLiteral("still here"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "\033[31mCould not open log file at '" + path("no/folder/run.log").toStdString() + "'\033[0m\nstill here\n");
    EXPECT_EQ(m_log.logPath(), QString());
}

} // namespace
