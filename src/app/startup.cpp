#include "app/startup.h"

#include "settings/settings.h"

#include <QDate>
#include <QLocale>

void StartUp::applySettings()
{
    Settings &settings = Settings::current();
    const QLocale locale = settings.locale();
    if (!settings.isStored(QStringLiteral("locale"))) {
        settings.setLocale(locale);
    }
    if (!settings.totalRowsProcessedStartDate().isValid()) {
        settings.setTotalRowsProcessedStartDate(QDate::currentDate());
    }
    if (locale != QLocale()) {
        QLocale::setDefault(locale);
    }
}
