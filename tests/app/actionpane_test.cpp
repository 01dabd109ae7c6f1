#include "app/application.h"
#include "app/boxanswers.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "graph/graphscene.h"
#include "graph/ionode.h"
#include "graph/nodelook.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "panes/actions/actionpane.h"
#include "panes/actions/actionpanewidgets.h"
#include "panes/actions/transformbutton.h"
#include "panes/canvas/graphpane.h"
#include "panes/widgets/delayedlineedit.h"
#include "settings/settings.h"
#include "support/printers.h"
#include "support/scopedsettings.h"
#include "support/waitfor.h"
#include "transforms/frame/transform.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QTemporaryDir>
#include <QToolTip>
#include <gtest/gtest.h>

namespace {

class ActionPaneTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setShowAdvancedTransforms(true);
        settings.setRecentTransformsAdded({});
        settings.setAllTransformsAddedCount({});
        RecoveryFile::remove();
        writeFile(path("in.csv"), "a,b\n1,z\n2,x\n");
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    }
    void TearDown() override
    {
        stopRequested = false;
        m_window.reset();
        RecoveryFile::remove();
    }

    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    GraphScene &scene() const { return m_window->scene(); }
    ActionPane &pane() const { return *m_window->findChild<ActionPane *>(); }
    QStringList shown() const
    {
        QStringList names;
        for (const TransformButton *button : pane().widgets().visibleButtons()) {
            EXPECT_TRUE(button->isVisibleTo(&pane()));
            names.append(button->text());
        }
        return names;
    }
    void search(const char *text) const
    {
        pane().widgets().keywords().setText(QString::fromLatin1(text));
        pane().widgets().keywords().flush();
    }
    QComboBox &category() const { return *pane().findChild<QComboBox *>(); }
    QToolButton &button(const char *text) const
    {
        for (QToolButton *found : pane().findChildren<QToolButton *>()) {
            if (found->text() == QLatin1String(text)) {
                return *found;
            }
        }
        ADD_FAILURE() << text;
        return *pane().findChild<QToolButton *>();
    }

    QTemporaryDir m_folder;
    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

/// The left pane alone, which tells what it was asked for.
class LonePaneTest : public testing::Test
{
protected:
    void open(int width = 220)
    {
        m_settings->setShowAdvancedTransforms(true);
        m_pane = std::make_unique<ActionPane>(Application::instance()->transforms());
        QObject::connect(m_pane.get(), &ActionPane::addedTransform, m_pane.get(),
            [this](Transform *prototype) { m_added.append(prototype->displayName()); });
        m_pane->resize(width, 600);
        m_pane->show();
        m_pane->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_pane.get()));
    }
    ActionPaneWidgets &widgets() const { return m_pane->widgets(); }
    TransformButton &button(const char *name) const
    {
        for (TransformButton *found : m_pane->findChildren<TransformButton *>()) {
            if (found->text() == QLatin1String(name)) {
                return *found;
            }
        }
        qFatal("no button %s", name);
    }

    ScopedSettings m_settings;
    QStringList m_added;
    std::unique_ptr<ActionPane> m_pane;
};

} // namespace

