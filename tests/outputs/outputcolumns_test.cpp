#include "data/dataset.h"
#include "outputs/outputcolumns.h"
#include "support/grid.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

/// A table with columns of these names, whose ids are those of `node`.
Dataset table(const QString &names, int node)
{
    Dataset dataset = grid({names});
    dataset.assignColumnIds(node);
    return dataset;
}

} // namespace

TEST(OutputColumns, GiveBackWhatADocumentSaid)
{
    const Dataset upstream = table("a|b|c", 1);
    struct
    {
        const char *what;
        const char *files;
        const char *formats;
        const char *filesAfter;
        const char *formatsAfter;
    } const cases[] = {
        {"column numbers from 1, one format a column", "2",
            "0\x1F"
            "4\x1F"
            "2",
            "2",
            "0\x1F"
            "4\x1F"
            "2"},
        {"nothing said", "", "", "0", ""},
        {"the older separator", "0", "1^0^8", "0",
            "1\x1F"
            "0\x1F"
            "8"},
        {"numbers beyond the columns are dropped", "4",
            "0\x1F"
            "0\x1F"
            "3\x1F"
            "5",
            "0",
            "0\x1F"
            "0\x1F"
            "3"},
        {"bad numbers are none", "-1",
            "x\x1F"
            "-3\x1F"
            "2",
            "0",
            "0\x1F"
            "0\x1F"
            "2"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        OutputColumns columns;
        columns.setStored(c.files, c.formats, "7");
        EXPECT_TRUE(columns.isPending());
        EXPECT_EQ(columns.storedMultiFileColumn(&upstream), QString(c.files)) << "before it is resolved";
        EXPECT_EQ(columns.storedExcelFormats(&upstream), QString(c.formats));
        columns.resolve(Dataset());
        EXPECT_TRUE(columns.isPending()) << "a table without columns resolves nothing";
        columns.resolve(upstream);
        EXPECT_FALSE(columns.isPending());
        EXPECT_EQ(columns.storedMultiFileColumn(&upstream), QString(c.filesAfter));
        EXPECT_EQ(columns.storedExcelFormats(&upstream), QString(c.formatsAfter));
        EXPECT_EQ(columns.storedJsonTypes(&upstream), QString("7\x1F"
                                                              "0\x1F"
                                                              "0"));
    }
}

TEST(OutputColumns, AreSavedWithoutATableUpstream)
{
    Dataset upstream = table("a|b", 1);
    OutputColumns columns;
    columns.setStored("2",
        "5\x1F"
        "0",
        "");
    columns.resolve(upstream);
    columns.setExcelFormats({{upstream.columnId(ColumnIndex(1)), 6}}, &upstream);
    EXPECT_EQ(columns.storedMultiFileColumn(nullptr), QString("2"));
    const Dataset empty;
    EXPECT_EQ(columns.storedExcelFormats(&empty), QString("0\x1F"
                                                          "6"));
}

TEST(OutputColumns, ReconnectByNameOnceAfterANewConnection)
{
    const Dataset before = table("a|b", 1);
    OutputColumns columns;
    columns.setStored("2",
        "5\x1F"
        "3",
        "2");
    columns.resolve(before);
    QStringList warnings;
    QStringList infos;
    columns.requestReconnect();
    columns.reconnect(before, warnings, infos);
    EXPECT_EQ(warnings + infos, QStringList()) << "nothing is lost yet";

    const Dataset after = table("x|b", 2);
    columns.reconnect(after, warnings, infos);
    EXPECT_EQ(warnings + infos, QStringList()) << "no search without a new connection";
    columns.requestReconnect();
    columns.reconnect(after, warnings, infos);
    EXPECT_EQ(warnings, QStringList({"Cannot reconnect to column 'a' for 'Excel column formats'",
                            "Cannot reconnect to column 'a' for 'Json column types'"}));
    EXPECT_EQ(infos, QStringList({"Reconnected to column 'b' for 'Excel column formats'",
                         "Reconnected to column 'b' for 'Files column'"}));
    EXPECT_EQ(columns.multiFileColumn(), after.columnId(ColumnIndex(1)));
    EXPECT_EQ(columns.storedExcelFormats(&after), QString("0\x1F"
                                                          "3"));
    columns.reconnect(after, warnings, infos);
    EXPECT_EQ(warnings.size() + infos.size(), 4) << "only once";
}

TEST(OutputColumns, FollowIdsThatChange)
{
    const Dataset before = table("a|b", 1);
    const Dataset after = table("a|b", 2);
    OutputColumns columns;
    columns.setStored("1",
        "5\x1F"
        "3",
        "");
    columns.resolve(before);
    columns.remap({{before.columnId(ColumnIndex(0)), after.columnId(ColumnIndex(0))}});
    EXPECT_EQ(columns.storedMultiFileColumn(&after), QString("1"));
    EXPECT_EQ(columns.storedExcelFormats(&after), QString("5\x1F"
                                                          "0"));
    EXPECT_EQ(columns.storedExcelFormats(&before), QString("0\x1F"
                                                           "3"))
        << "ids that aren't mapped stay";
}

TEST(OutputColumns, NewChoicesWinOverWhatADocumentSaid)
{
    const Dataset upstream = table("a|b", 1);
    const ColumnId second = upstream.columnId(ColumnIndex(1));
    OutputColumns columns;
    columns.setStored("1",
        "5\x1F"
        "0",
        "2\x1F"
        "2");
    columns.setJsonTypes({{second, 3}}, &upstream);
    columns.resolve(upstream);
    EXPECT_EQ(columns.jsonTypes(), (OutputColumns::Choices{{second, 3}}));
    EXPECT_EQ(columns.multiFileColumn(), upstream.columnId(ColumnIndex(0)))
        << "the others still come from the document";
    EXPECT_EQ(columns.excelFormats().size(), 1);

    columns.setStored("1",
        "5\x1F"
        "0",
        "");
    columns.setMultiFileColumn(second, &upstream);
    columns.setExcelFormats({}, &upstream);
    columns.resolve(upstream);
    EXPECT_EQ(columns.multiFileColumn(), second);
    EXPECT_TRUE(columns.excelFormats().isEmpty());
}
