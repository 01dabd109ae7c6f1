#include "app/recoveryfile.h"
#include "app/testdocument.h"
#include "document/documentfile.h"
#include "graph/graphscene.h"
#include "graph/notenode.h"
#include "support/printers.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

class RecoveryFileTest : public testing::Test
{
protected:
    void SetUp() override { removeAll(); }
    void TearDown() override { removeAll(); }
    static void removeAll() { QFile::remove(RecoveryFile::path()); }

    bool save()
    {
        m_scene.insertNode(new NoteNode, QPointF(0, 0));
        DocumentToSave document;
        document.scene = &m_scene;
        return RecoveryFile::save(document, m_error);
    }
    static void setAge(qint64 seconds)
    {
        QFile file(RecoveryFile::path());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(
            file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds), QFileDevice::FileModificationTime));
    }

    GraphScene m_scene;
    QString m_error;
};

TEST_F(RecoveryFileTest, IsForItsOwnerOnly)
{
    ASSERT_TRUE(save()) << m_error.toStdString();
    const QFileInfo file(RecoveryFile::path());
    EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther), 0);
    EXPECT_TRUE(readFile(RecoveryFile::path()).startsWith("<!DOCTYPE Quillmere>"));
    ASSERT_TRUE(save()) << "over the one before";
    EXPECT_EQ(QDir(file.path()).entryList({QStringLiteral("QuillmereAutoRecovery*")}, QDir::Files).size(), 1);
}

TEST_F(RecoveryFileTest, NeverWritesThroughALink)
{
    const QString victim = QDir::temp().filePath(QStringLiteral("victim"));
    writeFile(victim, "precious");
    ASSERT_TRUE(QFile::link(victim, RecoveryFile::path()));
    EXPECT_FALSE(RecoveryFile::canBeOffered(1));
    RecoveryFile::remove();
    EXPECT_TRUE(QFileInfo(RecoveryFile::path()).isSymLink()) << "what isn't ours isn't removed";
    ASSERT_TRUE(save()) << m_error.toStdString();
    EXPECT_EQ(readFile(victim), "precious");
    EXPECT_FALSE(QFileInfo(RecoveryFile::path()).isSymLink());
}

TEST_F(RecoveryFileTest, IsOldAfterAMinute)
{
    EXPECT_TRUE(RecoveryFile::isOld()) << "there is none";
    ASSERT_TRUE(save());
    EXPECT_FALSE(RecoveryFile::isOld());
    setAge(55);
    EXPECT_FALSE(RecoveryFile::isOld());
    setAge(65);
    EXPECT_TRUE(RecoveryFile::isOld());
    setAge(3 * 3600 + 60);
    EXPECT_EQ(RecoveryFile::ageText(), QStringLiteral("3 hour(s)"));
    RecoveryFile::remove();
    EXPECT_FALSE(QFile::exists(RecoveryFile::path()));
}

struct AgeCase
{
    const char *what;
    qint64 seconds;
    const char *text;
};

TEST(RecoveryFileAge, InTheLargestUnitThatFits)
{
    const AgeCase cases[] = {
        {"a clock that was set back", -5, "0 second(s)"},
        {"just short of a minute", 59, "59 second(s)"},
        {"a minute", 60, "1 minute(s)"},
        {"just short of an hour", 3599, "59 minute(s)"},
        {"an hour", 3600, "1 hour(s)"},
        {"just short of a day", 86399, "23 hour(s)"},
        {"days", 200000, "2 day(s)"},
    };
    for (const AgeCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(RecoveryFile::ageText(c.seconds), QString::fromLatin1(c.text));
    }
}

} // namespace
