#include "app/startup.h"

#include "app/commands/helpcommands.h"
#include "app/help/gettingstarteddialog.h"
#include "panes/dialogs/prompts.h"
#include "platform/desktop.h"
#include "settings/settings.h"

#include <QDate>
#include <QDir>
#include <QLocale>
#include <QMenu>
#include <QTimer>

namespace {

void showGettingStarted(Settings &settings, Prompts &prompts, HelpCommands &help, const QMenu &examples)
{
    if (!settings.showGettingStarted()) {
        return;
    }
    settings.setShowGettingStarted(false);
    const bool hasExamples = examples.isEnabled() && !examples.isEmpty();
    GettingStartedDialog dialog(hasExamples, prompts.window());
    prompts.exec(dialog);
    if (dialog.choice() == GettingStartedDialog::Choice::Example) {
        examples.actions().first()->trigger();
    } else if (dialog.choice() == GettingStartedDialog::Choice::QuickStart) {
        help.showPage(QStringLiteral("Quick_start_guide"));
    }
}

} // namespace

void StartUp::applySettings(bool withoutWindow)
{
    Settings &settings = Settings::current();
    const QLocale locale = settings.locale();
    // A scheduled run has another environment than the person whose settings these are, often none at all.
    if (!withoutWindow && !settings.isStored(QStringLiteral("locale"))) {
        settings.setLocale(locale);
    }
    if (!settings.totalRowsProcessedStartDate().isValid()) {
        settings.setTotalRowsProcessedStartDate(QDate::currentDate());
    }
    QLocale::setDefault(locale);
}

void StartUp::checkStore(const Settings &settings, Prompts &prompts)
{
    if (settings.isIni() && !settings.isWritable()) {
        prompts.critical(QStringLiteral(
            "Cannot write preferences to '%1'.\nMake sure the file and folder have write permission\nor store "
            "'Preferences' in the %2.")
                             .arg(QDir::toNativeSeparators(settings.fileName()), platform::settingsStoreName()));
    }
}

void StartUp::greet(Settings &settings, Prompts &prompts, HelpCommands &help, const QMenu &examples)
{
    constexpr int pauseMs = 2000; // the window is usable before the network is
    showGettingStarted(settings, prompts, help, examples);
    checkStore(settings, prompts);
    QTimer::singleShot(pauseMs, &help.updates(), &UpdateCheck::onAutoCheckForUpdates);
}
