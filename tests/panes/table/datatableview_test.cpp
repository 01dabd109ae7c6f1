#include "panes/table/datatableview.h"

#include "panes/dialogs/prompts.h"
#include "panes/explore/drilldownduplicatesdialog.h"
#include "panes/table/changefinder.h"
#include "panes/table/colfrequenciesdialog.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/drilldowndialog.h"
#include "panes/table/valuedialog.h"
#include "panes/widgets/samplingcombobox.h"
#include "settings/settings.h"
#include "support/grid.h"
#include "support/printers.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

/// Closes what opens, after `look` has had a look at it.
class Onlooker : public Prompts
{
public:
    Onlooker()
        : Prompts(nullptr)
    {
    }
    int exec(QDialog &dialog) override
    {
        const auto *box = qobject_cast<QMessageBox *>(&dialog);
        seen.append(box ? box->text() : dialog.windowTitle());
        if (look) {
            const auto once = look;
            look = nullptr;
            once(dialog);
        }
        return QDialog::Rejected;
    }
    std::function<void(QDialog &dialog)> look;
    QStringList seen;
};

class DataTableViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Dataset dataset;
        dataset.appendRow({"a & b", "1", "x"}, false);
        dataset.appendRow({"c", "2", "x"}, false);
        dataset.appendRow({"", "3", "y"}, false);
        dataset.setHeader({"A", "B", "C"});
        dataset.assignColumnIds(1);
        view.setPrompts(prompts);
        view.setHint(DataTableView::Hint::Pane);
        view.table().setDataset(dataset);
        view.resize(600, 400);
        view.show();
    }
    void select(int top, int left, int bottom, int right)
    {
        const DataTableModel &table = view.table();
        view.selectionModel()->select(
            QItemSelection(table.index(top, left), table.index(bottom, right)), QItemSelectionModel::ClearAndSelect);
    }
    /// The menu that opens at a cell.
    QMenu *menuAt(int row, int column)
    {
        const QPoint place = view.visualRect(view.table().index(row, column)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, view.viewport()->mapToGlobal(place));
        QApplication::sendEvent(view.viewport(), &event);
        return view.findChildren<QMenu *>().value(0);
    }
    static QStringList textsOf(const QMenu &menu)
    {
        QStringList texts;
        for (const QAction *action : menu.actions()) {
            texts.append(action->text());
        }
        return texts;
    }
    static QString clipboard() { return QApplication::clipboard()->text(); }

    ScopedSettings settings;
    ScopedLocale locale{"en_US"};
    Onlooker prompts;
    DataTableView view;
};

TEST_F(DataTableViewTest, CtrlCCopiesWhatIsSelected)
{
    select(0, 0, 1, 1);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "a & b,1\r\nc,2");
    EXPECT_EQ(QApplication::clipboard()->mimeData()->data("text/csv"), "a & b,1\r\nc,2");
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().contains("<td>c</td><td>2</td>"));
    settings->setCopyDataAs(TextForm::TabSeparated);
    view.onCopySelectedWithHeader();
    EXPECT_EQ(clipboard(), "A\tB\r\na & b\t1\r\nc\t2");
    view.onCopySelectedHeaderOnly();
    EXPECT_EQ(clipboard(), "A\tB");
}

TEST_F(DataTableViewTest, HiddenColumnsStayBehind)
{
    view.setColumnHidden(1, true);
    view.selectAll();
    view.onCopySelectedWithoutHeader();
    EXPECT_EQ(clipboard(), "a & b,x\r\nc,x\r\n,y");
    EXPECT_EQ(view.selectionText(), "Selected: 6 Empty: 1 Numeric: 0");
}

TEST_F(DataTableViewTest, AsksBeforeMuchIsCopied)
{
    Dataset large;
    large.setSize(999, 1000);
    view.table().setDataset(large);
    view.selectAll();
    view.onCopySelectedWithoutHeader();
    EXPECT_TRUE(prompts.seen.isEmpty());
    large.setSize(1000, 1000);
    view.table().setDataset(large);
    view.selectAll();
    QApplication::clipboard()->setText("before");
    view.onCopySelectedWithoutHeader();
    EXPECT_EQ(prompts.seen, QStringList("Are you sure you want to copy 1,000 rows x 1,000 cols into the clipboard?"));
    EXPECT_EQ(clipboard(), "before");
}

