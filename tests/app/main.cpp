#include "app/application.h"
#include "app/report/runlog.h"
#include "settings/settings.h"
#include "support/testenvironment.h"

#include <QLocale>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// The tests of the program run in the program's own application object, away from the user's settings and files.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir folder;
    prepareTestEnvironment();
    qputenv("XDG_CONFIG_HOME", folder.filePath(QStringLiteral("config")).toUtf8());
    qputenv("TMPDIR", folder.path().toUtf8());
    RunLog::installMessageHandler(true);
    Application application(argc, argv, Application::Mode::Window);
    // Hints that come after a while would lie over what a test looks at.
    for (const char *tip :
        {"tip_input_button", "tip_transform_button", "tip_filter_transform", "tip_advanced_transform",
            "tip_select_multiple", "tip_output_button", "tip_chart_button", "tip_help_transform", "tip_how_do_I"}) {
        application.settings().isTipShown(QString::fromLatin1(tip));
    }
    application.settings().setShowGettingStarted(false);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    return RUN_ALL_TESTS();
}
