#include "platform/filehold.h"
#include "platform/ownfile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

class Files : public testing::Test
{
protected:
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_folder;
};

TEST_F(Files, HoldKeepsASecondOneOut)
{
    write(path("a"), "text");
    platform::FileHold first;
    platform::FileHold second;
    ASSERT_TRUE(first.acquire(path("a")));
    EXPECT_FALSE(second.acquire(path("a")));
    EXPECT_FALSE(second.isHeld());
    EXPECT_EQ(contentOf(path("a")), "text") << "reading through another descriptor works and keeps the lock";
    EXPECT_FALSE(second.acquire(path("a")));
    first.release();
    EXPECT_TRUE(second.acquire(path("a")));
}

TEST_F(Files, HoldLetsGoOfTheFileBefore)
{
    platform::FileHold hold;
    ASSERT_TRUE(hold.acquire(path("a")));
    ASSERT_TRUE(hold.acquire(path("b")));
    EXPECT_TRUE(platform::FileHold().acquire(path("a")));
    EXPECT_FALSE(hold.acquire(QStringLiteral("/proc/version/a")));
    EXPECT_EQ(hold.file(), nullptr) << "a failure holds nothing, not the file before";
    EXPECT_TRUE(platform::FileHold().acquire(path("b")));
}

TEST_F(Files, HeldFileIsWrittenInPlace)
{
    write(path("a"), "a long text");
    ASSERT_TRUE(QFile::link(path("a"), path("link")));
    platform::FileHold hold;
    ASSERT_TRUE(hold.acquire(path("link")));
    ASSERT_TRUE(hold.file()->seek(0));
    hold.file()->write("short");
    hold.file()->resize(5);
    hold.file()->flush();
    EXPECT_EQ(contentOf(path("a")), "short");
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink());
}

TEST_F(Files, HoldNoticesANewFileUnderItsName)
{
    platform::FileHold hold;
    EXPECT_FALSE(hold.isAt(path("a")));
    ASSERT_TRUE(hold.acquire(path("a")));
    EXPECT_TRUE(hold.isAt(path("a")));
    EXPECT_FALSE(hold.isAt(path("b")));
    write(path("b"), "new");
    ASSERT_TRUE(platform::moveOver(path("b"), path("a")));
    EXPECT_FALSE(hold.isAt(path("a")));
}

TEST_F(Files, MovingOverNeverFollowsALink)
{
    write(path("victim"), "precious");
    write(path("new"), "new");
    ASSERT_TRUE(QFile::link(path("victim"), path("a")));
    EXPECT_FALSE(platform::isOwnFile(path("a"))) << "a link isn't a plain file";
    EXPECT_TRUE(platform::moveOver(path("new"), path("a")));
    EXPECT_EQ(contentOf(path("victim")), "precious");
    EXPECT_EQ(contentOf(path("a")), "new");
    EXPECT_TRUE(platform::isOwnFile(path("a"))) << "the link itself is gone";
    EXPECT_FALSE(QFile::exists(path("new")));
}

TEST_F(Files, MovingOverAFolderLeavesBoth)
{
    write(path("new"), "new");
    ASSERT_TRUE(QDir().mkpath(path("folder/inside")));
    EXPECT_FALSE(platform::moveOver(path("new"), path("folder")));
    EXPECT_EQ(contentOf(path("new")), "new");
    EXPECT_FALSE(platform::isOwnFile(path("folder")));
    EXPECT_FALSE(platform::isOwnFile(path("nothing")));
}

TEST_F(Files, FileOfAnotherUserIsNotOwn)
{
    if (::getuid() != 0) {
        GTEST_SKIP() << "only an administrator can give files away";
    }
    write(path("a"), "x");
    ASSERT_EQ(::chown(path("a").toLocal8Bit().constData(), 12345, 12345), 0);
    EXPECT_FALSE(platform::isOwnFile(path("a")));
}

} // namespace
