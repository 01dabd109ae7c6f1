#include "panes/items/itempane.h"

#include "app/application.h"
#include "app/boxanswers.h"
#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "graph/graphscene.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "panes/items/inputitemwidget.h"
#include "panes/items/outputitemwidget.h"
#include "panes/items/parameterform.h"
#include "panes/items/transformitemwidget.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/waitfor.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <gtest/gtest.h>

// The right pane of the real window, driven by keys and the mouse: an input, an Insert, a Case and an output.

namespace {

constexpr int inputId = 1;
constexpr int insertId = 2;
constexpr int caseId = 3;
constexpr int outputId = 4;

class ItemPaneTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setWarnOnLocaleChange(false);
        settings.setOpenAutoRun(AutoRunChoice::LeaveAutoRun);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setProcessingDelay(longDelay);
        RecoveryFile::remove();
        writeFile(path("in.csv"), "a,b\nann,z\nbob,x\n");
        TestDocument document;
        document.inputs = inputXml(inputId, QStringLiteral("in"), path("in.csv"));
        document.transforms = "<transform id=\"2\" name=\"Insert\"><parameters>"
                              "<parameter name=\"Columns\" value=\"1\"/><parameter name=\"Insert\" value=\"x\"/>"
                              "<parameter name=\"With\" value=\"Start\"/></parameters></transform>"
                              "<transform id=\"3\" name=\"Case\"><parameters>"
                              "<parameter name=\"Columns\" value=\"1\"/></parameters></transform>";
        document.outputs = outputXml(outputId, QStringLiteral("out"), path("out.csv"));
        document.connections = connectionXml(inputId, insertId) + connectionXml(insertId, caseId)
                               + connectionXml(caseId, outputId);
        writeFile(path("flow.transform"), document.xml());
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        ASSERT_TRUE(m_window->documents().openDocument(path("flow.transform")));
        ASSERT_EQ(node(outputId).state(), NodeState::Processed);
        m_window->activateWindow();
    }
    void TearDown() override
    {
        Application::instance()->settings().setInputFileExtensions(m_inputExtensions);
        Application::instance()->settings().setOutputFileExtensions(m_outputExtensions);
        stopRequested = false;
        Application::instance()->settings().setProcessingDelay(2.0);
        m_window.reset();
        RecoveryFile::remove();
    }

    static constexpr double longDelay = 1000.0;
    static constexpr double shortDelay = 0.05;

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    GraphScene &scene() const { return m_window->scene(); }
    Node &node(int id) const { return *scene().nodeById(id); }
    ItemPane &pane() const { return *m_window->findChild<ItemPane *>(); }
    void select(int id) const
    {
        scene().clearSelection();
        node(id).setSelected(true);
    }
    /// The editor of an option of the item that is shown.
    template<class Widget>
    Widget &editor(const char *name) const
    {
        auto *widget = pane().itemWidget()->findChild<Widget *>(QString::fromLatin1(name));
        EXPECT_TRUE(widget) << name;
        return *widget;
    }
    QToolButton &button(const QString &name) const
    {
        for (QToolButton *candidate : pane().itemWidget()->findChildren<QToolButton *>()) {
            if (candidate->accessibleName() == name) {
                return *candidate;
            }
        }
        ADD_FAILURE() << name.toStdString();
        return *pane().itemWidget()->findChild<QToolButton *>();
    }
    QString cell(int id) const { return node(id).datasetConst().value(RowIndex(0), ColumnIndex(0)); }
    QAction &action(const char *name) const { return *m_window->findChild<QAction *>(QString::fromLatin1(name)); }
    void setAutoRun(bool on) const { action("m_runAutoAction").setChecked(on); }

    QTemporaryDir m_folder;
    RunLog m_log;
    ScriptedPrompts m_prompts;
    const SettingsExtensions m_inputExtensions = Application::instance()->settings().inputFileExtensions();
    const SettingsExtensions m_outputExtensions = Application::instance()->settings().outputFileExtensions();
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(ItemPaneTest, TypingPutsTheRunOffUntilItPauses)
{
    select(insertId);
    QSignalSpy runs(&scene(), &GraphScene::completedTransforms);
    auto &line = editor<QLineEdit>("Insert");
    line.setFocus();
    Application::instance()->settings().setProcessingDelay(shortDelay);
    QTest::keyClicks(&line, QStringLiteral("12345"));
    EXPECT_EQ(runs.count(), 0);
    EXPECT_EQ(node(insertId).state(), NodeState::NeedsProcessing);
    EXPECT_EQ(node(outputId).state(), NodeState::NeedsProcessing) << "and all that is downstream";
    EXPECT_TRUE(waitFor([&] { return runs.count() == 1; }));
    EXPECT_EQ(cell(insertId), QStringLiteral("x12345ann"));
    EXPECT_EQ(node(outputId).state(), NodeState::Processed);
    EXPECT_EQ(QApplication::focusWidget(), &line) << "the focus stays where it was";
    EXPECT_EQ(
        pane().itemWidget()->findChild<DataTableView *>()->model()->index(0, 0).data().toString(), cell(insertId));
}

