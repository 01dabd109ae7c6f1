#include "panes/table/datafilter.h"

#include "data/dataset.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

TEST(DataFilter, FindsRowsAndColumnsInAnyCase)
{
    Dataset dataset;
    for (const QStringList &row : {QStringList{"Anna", "1.5", ""}, QStringList{"BEN", "", "anna and ben"},
             QStringList{"", QString::fromUtf8("Ölanna"), "\t"}, QStringList{"", "", ""}}) {
        dataset.appendRow(row, false);
    }
    dataset.setHeader({"Name", "Number", "a.b"});
    struct Case
    {
        const char *sentence;
        const char *text;
        QVector<int> rows;
        QVector<int> columns;
        QVector<int> named;
    };
    const Case cases[] = {
        {"any case, inside of words, short and long cells", "aNnA", {0, 1, 2}, {0, 1, 2}, {}},
        {"umlauts have cases too", "\u00f6l", {2}, {1}, {}},
        {"a point is a point", "1.5", {0}, {1}, {}},
        {"a text that is only in names", "n", {0, 1, 2}, {0, 1, 2}, {0, 1}},
        {"blanks count", "\t", {2}, {2}, {}},
        {"a text that is nowhere", "xyz", {}, {}, {}},
        {"every cell contains nothing", "", {0, 1, 2, 3}, {0, 1, 2}, {0, 1, 2}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        const QString text = QString::fromUtf8(c.text);
        EXPECT_EQ(DataFilter::rowsContaining(dataset, text), c.rows);
        EXPECT_EQ(DataFilter::columnsContaining(dataset, text), c.columns);
        EXPECT_EQ(DataFilter::columnsNamed(dataset, text), c.named);
    }
}

} // namespace
