#include "panes/table/datatablemodel.h"

#include "support/printers.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

constexpr int errorLevel = 2;
constexpr int warningLevel = 1;
constexpr int informationLevel = 0;

/// A table with a header "A", "B" and so on, and ids as an item with id 1 gives them.
Dataset table(const QList<QStringList> &rows)
{
    Dataset dataset;
    for (const QStringList &row : rows) {
        dataset.appendRow(row, false);
    }
    QStringList names;
    for (int column = 0; column < dataset.columnCount(); ++column) {
        names.append(QChar('A' + column));
    }
    dataset.setHeader(names);
    dataset.assignColumnIds(1);
    return dataset;
}

class DataTableModelTest : public testing::Test
{
protected:
    QString text(int row, int column) const { return at(row, column, Qt::DisplayRole).toString(); }
    QString tip(int row, int column) const { return at(row, column, Qt::ToolTipRole).toString(); }
    /// The background's colour; invalid for none.
    QColor color(int row, int column) const
    {
        const QVariant brush = at(row, column, Qt::BackgroundRole);
        return brush.isValid() ? brush.value<QBrush>().color() : QColor();
    }
    QVariant at(int row, int column, int role) const { return model.data(model.index(row, column), role); }
    QColor headerColor(int section, Qt::Orientation orientation) const
    {
        const QVariant brush = model.headerData(section, orientation, Qt::BackgroundRole);
        return brush.isValid() ? brush.value<QBrush>().color() : QColor();
    }

    ScopedSettings settings;
    DataTableModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(DataTableModelTest, ShowsCellsAndHeaders)
{
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 0);
    EXPECT_FALSE(model.data(QModelIndex()).isValid());
    model.setDataset(table({{"x", "1"}, {"", "2"}}));
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 0) << "a cell has no rows";
    EXPECT_EQ(text(0, 0), "x");
    EXPECT_EQ(text(1, 1), "2");
    EXPECT_EQ(tip(0, 0), "x");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "B");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(), "B (column 2)");
    EXPECT_EQ(model.headerData(1, Qt::Vertical).toString(), "2");
    EXPECT_FALSE(model.headerData(2, Qt::Vertical).isValid());
    EXPECT_FALSE(model.headerData(-1, Qt::Horizontal).isValid());
    model.clear();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal).isValid());
}

TEST_F(DataTableModelTest, NumbersStandAtTheRight)
{
    struct Case
    {
        const char *sentence;
        const char *language;
        const char *value;
        int alignment;
    };
    const Case cases[] = {
        {"a whole number", "en_US", "12", 130},
        {"a real one with blanks round it", "en_US", " -1.5 ", 130},
        {"a grouped one", "en_US", "1,234.5", 130},
        {"words", "en_US", "12 apples", 129},
        {"nothing", "en_US", "", 129},
        {"'nan' is a word", "en_US", "nan", 129},
        {"a German number in German", "de_DE", "1.234,5", 130},
        {"a German number in English", "en_US", "1.234,5", 129},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        const ScopedLocale locale(c.language);
        model.setDataset(table({{c.value}}));
        EXPECT_EQ(at(0, 0, Qt::TextAlignmentRole).toInt(), c.alignment);
    }
}

TEST_F(DataTableModelTest, MarksWhiteSpace)
{
    const QString value = QString::fromUtf8(" a\tb\u00a0c\r\nd");
    model.setDataset(table({{value}}));
    EXPECT_EQ(text(0, 0), value);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.setShowWhitespace(true);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(text(0, 0), QString::fromUtf8("·a→b°c␍↵d"));
    EXPECT_EQ(tip(0, 0), text(0, 0));
    EXPECT_EQ(model.dataset().value(RowIndex(0), ColumnIndex(0)), value) << "marks are for looking at only";
}

TEST_F(DataTableModelTest, LongTextsAreCut)
{
    const QString dots(QChar(0x2026));
    const QString euros(2000000, QChar(0x20AC));
    QString faces;
    for (int i = 0; i < 60; ++i) {
        faces += QString::fromUtf8("\U0001F600");
    }
    model.setDataset(table({{euros, faces, QString(100, 'x'), QString(101, 'x')}}));
    EXPECT_EQ(text(0, 0), euros.left(9999) + dots) << "a view lays out all that it gets";
    EXPECT_EQ(tip(0, 0), euros.left(99) + dots);
    EXPECT_EQ(text(0, 1), faces);
    EXPECT_EQ(tip(0, 1), faces.left(98) + dots) << "no half of a character";
    EXPECT_EQ(tip(0, 2), QString(100, 'x'));
    EXPECT_EQ(tip(0, 3), QString(99, 'x') + dots);
}

