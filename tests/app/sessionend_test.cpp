#include "app/testdocument.h"
#include "support/waitfor.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>

// The real program, ended from outside while its document has changes.

namespace {

class SessionEndTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QDir(m_folder.path()).mkpath(QStringLiteral("config/Marlwick"));
        QDir(m_folder.path()).mkpath(QStringLiteral("tmp"));
        writeFile(path("config/Marlwick/Quillmere.conf"),
            "[General]\nopen_auto_run=0\nwarn_on_locale_change=false\nopen_previous_at_start=0\n"
            "show_getting_started=false\n");
        writeFile(path("in.csv"), "a\n1\n");
        writeFile(path("other.csv"), "a\n2\n");
        TestDocument document;
        document.inputs = inputXml(1, QStringLiteral("in"), path("in.csv"));
        document.outputs = outputXml(2, QStringLiteral("out"), path("out.csv"));
        document.connections = connectionXml(1, 2);
        writeFile(path("flow.transform"), document.xml());
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        variables.insert(QStringLiteral("XDG_CONFIG_HOME"), path("config"));
        variables.insert(QStringLiteral("TMPDIR"), path("tmp"));
        m_process.setProcessEnvironment(variables);
        // The file of the command line takes the place of the document's, so the document has changed.
        m_process.start(QStringLiteral(QUILLMERE_PROGRAM),
            {path("flow.transform"), QStringLiteral("-file"), QStringLiteral("in=") + path("other.csv")});
        ASSERT_TRUE(m_process.waitForStarted());
        ASSERT_TRUE(waitFor([this] { return readFile(path("out.csv")) == "a\n2\n"; }, 30000));
    }
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    QByteArray recovered() const { return readFile(path("tmp/QuillmereAutoRecovery.transform")); }

    QTemporaryDir m_folder;
    QProcess m_process;
};

} // namespace

TEST_F(SessionEndTest, WhatIsNotSavedIsKeptWhenTheSystemEndsTheProgram)
{
    ::kill(static_cast<pid_t>(m_process.processId()), SIGTERM);
    ASSERT_TRUE(m_process.waitForFinished());
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_process.exitCode(), 0);
    EXPECT_TRUE(recovered().contains("other.csv")) << recovered().toStdString();
}
