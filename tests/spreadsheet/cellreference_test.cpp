#include "spreadsheet/cellreference.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

TEST(CellReference, ReadsPlaces)
{
    struct
    {
        const char *text;
        int row, column; // -1 for none
    } const cases[] = {
        {"A1", 0, 0},
        {"z9", 8, 25},
        {"AA10", 9, 26},
        {"$B$7", 6, 1},
        {"B$7", 6, 1},
        {"XFD1048576", 1048575, 16383},
        {"A0001", 0, 0},
        {"XFE1", -1, -1},
        {"A1048577", -1, -1},
        {"A0", -1, -1},
        {"A", -1, -1},
        {"1", -1, -1},
        {"", -1, -1},
        {"$", -1, -1},
        {"A1B", -1, -1},
        {"A 1", -1, -1},
        {"A-1", -1, -1},
        {"$$A1", -1, -1},
        {"A$$1", -1, -1},
        {"A1$", -1, -1},
        {"A99999999999999999999", -1, -1},
        {"AAAAAAAAAAAAAAAAAAAA1", -1, -1},
        {"\xC1"
         "1",
            -1, -1},
        {"[1", -1, -1},
        {"@1", -1, -1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        int row = -1, column = -1;
        EXPECT_EQ(parseCellReference(c.text, &row, &column), c.row >= 0);
        EXPECT_EQ(row, c.row);
        EXPECT_EQ(column, c.column);
    }
}

TEST(CellReference, ReadsBackEveryColumn)
{
    for (int i = 0; i < 16384; ++i) {
        int row = -1, column = -1;
        ASSERT_TRUE(parseCellReference(cellReference(i, i).constData(), &row, &column));
        ASSERT_EQ(row, i);
        ASSERT_EQ(column, i);
    }
}

TEST(CellReference, ReadsRanges)
{
    struct
    {
        const char *text, *range; // empty for none
    } const cases[] = {
        {"B7", "B7"},
        {"A1:C3", "A1:C3"},
        {"C1:A3", "A1:C3"},
        {"C3:A1", "A1:C3"},
        {"$A$1:$B2", "A1:B2"},
        {"A1:A1", "A1"},
        {"B:D", "B1:D1048576"},
        {"$D:$B", "B1:D1048576"},
        {"2:3", "A2:XFD3"},
        {"$3:2", "A2:XFD3"},
        {"A:3", ""},
        {"A", ""},
        {"7", ""},
        {"A1:C", ""},
        {"A:C1", ""},
        {":", ""},
        {"A1:", ""},
        {":A1", ""},
        {"A1:B2:C3", ""},
        {"A1 B2", ""},
        {"", ""},
        {"#REF!", ""},
        {"A:XFE", ""},
        {"0:3", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text);
        CellRange range;
        const bool isRange = parseRange(c.text, &range);
        EXPECT_EQ(isRange ? rangeReference(range) : QByteArray(), c.range);
    }
}

} // namespace