TEST_F(DataTableViewTest, CellsHaveAMenu)
{
    QMenu *menu = menuAt(0, 0);
    ASSERT_TRUE(menu);
    EXPECT_EQ(textsOf(*menu),
        QStringList({"&Drilldown...", "&Copy Selected With Header", "Copy Selected &Without Header",
            "Filter on &row contains 'a && b'", "&Filter on column contains 'a && b'", "Show &Value..."}));
    EXPECT_FALSE(menu->actions().at(0)->isEnabled());
    QSignalSpy filtered(&view, &DataTableView::filterRowColContains);
    menu->actions().at(3)->trigger();
    menu->actions().at(4)->trigger();
    ASSERT_EQ(filtered.size(), 2);
    EXPECT_EQ(filtered.at(0), QVariantList({"a & b", true}));
    EXPECT_EQ(filtered.at(1), QVariantList({"a & b", false}));
    menu->close();
}

TEST_F(DataTableViewTest, ShiftF10OpensTheMenuOfTheCurrentCell)
{
    view.setCurrentIndex(view.table().index(1, 2));
    QTest::keyClick(&view, Qt::Key_F10, Qt::ShiftModifier);
    const auto *menu = view.findChild<QMenu *>();
    ASSERT_TRUE(menu);
    EXPECT_TRUE(textsOf(*menu).contains("Filter on &row contains 'x'"));
}

TEST_F(DataTableViewTest, HeadersHaveMenus)
{
    view.onVerticalHeaderRightClicked(QPoint(2, view.rowViewportPosition(1) + 2));
    auto *menu = view.findChild<QMenu *>();
    ASSERT_TRUE(menu);
    EXPECT_EQ(textsOf(*menu), QStringList({"Show &Row Values", "&Copy Selected With Header",
                                  "Copy Selected &Without Header", "Copy Selected &Header Only"}));
    menu->actions().at(2)->trigger();
    EXPECT_EQ(clipboard(), "c,2,x");
    QString place;
    prompts.look = [&place](QDialog &dialog) { place = dialog.findChild<QLabel *>()->text(); };
    menu->actions().at(0)->trigger();
    EXPECT_EQ(place, "Row 2 of 3");
    delete menu;
    view.onHorizontalHeaderRightClicked(QPoint(view.columnViewportPosition(2) + 2, 2));
    menu = view.findChild<QMenu *>();
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->actions().at(0)->text(), "Show Column &Values");
    menu->actions().at(2)->trigger();
    EXPECT_EQ(clipboard(), "x\r\nx\r\ny") << "the column, not the row that crosses it";
    menu->actions().at(0)->trigger();
    EXPECT_EQ(prompts.seen, QStringList({"Row Values", "Column Values"}));
}

TEST_F(DataTableViewTest, HeadersShowARowOnDoubleClick)
{
    QStringList values;
    prompts.look = [&values](QDialog &dialog) {
        const Dataset &shown = dialog.findChild<DataTableView *>()->table().dataset();
        values = shown.columnValues(ColumnIndex(0)) + shown.columnValues(ColumnIndex(1));
        dialog.findChildren<QPushButton *>().at(1)->click();
        values += shown.columnValues(ColumnIndex(1));
    };
    const QPoint place(3, view.rowViewportPosition(0) + 3);
    QTest::mouseDClick(view.verticalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(values, QStringList({"A", "B", "C", "a & b", "1", "x", "c", "2", "x"}));
}

TEST_F(DataTableViewTest, HeadersShowTheFrequenciesOfAColumn)
{
    QStringList texts;
    QStringList drilled;
    prompts.look = [&](QDialog &dialog) {
        const QList<QTableWidget *> tables = dialog.findChildren<QTableWidget *>();
        auto *frequencies = tables.at(tables.at(0)->accessibleName() == "Value frequencies" ? 0 : 1);
        for (int row = 0; row < frequencies->rowCount(); ++row) {
            texts += frequencies->item(row, 0)->text() + '=' + frequencies->item(row, 1)->text();
        }
        prompts.look = [&drilled](QDialog &rows) {
            drilled = static_cast<DrilldownDialog &>(rows).view().table().dataset().columnValues(ColumnIndex(1));
        };
        emit frequencies->cellDoubleClicked(0, 0);
    };
    view.onHorizontalHeaderDoubleClicked(2);
    EXPECT_EQ(texts, QStringList({"x=2 (66.7%)", "y=1 (33.3%)"}));
    EXPECT_EQ(drilled, QStringList({"1", "2"}));
    EXPECT_EQ(prompts.seen, QStringList({"Column Values", "Drilldown"}));
}

TEST_F(DataTableViewTest, ShowsAValueWhole)
{
    const QString value = "a b\n" + QString(ValueDialog::longestShown, 'x');
    Dataset dataset;
    dataset.appendRow({value}, false);
    view.table().setDataset(dataset);
    view.setCurrentIndex(view.table().index(0, 0));
    int shown = 0;
    QString marked;
    prompts.look = [&](QDialog &dialog) {
        auto *edit = dialog.findChild<QPlainTextEdit *>();
        shown = edit->toPlainText().size();
        dialog.findChild<QCheckBox *>()->click();
        marked = edit->toPlainText().left(5);
        for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
            if (button->text() == "&Copy") {
                button->click();
            }
        }
    };
    view.onShowValue();
    EXPECT_EQ(shown, ValueDialog::longestShown);
    EXPECT_EQ(marked, QString::fromUtf8("a·b↵\n"));
    EXPECT_EQ(clipboard(), value);
    EXPECT_TRUE(settings->showWhitespaceValueWindow());
}