TEST_F(ItemPaneTest, ChoosingAnotherItemRunsWhatIsPending)
{
    select(insertId);
    editor<QLineEdit>("Insert").setText(QStringLiteral("y"));
    EXPECT_EQ(cell(insertId), QStringLiteral("xann"));
    select(caseId);
    EXPECT_TRUE(waitFor([&] { return cell(insertId) == QStringLiteral("yann"); }));
}

TEST_F(ItemPaneTest, WithoutAutoRunOnlyTheRunButtonRuns)
{
    setAutoRun(false);
    select(insertId);
    Application::instance()->settings().setProcessingDelay(shortDelay);
    editor<QLineEdit>("Insert").setText(QStringLiteral("y"));
    QTest::qWait(0);
    select(caseId);
    QCoreApplication::processEvents();
    EXPECT_EQ(cell(insertId), QStringLiteral("xann"));
    select(insertId);
    button(QStringLiteral("Run")).click();
    EXPECT_EQ(cell(insertId), QStringLiteral("yann"));
    EXPECT_EQ(node(caseId).state(), NodeState::NeedsProcessing) << "only the item, and what it needs";
}

TEST_F(ItemPaneTest, OptionsAreUndoneOneByOneAndNamed)
{
    select(caseId);
    EXPECT_EQ(action("m_editUndoAction").text(), QStringLiteral("&Undo")) << "looking is no edit";
    auto &choice = editor<QComboBox>("Case");
    const QString before = choice.currentText();
    QTest::keyClick(&choice, Qt::Key_Down);
    ASSERT_NE(choice.currentText(), before);
    EXPECT_EQ(action("m_editUndoAction").text(), QStringLiteral("&Undo 'Change case to' change"));
    EXPECT_TRUE(m_window->isWindowModified());
    action("m_editUndoAction").trigger();
    const auto &restored = static_cast<TransformNode &>(node(caseId));
    EXPECT_EQ(restored.transform()->parameter(QStringLiteral("Case"))->toText(), before);
    select(caseId);
    EXPECT_EQ(editor<QComboBox>("Case").currentText(), before);
}

TEST_F(ItemPaneTest, ARunFromTheMenuShowsItsTableWhereItWasScrolledTo)
{
    QByteArray rows("a,b\n");
    for (int row = 0; row < 500; ++row) {
        rows += QByteArray::number(row) + ",z\n";
    }
    writeFile(path("in.csv"), rows);
    setAutoRun(false);
    action("m_runEverythingAction").trigger();
    select(insertId);
    auto &view = *pane().itemWidget()->findChild<DataTableView *>();
    QCoreApplication::processEvents();
    view.verticalScrollBar()->setValue(100);
    ASSERT_EQ(view.verticalScrollBar()->value(), 100);
    action("m_runEverythingAction").trigger();
    EXPECT_EQ(view.model()->rowCount(), 500);
    EXPECT_EQ(view.model()->index(7, 0).data().toString(), QStringLiteral("x7"));
    EXPECT_EQ(view.verticalScrollBar()->value(), 100);
}

