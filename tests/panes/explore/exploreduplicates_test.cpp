#include "panes/explore/exploreduplicatesdialog.h"

#include "graph/graphscene.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "panes/dialogs/prompts.h"
#include "panes/items/transformitemwidget.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/columnslistwidget.h"
#include "panes/widgets/multiplecolumnswidget.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/scopedsettings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

/// Looks at the window that opens, and closes it.
class Onlooker : public Prompts
{
public:
    Onlooker()
        : Prompts(nullptr)
    {
    }
    int exec(QDialog &dialog) override
    {
        look(dialog);
        return QDialog::Rejected;
    }
    std::function<void(QDialog &dialog)> look;
};

class ExploreDuplicates : public testing::Test
{
protected:
    void SetUp() override { open("name,town\nAnn,Ulm\nBob,Bonn\nANN,Ulm\nAnn,Kiel\n"); }
    void TearDown() override { m_dialog.reset(); }

    void open(const QByteArray &csv)
    {
        m_dialog.reset();
        m_scene = std::make_unique<GraphScene>();
        QFile file(m_folder.filePath(QStringLiteral("people.csv")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(csv);
        file.close();
        InputOptions options;
        options.path = file.fileName();
        m_input = new InputNode(options, 1);
        m_scene->insertNode(m_input, {});
        m_scene->setAutoRunOn(false);
        m_scene->runTransforms(RunMode::Everything, true);
        ASSERT_GT(m_input->datasetConst().rowCount(), 0);
        DuplicateOptions start;
        start.columns = {m_input->datasetConst().columnId(ColumnIndex(0))};
        m_dialog = std::make_unique<ExploreDuplicatesDialog>(*m_input, start, m_prompts);
        m_dialog->show();
    }
    template<class Button>
    Button &button(const char *text) const
    {
        for (Button *found : m_dialog->findChildren<Button *>()) {
            if (found->text().remove('&') == QLatin1String(text) || found->accessibleName() == QLatin1String(text)) {
                return *found;
            }
        }
        qFatal("no button %s", text);
    }
    QComboBox &matching() const { return *m_dialog->findChild<QComboBox *>(QStringLiteral("matching")); }
    bool shows(const QString &text) const
    {
        for (const QLabel *label : m_dialog->findChildren<QLabel *>()) {
            if (label->isVisible() && label->text().contains(text)) {
                return true;
            }
        }
        return false;
    }
    void press(const char *text) { QTest::mouseClick(&button<QPushButton>(text), Qt::LeftButton); }
    void run()
    {
        press("Run");
        ASSERT_TRUE(QTest::qWaitFor([this] { return !m_dialog->isRunning(); }, 20000));
    }
    DataTableView &view() const { return *m_dialog->findChild<DataTableView *>(); }
    /// What stands in a column of the table, from top to bottom.
    QStringList shown(int column) const
    {
        QStringList texts;
        const DataTableModel &table = view().table();
        for (int row = 0; row < table.rowCount(); ++row) {
            texts.append(table.index(row, column).data().toString());
        }
        return texts;
    }
    QStringList numbers() const
    {
        QStringList texts;
        for (int row = 0; row < view().table().rowCount(); ++row) {
            texts.append(view().table().headerData(row, Qt::Vertical).toString());
        }
        return texts;
    }

    const ScopedSettings m_settings;
    QTemporaryDir m_folder;
    std::unique_ptr<GraphScene> m_scene;
    InputNode *m_input = nullptr;
    Onlooker m_prompts;
    std::unique_ptr<ExploreDuplicatesDialog> m_dialog;
};

} // namespace

TEST_F(ExploreDuplicates, ShowsLikeRowsTogetherUnderTheirOwnNumbers)
{
    EXPECT_EQ(view().table().columnCount(), 2);
    EXPECT_TRUE(shows("Duplicates in 'people.csv', Id=1, Input"));
    run();
    EXPECT_TRUE(shows("Found 1 duplicate and 3 non-duplicates in 0."));
    EXPECT_FALSE(shows("stopped by user"));
    EXPECT_EQ(shown(0), (QStringList{"Ann", "Ann", "Bob", "ANN"}));
    EXPECT_EQ(numbers(), (QStringList{"1", "4", "2", "3"}));
    EXPECT_EQ(shown(2), (QStringList{"", "100", "", ""}));
    EXPECT_EQ(shown(3), (QStringList{"", "1", "", ""}));
    EXPECT_EQ(shown(4), (QStringList{"2", "2", "1", "1"}));
    EXPECT_FALSE(view().table().index(0, 0).data(Qt::BackgroundRole).isValid());
    EXPECT_TRUE(view().table().index(1, 0).data(Qt::BackgroundRole).isValid());
    EXPECT_EQ(m_dialog->findChild<QPlainTextEdit *>()->toPlainText(),
        "1 duplicate row matched with 100% closeness.\n2 non-duplicate rows with 0 duplicates.\n"
        "1 non-duplicate row with 1 duplicate.");
}

TEST_F(ExploreDuplicates, ComparesAsItsSwitchesSay)
{

    auto *closeness = m_dialog->findChild<QSpinBox *>();
    EXPECT_FALSE(closeness->isEnabled());
    button<QCheckBox>("case sensitive").click();
    run();
    EXPECT_TRUE(shows("Found 2 duplicates and 2 non-duplicates"));
    QTest::keyClick(&matching(), Qt::Key_Down);
    EXPECT_TRUE(closeness->isEnabled());
    closeness->setValue(40);
    run();
    EXPECT_TRUE(shows("Found 2 duplicates and 2 non-duplicates"));

    open("name\na b\nab\na-b\n");
    button<QCheckBox>("ignore whitespace").click();
    run();
    EXPECT_TRUE(shows("Found 1 duplicate and 2 non-duplicates"));
    button<QCheckBox>("ignore punctuation").click();
    run();
    EXPECT_TRUE(shows("Found 2 duplicates and 1 non-duplicate in"));
}

TEST_F(ExploreDuplicates, HidesWhatDoesNotMatter)
{
    button<QCheckBox>("hide unchecked columns").click();
    EXPECT_FALSE(view().isColumnHidden(0));
    EXPECT_TRUE(view().isColumnHidden(1));
    button<QCheckBox>("hide rows with no duplicates").click();
    run();
    EXPECT_EQ(numbers(), (QStringList{"1", "4"}));
    EXPECT_TRUE(view().isColumnHidden(1));
    EXPECT_FALSE(view().isColumnHidden(2));
    button<QCheckBox>("hide rows with no duplicates").click();
    button<QCheckBox>("hide unchecked columns").click();
    EXPECT_EQ(view().table().rowCount(), 4);
    EXPECT_FALSE(view().isColumnHidden(1));
}

TEST_F(ExploreDuplicates, GoesFromDuplicateToDuplicate)
{
    open("name\na\nb\na\nc\nb\n"); // shown as a a b b c
    EXPECT_FALSE(button<QToolButton>("Next duplicate row").isEnabled());
    run();
    QList<int> rows;
    for (const char *arrow : {"Next duplicate row", "Next duplicate row", "Next duplicate row",
             "Previous duplicate row", "Previous duplicate row"}) {
        QTest::mouseClick(&button<QToolButton>(arrow), Qt::LeftButton);
        rows.append(view().currentIndex().row());
    }
    EXPECT_EQ(rows, (QList<int>{1, 3, 3, 1, 1}));
}

TEST_F(ExploreDuplicates, RefusesToRunWithoutColumns)
{
    auto *list = m_dialog->findChild<ColumnsListWidget *>();
    const auto corner = [list] { return list->viewport()->grab().toImage().pixelColor(1, 1); };
    EXPECT_NE(corner(), QColor(0xfc, 0x33, 0x00));
    list->setCurrentIndex(list->model()->index(0, 0));
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(corner(), QColor(0xfc, 0x33, 0x00));
    press("Run");
    EXPECT_FALSE(m_dialog->isRunning());
    EXPECT_TRUE(shows("Check at least 1 column to run."));
    EXPECT_EQ(view().table().columnCount(), 2);
}

TEST_F(ExploreDuplicates, StopsAndShowsWhatWasFound)
{
    QByteArray csv("name\n");
    for (int row = 0; row < 40000; ++row) {
        // Texts of which none is close to another, so that the search takes long.
        csv += QByteArray::number(row * 2654435761LL, 36) + QByteArray::number((row + 7) * 40503LL * 65537, 36) + '\n';
    }
    open(csv);
    matching().setCurrentIndex(1);
    m_dialog->findChild<QSpinBox *>()->setValue(45);
    press("Run");
    ASSERT_TRUE(m_dialog->isRunning());
    ASSERT_TRUE(QTest::qWaitFor([this] { return shows("so far") || !m_dialog->isRunning(); }, 20000));
    ASSERT_TRUE(m_dialog->isRunning());
    press("Stop");
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_dialog->isRunning(); }, 20000));
    EXPECT_TRUE(shows(" - stopped by user"));
    EXPECT_GT(view().table().rowCount(), 0);
    EXPECT_LT(view().table().rowCount(), 40000);
    // A window that is closed during a search ends it.
    press("Run");
    ASSERT_TRUE(m_dialog->isRunning());
    m_dialog.reset();
}

