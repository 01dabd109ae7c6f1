#include "spreadsheet/sheetlayout.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

TEST(SheetLayout, SplitsColumnsThatChange)
{
    // Against a plain list of widths.
    QRandomGenerator random(9);
    SheetLayout layout;
    ColumnRecord wide;
    wide.first = 3;
    wide.last = 20;
    wide.width = 50;
    wide.hasFormat = true;
    wide.format = 7;
    wide.otherAttributes = " bestFit=\"1\"";
    layout.columns.push_back(wide);
    std::vector<double> widths(30, -1.0);
    std::fill(widths.begin() + 3, widths.begin() + 21, 50.0);
    for (int step = 0; step < 200; ++step) {
        const int column = random.bounded(30);
        widths[static_cast<size_t>(column)] = step;
        layout.setColumn(column, step, step % 2 == 0);
        int behind = 0;
        for (const ColumnRecord &record : layout.columns) {
            ASSERT_GE(record.first, behind) << "in order, without overlaps";
            ASSERT_GE(record.last, record.first);
            behind = record.last + 1;
        }
        for (int i = 0; i < 30; ++i) {
            const ColumnRecord *record = layout.column(i);
            ASSERT_EQ(record ? record->width : -1.0, widths[static_cast<size_t>(i)]);
            ASSERT_TRUE(!record || record->format == (i >= 3 && i <= 20 ? 7u : 0u)) << "the rest stays";
        }
    }
    EXPECT_TRUE(layout.columnsChanged);
}

} // namespace
