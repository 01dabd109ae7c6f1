#include "platform/filereplacement.h"

#include "support/scopeduser.h"

#include <QDir>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace {

using platform::FileReplacement;

class FileReplacements : public testing::Test
{
protected:
    /// Other users can go there, and write nothing.
    FileReplacements() { ::chmod(encoded(".").constData(), 0755); }
    ~FileReplacements() override
    {
        ::chmod(encoded(".").constData(), 0700);
        ::chmod(encoded("closed").constData(), 0700);
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QByteArray encoded(const QString &name) const { return QFile::encodeName(path(name)); }
    QByteArray contentOf(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    void put(const QString &name, const QByteArray &content, unsigned mode = 0644) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        ASSERT_EQ(::chmod(encoded(name).constData(), mode), 0);
    }
    struct stat statusOf(const QString &name) const
    {
        struct stat status = {};
        EXPECT_EQ(::lstat(encoded(name).constData(), &status), 0) << qPrintable(name);
        return status;
    }
    /// The error, empty for success.
    QString replace(const QString &name, const QByteArray &content = "new") const
    {
        FileReplacement replacement(path(name));
        const bool done = replacement.open() && replacement.file().write(content) == content.size()
                          && replacement.commit();
        EXPECT_EQ(done, replacement.error().isEmpty());
        return replacement.error();
    }
    QStringList names(const QString &folder = QStringLiteral(".")) const
    {
        return QDir(path(folder)).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(FileReplacements, StayAtTheEndOfLinks)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkpath("a/b"));
    put("a/file", "old");
    ASSERT_TRUE(QFile::link("../file", path("a/b/link")));
    ASSERT_TRUE(QFile::link("a/b", path("folder")));
    ASSERT_TRUE(QFile::link("folder/link", path("chain")));
    ASSERT_TRUE(QFile::link("folder/../new", path("dangling")));
    ASSERT_TRUE(QFile::link("loop", path("loop")));
    struct
    {
        const char *what;
        const char *name;
        const char *changed;
    } const cases[] = {
        {"a plain file", "a/file", "a/file"},
        {"by a link", "a/b/link", "a/file"},
        {"by links through a linked folder", "chain", "a/file"},
        {"a link to a file that isn't there yet, beside the linked folder's target", "dangling", "a/new"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QByteArray content = QByteArray(c.what);
        EXPECT_EQ(replace(c.name, content), QString());
        EXPECT_EQ(contentOf(c.changed), content);
    }
    EXPECT_FALSE(replace("loop").isEmpty());
    for (const char *link : {"a/b/link", "chain", "dangling", "loop"}) {
        EXPECT_TRUE(S_ISLNK(statusOf(link).st_mode)) << link;
    }
    EXPECT_EQ(names("a"), (QStringList{"b", "file", "new"})) << "nothing is left behind";
}

TEST_F(FileReplacements, KeepTheModeOrTakeTheUsualOne)
{
    put("secret", "old", 0640);
    EXPECT_EQ(replace("secret"), QString());
    EXPECT_EQ(statusOf("secret").st_mode & 0777, 0640U);
    const mode_t before = ::umask(027);
    EXPECT_EQ(replace("new"), QString());
    ::umask(before);
    EXPECT_EQ(statusOf("new").st_mode & 0777, 0640U);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(encoded("secret").constData(), 12345, 23456), 0);
        EXPECT_EQ(replace("secret"), QString());
        EXPECT_EQ(statusOf("secret").st_uid, 12345U);
        EXPECT_EQ(statusOf("secret").st_gid, 23456U);
    }
}

TEST_F(FileReplacements, LeaveWhatIsNoFile)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir("folder"));
    ASSERT_EQ(::mkfifo(encoded("pipe").constData(), 0600), 0);
    ASSERT_TRUE(QFile::link("pipe", path("link")));
    const QString noFile = QStringLiteral("It is a device or a pipe, and only files can be replaced");
    EXPECT_EQ(replace("folder"), QString("It is a folder"));
    EXPECT_EQ(replace("pipe"), noFile);
    EXPECT_EQ(replace("link"), noFile);
    EXPECT_TRUE(S_ISFIFO(statusOf("pipe").st_mode));
    EXPECT_TRUE(S_ISLNK(statusOf("link").st_mode));
    // A device of the test's own, where it may make one.
    if (::mknod(encoded("device").constData(), S_IFCHR | 0600, makedev(1, 3)) == 0) {
        EXPECT_EQ(replace("device"), noFile);
        EXPECT_TRUE(S_ISCHR(statusOf("device").st_mode));
    }
    EXPECT_FALSE(FileReplacement(QString()).open());
}

