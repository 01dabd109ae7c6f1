#include "app/actiontable.h"
#include "app/application.h"
#include "app/boxanswers.h"
#include "app/mainactions.h"
#include "app/mainwindow.h"
#include "app/report/runlog.h"
#include "app/uithemes.h"
#include "panes/icons.h"
#include "settings/settings.h"

#include <QAction>
#include <QIcon>
#include <QPalette>
#include <gtest/gtest.h>

namespace {

bool isDarkPalette()
{
    return QApplication::palette().color(QPalette::Window).lightness() < 128;
}

class UiThemesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings &settings = Application::instance()->settings();
        Settings::setCurrent(&settings);
        settings.setOpenPreviousAtStart(StartChoice::Nothing);
        settings.setUiTheme(UiTheme::Light);
        m_window = std::make_unique<MainWindow>(*Application::instance(), CommandLine(), m_log, &m_prompts);
    }
    void TearDown() override
    {
        Application::instance()->settings().setUiTheme(UiTheme::Light);
        themes().onUpdateUITheme();
        m_window.reset();
    }
    UiThemes &themes() { return m_window->themes(); }

    RunLog m_log;
    ScriptedPrompts m_prompts;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace

TEST_F(UiThemesTest, TheCommandTurnsWindowsDarkAndLight)
{
    EXPECT_FALSE(isDarkPalette());
    auto *toggle = m_window->findChild<QAction *>(QStringLiteral("m_viewToggleThemeAction"));
    toggle->trigger();
    EXPECT_TRUE(isDarkPalette());
    EXPECT_FALSE(Application::instance()->styleSheet().isEmpty());
    EXPECT_EQ(Application::instance()->settings().uiTheme(), UiTheme::Dark);
    toggle->trigger();
    EXPECT_FALSE(isDarkPalette());
    EXPECT_TRUE(Application::instance()->styleSheet().isEmpty());
    EXPECT_EQ(Application::instance()->settings().uiTheme(), UiTheme::Light);
}

TEST_F(UiThemesTest, TheCanvasFollowsTheThemeUntilAColorSchemeIsChosen)
{
    Settings &settings = Application::instance()->settings();
    auto *toggle = m_window->findChild<QAction *>(QStringLiteral("m_viewToggleThemeAction"));
    // Tests that ran before in this process may have chosen one.
    if (!settings.isStored(QStringLiteral("color_scheme"))) {
        toggle->trigger();
        EXPECT_EQ(settings.colorScheme(), ColorScheme::Dark);
        toggle->trigger();
        EXPECT_EQ(settings.colorScheme(), ColorScheme::Modern);
    }
    settings.setColorScheme(ColorScheme::Candy);
    toggle->trigger();
    EXPECT_EQ(settings.colorScheme(), ColorScheme::Candy);
    settings.setColorScheme(ColorScheme::Modern);
}

TEST_F(UiThemesTest, AutomaticFollowsTheDesktop)
{
    bool isDesktopDark = false;
    themes().setSystemQuery([&isDesktopDark] { return isDesktopDark; });
    Application::instance()->settings().setUiTheme(UiTheme::Automatic);
    themes().onUpdateUITheme();
    EXPECT_FALSE(isDarkPalette());
    isDesktopDark = true;
    themes().onUpdateUITheme();
    EXPECT_TRUE(isDarkPalette());
    Application::instance()->settings().setUiTheme(UiTheme::Light);
    themes().onUpdateUITheme();
    EXPECT_FALSE(isDarkPalette()) << "a choice goes before the desktop";
}

TEST_F(UiThemesTest, EveryActionThatNamesAnIconHasItInBothForms)
{
    for (bool dark : {false, true}) {
        Icons::setDark(dark);
        QHash<QByteArray, QString> seen;
        for (const ActionRow &row : ActionTable()) {
            if (row.icon[0] == '\0') {
                continue;
            }
            const QImage image = Icons::icon(QString::fromLatin1(row.icon)).pixmap(24, 24).toImage();
            ASSERT_FALSE(image.isNull()) << row.icon;
            bool isDrawn = false;
            for (int y = 0; y < image.height() && !isDrawn; ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    isDrawn |= qAlpha(image.pixel(x, y)) > 128;
                }
            }
            EXPECT_TRUE(isDrawn) << row.icon << (dark ? " dark" : " light");
            const QByteArray pixels(reinterpret_cast<const char *>(image.constBits()), int(image.sizeInBytes()));
            const QString name = QString::fromLatin1(row.icon);
            EXPECT_EQ(seen.value(pixels, name), name) << "look the same";
            seen.insert(pixels, name);
        }
    }
    Icons::setDark(false);
}
