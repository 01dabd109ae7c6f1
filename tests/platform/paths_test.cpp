#include "platform/paths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(ResolvedPath, IsWhatTheSystemFinds)
{
    const QTemporaryDir folder;
    const QString root = QDir(folder.path()).canonicalPath();
    ASSERT_TRUE(QDir(root).mkpath(QStringLiteral("far/deep")));
    ASSERT_TRUE(QFile::link(root + "/far/deep", root + "/link"));
    const struct
    {
        const char *sentence;
        const char *path;
        const char *resolved;
    } cases[] = {
        {"a link that is left leads to where it points", "/link/../flow", "/far/flow"},
        {"a link on the way stays", "/link/flow", "/link/flow"},
        {"two links up", "/link/../../far/../link/..", "/far"},
        {"plain folders", "/far/./deep//../x", "/far/x"},
        {"folders that aren't there", "/none/../x", "/x"},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.sentence);
        EXPECT_EQ(platform::resolvedPath(root + each.path).toStdString(), (root + each.resolved).toStdString());
    }
    EXPECT_EQ(platform::resolvedPath(QStringLiteral("/../..")), QStringLiteral("/"));
    EXPECT_EQ(platform::resolvedPath(QStringLiteral("x/../y")), QDir::currentPath() + "/y");
}
