#include "app/startup.h"

#include "settings/settings.h"

#include <QDate>
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