TEST_F(DataTableModelTest, TipsShowMarkupAsItIsWritten)
{
    Dataset dataset = table({{"<img src='file:///x.png'>"}});
    dataset.setHeaderValue(ColumnIndex(0), "<b>bold</b>");
    model.setDataset(dataset);
    EXPECT_TRUE(tip(0, 0).contains("&lt;img")) << tip(0, 0).toStdString();
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString().contains("<b>"));
    EXPECT_EQ(text(0, 0), "<img src='file:///x.png'>");
}

TEST_F(DataTableModelTest, ChangesAreFoundByColumn)
{
    const QColor changed(0x4d, 0x8a, 0xff);
    const Dataset previous = table({{"a", "b"}, {"c", "d"}});
    Dataset dataset = previous;
    dataset.insertEmptyColumn(ColumnIndex(0));
    dataset.assignColumnIds(2);
    dataset.setValue(RowIndex(0), ColumnIndex(1), "a ");
    dataset.appendRow({"", "e", "f"});
    model.setDataset(dataset, previous);
    EXPECT_FALSE(color(0, 1).isValid()) << "not while changes aren't shown";
    model.setShowChanges(true);
    EXPECT_EQ(color(0, 0), changed) << "a new column is changed as a whole";
    EXPECT_EQ(color(2, 0), changed);
    EXPECT_EQ(color(0, 1), changed) << "a blank more is a change";
    EXPECT_EQ(tip(0, 1), "'a' -> 'a '");
    EXPECT_FALSE(color(1, 1).isValid()) << "moved to the right, but the same";
    EXPECT_EQ(tip(1, 1), "c");
    EXPECT_FALSE(color(2, 1).isValid()) << "the previous table has no such row";
    EXPECT_TRUE(model.isChanged(RowIndex(0), ColumnIndex(1)));
    EXPECT_FALSE(model.isChanged(RowIndex(0), ColumnIndex(2)));
    dataset.setHeaderValue(ColumnIndex(2), "renamed");
    model.setDataset(dataset, previous);
    EXPECT_EQ(color(0, 2), changed) << "a renamed column is changed as a whole";
    settings->setChangedDataColor(Qt::green);
    EXPECT_EQ(color(0, 1), QColor(Qt::green));
    model.setDataset(dataset);
    EXPECT_FALSE(color(0, 1).isValid()) << "an input has nothing that it could differ from";
    EXPECT_EQ(tip(0, 1), "a ");
}

TEST_F(DataTableModelTest, TipsOfChangesCutBothValues)
{
    const Dataset previous = table({{QString(60, 'x')}});
    Dataset dataset = previous;
    dataset.setValue(RowIndex(0), ColumnIndex(0), QString(50, 'y'));
    model.setDataset(dataset, previous);
    model.setShowChanges(true);
    EXPECT_EQ(tip(0, 0), QString("'%1' -> '%2'").arg(QString(49, 'x') + QChar(0x2026), QString(50, 'y')));
}

TEST_F(DataTableModelTest, VerificationMarksCellsRowsAndColumns)
{
    const QColor error(0xe7, 0x40, 0x5b);
    const QColor warning(0xea, 0x8f, 0x06);
    const QColor information(0xed, 0xb4, 0x05);
    const Dataset previous = table({{"a", "b"}, {"c", "d"}});
    Dataset dataset = previous;
    dataset.setValue(RowIndex(0), ColumnIndex(0), "changed");
    dataset.addCellIssue(RowIndex(0), ColumnIndex(0), errorLevel, 7);
    dataset.addCellIssue(RowIndex(0), ColumnIndex(1), informationLevel, 7);
    dataset.addDatasetRowIssue(RowIndex(1), warningLevel, 5);
    model.setDataset(dataset, previous);
    model.setShowChanges(true);
    model.setHighlightColumns({1});
    EXPECT_EQ(color(0, 0), QColor(0x4d, 0x8a, 0xff));
    model.setVerification(true);
    EXPECT_EQ(color(0, 0), error) << "before the changes";
    EXPECT_EQ(color(0, 1), information) << "before the columns that options use";
    EXPECT_EQ(tip(0, 0), dataset.issueText(RowIndex(0), ColumnIndex(0)));
    EXPECT_NE(tip(0, 0), "");
    EXPECT_FALSE(color(1, 0).isValid()) << "a rule of the table marks the row, not its cells";
    EXPECT_EQ(tip(1, 0), "c");
    EXPECT_EQ(headerColor(0, Qt::Horizontal), error);
    EXPECT_EQ(headerColor(1, Qt::Horizontal), information);
    EXPECT_EQ(headerColor(0, Qt::Vertical), error) << "the highest level of the row";
    EXPECT_EQ(headerColor(1, Qt::Vertical), warning);
    EXPECT_EQ(
        model.headerData(1, Qt::Vertical, Qt::ToolTipRole).toString(), dataset.issueText(RowIndex(1), ColumnIndex()));
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(),
        "A (column 1)\n" + dataset.issueText(RowIndex(), ColumnIndex(0)));
    settings->setVerifyFailErrorColor(Qt::black);
    EXPECT_EQ(color(0, 0), QColor(Qt::black));
    const QColor tint = color(1, 1);
    EXPECT_TRUE(tint.isValid()) << "a column that options use";
    EXPECT_LT(tint.alphaF(), 0.5) << "text stays legible on it";
}

