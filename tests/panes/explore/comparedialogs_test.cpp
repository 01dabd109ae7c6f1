#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "panes/explore/comparedatasetsdialog.h"
#include "panes/explore/compareheadersdialog.h"
#include "panes/explore/diffsoverview.h"
#include "panes/explore/exploreditems.h"
#include "panes/explore/explorekeysdialog.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"
#include "settings/settings.h"
#include "support/grid.h"
#include "support/printers.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <QWindow>
#include <gtest/gtest.h>

// The windows that compare the items of a scene, driven by keys and the mouse.

namespace {

constexpr int leftId = 1;
constexpr int rightId = 2;

template<class Widget>
Widget &named(const QWidget &window, const QString &name)
{
    for (Widget *widget : window.findChildren<Widget *>()) {
        if (widget->accessibleName() == name) {
            return *widget;
        }
    }
    qFatal("no %s", qPrintable(name));
}

class CompareDialogsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        items.setScene(&scene);
        addItem(leftId, grid({"id|name|city", "1|Ann|Bonn", "2|Bob|Rome", "3|Cyd|Oslo"}));
        addItem(rightId, grid({"id|name|town", "3|Cyd|Oslo", "1|Ann|Bern", "4|Dan|Lima"}));
    }
    Node &addItem(int id, Dataset table)
    {
        auto *item = new InputNode(InputOptions(), id);
        scene.insertNode(item, QPointF(0, id * 100));
        table.assignColumnIds(id);
        item->dataset() = table;
        return *item;
    }
    CompareDatasetsDialog &open()
    {
        dialog = std::make_unique<CompareDatasetsDialog>(items, leftId, rightId);
        dialog->resize(900, 500);
        dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
        dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        return *dialog;
    }
    DataTableView &view(const char *side) const
    {
        return named<DataTableView>(*dialog, QString::fromLatin1(side) + QStringLiteral(" data"));
    }
    void choose(const char *name, const QString &text) const
    {
        auto &box = named<QComboBox>(*dialog, QString::fromLatin1(name));
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Home);
        for (int i = 0; i < box.count() && box.currentText() != text; ++i) {
            QTest::keyClick(&box, Qt::Key_Down);
        }
        EXPECT_EQ(box.currentText(), text);
    }
    QString count(const char *name) const { return named<QLabel>(*dialog, QString::fromLatin1(name)).text(); }
    /// Rows of a view as "1 Ann", by row number and second column.
    QStringList shown(const char *side) const
    {
        const DataTableModel &table = view(side).table();
        QStringList rows;
        for (int row = 0; row < table.rowCount(); ++row) {
            rows.append(table.headerData(row, Qt::Vertical).toString() + ' ' + table.index(row, 1).data().toString());
        }
        return rows;
    }
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        // Shortcuts are those of the active window.
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        QTest::keyClick(dialog->windowHandle(), key, modifiers);
    }
    QString place() const
    {
        const QModelIndex left = view("Left").currentIndex();
        const QModelIndex right = view("Right").currentIndex();
        return QStringLiteral("%1:%2 %3:%4").arg(left.row()).arg(left.column()).arg(right.row()).arg(right.column());
    }
    static QString emptyText(const DataTableView &view)
    {
        return view.table().columnCount() == 0 ? QStringLiteral("nothing") : QStringLiteral("a table");
    }

    ScopedSettings settings;
    const ScopedLocale locale{"en_US"};
    GraphScene scene;
    ExploredItems items;
    std::unique_ptr<CompareDatasetsDialog> dialog;
};

TEST_F(CompareDialogsTest, RowsByNumber)
{
    open();
    EXPECT_EQ(shown("Left"), (QStringList{"1 Ann", "2 Bob", "3 Cyd"}));
    EXPECT_EQ(shown("Right"), (QStringList{"1 Cyd", "2 Ann", "3 Dan"}));
    EXPECT_EQ(count("Row differences:"), "3");
    EXPECT_EQ(count("Header differences:"), "1");
    EXPECT_TRUE(named<QLabel>(*dialog, "Left item").text().endsWith(", Id=1, Input"))
        << named<QLabel>(*dialog, "Left item").text().toStdString();
    const DataTableModel &table = view("Left").table();
    EXPECT_EQ(table.index(0, 0).data(Qt::BackgroundRole).value<QBrush>().color(), settings->changedDataColor());
}

