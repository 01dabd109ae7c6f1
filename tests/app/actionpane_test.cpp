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
#include "support/waitfor.h"
#include "transforms/frame/transform.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTemporaryDir>
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

} // namespace

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
