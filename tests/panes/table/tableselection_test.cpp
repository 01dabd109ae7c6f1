#include "panes/table/datatablemodel.h"
#include "panes/table/selectionfigures.h"
#include "support/printers.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"

#include <gtest/gtest.h>

namespace {

constexpr int plenty = 1000;

class TableSelectionTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Dataset dataset;
        for (const QStringList &row : {QStringList{"a", "1", ""}, QStringList{"b", "2.5", "x"},
                 QStringList{"c", "-4000", ""}, QStringList{"d", "nan", " 7 "}}) {
            dataset.appendRow(row, false);
        }
        dataset.setHeader({"A", "B", "C"});
        model.setDataset(dataset);
    }
    QString figures(const QVector<CellRange> &ranges, int most = plenty) const
    {
        return SelectionFigures(model, ranges, most).text();
    }
    QString copied(const QVector<CellRange> &ranges, CopiedHeader header) const
    {
        return TableSelection(ranges).copied(model, header).toText(TextForm::CommaSeparated);
    }

    ScopedSettings settings;
    ScopedLocale locale{"en_US"};
    DataTableModel model;
};

TEST_F(TableSelectionTest, TellsFiguresOfTheCells)
{
    struct Case
    {
        const char *sentence;
        QVector<CellRange> ranges;
        int most;
        const char *text;
    };
    const Case cases[] = {
        {"nothing selected says nothing", {}, plenty, ""},
        {"one cell shows its value", {{1, 2, 1, 2}}, plenty, "x"},
        {"text has no sum", {{0, 0, 3, 0}}, plenty, "Selected: 4 Empty: 0 Numeric: 0"},
        {"numbers have one, and 'nan' is none", {{0, 1, 3, 1}}, plenty,
            "Selected: 4 Empty: 0 Numeric: 3 Sum: -3,996.5 Average: -1,332.167 Min: -4,000 Max: 2.5"},
        {"blanks round a number don't matter", {{0, 2, 1, 2}, {3, 2, 3, 2}}, plenty,
            "Selected: 3 Empty: 1 Numeric: 1 Sum: 7 Average: 7 Min: 7 Max: 7"},
        {"too many are only counted", {{0, 0, 3, 2}}, 11, "Selected: 12"},
        {"as many as may be are read", {{0, 0, 3, 0}}, 4, "Selected: 4 Empty: 0 Numeric: 0"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        EXPECT_EQ(figures(c.ranges, c.most), c.text);
    }
}

TEST_F(TableSelectionTest, FiguresFollowTheFilter)
{
    model.setShownRows({1, 3});
    EXPECT_EQ(figures({{0, 1, 1, 1}}), "Selected: 2 Empty: 0 Numeric: 1 Sum: 2.5 Average: 2.5 Min: 2.5 Max: 2.5");
}

TEST_F(TableSelectionTest, CopiesRowsAndColumnsInTheirOrder)
{
    struct Case
    {
        const char *sentence;
        QVector<CellRange> ranges;
        CopiedHeader header;
        const char *text;
    };
    const Case cases[] = {
        {"a block with its header", {{0, 0, 1, 1}}, CopiedHeader::With, "A,B\r\na,1\r\nb,2.5"},
        {"a block without", {{0, 0, 1, 1}}, CopiedHeader::Without, "a,1\r\nb,2.5"},
        {"only the header", {{0, 0, 1, 1}}, CopiedHeader::Only, "A,B"},
        {"blocks out of order and overlapping", {{2, 1, 3, 2}, {0, 0, 2, 1}}, CopiedHeader::Without,
            "a,1,\r\nb,2.5,x\r\nc,-4000,\r\nd,nan, 7 "},
        {"corners take the other two along", {{3, 2, 3, 2}, {0, 0, 0, 0}}, CopiedHeader::With, "A,C\r\na,\r\nd, 7 "},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        EXPECT_EQ(copied(c.ranges, c.header), c.text);
    }
}

TEST_F(TableSelectionTest, CopiesOnlyRowsThatTheFilterShows)
{
    model.setShownRows({1, 3});
    EXPECT_EQ(copied({{0, 0, 1, 0}}, CopiedHeader::Without), "b\r\nd");
}

} // namespace
