#include "spreadsheet/cellgrid.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <map>
#include <utility>

using namespace spreadsheet;

namespace {

std::vector<int> areaOf(const CellGrid &grid)
{
    return {grid.firstRow(), grid.lastRow(), grid.firstColumn(), grid.lastColumn()};
}

TEST(CellGrid, KnowsItsUsedArea)
{
    CellGrid grid;
    EXPECT_EQ(areaOf(grid), std::vector<int>({0, 0, 0, 0}));
    grid.cellFor(5, 3);
    EXPECT_EQ(areaOf(grid), std::vector<int>({5, 6, 3, 4}));
    grid.cellFor(2, 7);
    grid.cellFor(5, 1);
    EXPECT_EQ(areaOf(grid), std::vector<int>({2, 6, 1, 8}));
    grid.rowFor(9).hidden = true;
    EXPECT_EQ(areaOf(grid), std::vector<int>({2, 6, 1, 8})) << "a row without cells is not used";
    grid.cellFor(1048575, 16383);
    EXPECT_EQ(areaOf(grid), std::vector<int>({2, 1048576, 1, 16384}));
    grid.clear(3, 1048575, 0, 16383);
    EXPECT_EQ(areaOf(grid), std::vector<int>({2, 3, 7, 8}));
    EXPECT_TRUE(grid.row(9)->hidden) << "cells are cleared, rows stay";
    grid.clearAll();
    EXPECT_EQ(areaOf(grid), std::vector<int>({0, 0, 0, 0}));
    EXPECT_FALSE(grid.row(9));
    grid.cellFor(0, 0);
    EXPECT_EQ(areaOf(grid), std::vector<int>({0, 1, 0, 1}));
}

TEST(CellGrid, DropsFormulasWithTheirCells)
{
    CellGrid grid;
    const auto write = [&grid](int row, int column) {
        grid.cellFor(row, column).number = 7;
        grid.setFormula(row, column, {"A1", QByteArray()});
    };
    write(0, 0);
    write(1, 16383);
    write(2, 2);
    EXPECT_TRUE(grid.cell(0, 0)->isFormula);
    EXPECT_EQ(grid.cell(0, 0)->number, 7) << "the last result stays";
    EXPECT_EQ(grid.formula(1, 16383)->text, "A1");
    EXPECT_FALSE(grid.formula(1, 16382));
    EXPECT_FALSE(grid.cellFor(0, 0).isFormula);
    EXPECT_FALSE(grid.formula(0, 0));
    grid.clear(1, 1, 5, 16383);
    EXPECT_FALSE(grid.formula(1, 16383));
    EXPECT_TRUE(grid.formula(2, 2));
    grid.setFormula(2, 2, {"B2", QByteArray()});
    EXPECT_EQ(grid.formula(2, 2)->text, "B2");
    grid.clearAll();
    EXPECT_FALSE(grid.hasFormulas());
}

TEST(CellGrid, AgreesWithAPlainMap)
{
    QRandomGenerator random(7);
    CellGrid grid;
    std::map<std::pair<int, int>, double> plain;
    for (int step = 0; step < 4000; ++step) {
        const int row = random.bounded(30), column = random.bounded(30);
        switch (random.bounded(8)) {
        case 0: {
            const int rowLast = row + random.bounded(4), columnLast = column + random.bounded(4);
            grid.clear(row, rowLast, column, columnLast);
            for (auto cell = plain.begin(); cell != plain.end();) {
                const auto [r, c] = cell->first;
                const bool isGone = r >= row && r <= rowLast && c >= column && c <= columnLast;
                cell = isGone ? plain.erase(cell) : std::next(cell);
            }
            break;
        }
        case 1:
            grid.rowFor(row).hidden = true;
            break;
        case 2:
            ASSERT_EQ(grid.cell(row, column) != nullptr, plain.count({row, column}) == 1);
            break;
        default:
            grid.cellFor(row, column).number = step;
            plain[{row, column}] = step;
        }
    }
    std::map<std::pair<int, int>, double> read;
    int last = -1;
    for (const auto &[row, content] : grid) {
        last = -1;
        for (const CellRecord &cell : content.cells) {
            ASSERT_GT(cell.column, last);
            last = cell.column;
            read[{row, cell.column}] = cell.number;
        }
    }
    EXPECT_EQ(read, plain);
}

} // namespace
