#include "app/batch/batchexpansion.h"
#include "app/testdocument.h"
#include "spreadsheet/book.h"
#include "support/printers.h"
#include "support/scopeduser.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class BatchExpansionTest : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char *name : {"b.csv", "A.CSV", ".hidden.csv", "c.txt", "a1.csv", "a2.csv", "x[1].csv"}) {
            writeFile(path(name), "a\n1\n");
        }
        QDir(m_folder.path()).mkpath(QStringLiteral("sub1"));
        QDir(m_folder.path()).mkpath(QStringLiteral("sub2"));
        QFile::link(path("b.csv"), path("link.csv"));
        writeBook("one.xlsx", {"First", "Second", "other"});
        writeBook("two.xlsx", {"Only"});
        writeFile(path("wrong.xlsx"), "no workbook");
    }

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }

    void writeBook(const char *name, const QStringList &sheets) const
    {
        spreadsheet::Book book(spreadsheet::FileKind::Xlsx);
        for (const QString &sheet : sheets) {
            book.addSheet(sheet)->writeStr(0, 0, QStringLiteral("a"));
        }
        ASSERT_TRUE(book.save(path(name)));
    }

    BatchExpansion expand(const char *text, bool isFolder = false) const
    {
        const QString whole = path(text);
        BatchExpansion expansion = isFolder ? expandBatchFolder(whole) : expandBatchFile(whole, [] { return true; });
        for (QStringList *list : {&expansion.paths, &expansion.messages}) {
            list->replaceInStrings(m_folder.path() + QLatin1Char('/'), QString());
        }
        return expansion;
    }

    QTemporaryDir m_folder;
};

struct ExpansionCase
{
    const char *what;
    const char *text;
    QStringList paths;
    QStringList messages;
    int errors;
};

TEST_F(BatchExpansionTest, Files)
{
    const ExpansionCase cases[] = {
        {"a plain path", "b.csv", {"b.csv"}, {}, 0},
        {"a file that isn't there", "no.csv", {}, {"Input file 'no.csv' not found."}, 1},
        {"a folder isn't a file", "sub1", {}, {"Input file 'sub1' not found."}, 1},
        {"any case, hidden files, no links, by name", "*.csv",
            {".hidden.csv", "A.CSV", "a1.csv", "a2.csv", "b.csv", "x[1].csv"}, {}, 0},
        {"one character", "a?.csv", {"a1.csv", "a2.csv"}, {}, 0},
        {"no match", "*.json", {}, {"No files match wildcard '*.json'."}, 0},
        {"a folder that isn't there", "gone/*.csv", {}, {"No files match wildcard 'gone/*.csv'."}, 0},
        {"brackets in the name of a text", "x[1].csv", {"x[1].csv"}, {}, 0},
        {"a sheet", "one.xlsx[Second]", {"one.xlsx[Second]"}, {}, 0},
        {"all sheets", "one.xlsx[*]", {"one.xlsx[First]", "one.xlsx[Second]", "one.xlsx[other]"}, {}, 0},
        {"sheets in any case", "one.xlsx[O*]", {"one.xlsx[other]"}, {}, 0},
        {"sheets of several workbooks, one of which is none", "*.xlsx[*o*]",
            {"one.xlsx[Second]", "one.xlsx[other]", "two.xlsx[Only]"},
            {"Unable to load Excel workbook 'wrong.xlsx' information. Error: The file is not an .xlsx workbook or is "
             "damaged"},
            1},
        {"no sheet matches", "one.xlsx[z*]", {}, {"No sheets match wildcard 'one.xlsx[z*]'."}, 0},
        {"the sheet of a workbook that isn't there", "no.xlsx[*]", {}, {"Input file 'no.xlsx[*]' not found."}, 1},
        {"a workbook without a sheet keeps that of the item", "t*.xlsx", {"two.xlsx"}, {}, 0},
    };
    for (const ExpansionCase &c : cases) {
        SCOPED_TRACE(c.what);
        const BatchExpansion expansion = expand(c.text);
        EXPECT_EQ(expansion.paths, c.paths);
        EXPECT_EQ(expansion.messages, c.messages);
        EXPECT_EQ(expansion.errors, c.errors);
    }
}

TEST_F(BatchExpansionTest, Folders)
{
    EXPECT_EQ(expand("sub2", true).paths, QStringList("sub2"));
    EXPECT_EQ(expand("sub*", true).paths, (QStringList{"sub1", "sub2"}));
    EXPECT_EQ(expand("b.csv", true).messages, QStringList("Input folder 'b.csv' not found."));
    EXPECT_EQ(expandBatchFile(QString(), [] { return true; }).messages, QStringList("Input file '' not found."));
}

TEST_F(BatchExpansionTest, AFolderThatCantBeRead)
{
    QFile::setPermissions(path("sub1"), QFileDevice::Permissions());
    for (const QString &folder : {m_folder.path(), QFileInfo(m_folder.path()).path()}) {
        QFile::setPermissions(
            folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::WriteOwner | QFileDevice::ExeOther);
    }
    BatchExpansion expansion;
    {
        const ScopedUser user;
        ASSERT_TRUE(user.isBound());
        expansion = expandBatchFile(path("sub1/*.csv"), [] { return true; });
    }
    QFile::setPermissions(path("sub1"), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    EXPECT_EQ(expansion.messages, QStringList(QStringLiteral("Folder '%1' is not readable").arg(path("sub1"))));
    EXPECT_EQ(expansion.errors, 1);
}

TEST_F(BatchExpansionTest, AStopComesBeforeTheNextWorkbook)
{
    int asked = 0;
    const BatchExpansion expansion = expandBatchFile(path("*.xlsx[*]"), [&asked] { return ++asked == 1; });
    EXPECT_EQ(expansion.paths.size(), 3);
}

} // namespace