TEST_F(LonePaneTest, EnterInTheKeywordBoxAddsWhatTheWordsMean)
{
    open();
    const struct
    {
        const char *what;
        const char *typed;
        QStringList added;
    } cases[] = {
        {"a name in full", "join", {"Join"}},
        {"another case and blanks about it", " SoRt ", {"Sort"}},
        {"the beginning of a name", "concat c", {"Concat Cols"}},
        {"nothing", "", {}},
        {"a comma, which is a blank", ",", {}},
        {"dashes", "---", {}},
        {"a word of no transform", "zzzz", {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        m_added.clear();
        widgets().keywords().clear();
        QTest::keyClicks(&widgets().keywords(), QString::fromLatin1(c.typed));
        QTest::keyClick(&widgets().keywords(), Qt::Key_Return);
        EXPECT_EQ(m_added, c.added);
    }
}

TEST_F(LonePaneTest, KeysAndTheMousePressAButtonOnce)
{
    open();
    TransformButton &sort = button("Sort");
    for (Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        m_added.clear();
        sort.setFocus();
        QTest::keyClick(&sort, key);
        EXPECT_EQ(m_added, QStringList{"Sort"}) << key;
    }
    m_added.clear();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&sort, &held);
    EXPECT_TRUE(m_added.isEmpty()) << "a key that is held down doesn't go on adding";
    QTest::mouseClick(&sort, Qt::LeftButton);
    QTest::mouseDClick(&sort, Qt::LeftButton);
    QTest::mouseRelease(&sort, Qt::LeftButton);
    EXPECT_EQ(m_added, QStringList{"Sort"}) << "a double click adds one";
}

TEST_F(LonePaneTest, ANarrowPaneCutsTextsAndNothingElse)
{
    for (int width : {100, 180}) {
        SCOPED_TRACE(width);
        open(width);
        const QScrollArea &list = widgets().transforms();
        for (TransformButton *shown : widgets().visibleButtons()) {
            shown->setFocus(Qt::TabFocusReason);
            EXPECT_EQ(list.horizontalScrollBar()->value(), 0) << shown->text().toStdString();
        }
        EXPECT_LE(list.widget()->width(), list.viewport()->width());
        EXPECT_GE(button("Sort").width(), button("Sort").iconSize().width());
    }
}

TEST_F(LonePaneTest, TheFocusScrollsTheList)
{
    open();
    QSignalSpy asked(m_pane.get(), &ActionPane::scrollSoVisible);
    TransformButton *last = widgets().visibleButtons().last();
    ASSERT_TRUE(last->visibleRegion().isEmpty());
    last->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(last->visibleRegion().isEmpty());
    EXPECT_EQ(asked.count(), 1);
}

TEST_F(LonePaneTest, TabFollowsTheOrderOfUse)
{
    QStringList used{"Later", "Gone"};
    for (const Transform *prototype : Application::instance()->transforms().mid(5, 12)) {
        used.prepend(prototype->typeName());
    }
    m_settings->setRecentTransformsAdded(used);
    open();
    EXPECT_EQ(widgets().category().count(), 8) << "ten are known, so that the list of ten can be filled";
    widgets().category().setCurrentText(QStringLiteral("10 last used"));
    widgets().advanced().setFocus();
    for (int i = 0; i < 10; ++i) {
        QTest::keyClick(m_pane->focusWidget(), Qt::Key_Tab);
        const auto *focused = qobject_cast<TransformButton *>(m_pane->focusWidget());
        ASSERT_NE(focused, nullptr) << i;
        EXPECT_EQ(focused->prototype().typeName(), used.at(i));
    }
}

TEST_F(LonePaneTest, TenKnownNamesFillAListOfTen)
{
    QStringList used{"Later", "Gone"};
    for (const Transform *prototype : Application::instance()->transforms().mid(0, 9)) {
        used.append(prototype->typeName());
    }
    m_settings->setRecentTransformsAdded(used);
    open();
    EXPECT_EQ(widgets().category().count(), 7) << "nine known ones and two of a later program aren't ten";
}

TEST_F(ActionPaneTest, EachButtonOfInputsAndOutputsAdds)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("many")));
    writeFile(path("many/one.csv"), "a\n1\n");
    m_prompts.paths = QStringList{path("many")};
    {
        const BoxAnswers answers({QStringLiteral("OK")});
        QTest::mouseClick(&button("From Folder"), Qt::LeftButton);
        EXPECT_EQ(answers.texts(), QStringList(QStringLiteral("Folder To Input")));
    }
    ASSERT_EQ(scene().inputNodes().size(), 1);
    QGuiApplication::clipboard()->setText(QStringLiteral("k\n1\n"));
    QTest::mouseClick(&button("From Clipboard"), Qt::LeftButton);
    ASSERT_EQ(scene().inputNodes().size(), 2);
    Node *pasted = scene().nodes(true).value(0);
    QTest::mouseClick(&button("To Chart"), Qt::LeftButton);
    ASSERT_EQ(scene().chartNodes().size(), 1);
    EXPECT_EQ(scene().chartNodes().first()->upstreamNodes(false), QList<Node *>{pasted});
    QGuiApplication::clipboard()->clear();
}