TEST_F(FileReplacements, WithoutCommitTheOldContentStays)
{
    put("file", "old");
    for (const char *name : {"file", "new"}) {
        FileReplacement replacement(path(name));
        ASSERT_TRUE(replacement.open());
        replacement.file().write("half");
    }
    EXPECT_EQ(contentOf("file"), "old");
    EXPECT_EQ(names(), QStringList{"file"});
}

TEST_F(FileReplacements, NamesMayBeAsLongAsTheSystemAllows)
{
    const QString longest(255, 'x');
    EXPECT_EQ(replace(longest), QString());
    EXPECT_EQ(replace(longest, "again"), QString());
    EXPECT_EQ(contentOf(longest), "again");
}

TEST_F(FileReplacements, AFullDiskLeavesTheFileThatIsWrittenInPlace)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir("closed"));
    put("closed/file", "old", 0666);
    ASSERT_EQ(::chmod(encoded("closed").constData(), 0555), 0);
    const ScopedUser user;
    ASSERT_TRUE(user.isBound());
    FileReplacement replacement(path("closed/file"));
    ASSERT_TRUE(replacement.open());
    const QByteArray content(50000, 'x');
    replacement.file().write(content);
    ASSERT_TRUE(replacement.file().flush());
    rlimit limit;
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{30000, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_FALSE(replacement.commit());
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(replacement.error().isEmpty());
    EXPECT_EQ(contentOf("closed/file"), "old");
    EXPECT_TRUE(replacement.commit());
    EXPECT_EQ(contentOf("closed/file"), content);
}

TEST_F(FileReplacements, GoByThePermissionsOfFileAndFolder)
{
    struct PermissionCase
    {
        const char *what;
        unsigned folderMode;
        int fileMode; // below 0 for none
        unsigned owner;
        QString error;
        bool isSameFile; // written in place
    };
    const PermissionCase cases[] = {
        {"all is open", 0777, 0666, 1, "", false},
        {"only the file is", 0755, 0666, 1, "", true},
        {"in a shared folder only the owner may replace a file", 01777, 0666, 1, "", true},
        {"a read-only file isn't replaced where it could be", 0777, 0444, 1, "The file can't be written", true},
        {"all is closed", 0755, 0444, 1, "Neither the file nor the folder can be written", true},
        {"no place for a new file", 0755, -1, 0, "The folder can't be written", false},
    };
    for (const PermissionCase &c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_TRUE(QDir(m_folder.path()).mkpath("closed"));
        QFile::remove(path("closed/file"));
        const QByteArray folder = encoded("closed");
        const QByteArray file = encoded("closed/file");
        if (c.fileMode >= 0) {
            put("closed/file", "a long old content", static_cast<unsigned>(c.fileMode));
        }
        if (::geteuid() == 0) {
            ASSERT_EQ(::chown(folder.constData(), 2, 2), 0);
            ASSERT_TRUE(c.fileMode < 0 || ::chown(file.constData(), c.owner, 1) == 0);
        } else if (c.folderMode & 01000) {
            continue; // it would be the user's own
        }
        const unsigned closedToAll = (c.folderMode & 02) != 0 ? 0 : 0222;
        ASSERT_EQ(::chmod(folder.constData(), c.folderMode & ~closedToAll), 0);
        const ino_t before = c.fileMode >= 0 ? statusOf("closed/file").st_ino : 0;
        {
            const ScopedUser user;
            EXPECT_EQ(replace("closed/file"), c.error);
        }
        if (c.fileMode >= 0) {
            EXPECT_EQ(contentOf("closed/file"), c.error.isEmpty() ? "new" : "a long old content");
            EXPECT_EQ(statusOf("closed/file").st_ino == before, c.isSameFile);
        }
        EXPECT_EQ(names("closed"), c.fileMode < 0 ? QStringList() : QStringList{"file"});
        ::chmod(folder.constData(), 0755);
    }
    EXPECT_EQ(replace("no/such/file"), QString("The folder doesn't exist"));
    EXPECT_EQ(replace("closed/file/below"), QString("The folder doesn't exist"));
}