TEST_F(DataTableModelTest, FilterKeepsTheNumbersOfRows)
{
    const Dataset previous = table({{"a"}, {"b"}, {"c"}, {"d"}});
    Dataset dataset = previous;
    dataset.setValue(RowIndex(3), ColumnIndex(0), "D");
    model.setDataset(dataset, previous);
    model.setShowChanges(true);
    model.setShownRows({1, 3});
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(text(0, 0), "b");
    EXPECT_EQ(text(1, 0), "D");
    EXPECT_TRUE(color(1, 0).isValid());
    EXPECT_EQ(model.headerData(1, Qt::Vertical).toString(), "4");
    EXPECT_EQ(model.rowOf(1), RowIndex(3));
    EXPECT_EQ(model.modelRowOf(RowIndex(3)), 1);
    EXPECT_EQ(model.modelRowOf(RowIndex(2)), -1);
    EXPECT_EQ(model.modelRowOf(RowIndex(9)), -1);
    model.setShownRows({});
    EXPECT_EQ(model.rowCount(), 0);
    model.showAllRows();
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.modelRowOf(RowIndex(2)), 2);
    model.setShownRows({0});
    model.setDataset(previous);
    EXPECT_EQ(model.rowCount(), 4) << "another table is shown whole";
}

TEST_F(DataTableModelTest, TablesOverTheLimitsAreTooBig)
{
    struct Case
    {
        const char *sentence;
        int rows;
        int columns;
        const char *text;
    };
    const Case cases[] = {
        {"rows at the limit", 10000000, 1, ""},
        {"a row more", 10000001, 1,
            "1 cols x 10,000,001 rows is too big to display\n\nUse a 'Sample' transform to reduce to <=10,000,000 "
            "rows"},
        {"columns at the limit", 1, 100000, ""},
        {"a column more", 1, 100001,
            "100,001 cols x 1 rows is too big to display\n\nUse a 'Remove Cols' transform to reduce to <=100,000 "
            "columns"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        DataTableModel big; // without a tester, which looks at every column
        Dataset dataset;
        dataset.setSize(c.rows, c.columns);
        big.setDataset(dataset);
        const bool fits = *c.text == '\0';
        EXPECT_EQ(big.isTooBig(), !fits);
        EXPECT_EQ(big.rowCount(), fits ? c.rows : 0);
        EXPECT_EQ(big.columnCount(), fits ? c.columns : 0);
        EXPECT_EQ(big.tooBigText(), QString::fromLatin1(c.text));
        EXPECT_TRUE(big.dataset().column(ColumnIndex(0)).cells.sharesWith(dataset.column(ColumnIndex(0)).cells))
            << "showing copies nothing";
    }
}

TEST_F(DataTableModelTest, ShownTableOutlivesTheOriginal)
{
    auto dataset = std::make_unique<Dataset>(table({{"a longer text"}}));
    auto previous = std::make_unique<Dataset>(table({{"another longer text"}}));
    model.setDataset(*dataset, *previous);
    model.setShowChanges(true);
    dataset->setValue(RowIndex(0), ColumnIndex(0), "written meanwhile");
    EXPECT_EQ(text(0, 0), "a longer text") << "until it is told what to show now";
    dataset.reset();
    previous.reset();
    EXPECT_EQ(tip(0, 0), "'another longer text' -> 'a longer text'");
}

TEST_F(DataTableModelTest, LetsGoOfTheTablesWhenTold)
{
    Dataset dataset = table({{"a"}});
    Dataset previous = dataset;
    const Cell *const cells = dataset.column(ColumnIndex(0)).cells.constData();
    model.setDataset(dataset, dataset);
    previous.clear();
    model.clear();
    dataset.setValue(RowIndex(0), ColumnIndex(0), "b");
    EXPECT_EQ(dataset.column(ColumnIndex(0)).cells.constData(), cells) << "written in place, since nobody shares it";
}

} // namespace
