#include "inputs/columnwidths.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

using Widths = QList<int>;

} // namespace

TEST(ColumnWidths, Edits)
{
    const Widths widths{4, 5, 1};
    EXPECT_EQ(ColumnWidths::merged(widths, {0, 1}), (Widths{9, 1}));
    EXPECT_EQ(ColumnWidths::split(widths, 1), (Widths{4, 3, 2, 1})) << "an odd width leaves the left one wider";
    EXPECT_EQ(ColumnWidths::inserted(widths, 0), (Widths{1, 4, 5, 1}));
    EXPECT_EQ(ColumnWidths::inserted(widths, 3), (Widths{4, 5, 1, 1}));
    EXPECT_EQ(ColumnWidths::removed(widths, {0, 2}), (Widths{5}));
    EXPECT_EQ(ColumnWidths::starts(widths), (Widths{0, 4, 9, 10}));
}

TEST(ColumnWidths, SaysWhatCanBeDone)
{
    EXPECT_TRUE(ColumnWidths::canMerge({1, 2, 3}));
    EXPECT_FALSE(ColumnWidths::canMerge({1, 3})) << "they don't stand side by side";
    EXPECT_FALSE(ColumnWidths::canMerge({1}));
    EXPECT_FALSE(ColumnWidths::canMerge({}));
    EXPECT_TRUE(ColumnWidths::canSplit({1, 2}, {1}));
    EXPECT_FALSE(ColumnWidths::canSplit({1, 2}, {0})) << "one character can't be shared";
    EXPECT_FALSE(ColumnWidths::canSplit({2, 2}, {0, 1}));
}

TEST(ColumnWidths, FindsTheColumnOfAPosition)
{
    const struct
    {
        int position;
        int column;
    } cases[] = {{-1, -1}, {0, 0}, {3, 0}, {4, 1}, {8, 1}, {9, 2}, {10, -1}};
    for (const auto &c : cases) {
        EXPECT_EQ(ColumnWidths::columnAt({4, 5, 1}, c.position), c.column) << c.position;
    }
}