TEST_F(ExploreDuplicates, OutlivesItsItem)
{
    press("Run");
    m_scene.reset();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_dialog->isRunning(); }, 20000));
    EXPECT_TRUE(shows("Found 1 duplicate and 3 non-duplicates"));
}

TEST_F(ExploreDuplicates, OpensFromThePanelWithTheOptionsOfTheItem)
{
    auto *dedupe = new TransformNode(Catalogue::create(QStringLiteral("Dedupe")), 2);
    m_scene->insertNode(dedupe, {});
    m_scene->insertConnection(m_input, dedupe);
    Transform &transform = *dedupe->transform();
    transform.createParameters({m_input}, false);
    const ColumnId town = m_input->datasetConst().columnId(ColumnIndex(1));
    transform.parameter(QStringLiteral("Columns"))->setValue(QVariant::fromValue(QList<ColumnId>{town}));
    transform.parameter(QStringLiteral("Match_Type"))->setValue(QStringLiteral("Fuzzy"));
    transform.parameter(QStringLiteral("Fuzziness"))->setValue(65);
    transform.parameter(QStringLiteral("Ignore_Spaces"))->setValue(true);
    PanelState state;
    state.prompts = &m_prompts;
    TransformItemWidget panel(*dedupe);
    panel.setPanelState(state);
    panel.show();
    bool looked = false;
    m_prompts.look = [&](QDialog &dialog) {
        looked = true;
        EXPECT_EQ(dialog.windowTitle(), "Explore Duplicates");
        EXPECT_EQ(dialog.findChild<QComboBox *>(QStringLiteral("matching"))->currentText(), "Fuzzy");
        EXPECT_EQ(dialog.findChild<QSpinBox *>()->value(), 65);
        QStringList checked;
        for (const QCheckBox *box : dialog.findChildren<QCheckBox *>()) {
            if (box->isChecked()) {
                checked.append(box->text().remove('&'));
            }
        }
        EXPECT_EQ(checked, (QStringList{"case sensitive", "ignore whitespace"}));
        EXPECT_EQ(dialog.findChild<MultipleColumnsWidget *>()->checkedColumns(), QList<ColumnId>{town});
    };
    for (QPushButton *button : panel.findChildren<QPushButton *>()) {
        if (button->text().remove('&') == QLatin1String("Explore Duplicates...")) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    EXPECT_TRUE(looked);
}
