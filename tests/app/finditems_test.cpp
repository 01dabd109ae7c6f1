#include "app/boxanswers.h"
#include "graph/graphscene.h"
#include "graph/notenode.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "panes/explore/finditemsdialog.h"
#include "panes/explore/nodesummarydialog.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/scopedsettings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

/// An input with a table, a Case, a Sort and a note.
class ItemsFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile file(m_folder.filePath(QStringLiteral("orders.csv")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("name,total\nAnn,12\nBob,7\n");
        file.close();
        InputOptions options;
        options.path = file.fileName();
        auto *input = new InputNode(options, 7);
        m_scene.insertNode(input, {});
        add("Case", 17, input);
        add("Sort", 20, input);
        auto *note = new NoteNode(NoteNode::NoArrow, 71);
        note->setComment(QStringLiteral("Ann asked for it"));
        m_scene.insertNode(note, {});
        m_scene.setAutoRunOn(false);
        m_scene.runTransforms(RunMode::Everything, true);
    }
    void add(const char *type, int id, Node *source)
    {
        auto *node = new TransformNode(Catalogue::create(QString::fromLatin1(type)), id);
        m_scene.insertNode(node, {});
        m_scene.insertConnection(source, node);
        node->transform()->createParameters({source}, false);
    }
    QList<int> selected() const
    {
        QList<int> ids;
        for (const Node *node : m_scene.nodes(true)) {
            ids.append(node->id());
        }
        std::sort(ids.begin(), ids.end());
        return ids;
    }
    template<class Button>
    static Button &button(const QWidget &window, const char *text)
    {
        for (Button *found : window.findChildren<Button *>()) {
            if (found->text().remove('&') == QLatin1String(text)) {
                return *found;
            }
        }
        ADD_FAILURE() << text;
        return *window.findChild<Button *>();
    }

    const ScopedSettings m_settings;
    QTemporaryDir m_folder;
    GraphScene m_scene;
    ScriptedPrompts m_prompts;
};

class FindItems : public ItemsFixture
{
protected:
    FindItems()
        : m_dialog([this]() -> GraphScene & { return m_scene; }, [](Node &) {}, [this] { ++m_zooms; })
    {
        m_dialog.open();
    }
    /// Leaves just these places checked.
    void lookIn(const QStringList &places)
    {
        for (QCheckBox *box : m_dialog.findChildren<QCheckBox *>()) {
            const bool isKind = box->text().at(0).isUpper();
            const bool isPlace = !isKind && box->text() != QLatin1String("case sensitive")
                                 && box->text() != QLatin1String("zoom selected");
            if (isPlace && box->isChecked() != places.contains(box->text())) {
                box->click();
            }
        }
    }
    void type(const QString &text)
    {
        auto *line = m_dialog.findChild<QLineEdit *>();
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Delete);
        QTest::keyClicks(line, text);
    }
    void press(const char *text) { button<QPushButton>(m_dialog, text).click(); }
    QString said() const
    {
        for (const QLabel *label : m_dialog.findChildren<QLabel *>()) {
            if (label->accessibleName() == QLatin1String("Result")) {
                return label->text();
            }
        }
        return {};
    }

    int m_zooms = 0;
    FindItemsDialog m_dialog;
};

class ItemSummary : public ItemsFixture
{
protected:
    QTableWidget &table() { return *m_dialog->findChild<QTableWidget *>(); }
    void open() { m_dialog = std::make_unique<NodeSummaryDialog>(m_scene, m_prompts); }
    QStringList column(int number)
    {
        QStringList texts;
        for (int row = 0; row < table().rowCount(); ++row) {
            texts.append(table().item(row, number)->text());
        }
        return texts;
    }

    std::unique_ptr<NodeSummaryDialog> m_dialog;
};

} // namespace

TEST(ItemSearch, SplitsTermsAtBlanksOutsideQuotes)
{
    EXPECT_EQ(ItemSearch::termsOf(QStringLiteral("  a \"b c\"  d\"e ")), (QStringList{"a", "b c", "d", "e"}));
    EXPECT_EQ(ItemSearch::termsOf(QStringLiteral(" \"\" ")), QStringList());
}

TEST_F(FindItems, SelectsWhatMatchesInThePlacesChosen)
{
    const struct
    {
        const char *shows;
        const char *text;
        const char *join;
        QStringList places;
        QList<int> found;
    } cases[] = {
        {"ids by their digits", "7", "Matching all", {"ids"}, {7, 17, 71}},
        {"names in any case", "case ORDERS", "Matching any", {"names"}, {7, 17}},
        {"all terms of one item", "ann \"asked for\"", "Matching all", {"comments"}, {71}},
        {"terms in several places", "17 case", "Matching all", {"names", "ids"}, {17}},
        {"column names", "total", "Matching all", {"column names"}, {7, 17, 20}},
        {"cells", "bob", "Matching all", {"data values (slow)"}, {7, 17, 20}},
        {"options as they are shown", "\"lower case\"", "Matching all", {"option values"}, {17}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.shows);
        m_scene.clearSelection();
        lookIn(c.places);
        auto *join = m_dialog.findChild<QComboBox *>();
        join->setCurrentIndex(join->findText(QLatin1String(c.join)));
        type(QString::fromLatin1(c.text));
        press("Select All");
        EXPECT_EQ(selected(), c.found);
    }
    EXPECT_EQ(said(), "Selected 1 item(s) matching 'lower case' IN option values");
    button<QCheckBox>(m_dialog, "Transforms").click();
    press("Select All");
    EXPECT_EQ(said(), "No items matching 'lower case' IN option values");
}