TEST_F(CompareDialogsTest, RowsByKeyOnceBothKeysAreChosen)
{
    open();
    choose("Compare rows by:", "Key columns");
    EXPECT_EQ(settings->compareDataByIndex(), RowPairing::KeyColumns);
    EXPECT_EQ(emptyText(view("Left")), "nothing");
    EXPECT_EQ(count("Row differences:"), "");
    choose("Left key column:", "id");
    EXPECT_EQ(emptyText(view("Right")), "nothing");
    choose("Right key column:", "id");
    EXPECT_EQ(shown("Left"), (QStringList{"1 Ann", "2 Bob", "3 Cyd", " "}));
    EXPECT_EQ(shown("Right"), (QStringList{"2 Ann", " ", "1 Cyd", "3 Dan"}));
    EXPECT_EQ(count("Row differences:"), "3");
    choose("Show:", "Only matches");
    EXPECT_EQ(shown("Left"), (QStringList{"3 Cyd"}));
    EXPECT_EQ(count("Row differences:"), "3");
    choose("Show:", "All rows");
    for (QPushButton *button : dialog->findChildren<QPushButton *>()) {
        if (button->text() == "S&wap") {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    EXPECT_EQ(shown("Left"), (QStringList{"1 Cyd", "2 Ann", "3 Dan", " "})) << "swapped";
    EXPECT_EQ(shown("Right"), (QStringList{"3 Cyd", "1 Ann", " ", "2 Bob"}));
}

TEST_F(CompareDialogsTest, KeysGoFromDifferenceToDifference)
{
    settings->setCompareDataByIndex(RowPairing::RowNumbers);
    scene.nodeById(rightId)->dataset() = grid({"id|name|city", "1|Ann|Bern", "2|Bob|Rome", "9|Cyd|Lima", "4|x|y"});
    open();
    struct Step
    {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char *place; ///< on the left and on the right
    };
    const Step steps[] = {
        {Qt::Key_F3, Qt::NoModifier, "0:2 0:2"},
        {Qt::Key_F3, Qt::NoModifier, "2:0 2:0"},
        {Qt::Key_F3, Qt::NoModifier, "2:2 2:2"},
        {Qt::Key_F3, Qt::ShiftModifier, "2:0 2:0"},
        {Qt::Key_F3, Qt::ControlModifier, "3:0 3:0"},
        {Qt::Key_F3, Qt::ControlModifier, "3:0 3:0"},
        {Qt::Key_F3, Qt::ControlModifier | Qt::ShiftModifier, "2:0 2:0"},
        {Qt::Key_End, Qt::AltModifier, "3:0 3:0"},
        {Qt::Key_Home, Qt::AltModifier, "0:0 0:0"},
    };
    for (const Step &step : steps) {
        pressKey(step.key, step.modifiers);
        EXPECT_EQ(place(), step.place);
    }
    EXPECT_TRUE(view("Left").table().index(3, 1).data().toString().isEmpty());
    QTest::keyClick(&view("Left"), Qt::Key_Down);
    EXPECT_EQ(place(), "1:0 1:0") << "the right view follows";
}

TEST_F(CompareDialogsTest, ScrollingIsTiedWhereItIsChecked)
{
    QStringList lines{"a|b"};
    for (int i = 0; i < 1000; ++i) {
        lines.append(QStringLiteral("%1|x").arg(i));
    }
    scene.nodeById(leftId)->dataset() = grid(lines);
    lines[991] = "different|x";
    scene.nodeById(rightId)->dataset() = grid(lines);
    open();
    view("Left").verticalScrollBar()->setValue(500);
    EXPECT_EQ(view("Right").verticalScrollBar()->value(), 500);
    QTest::mouseClick(dialog->findChild<DiffsOverview *>(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 10));
    EXPECT_LT(view("Left").verticalScrollBar()->value(), 100);
    for (QCheckBox *box : dialog->findChildren<QCheckBox *>()) {
        if (box->text() == "synchronize vertical scroll") {
            QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(5, box->height() / 2));
        }
    }
    EXPECT_FALSE(settings->compareDataSyncVert());
    view("Left").verticalScrollBar()->setValue(500);
    EXPECT_LT(view("Right").verticalScrollBar()->value(), 100);
}

TEST_F(CompareDialogsTest, TheWindowFollowsItsItems)
{
    open();
    scene.nodeById(rightId)->dataset() = scene.nodeById(leftId)->datasetConst();
    emit scene.nodeDataChanged(scene.nodeById(rightId));
    QSignalSpy changes(&items, &ExploredItems::changed);
    ASSERT_TRUE(changes.wait());
    EXPECT_EQ(count("Row differences:"), "0");
    scene.nodeById(rightId)->setSelected(true);
    scene.deleteSelected();
    ASSERT_TRUE(changes.wait());
    EXPECT_EQ(emptyText(view("Right")), "nothing");
    EXPECT_EQ(count("Row differences:"), "");
    pressKey(Qt::Key_F3);
    pressKey(Qt::Key_End, Qt::AltModifier);
    EXPECT_EQ(place(), "-1:-1 -1:-1");
}

TEST_F(CompareDialogsTest, TheOverviewPaintsWhereDifferencesLie)
{
    DiffsOverview strip;
    strip.resize(30, 202);
    strip.setRows(1000000, {0, 500000}, Qt::red);
    strip.show();
    const QImage image = strip.grab().toImage();
    const auto isRed = [&](int row) { return image.pixelColor(image.width() / 2, strip.yOf(row)) == QColor(Qt::red); };
    EXPECT_TRUE(isRed(0));
    EXPECT_FALSE(isRed(250000));
    EXPECT_TRUE(isRed(500000));
    EXPECT_FALSE(isRed(999999));
    QSignalSpy chosen(&strip, &DiffsOverview::rowChosen);
    QTest::mousePress(&strip, Qt::LeftButton, Qt::NoModifier, QPoint(5, strip.yOf(500000)));
    QTest::mouseMove(&strip, QPoint(5, strip.height() + 50));
    ASSERT_GE(chosen.count(), 1);
    EXPECT_NEAR(chosen.first().first().toInt(), 500000, 10000);
}

TEST_F(CompareDialogsTest, HeadersByNameAndByIndex)
{
    CompareHeadersDialog headers(items, {leftId, rightId});
    headers.show();
    auto &table = *headers.findChild<QTableWidget *>();
    const auto row = [&](int number) {
        QStringList cells;
        for (int column = 0; column < table.columnCount(); ++column) {
            cells.append(table.item(number, column)->text());
        }
        return cells.join('|');
    };
    EXPECT_EQ(table.horizontalHeaderItem(0)->text(), "Column Name");
    EXPECT_EQ(table.rowCount(), 5);
    EXPECT_EQ(row(0), "city|3|");
    EXPECT_EQ(row(4), "Column Count|3|3");
    EXPECT_EQ(named<QLabel>(headers, "Column differences:").text(), "2");
    QTest::keyClick(&named<QComboBox>(headers, "Compare headers by:"), Qt::Key_Down);
    EXPECT_EQ(settings->compareHeadersByIndex(), HeaderPairing::ColumnIndex);
    EXPECT_EQ(table.horizontalHeaderItem(0)->text(), "Column Index");
    QTest::keyClick(&named<QComboBox>(headers, "Show:"), Qt::Key_End);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(row(0), "3|city|town");
    EXPECT_EQ(table.item(0, 1)->background().color(), settings->changedDataColor());
    EXPECT_EQ(named<QLabel>(headers, "Column differences:").text(), "1");
}

TEST_F(CompareDialogsTest, KeysOfBothTables)
{
    const Dataset top = column(QStringList{"b", "a", "b", "b", "b", "b", "b", "b", "b", "b", "b"});
    const Dataset bottom = column(QStringList{"b", "c"});
    ExploreKeysDialog keys({"Top one", top, ColumnIndex(0)}, {"Bottom one", bottom, ColumnIndex(0)}, true);
    keys.show();
    auto &list = named<QTableWidget>(keys, "Top keys");
    ASSERT_EQ(list.rowCount(), 2);
    EXPECT_EQ(list.item(0, 0)->text(), "b") << "in the order of the rows";
    EXPECT_EQ(list.item(0, 1)->text(), "10");
    list.sortItems(1);
    EXPECT_EQ(list.item(0, 0)->text(), "a") << "1 stands before 10";
    QTest::keyClick(&named<QComboBox>(keys, "Show:"), Qt::Key_End);
    EXPECT_EQ(settings->exploreKeysWindowIndex(), ExploredKeys::OnlyNonMatching);
    ASSERT_EQ(list.rowCount(), 1);
    EXPECT_EQ(list.item(0, 0)->text(), "a");
    QTest::keyClick(&named<QComboBox>(keys, "Show:"), Qt::Key_Home);
    QTest::keyClick(keys.findChild<QCheckBox *>(), Qt::Key_Space);
    EXPECT_FALSE(settings->exploreKeysShowDuplicates());
    ASSERT_EQ(list.rowCount(), 1);
    EXPECT_EQ(list.item(0, 0)->text(), "a");
}

TEST_F(CompareDialogsTest, SwitchesAreKeptForTheNextWindow)
{
    open();
    choose("Show:", "Only differences");
    dialog->resize(800, 444);
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_EQ(settings->compareDataShowIndex(), ComparedPairs::OnlyDifferences);
    EXPECT_FALSE(settings->compareDataWindowGeometry().isEmpty());
    dialog = std::make_unique<CompareDatasetsDialog>(items, leftId, rightId);
    EXPECT_EQ(named<QComboBox>(*dialog, "Show:").currentText(), "Only differences");
    EXPECT_EQ(dialog->height(), 444);
}

} // namespace