TEST_F(ItemPaneTest, WhatIsTypedInOneGoIsUndoneInOne)
{
    select(insertId);
    auto &line = editor<QLineEdit>("Insert");
    line.setFocus();
    QTest::keyClicks(&line, QStringLiteral("1234567890abc"));
    auto &choice = editor<QComboBox>("With");
    QTest::keyClick(&choice, Qt::Key_Down);
    action("m_editUndoAction").trigger();
    EXPECT_EQ(action("m_editUndoAction").text(), QStringLiteral("&Undo 'Insert' change"));
    action("m_editUndoAction").trigger();
    const auto &restored = static_cast<TransformNode &>(node(insertId));
    EXPECT_EQ(restored.transform()->parameter(QStringLiteral("Insert"))->toText(), QStringLiteral("x"));
    EXPECT_FALSE(action("m_editUndoAction").isEnabled());
}

TEST_F(ItemPaneTest, AnOpenListHoldsTheRunOff)
{
    select(caseId);
    Application::instance()->settings().setProcessingDelay(shortDelay);
    QSignalSpy runs(&scene(), &GraphScene::completedTransforms);
    auto &choice = editor<QComboBox>("Case");
    choice.showPopup();
    ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    auto &widget = static_cast<DataItemWidget &>(*pane().itemWidget());
    widget.onParameterValueChanged(true);
    widget.apply();
    EXPECT_EQ(runs.count(), 0);
    choice.hidePopup();
    EXPECT_TRUE(waitFor([&] { return runs.count() == 1; }));
}

TEST_F(ItemPaneTest, PanelsShowOptionsDataOrBoth)
{
    struct Row
    {
        const char *what;
        QString button;
        bool options;
        bool data;
    };
    const Row rows[] = {
        {"only options", QStringLiteral("Show only options"), true, false},
        {"only data", QStringLiteral("Show only data"), false, true},
        {"both", QStringLiteral("Show options and data"), true, true},
    };
    select(caseId);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        button(row.button).click();
        for (const int id : {caseId, insertId}) {
            select(id);
            EXPECT_EQ(pane().itemWidget()->findChild<ParameterForm *>()->isVisible(), row.options)
                << "also of the next item";
            EXPECT_EQ(pane().itemWidget()->findChild<DataTableView *>()->isVisible(), row.data);
        }
    }
}

TEST_F(ItemPaneTest, AnInputReadsAnewByItsOptions)
{
    select(inputId);
    auto &input = static_cast<InputNode &>(node(inputId));
    auto &delimiter = editor<QComboBox>("delimiter");
    delimiter.setCurrentIndex(DelimiterKind::SemiColon);
    EXPECT_EQ(input.options().delimiter, int(DelimiterKind::SemiColon));
    EXPECT_EQ(action("m_editUndoAction").text(), QStringLiteral("&Undo 'Delimiter' change"));
    button(QStringLiteral("Run")).click();
    EXPECT_EQ(input.columnCount(), 1);
    EXPECT_FALSE(editor<QLineEdit>("custom_delimiter").isVisible());
    delimiter.setCurrentIndex(DelimiterKind::Custom);
    EXPECT_TRUE(editor<QLineEdit>("custom_delimiter").isVisible());
    editor<QComboBox>("file_type").setCurrentIndex(FileType::inputTypes().indexOf(FileType::FixedWidth));
    EXPECT_FALSE(delimiter.isVisible()) << "text of fixed width has no delimiter";
    EXPECT_EQ(input.options().fileType, int(FileType::FixedWidth));
}

TEST_F(ItemPaneTest, AnInputTakesAnotherFile)
{
    writeFile(path("other.csv"), "a,b\ncid,y\n");
    m_prompts.paths = QStringList{path("other.csv")};
    select(inputId);
    button(QStringLiteral("Browse")).click();
    auto &input = static_cast<InputNode &>(node(inputId));
    EXPECT_EQ(input.options().path, path("other.csv"));
    button(QStringLiteral("Run")).click();
    EXPECT_EQ(cell(insertId), QStringLiteral("xcid")) << "the columns that options name are kept";
}