TEST_F(ActionPaneTest, WidthsComeBackAsTheyWere)
{
    Settings &settings = Application::instance()->settings();
    auto &splitter = *m_window->findChild<QSplitter *>(QStringLiteral("m_splitter"));
    const QList<int> wanted{110, splitter.width() - 110 - 350 - 2 * splitter.handleWidth(), 350};
    splitter.setSizes(wanted);
    EXPECT_EQ(splitter.sizes(), wanted);
    settings.setGeometry(m_window->saveGeometry());
    for (int start = 0; start < 3; ++start) {
        m_window.reset();
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    }
    EXPECT_EQ(m_window->findChild<QSplitter *>(QStringLiteral("m_splitter"))->sizes(), wanted)
        << "and don't creep from start to start";
    settings.setGeometry(QByteArray());
}

TEST_F(ActionPaneTest, HintsComeOnceWhenTheyAreOfUse)
{
    const ScopedSettings fresh; // no hint has been shown
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    const auto showsNext = [](const char *title) {
        const bool shown = waitFor(
            [title] { return QToolTip::isVisible() && QToolTip::text().contains(QString::fromLatin1(title)); });
        EXPECT_TRUE(shown) << title << ", but: " << QToolTip::text().toStdString();
        QToolTip::hideText();
        return waitFor([] { return !QToolTip::isVisible(); });
    };
    m_window->findChild<QAction *>(QStringLiteral("m_runAutoAction"))->setChecked(false);
    EXPECT_TRUE(showsNext("Add datasets to transform"));
    scene().addInputsFromPaths({path("in.csv")});
    EXPECT_TRUE(showsNext("Transform datasets"));
    button("Sort").click();
    EXPECT_TRUE(showsNext("Find transforms"));
    emit scene().nodesAdded();
    EXPECT_TRUE(showsNext("Ouput transformed dataset"));
    emit scene().nodesAdded();
    EXPECT_TRUE(showsNext("Visualize dataset"));
    pane().widgets().advanced().setChecked(false);
    button("Filter").click();
    EXPECT_TRUE(showsNext("Advanced transforms"));
    scene().addInputsFromPaths({path("in.csv")});
    EXPECT_TRUE(showsNext("Merge datasets"));
    scene().clearSelection();
    scene().transformNodes().first()->setSelected(true);
    emit scene().nodesAdded();
    EXPECT_TRUE(showsNext("<b>Help</b>"));
}

TEST_F(ActionPaneTest, CategoryAdvancedAndWordsNarrowTheButtonsDown)
{
    EXPECT_EQ(shown().size(), 74);
    category().setCurrentText(QStringLiteral("Merge transforms"));
    EXPECT_TRUE(shown().contains("Join"));
    EXPECT_FALSE(shown().contains("Sort"));
    search("sort");
    EXPECT_FALSE(shown().contains("Sort")) << "the search stays within the category";
    category().setCurrentText(QStringLiteral("All transforms"));
    EXPECT_TRUE(shown().contains("Sort"));
    search("");
    auto &advanced = *pane().findChild<QCheckBox *>();
    advanced.setChecked(false);
    const int simple = shown().size();
    EXPECT_LT(simple, 74);
    EXPECT_FALSE(Application::instance()->settings().showAdvancedTransforms());
    search("javascript");
    EXPECT_TRUE(shown().contains("Javascript")) << "a search looks through all";
    EXPECT_TRUE(button("Javascript").toolTip().contains("Check 'show advanced' (above) to see all transforms."));
    search("zzzz");
    EXPECT_TRUE(shown().isEmpty());
}

