#include "inputs/datasetstack.h"

#include "support/grid.h"

#include <gtest/gtest.h>

namespace {

QStringList lines(const Dataset &dataset)
{
    return QStringList(dataset.header().join('|')) + rows(dataset);
}

/// A table of many rows whose texts are too long to lie in their cells.
Dataset longTable(const QString &name, int rowCount)
{
    QStringList cells(name);
    for (int i = 0; i < rowCount; ++i) {
        cells.append(QString("%1 of the long texts in %2").arg(i).arg(name));
    }
    return grid(cells);
}

} // namespace

TEST(DatasetStack, PutsTablesBelowOneAnother)
{
    struct Case
    {
        const char *what;
        bool keepLast;
        QVector<QStringList> items;
        QStringList stacked;
    };
    const Case cases[] = {
        {"the first table gives the names, places count and not names", false, {{"a|b", "1|2"}, {"b|a", "3|4"}},
            {"a|b", "1|2", "3|4"}},
        {"a narrower table gets empty cells at its end", false, {{"a|b", "1|2"}, {"a", "3"}}, {"a|b", "1|2", "3|"}},
        {"a wider one widens all before it and gives the names", false,
            {{"a", "1"}, {"x|y|z", "2|3|4"}, {"a|b", "5|6"}}, {"a|y|z", "1||", "2|3|4", "5|6|"}},
        {"the last columns stay together in a narrower table", true, {{"a|b|m", "1|2|M"}, {"a|m", "3|N"}},
            {"a|b|m", "1|2|M", "3||N"}},
        {"and in a wider one", true, {{"a|m", "1|M"}, {"x|y|z|m", "2|3|4|N"}, {"a|m", "5|O"}},
            {"a|y|z|m", "1|||M", "2|3|4|N", "5|||O"}},
        {"a table without rows still widens", false, {{"a", "1"}, {"a|b"}}, {"a|b", "1|"}},
        {"one table alone", true, {{"m", "1", "2"}}, {"m", "1", "2"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        DatasetStack stack(c.keepLast);
        for (const QStringList &item : c.items) {
            stack.append(grid(item));
        }
        EXPECT_EQ(lines(stack.take()), c.stacked);
    }
}

TEST(DatasetStack, KeepsTextsWhoseTablesAreGone)
{
    DatasetStack stack(false);
    QStringList expected("first");
    for (const int rowCount : {3, 500, 2, 700, 101, 100, 0, 1}) {
        const QString name = expected.size() == 1 ? "first" : QString("table %1").arg(rowCount);
        Dataset item = longTable(name, rowCount);
        expected += rows(item);
        stack.append(item);
        item.clear();
    }
    EXPECT_EQ(lines(stack.take()), expected);
    EXPECT_TRUE(stack.isEmpty());
}
