#include "app/help/gettingstarteddialog.h"

#include "app/application.h"
#include "app/boxanswers.h"
#include "app/help/helpbrowser.h"
#include "app/help/helppages.h"
#include "app/help/helpwindow.h"
#include "app/help/howdoibutton.h"
#include "app/mainwindow.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "graph/runcontrol.h"
#include "settings/settings.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QPointer>
#include <gtest/gtest.h>

// What helps people to begin, in the real window.

namespace {

class GettingStartedTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setShowGettingStarted(true);
        RecoveryFile::remove();
    }
    void TearDown() override
    {
        m_window.reset();
        Application::instance()->settings().setShowGettingStarted(false);
        RecoveryFile::remove();
    }

    void start()
    {
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        QCoreApplication::processEvents();
    }
    static QString shownPage()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            const auto *help = qobject_cast<HelpWindow *>(widget);
            if (help && help->isVisible()) {
                return HelpPages::nameOf(help->browser().source());
            }
        }
        return QString();
    }

    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(GettingStartedTest, WelcomesAtTheFirstStartOnly)
{
    {
        const BoxAnswers answers({QStringLiteral("Start")});
        start();
        EXPECT_EQ(answers.texts(), QStringList(QStringLiteral("Getting Started")));
        EXPECT_EQ(shownPage(), QString());
    }
    const BoxAnswers answers;
    start();
    EXPECT_TRUE(answers.texts().isEmpty());
}

TEST_F(GettingStartedTest, LeadsToTheGuide)
{
    const BoxAnswers answers({QStringLiteral("Quick start guide")});
    start();
    EXPECT_EQ(shownPage(), QStringLiteral("Quick_start_guide"));
}

TEST_F(GettingStartedTest, TheButtonOfTheToolBarLeadsToPagesThatExist)
{
    const BoxAnswers answers;
    start();
    auto *button = m_window->findChild<HowDoIButton *>();
    ASSERT_TRUE(button);
    EXPECT_TRUE(button->isVisible());
    ASSERT_EQ(button->menu()->actions().size(), HowDoIButton::tasks().size());
    for (int i = 0; i < HowDoIButton::tasks().size(); ++i) {
        const HowDoIButton::Task &task = HowDoIButton::tasks().at(i);
        SCOPED_TRACE(task.text.toStdString());
        EXPECT_TRUE(HelpPages::exists(task.page));
        button->menu()->actions().at(i)->trigger();
        EXPECT_EQ(shownPage(), task.page);
    }
}
