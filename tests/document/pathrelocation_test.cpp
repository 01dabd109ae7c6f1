#include "document/pathrelocation.h"
#include "support/printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// A moved document's new surroundings: "new/in.csv", "new/sub/deep.csv" and "beside.csv".
class PathRelocationTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QDir(m_dir.path()).mkpath(QStringLiteral("new/sub"));
        for (const char *name : {"new/in.csv", "new/sub/deep.csv", "beside.csv"}) {
            QFile file(at(name));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }

    QString at(const char *name) const { return m_dir.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_dir;
};

} // namespace

TEST_F(PathRelocationTest, FindsInputsThatMovedWithTheDocument)
{
    const struct
    {
        const char *what;
        const char *docPath;
        const char *path;
        const char *found; ///< below the temporary folder; null where the path stays
    } cases[] = {
        {"beside the document", "/old/flow.transform", "/old/in.csv", "new/in.csv"},
        {"below it", "/old/flow.transform", "/old/sub/deep.csv", "new/sub/deep.csv"},
        {"above it", "/home/old/flow.transform", "/home/beside.csv", "beside.csv"},
        {"a folder", "/old/flow.transform", "/old/sub", "new/sub"},
        {"a document from another system", "C:\\old\\flow.transform", "C:/old/sub/deep.csv", "new/sub/deep.csv"},
        {"drives and folders there ignore case", "c:\\Old\\flow.transform", "C:/old/in.csv", "new/in.csv"},
        {"a relative path", "/old/flow.transform", "sub/deep.csv", "new/sub/deep.csv"},
        {"a document at the root", "/flow.transform", "/sub/deep.csv", "new/sub/deep.csv"},
        {"a file that isn't in the new place either", "/old/flow.transform", "/old/gone.csv", nullptr},
        {"another drive", "C:\\old\\flow.transform", "D:/old/in.csv", nullptr},
        {"a network path never moves", "//server/old/flow.transform", "//server/old/in.csv", nullptr},
        {"a document that doesn't say where it lay", "", "/old/in.csv", nullptr},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        PathRelocation relocation(QString::fromLatin1(c.docPath), at("new/flow.transform"));
        const QString expected = c.found ? at(c.found) : QString::fromLatin1(c.path);
        EXPECT_EQ(relocation.existing(QString::fromLatin1(c.path)), expected);
        EXPECT_EQ(relocation.hasRelocated(), c.found != nullptr);
    }
}

TEST_F(PathRelocationTest, LeavesFilesThatAreThere)
{
    PathRelocation moved(QStringLiteral("/old/flow.transform"), at("new/flow.transform"));
    EXPECT_EQ(moved.existing(at("beside.csv")), at("beside.csv"));
    EXPECT_EQ(moved.existing(QString()), QString());
    EXPECT_FALSE(moved.hasRelocated());

    PathRelocation stayed(at("new/flow.transform"), at("new/flow.transform"));
    EXPECT_EQ(stayed.existing(QStringLiteral("in.csv")), QStringLiteral("in.csv"));
    PathRelocation fragment(at("new/flow.transform"), QString());
    EXPECT_EQ(fragment.existing(QStringLiteral("in.csv")), QStringLiteral("in.csv"));
}

TEST_F(PathRelocationTest, MovesOutputsByTheirFolders)
{
    const struct
    {
        const char *what;
        QString path;
        QString expected;
    } cases[] = {
        {"the file needn't exist", QStringLiteral("/old/sub/out.csv"), at("new/sub/out.csv")},
        {"the folder is missing in the new place too", QStringLiteral("/old/none/out.csv"),
            QStringLiteral("/old/none/out.csv")},
        {"a folder that is there", at("out.csv"), at("out.csv")},
        {"a path made of variables isn't absolute", QStringLiteral("{in.folder}/out.csv"),
            QStringLiteral("{in.folder}/out.csv")},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        PathRelocation relocation(QStringLiteral("/old/flow.transform"), at("new/flow.transform"));
        EXPECT_EQ(relocation.writable(c.path), c.expected);
        EXPECT_EQ(relocation.hasRelocated(), c.path != c.expected);
    }
}

TEST(PathRelocation, CleansPaths)
{
    EXPECT_EQ(PathRelocation::cleaned(QStringLiteral(" C:\\data\\in.csv\n")), QStringLiteral("C:/data/in.csv"));
    EXPECT_EQ(PathRelocation::cleaned(QStringLiteral("/data/in.csv")), QStringLiteral("/data/in.csv"));
    EXPECT_EQ(PathRelocation::cleaned(QStringLiteral("\\\\server\\in.csv")), QStringLiteral("//server/in.csv"));
}