TEST_F(DataTableViewTest, DrillsDownToTheRowsBehind)
{
    Dataset counts;
    counts.appendRow({"x", "2"}, false);
    counts.appendRow({"y", "1"}, false);
    counts.addDrilldownRows(RowIndex(0), ColumnIndex(), {RowIndex(0), RowIndex(1)});
    counts.addDrilldownRow(RowIndex(1), ColumnIndex(), RowIndex(99));
    const Dataset source = view.table().dataset();
    view.table().setDataset(counts);
    view.table().setDrilldownSource(source);
    QStringList rows;
    prompts.look = [&rows](QDialog &dialog) {
        rows = static_cast<DrilldownDialog &>(dialog).view().table().dataset().columnValues(ColumnIndex(1));
    };
    const QPoint place = view.visualRect(view.table().index(0, 1)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(rows, QStringList({"1", "2"}));
    EXPECT_FALSE(view.table().hasDrilldown(view.table().index(1, 0))) << "a row that isn't there";
    view.table().clear();
    EXPECT_TRUE(view.table().drilldown(QModelIndex()).isEmpty());
}

TEST_F(DataTableViewTest, TellsWhatChangedInTheCurrentCell)
{
    const Dataset previous = view.table().dataset();
    Dataset dataset = previous;
    dataset.setValue(RowIndex(1), ColumnIndex(1), "two");
    view.table().setDataset(dataset, previous);
    view.table().setShowChanges(true);
    QSignalSpy told(&view, &DataTableView::changeMessage);
    view.setCurrentIndex(view.table().index(1, 1));
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told.at(0).at(0).toString(), "'2' -> 'two'");
}

TEST_F(DataTableViewTest, StepsThroughChangesOfShownColumns)
{
    const Dataset previous = view.table().dataset();
    Dataset dataset = previous;
    dataset.setValue(RowIndex(0), ColumnIndex(1), "one");
    dataset.setValue(RowIndex(0), ColumnIndex(2), "z");
    dataset.setValue(RowIndex(2), ColumnIndex(0), "new");
    DataTableModel &table = view.table();
    table.setDataset(dataset, previous);
    const auto all = [&table](const QSet<int> &hidden, bool forwards) {
        QString places;
        TablePlace place;
        do {
            place = forwards ? ChangeFinder::next(table, place, hidden) : ChangeFinder::previous(table, place, hidden);
            places += place.isValid() ? QString("%1,%2 ").arg(place.row).arg(place.column) : QString();
        } while (place.isValid());
        return places;
    };
    EXPECT_EQ(all({}, true), "0,1 0,2 2,0 ");
    EXPECT_EQ(all({}, false), "2,0 0,2 0,1 ");
    EXPECT_EQ(all({1}, true), "0,2 2,0 ");
    table.setShownRows({1, 2});
    EXPECT_EQ(all({}, true), "1,0 ");
}

