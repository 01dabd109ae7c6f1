#include "app/startup.h"

#include "panes/dialogs/prompts.h"
#include "platform/desktop.h"
#include "settings/settings.h"

#include <QDate>
#include <QDir>
#include <QLocale>

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
