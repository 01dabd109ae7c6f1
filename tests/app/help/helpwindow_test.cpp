#include "app/help/helpwindow.h"

#include "app/application.h"
#include "app/boxanswers.h"
#include "app/help/helpbrowser.h"
#include "app/help/helpdesk.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/testdocument.h"
#include "graph/graphscene.h"
#include "graph/notenode.h"
#include "panes/actions/actionpane.h"
#include "panes/actions/panebutton.h"
#include "panes/canvas/graphpane.h"
#include "panes/dialogs/helphook.h"
#include "panes/items/itempane.h"
#include "panes/items/itemwidget.h"
#include "settings/settings.h"
#include "support/waitfor.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

class HelpWindowTest : public testing::Test
{
protected:
    HelpBrowser &browser() { return m_window.browser(); }
    QListWidget &hits() { return *m_window.findChild<QListWidget *>(); }
    QAction &tool(const char *text) const
    {
        for (QAction *action : m_window.findChild<QToolBar *>()->actions()) {
            if (action->text() == QLatin1String(text)) {
                return *action;
            }
        }
        throw std::runtime_error(text);
    }
    void open(const char *page)
    {
        m_window.showPage(QString::fromLatin1(page), nullptr);
        EXPECT_TRUE(waitFor([this] { return m_window.isActiveWindow(); }));
    }
    void clickLink(const QString &target) { emit browser().anchorClicked(QUrl(target)); }

    HelpWindow m_window;
};

TEST_F(HelpWindowTest, LinksLeadOnAndTheButtonsBackAndForward)
{
    open("Introduction");
    EXPECT_FALSE(tool("Back").isEnabled());
    clickLink(QStringLiteral("Input_data.md#schema"));
    EXPECT_EQ(browser().page(), QStringLiteral("Input_data"));
    EXPECT_GT(browser().verticalScrollBar()->value(), 0) << "the heading is further down";
    EXPECT_TRUE(m_window.windowTitle().startsWith(QStringLiteral("Input data - ")));
    EXPECT_EQ(m_window.findChild<QTreeWidget *>()->currentItem()->text(0), QStringLiteral("Input data"));

    clickLink(QStringLiteral("Output_data.md"));
    tool("Back").trigger();
    EXPECT_EQ(browser().page(), QStringLiteral("Input_data"));
    tool("Forward").trigger();
    EXPECT_EQ(browser().page(), QStringLiteral("Output_data"));
    tool("Home").trigger();
    EXPECT_EQ(browser().page(), QStringLiteral("Introduction"));
}

TEST_F(HelpWindowTest, SearchListsPagesAndMarksTheWordsInTheOneThatIsChosen)
{
    open("Introduction");
    QTest::keyClick(&m_window, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&m_window.search(), QStringLiteral("wildcard"));
    ASSERT_GT(hits().count(), 0);
    EXPECT_TRUE(hits().isVisible());
    QTest::keyClick(&m_window.search(), Qt::Key_Return);
    EXPECT_NE(browser().page(), QStringLiteral("Introduction"));
    ASSERT_FALSE(browser().extraSelections().isEmpty());
    EXPECT_EQ(browser().extraSelections().first().cursor.selectedText().toLower(), QStringLiteral("wildcard"));

    m_window.search().setText(QStringLiteral("zzzz"));
    EXPECT_TRUE(hits().item(0)->text().startsWith(QStringLiteral("No page has all")));
    m_window.search().clear();
    EXPECT_TRUE(m_window.findChild<QTreeWidget *>()->isVisible());
    EXPECT_TRUE(browser().extraSelections().isEmpty());
}

TEST_F(HelpWindowTest, APageThatThereIsntSaysSoAndOffersASearch)
{
    m_window.showPage(QStringLiteral("Batch_unknown"), nullptr);
    EXPECT_TRUE(browser().toPlainText().contains(QStringLiteral("no page called Batch_unknown")));
    clickLink(QStringLiteral("search:Batch%20processing"));
    EXPECT_EQ(m_window.search().text(), QStringLiteral("Batch processing"));
    EXPECT_EQ(hits().item(0)->text().section(QLatin1Char('\n'), 0, 0), QStringLiteral("Batch processing"));
}