TEST_F(ItemPaneTest, DefaultsOfAPersonAreSavedAndForgotten)
{
    Settings &settings = Application::instance()->settings();
    select(inputId);
    editor<QComboBox>("quote").setCurrentIndex(2);
    button(QStringLiteral("Save 'Quoting:' as default")).click();
    EXPECT_EQ(InputOptions::forFile(path("in.csv")).quoting, 2);
    button(QStringLiteral("Save 'Quoting:' as default")).click();
    EXPECT_EQ(InputOptions::forFile(path("in.csv")).quoting, 0);
    select(caseId);
    editor<QComboBox>("Case").setCurrentText(QStringLiteral("Title case"));
    editor<QCheckBox>("Keep_Upper").setChecked(true);
    button(QStringLiteral("Save 'keep upper case' as default")).click();
    EXPECT_TRUE(settings.transformDefault(QStringLiteral("Case"), QStringLiteral("Keep_Upper")).toBool());
    button(QStringLiteral("Forget default of 'keep upper case'")).click();
    EXPECT_FALSE(settings.hasTransformDefault(QStringLiteral("Case"), QStringLiteral("Keep_Upper")));
}

TEST_F(ItemPaneTest, AnOutputWritesByItsOptions)
{
    select(outputId);
    auto &output = static_cast<OutputNode &>(node(outputId));
    editor<QComboBox>("delimiter").setCurrentIndex(DelimiterKind::Pipe);
    button(QStringLiteral("Run")).click();
    QFile file(path("out.csv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("a|b"));
    const BoxAnswers answers({QStringLiteral("No")});
    editor<QComboBox>("file_type").setCurrentIndex(FileType::outputTypes().indexOf(FileType::Json));
    EXPECT_EQ(output.options().fileType, int(FileType::Json));
    EXPECT_FALSE(editor<QComboBox>("delimiter").isVisible());
    EXPECT_TRUE(editor<QComboBox>("json_types").isVisible());
}

TEST_F(ItemPaneTest, PathAndTypeOfAnOutputFollowEachOther)
{
    struct Case
    {
        const char *what;
        QString typedPath; ///< empty where the type is chosen
        int chosenType;
        QStringList buttons;
        QString question; ///< the last one
        QString name;
        int type;
    };
    const QString toJson = QStringLiteral("Change file type to 'JSON'?");
    const QString toXml = QStringLiteral("Change file extension to 'xml'?");
    const Case cases[] = {
        {"a known type", "x.json", 0, {"Yes"}, toJson, "x.json", FileType::Json},
        {"refused", "y.json", 0, {"No"}, toJson, "y.json", FileType::Delimited},
        {"another path of the type", "y.csv", 0, {}, "", "y.csv", FileType::Delimited},
        {"blocked", "y.exe", 0, {"OK"}, "blocked in 'Preferences>Output Extensions':", "out.csv", FileType::Delimited},
        {"unknown, nothing said", "y.abc", 0, {"Cancel"}, "Set Default File Type", "y.abc", FileType::Delimited},
        {"unknown, confirmed", "y.abc", 0, {"OK"}, "Set Default File Type", "y.abc", FileType::Delimited},
        {"known since", "z.ABC", 0, {}, "", "z.ABC", FileType::Delimited},
        {"an extension of variables", "{in.fname}.{in.ext}", 0, {}, "", "{in.fname}.{in.ext}", FileType::Delimited},
        {"type first", "", FileType::Xml, {"Yes"}, toXml, "out.xml", FileType::Xml},
        {"its extension refused", "", FileType::Xml, {"No"}, toXml, "out.csv", FileType::Xml},
        {"that file exists", "", FileType::Markdown, {"Yes", "No"}, "already exists.\nDo you want to replace it?",
            "out.csv", FileType::Markdown},
        {"and shall be replaced", "", FileType::Markdown, {"Yes", "Yes"}, "already exists.", "out.md",
            FileType::Markdown},
    };
    writeFile(path("out.md"), "");
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        select(outputId);
        auto &output = static_cast<OutputNode &>(node(outputId));
        const OutputOptions before = output.options();
        const BoxAnswers answers(c.buttons);
        if (c.typedPath.isEmpty()) {
            editor<QComboBox>("file_type").setCurrentIndex(FileType::outputTypes().indexOf(c.chosenType));
        } else {
            auto &line = *editor<QWidget>("path").findChild<QLineEdit *>();
            line.selectAll();
            QTest::keyClicks(&line, m_folder.filePath(c.typedPath));
            QTest::keyClick(&line, Qt::Key_Return);
            EXPECT_EQ(QFileInfo(line.text()).fileName(), c.name);
        }
        EXPECT_EQ(answers.texts().size(), c.buttons.size());
        EXPECT_TRUE(answers.texts().value(c.buttons.size() - 1).contains(c.question));
        EXPECT_EQ(QFileInfo(output.options().path).fileName(), c.name);
        EXPECT_EQ(output.options().fileType, c.type);
        output.setOptions(before);
    }
}

TEST_F(ItemPaneTest, AnInputAsksForTheTypeOfAFileOfAnotherKind)
{
    writeFile(path("in.json"), "[{\"k\":\"v\"}]");
    writeFile(path("in.data"), "p,q\n");
    struct Case
    {
        const char *what;
        const char *file;
        QStringList buttons, titles;
        int type;
    };
    const Case cases[] = {
        {"agreed", "in.json", {"OK"}, {"Select File Type"}, FileType::Json},
        {"back", "in.csv", {"Cancel"}, {"Select File Type"}, FileType::Json},
        {"unknown", "in.data", {"OK"}, {"Set Default File Type"}, FileType::Delimited},
    };
    select(inputId);
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const BoxAnswers answers(c.buttons);
        m_prompts.paths = QStringList{path(c.file)};
        editor<QWidget>("path").findChild<QToolButton *>()->click();
        EXPECT_EQ(answers.texts(), c.titles);
        const InputOptions &options = static_cast<InputNode &>(node(inputId)).options();
        EXPECT_EQ(QFileInfo(options.path).fileName(), QString::fromLatin1(c.file));
        EXPECT_EQ(options.fileType, c.type);
    }
    EXPECT_EQ(Settings::current().inputTypeOf("data"), FileType::Delimited);
}

