#include "app/recentdocuments.h"
#include "app/testdocument.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class RecentDocumentsTest : public testing::Test
{
protected:
    QString make(const QString &name) const
    {
        const QString path = m_folder.filePath(name);
        writeFile(path, "x");
        return path;
    }

    QTemporaryDir m_folder;
    ScopedSettings m_settings;
};

TEST_F(RecentDocumentsTest, NewestFirstAndOnlySoMany)
{
    RecentDocuments recent(QStringLiteral("/app"));
    QStringList paths;
    for (int i = 0; i < 20; ++i) {
        paths.prepend(make(QStringLiteral("%1.transform").arg(i)));
        recent.add(paths.first());
    }
    EXPECT_EQ(recent.menuEntries(QString()), paths.mid(0, 7));
    EXPECT_EQ(recent.windowEntries(), paths.mid(0, 15));
    recent.add(paths.at(3));
    EXPECT_EQ(recent.menuEntries(QString()).first(), paths.at(3));
    EXPECT_EQ(recent.menuEntries(QString()).size(), 7) << "moved to the front, not there twice";
    EXPECT_EQ(RecentDocuments(QStringLiteral("/app")).menuEntries(QString()), recent.menuEntries(QString()))
        << "kept in the settings";
}

TEST_F(RecentDocumentsTest, MenuLeavesOutWhatCantBeOpened)
{
    RecentDocuments recent(QStringLiteral("/app"));
    const QString kept = make(QStringLiteral("kept.transform"));
    const QString open = make(QStringLiteral("open.transform"));
    const QString gone = make(QStringLiteral("gone.transform"));
    for (const QString &path : {kept, open, gone, make(QStringLiteral("KEPT.transform"))}) {
        recent.add(path);
    }
    QFile::remove(gone);
    EXPECT_EQ(recent.menuEntries(open), QStringList{m_folder.filePath(QStringLiteral("KEPT.transform"))})
        << "neither the open one, nor the one that is gone, nor another spelling";
}

TEST_F(RecentDocumentsTest, ClearingTheMenuLeavesTheLongList)
{
    RecentDocuments recent(QStringLiteral("/app"));
    recent.add(make(QStringLiteral("a.transform")));
    recent.clearMenu();
    EXPECT_EQ(recent.menuEntries(QString()), QStringList());
    EXPECT_EQ(recent.windowEntries().size(), 1);
    EXPECT_EQ(Settings::current().recentDocs(), QStringList());
}

TEST_F(RecentDocumentsTest, LongListStartsAsTheShortOne)
{
    Settings::current().setRecentDocs({QStringLiteral("/a.transform")});
    EXPECT_EQ(RecentDocuments(QStringLiteral("/app")).windowEntries(), QStringList{QStringLiteral("/a.transform")});
}

TEST_F(RecentDocumentsTest, PortableSettingsKeepRelativePaths)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(QStringLiteral("app")));
    RecentDocuments recent(m_folder.filePath(QStringLiteral("app")));
    const QString path = make(QStringLiteral("a.transform"));
    recent.add(path);
    EXPECT_EQ(Settings::current().recentDocs(), QStringList{QStringLiteral("../a.transform")});
    EXPECT_EQ(recent.menuEntries(QString()), QStringList{path});
}

} // namespace