TEST_F(HelpWindowTest, KeysAndWheelZoomAndEscCloses)
{
    open("Introduction");
    const qreal size = browser().font().pointSizeF();
    QWheelEvent wheel(QPointF(5, 5), browser().viewport()->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, 120),
        Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(browser().viewport(), &wheel);
    EXPECT_GT(browser().font().pointSizeF(), size);
    QTest::keyClick(&m_window, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(browser().font().pointSizeF(), size);
    QTest::keyClick(&m_window, Qt::Key_Escape);
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(HelpWindowTest, OpensWhereItWasClosed)
{
    open("Introduction");
    m_window.resize(777, 555);
    m_window.close();
    HelpWindow next;
    next.showPage(QStringLiteral("Introduction"), nullptr);
    EXPECT_EQ(next.size(), QSize(777, 555));
    Settings::current().setHelpWindowGeometry(QByteArray());
}

/// F1, buttons and commands of the main window.
class HelpDeskTest : public testing::Test
{
protected:
    void SetUp() override
    {
        RecoveryFile::remove();
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        ASSERT_TRUE(waitFor([this] { return m_window->isActiveWindow(); }));
    }
    void TearDown() override
    {
        m_window.reset();
        RecoveryFile::remove();
        Settings::current().setHelpWindowGeometry(QByteArray());
    }

    HelpWindow *help() const
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *window = qobject_cast<HelpWindow *>(widget)) {
                return window;
            }
        }
        return nullptr;
    }
    QString page() const { return help() && help()->isVisible() ? help()->browser().page() : QString(); }
    void pressF1() const
    {
        m_window->activateWindow();
        EXPECT_TRUE(waitFor([this] { return m_window->isActiveWindow(); }));
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F1);
    }
    GraphPane &canvas() const { return *m_window->findChild<GraphPane *>(); }
    void trigger(const char *action) const { m_window->findChild<QAction *>(QString::fromLatin1(action))->trigger(); }

    ScriptedPrompts m_prompts;
    RunLog m_log;
    std::unique_ptr<MainWindow> m_window;
};

TEST_F(HelpDeskTest, EachCommandOpensItsPage)
{
    struct Row
    {
        const char *action;
        const char *page;
    };
    const Row rows[] = {{"m_helpQuickStartAction", "Quick_start_guide"}, {"m_helpExpertTipsAction", "Expert_tips"},
        {"m_helpKeyboardShortcutsAction", "Keyboard_shortcuts"}};
    for (const Row &row : rows) {
        trigger(row.action);
        EXPECT_EQ(page(), QLatin1String(row.page));
    }
}

TEST_F(HelpDeskTest, F1OpensThePageAboutWhatHasTheFocus)
{
    canvas().setFocus();
    pressF1();
    EXPECT_EQ(page(), QStringLiteral("Introduction"));

    m_window->scene().addNote(QPointF(), NoteNode::NoArrow);
    canvas().setFocus();
    pressF1();
    EXPECT_EQ(page(), QStringLiteral("Comments")) << "the one selected item";

    m_window->scene().addInputFromClipboard(QStringLiteral("a,b\n1,2\n"), QPointF());
    ASSERT_NE(m_window->findChild<ItemPane *>()->itemWidget(), nullptr);
    QWidget *panel = m_window->findChild<ItemPane *>()->itemWidget();
    QWidget *inPanel = panel->findChild<QToolButton *>();
    m_window->scene().clearSelection();
    ASSERT_EQ(HelpHook::helpPageOf(inPanel), QStringLiteral("Input_data"));
}

TEST_F(HelpDeskTest, F1AtAButtonOfTheLeftPaneOpensThePageAboutWhatItAdds)
{
    for (PaneButton *button : m_window->findChild<ActionPane *>()->findChildren<PaneButton *>()) {
        if (button->text() == QStringLiteral("Sort")) {
            button->setFocus();
            break;
        }
    }
    pressF1();
    EXPECT_EQ(page(), QStringLiteral("Sort"));
}

TEST_F(HelpDeskTest, TheHelpButtonOfAPanelOpensThePageOfItsItem)
{
    m_window->scene().addInputFromClipboard(QStringLiteral("a,b\n1,2\n"), QPointF());
    for (QToolButton *button : m_window->findChild<ItemPane *>()->findChildren<QToolButton *>()) {
        if (button->accessibleName() == QStringLiteral("Help")) {
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    EXPECT_EQ(page(), QStringLiteral("Input_data"));
}

TEST_F(HelpDeskTest, OverADialogThatWaitsTheHelpCanBeUsed)
{
    QDialog dialog(m_window.get());
    auto *edit = new QLineEdit(&dialog);
    HelpHook::setHelpPage(dialog, QStringLiteral("Find_items"));
    QTimer::singleShot(0, &dialog, [&] {
        QTest::keyClick(edit, Qt::Key_F1);
        EXPECT_EQ(page(), QStringLiteral("Find_items"));
        QTest::mouseClick(&help()->search(), Qt::LeftButton);
        QTest::keyClick(help()->windowHandle(), Qt::Key_Escape);
        EXPECT_FALSE(help()->isVisible()) << "keys reach the help while the dialog waits";
        dialog.reject();
    });
    dialog.exec();
    EXPECT_FALSE(QApplication::activeModalWidget());
    trigger("m_helpExpertTipsAction");
    EXPECT_EQ(page(), QStringLiteral("Expert_tips"));
}

} // namespace