TEST_F(ItemPaneTest, UnknownExtensionsOfNewInputsAreAskedForOnce)
{
    for (const char *name : {"1.one", "2.one", "3.two", "4.three"}) {
        writeFile(path(name), "a\n");
    }
    const BoxAnswers answers({"OK", "Cancel"});
    scene().addInputsFromPaths({path("1.one"), path("2.one"), path("3.two"), path("4.three")});
    EXPECT_EQ(answers.texts().size(), 2) << "one, two; after Cancel nothing more";
    EXPECT_EQ(scene().inputNodes(true).size(), 4);
    EXPECT_EQ(Settings::current().inputTypeOf("one"), FileType::Delimited);
    EXPECT_EQ(Settings::current().inputTypeOf("two"), FileType::None);
}

TEST_F(ItemPaneTest, TheFilterHidesRowsOrColumnsOfTheTableOnly)
{
    select(inputId);
    auto &view = *pane().itemWidget()->findChild<DataTableView *>();
    button(QStringLiteral("Filter")).click();
    emit view.filterRowColContains(QStringLiteral("BOB"), true);
    EXPECT_EQ(view.model()->rowCount(), 1);
    EXPECT_EQ(view.model()->index(0, 0).data().toString(), QStringLiteral("bob"));
    emit view.filterRowColContains(QStringLiteral("z"), false);
    EXPECT_EQ(view.model()->rowCount(), 2);
    EXPECT_TRUE(view.isColumnHidden(0));
    EXPECT_FALSE(view.isColumnHidden(1));
    EXPECT_EQ(node(inputId).columnCount(), 2);
    button(QStringLiteral("Filter")).click();
    EXPECT_FALSE(view.isColumnHidden(0));
}

TEST_F(ItemPaneTest, ChangesAreSteppedThrough)
{
    select(insertId);
    auto &view = *pane().itemWidget()->findChild<DataTableView *>();
    for (QCheckBox *box : pane().itemWidget()->findChildren<QCheckBox *>()) {
        if (box->text() == QLatin1String("compare changes")) {
            box->setChecked(true);
        }
    }
    button(QStringLiteral("Next change")).click();
    EXPECT_EQ(view.currentIndex().row(), 0);
    button(QStringLiteral("Next change")).click();
    EXPECT_EQ(view.currentIndex().row(), 1);
    EXPECT_EQ(view.currentIndex().column(), 0) << "the other column is as it was";
    button(QStringLiteral("Next change")).click();
    EXPECT_EQ(view.currentIndex().row(), 1) << "there are no more";
    button(QStringLiteral("Previous change")).click();
    EXPECT_EQ(view.currentIndex().row(), 0);
}