TEST_F(ActionPaneTest, ButtonsBuildAFlow)
{
    m_prompts.paths = QStringList{path("in.csv")};
    QTest::mouseClick(&button("From File"), Qt::LeftButton);
    ASSERT_EQ(scene().inputNodes().size(), 1);
    EXPECT_EQ(m_window->focusWidget(), m_window->findChild<GraphPane *>()) << "to go on by typing";
    QTest::mouseClick(&button("Sort"), Qt::LeftButton);
    ASSERT_EQ(scene().transformNodes().size(), 1);
    EXPECT_TRUE(button("To File").isEnabled());
    m_prompts.paths = QStringList{path("out.csv")};
    QTest::mouseClick(&button("To File"), Qt::LeftButton);
    ASSERT_EQ(scene().outputNodes().size(), 1);
    EXPECT_EQ(scene().outputNodes().first()->upstreamNodes(false).value(0), scene().transformNodes().first());
    EXPECT_FALSE(button("To File").isEnabled()) << "the new output is selected, which gives nothing";
    EXPECT_EQ(Application::instance()->settings().recentTransformsAdded(), QStringList{"Sort"});
    EXPECT_EQ(Application::instance()->settings().allTransformsAddedCount().value("Sort"), 1);
}

TEST_F(ActionPaneTest, TheKeyboardFindsAndAdds)
{
    m_prompts.paths = QStringList{path("in.csv")};
    m_window->findChild<QAction *>(QStringLiteral("m_inputFromFileAction"))->trigger();
    m_window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window->windowHandle(), Qt::Key_K, Qt::ControlModifier);
    DelayedLineEdit &keywords = pane().widgets().keywords();
    ASSERT_TRUE(keywords.hasFocus());
    QTest::keyClicks(&keywords, QStringLiteral("whitespace"));
    EXPECT_TRUE(waitFor([this] { return shown().value(0) == QStringLiteral("Whitespace"); }));
    QTest::keyClick(&keywords, Qt::Key_Down);
    EXPECT_EQ(pane().widgets().visibleButtons().first(), m_window->focusWidget());
    QTest::keyClick(m_window->focusWidget(), Qt::Key_Up);
    EXPECT_TRUE(keywords.hasFocus());
    QTest::keyClick(&keywords, Qt::Key_Return);
    EXPECT_EQ(scene().transformNodes().size(), 1);
    keywords.setFocus();
    QTest::keyClick(&keywords, Qt::Key_Escape);
    EXPECT_EQ(keywords.text(), QString());
}

TEST_F(ActionPaneTest, ListsOfUsedTransformsAreOfferedOnceTheyCanBeFilled)
{
    const auto entries = [this] {
        QStringList texts;
        for (int i = 7; i < category().count(); ++i) {
            texts.append(category().itemText(i));
        }
        return texts;
    };
    EXPECT_TRUE(entries().isEmpty());
    m_prompts.paths = QStringList{path("in.csv")};
    m_window->findChild<QAction *>(QStringLiteral("m_runAutoAction"))->setChecked(false);
    m_window->findChild<QAction *>(QStringLiteral("m_inputFromFileAction"))->trigger();
    Node *input = scene().nodes().first();
    QStringList used;
    for (TransformButton *button : pane().findChildren<TransformButton *>()) {
        if (used.size() < 12 && button->prototype().minInputs() == 1) {
            scene().clearSelection();
            input->setSelected(true);
            button->click();
            used.prepend(button->text());
        }
    }
    EXPECT_EQ(entries(), QStringList({"10 last used", "10 most used"}));
    category().setCurrentText(QStringLiteral("10 last used"));
    EXPECT_EQ(shown(), used.mid(0, 10)) << "in the order of use";
    EXPECT_EQ(category().currentData().toInt(), -1);
}

TEST_F(ActionPaneTest, HoveringLightsUpTheItemsOfThatKind)
{
    m_prompts.paths = QStringList{path("in.csv")};
    button("From File").click();
    button("Sort").click();
    const Node *sort = scene().transformNodes().first();
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(&button("Sort"), &enter);
    EXPECT_TRUE(sort->look().isHighlighted());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&button("Sort"), &leave);
    EXPECT_FALSE(sort->look().isHighlighted());
}

TEST_F(ActionPaneTest, TheActionHidesThePane)
{
    auto &action = *m_window->findChild<QAction *>(QStringLiteral("m_viewActionPaneAction"));
    ASSERT_TRUE(action.isChecked());
    action.trigger();
    EXPECT_TRUE(pane().visibleRegion().isEmpty());
    action.trigger();
    EXPECT_FALSE(pane().visibleRegion().isEmpty());
}