TEST_F(DataTableViewTest, FollowsTheFontOfTheSettings)
{
    QFont font = settings->dataFont();
    font.setPointSize(30);
    settings->setDataFont(font);
    settings->setDataFontVerticalPadding(4);
    EXPECT_EQ(view.font().pointSize(), 30);
    EXPECT_EQ(view.rowHeight(0), QFontMetrics(font).height() + 8);
}

} // namespace

TEST(ColFrequencies, SaysWhenOnlyASampleIsCounted)
{
    const ScopedSettings settings;
    QStringList lines{QStringLiteral("a")};
    for (int row = 0; row < 250; ++row) {
        lines.append(row % 2 == 0 ? QStringLiteral("x") : QStringLiteral("y"));
    }
    Onlooker prompts;
    ColFrequenciesDialog dialog(grid(lines), ColumnIndex(0), prompts);
    const auto sampled = [&] {
        for (const QLabel *label : dialog.findChildren<QLabel *>()) {
            if (label->accessibleName() == QLatin1String("Sampled")) {
                return label->text();
            }
        }
        return QString();
    };
    auto *sample = dialog.findChild<SamplingComboBox *>();
    const QList<QTableWidget *> tables = dialog.findChildren<QTableWidget *>();
    const QTableWidget *values = tables.at(
        tables.first()->accessibleName() == QLatin1String("Value frequencies") ? 0 : 1);
    sample->setCurrentIndex(sample->findText(QStringLiteral("All rows")));
    EXPECT_EQ(sampled(), "");
    EXPECT_EQ(values->item(0, 1)->text(), "125 (50.0%)");
    sample->setCurrentIndex(sample->findText(QStringLiteral("100 rows")));
    EXPECT_EQ(sampled(), "Counted in 100 of 250 rows");
    EXPECT_TRUE(values->item(0, 1)->text().endsWith(QLatin1String("%)")));
    EXPECT_EQ(Settings::current().sampleComboIndex(), 0);
}

TEST(ColFrequencies, ShowsTheRowsOfValuesThatComeMoreThanOnce)
{
    const ScopedSettings settings;
    Onlooker prompts;
    ColFrequenciesDialog dialog(grid({"letter|n", "b|1", "a|2", "c|3", "b|4", "a|5", "b|6"}), ColumnIndex(0), prompts);
    auto *sample = dialog.findChild<SamplingComboBox *>();
    sample->setCurrentIndex(sample->findText(QStringLiteral("All rows")));
    const QList<QTableWidget *> tables = dialog.findChildren<QTableWidget *>();
    QTableWidget *metrics = tables.at(tables.first()->accessibleName() == QLatin1String("Metrics") ? 0 : 1);
    QTableWidgetItem *line = metrics->findItems(QStringLiteral("Duplicated values"), Qt::MatchExactly).value(0);
    ASSERT_TRUE(line);
    EXPECT_TRUE(line->toolTip().endsWith(QLatin1String("Double click to drilldown.")));
    QStringList values;
    QStringList shown;
    QString hint;
    prompts.look = [&](QDialog &window) {
        auto *tree = window.findChild<QTreeWidget *>();
        const auto &view = static_cast<DrilldownDuplicatesDialog &>(window).view();
        const QPushButton *copy = nullptr;
        for (const QPushButton *button : window.findChildren<QPushButton *>()) {
            copy = button->text() == QLatin1String("Cop&y") ? button : copy;
        }
        ASSERT_TRUE(copy);
        EXPECT_FALSE(copy->isEnabled());
        hint = window.findChild<QLabel *>()->text();
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            values.append(tree->topLevelItem(i)->text(0) + QLatin1Char(' ') + tree->topLevelItem(i)->text(1));
        }
        window.show();
        QTest::keyClick(tree, Qt::Key_Down);
        tree->topLevelItem(1)->setSelected(true);
        EXPECT_TRUE(copy->isEnabled());
        shown = rows(view.table().dataset());
    };
    metrics->scrollToItem(line);
    dialog.show();
    emit metrics->cellDoubleClicked(line->row(), 0);
    EXPECT_EQ(hint, "Select a duplicate value");
    EXPECT_EQ(values, (QStringList{"3 b", "2 a"}));
    EXPECT_EQ(shown, (QStringList{"a|2", "a|5"}));
    EXPECT_EQ(prompts.seen, QStringList{"Duplicates Drilldown"});
}
