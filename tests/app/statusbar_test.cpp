#include "app/application.h"
#include "app/boxanswers.h"
#include "app/iconprogress.h"
#include "app/mainwindow.h"
#include "app/report/runlog.h"
#include "panes/status/statusbar.h"
#include "settings/settings.h"
#include "settings/webpages.h"

#include <QDesktopServices>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

/// Stands for the program that the desktop has for mail.
class MailProgram : public QObject
{
    Q_OBJECT

public:
    MailProgram() { QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "onOpen"); }
    ~MailProgram() override { QDesktopServices::unsetUrlHandler(QStringLiteral("mailto")); }

    QUrl opened;

public slots:
    void onOpen(const QUrl &url) { opened = url; }
};

class StatusBarTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setHowDoIClicked(false);
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
        m_window->start();
        QCoreApplication::processEvents();
    }
    void TearDown() override
    {
        m_window.reset();
        Application::instance()->settings().setHowDoIClicked(false);
    }
    StatusBar &bar() const { return *m_window->findChild<StatusBar *>(); }
    QToolButton *button(const char *text) const
    {
        for (QToolButton *each : bar().findChildren<QToolButton *>()) {
            if (each->text() == QLatin1String(text)) {
                return each;
            }
        }
        return nullptr;
    }
    /// How much of the middle of the window's icon's bar has the colour of what is done, from 0 to 1.
    double shareOfBar() const
    {
        const QImage image = m_window->windowIcon().pixmap(64, 64).toImage();
        int done = 0;
        const int y = image.height() - image.height() / 12;
        for (int x = 0; x < image.width(); ++x) {
            done += image.pixelColor(x, y) == QColor(0x2f, 0x9e, 0x44) ? 1 : 0;
        }
        return static_cast<double>(done) / image.width();
    }

    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(StatusBarTest, FeedbackGoesByMailAndItsButtonThenGoes)
{
    QToolButton *feedback = button("Email us questions/feedback");
    ASSERT_TRUE(feedback);
    EXPECT_TRUE(feedback->isVisible());
    const MailProgram mail;
    QTest::mouseClick(feedback, Qt::LeftButton);
    EXPECT_EQ(mail.opened.toString(), QStringLiteral("mailto:support@quillmere.example?subject=Feedback"));
    EXPECT_FALSE(feedback->isVisible());
    EXPECT_TRUE(Settings::current().howDoIClicked());
}

TEST_F(StatusBarTest, WebPagesAreOfferedOnlyWhereThereIsASite)
{
    QToolButton *video = button("Watch intro video");
    ASSERT_TRUE(video);
    EXPECT_EQ(video->isVisible(), WebPages::exist());
    for (const char *name : {"m_helpFAQAction", "m_helpForumAction", "m_helpSupportAction", "m_helpIntroVideoAction",
             "m_helpSubscribeToNewsletterAction"}) {
        EXPECT_EQ(m_window->findChild<QAction *>(QString::fromLatin1(name))->isEnabled(), WebPages::exist()) << name;
    }
}

TEST_F(StatusBarTest, TheWindowsIconShowsHowFarARunIs)
{
    struct Case
    {
        const char *what;
        int percent;
        double share;
    };
    const Case cases[] = {
        {"at the start", 0, 0},
        {"half way", 50, 0.5},
        {"a step that can't be seen", 51, 0.5},
        {"nearly done", 99, 0.97},
        {"at the end the program's own icon is back", 100, 0},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        bar().onShowProgress(c.percent);
        EXPECT_NEAR(shareOfBar(), c.share, 0.04);
    }
}

TEST_F(StatusBarTest, TheHeartBeatsInThreeSizes)
{
    const auto *heart = bar().findChild<QLabel *>(QStringLiteral("heart"));
    ASSERT_TRUE(heart);
    QList<int> filled;
    for (int beat = 0; beat < 4; ++beat) {
        bar().onHeartBeat();
        const QImage image = heart->pixmap(Qt::ReturnByValue).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
            }
        }
        filled.append(count);
    }
    // 1, 2, 1, 0 after the first.
    EXPECT_LT(filled.at(0), filled.at(1));
    EXPECT_EQ(filled.at(0), filled.at(2));
    EXPECT_LT(filled.at(3), filled.at(2));
    EXPECT_GT(filled.at(3), 0);
}

#include "statusbar_test.moc"
