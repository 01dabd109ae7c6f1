#include "data/rowkeyindex.h"

#include "data/dataset.h"
#include "support/randomtext.h"

#include <gtest/gtest.h>

namespace {

TEST(RowKeyIndex, NumbersKeysInTheOrderInWhichTheyCome)
{
    RandomText random(23);
    Dataset dataset;
    dataset.setColumnCount(2);
    for (int row = 0; row < 6000; ++row) {
        const QString text = random.chance(30) && row > 0 ? dataset.value(RowIndex(random.below(row)), ColumnIndex(0))
                                                          : random.text(random.chance(50) ? 3 : 30);
        dataset.appendRow({text, random.text(1)});
    }
    const Cell *first = dataset.column(ColumnIndex(0)).cells.constData();
    const Cell *second = dataset.column(ColumnIndex(1)).cells.constData();
    for (const std::vector<const Cell *> &columns :
        {std::vector<const Cell *>{first}, std::vector<const Cell *>{second, first}}) {
        RowKeyIndex index(columns);
        QHash<QStringList, int> numbers;
        QVector<int> firstRows;
        for (int row = 0; row < dataset.rowCount(); ++row) {
            if (row % 32 == 0) {
                index.announce(row, qMin(row + 32, dataset.rowCount()));
            }
            const QStringList key = columns.size() == 1 ? dataset.row(RowIndex(row)).mid(0, 1)
                                                        : dataset.row(RowIndex(row));
            ASSERT_EQ(index.find(row), numbers.value(key, -1));
            if (!numbers.contains(key)) {
                numbers.insert(key, numbers.size());
                firstRows.append(row);
            }
            ASSERT_EQ(index.add(row), numbers.value(key));
            ASSERT_EQ(index.firstRow(numbers.value(key)), firstRows.at(numbers.value(key)));
        }
        EXPECT_EQ(index.size(), numbers.size());
    }
}

TEST(RowKeyIndex, TellsTextsApartByTheirPlaces)
{
    Dataset dataset;
    dataset.appendRow({"longer than a cell", "x"}, false);
    dataset.appendRow({"x", "longer than a cell"});
    dataset.appendRow({"longer than a cel", "lx"});
    RowKeyIndex index(
        {dataset.column(ColumnIndex(0)).cells.constData(), dataset.column(ColumnIndex(1)).cells.constData()});
    EXPECT_EQ(index.add(0), 0);
    EXPECT_EQ(index.add(1), 1);
    EXPECT_EQ(index.add(2), 2);
    EXPECT_EQ(index.add(1), 1);
}

} // namespace