TEST_F(FindItems, StepsThroughWhatMatchesAndRoundTheEnds)
{
    lookIn({"ids"});
    type(QStringLiteral("7"));
    button<QCheckBox>(m_dialog, "zoom selected").click();
    press("Select Next");
    EXPECT_EQ(selected(), QList<int>{7});
    QTest::keyClick(m_dialog.findChild<QLineEdit *>(), Qt::Key_Return);
    EXPECT_EQ(selected(), QList<int>{17});
    EXPECT_EQ(said(), "Selected item 2 of 3 item(s) matching '7' IN ids");
    press("Select Previous");
    press("Select Previous");
    EXPECT_EQ(selected(), QList<int>{71});
    EXPECT_EQ(m_zooms, 4);
    m_scene.nodeById(71)->deleteNode();
    press("Select Next");
    EXPECT_EQ(selected(), QList<int>{7}) << "what is gone isn't found";
}

TEST_F(FindItems, SaysWhatIsMissing)
{
    EXPECT_EQ(said(), "Type one or more search terms");
    EXPECT_FALSE(button<QPushButton>(m_dialog, "Select All").isEnabled());
    type(QStringLiteral("a b"));
    EXPECT_EQ(said(), "Find items matching 'a' AND 'b' IN names");
    lookIn({});
    EXPECT_EQ(said(), "Choose what to search in");
    lookIn({"names"});
    for (const char *kind : {"Inputs", "Transforms", "Outputs", "Charts", "Notes"}) {
        button<QCheckBox>(m_dialog, kind).click();
    }
    EXPECT_EQ(said(), "Choose type(s) of item to search");
    m_dialog.reject();
    EXPECT_EQ(Settings::current().findText(), "a b");
    EXPECT_FALSE(Settings::current().findOfCharts());
}

TEST_F(ItemSummary, ShowsEachItemAndSortsNumbersAsNumbers)
{
    open();
    EXPECT_EQ(column(0), (QStringList{"7", "17", "20", "71"}));
    EXPECT_EQ(column(2), (QStringList{"Input", "Transform", "Transform", "Note"}));
    EXPECT_EQ(column(5), (QStringList{"2", "2", "2", ""}));
    EXPECT_EQ(column(10), (QStringList{"17, 20", "", "", ""}));
    table().sortByColumn(0, Qt::DescendingOrder);
    EXPECT_EQ(column(0), (QStringList{"71", "20", "17", "7"}));
    EXPECT_TRUE(
        table().horizontalHeaderItem(0)->toolTip().endsWith(QLatin1String("\nClick header to sort by this column.")));
    const QList<QLabel *> labels = m_dialog->findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
        return label->text() == QLatin1String("Inputs: 1    Transforms: 2    Outputs: 0    Charts: 0    Notes: 1");
    }));
}

TEST_F(ItemSummary, KeepsSortingOrderAndWidths)
{
    open();
    table().sortByColumn(1, Qt::DescendingOrder);
    table().horizontalHeader()->moveSection(15, 0);
    table().setColumnWidth(3, 77);
    m_dialog.reset();
    open();
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorSection(), 1);
    EXPECT_EQ(table().horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    EXPECT_EQ(table().horizontalHeader()->logicalIndex(0), 15);
    EXPECT_EQ(table().columnWidth(3), 77);
}

TEST_F(ItemSummary, EnterSelectsTheItemAndCloses)
{
    open();
    m_dialog->show();
    table().setCurrentCell(1, 1);
    emit table().itemDoubleClicked(table().item(1, 1));
    EXPECT_EQ(selected(), QList<int>{17});
    EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
}

TEST_F(ItemSummary, IsExportedAndCopiedAsItIsShown)
{
    open();
    table().horizontalHeader()->moveSection(2, 0);
    m_prompts.paths = QStringList{m_folder.filePath(QStringLiteral("summary"))};
    button<QPushButton>(*m_dialog, "Export...").click();
    EXPECT_EQ(m_prompts.requests.first().filter, "Summary data (*.csv)");
    QFile file(m_folder.filePath(QStringLiteral("summary.csv")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readLine().startsWith("Type,Id,Name,Processing,Columns,Rows,Status,"));
    EXPECT_TRUE(file.readLine().startsWith("Input,7,orders.csv,"));
    button<QPushButton>(*m_dialog, "Copy").click();
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QLatin1String("Input,7,orders.csv,")));
    QApplication::clipboard()->clear();
}
