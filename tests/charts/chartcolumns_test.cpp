#include "charts/chartcolumns.h"
#include "support/grid.h"

#include <gtest/gtest.h>

namespace {

/// A table whose columns have the ids (`node`, 1), (`node`, 2) and so on.
Dataset table(const QStringList &lines, int node)
{
    Dataset dataset = grid(lines);
    dataset.assignColumnIds(node);
    return dataset;
}

struct Messages
{
    QStringList warnings;
    QStringList infos;
};

Messages reconnect(ChartColumns &columns, const Dataset &upstream)
{
    Messages messages;
    columns.reconnect(upstream, messages.warnings, messages.infos);
    return messages;
}

const QString yReferences = QStringLiteral("3*0\u001f1*0");

} // namespace

TEST(ChartColumns, StoredReferencesWaitForTheTableUpstream)
{
    ChartColumns columns;
    columns.setStored(QStringLiteral("2*0"), yReferences);
    columns.resolve(Dataset());
    EXPECT_TRUE(columns.isPending());
    EXPECT_EQ(columns.storedX(nullptr), QStringLiteral("2*0"));

    const Dataset upstream = table({"day|qty|price", "1|2|3"}, 5);
    columns.resolve(upstream);
    EXPECT_FALSE(columns.isPending());
    EXPECT_EQ(columns.x(), ColumnId(5, 2));
    EXPECT_EQ(columns.y(), (QList<ColumnId>{ColumnId(5, 3), ColumnId(5, 1)}));
    EXPECT_EQ(columns.storedY(&upstream), yReferences);
    EXPECT_EQ(columns.storedY(nullptr), yReferences) << "nothing is lost while there is no table upstream";
}

TEST(ChartColumns, ReferencesThatCannotBeAreNoColumns)
{
    const Dataset upstream = table({"day|qty", "1|2"}, 5);
    for (const char *reference : {"", "0*0", "3*0", "-1*0", "x", "99999999999*0", "*"}) {
        SCOPED_TRACE(reference);
        ChartColumns columns;
        columns.setStored(QString::fromLatin1(reference), QString::fromLatin1(reference) + QStringLiteral("\u001f2*0"));
        columns.resolve(upstream);
        EXPECT_TRUE(columns.x().isNull());
        EXPECT_EQ(columns.y(), QList<ColumnId>{ColumnId(5, 2)});
        EXPECT_EQ(columns.storedX(&upstream), QString());
    }
    ChartColumns old;
    old.setStored(QString(), QStringLiteral("1^2"));
    old.resolve(upstream);
    EXPECT_EQ(old.y().size(), 2) << "the old separator, and numbers alone";
}

TEST(ChartColumns, FollowsRenamesAndFindsLostColumnsByNameOnce)
{
    ChartColumns columns;
    columns.setStored(QStringLiteral("1*0"), QStringLiteral("2*0"));
    columns.resolve(table({"day|qty", "1|2"}, 5));
    const Messages renamed = reconnect(columns, table({"date|qty", "1|2"}, 5));
    EXPECT_TRUE(renamed.infos.isEmpty() && renamed.warnings.isEmpty());

    const Dataset replaced = table({"price|date", "3|1"}, 9);
    EXPECT_TRUE(reconnect(columns, replaced).infos.isEmpty()) << "nobody has allowed it yet";
    EXPECT_EQ(columns.x(), ColumnId(5, 1));

    columns.allowReconnect();
    const Messages found = reconnect(columns, replaced);
    EXPECT_EQ(found.infos, QStringList(QStringLiteral("Reconnected to column 'date' for 'X axis data'")));
    EXPECT_EQ(found.warnings, QStringList(QStringLiteral("Cannot reconnect to column 'qty' for 'Y axis data'")));
    EXPECT_EQ(columns.x(), ColumnId(9, 2));
    EXPECT_EQ(columns.y(), QList<ColumnId>{ColumnId(5, 2)}) << "the lost one stays, for a later connection";
    EXPECT_TRUE(reconnect(columns, replaced).warnings.isEmpty());

    columns.remap({{ColumnId(9, 2), ColumnId(20, 2)}});
    EXPECT_EQ(columns.x(), ColumnId(20, 2));
}

TEST(ChartColumns, ANewChoiceWinsOverWhatADocumentSaidOfThatAxisOnly)
{
    const Dataset upstream = table({"day|qty|price", "1|2|3"}, 5);
    ChartColumns columns;
    columns.setStored(QStringLiteral("2*0"), yReferences);
    columns.setY({ColumnId(5, 2)}, &upstream);
    columns.resolve(upstream);
    EXPECT_EQ(columns.y(), QList<ColumnId>{ColumnId(5, 2)});
    EXPECT_EQ(columns.x(), ColumnId(5, 2)) << "still that of the document";

    columns.setStored(QStringLiteral("2*0"), yReferences);
    columns.setX(ColumnId(), &upstream);
    columns.resolve(upstream);
    EXPECT_TRUE(columns.x().isNull());
    EXPECT_EQ(columns.y().size(), 2);

    columns.setX(ColumnId(5, 3), &upstream);
    EXPECT_EQ(columns.storedX(nullptr), QStringLiteral("3*0")) << "also without a run before the table goes";
}
