#include "app/startdocument.h"

#include "app/application.h"
#include "app/commandline.h"
#include "app/recentdocuments.h"
#include "app/recoveryfile.h"
#include "panes/dialogs/openrecentdialog.h"
#include "panes/dialogs/prompts.h"
#include "settings/settings.h"

QString startDocument(Application &application, const CommandLine &commandLine, const RecentDocuments &recent,
    Prompts &prompts, int instances)
{
    if (RecoveryFile::canBeOffered(instances)
        && prompts.confirm(QStringLiteral("An automatic recovery file was created %1 ago. Do you wish to open it?")
                               .arg(RecoveryFile::ageText()))) {
        return RecoveryFile::path();
    }
    if (!commandLine.document.isEmpty()) {
        return commandLine.document;
    }
    const Settings &settings = application.settings();
    if (commandLine.newWindow) {
        return QString();
    }
    if (settings.openPreviousAtStart() == StartChoice::RecentWindow && !recent.windowEntries().isEmpty()) {
        OpenRecentDialog dialog(recent.windowEntries(), prompts.window());
        return prompts.exec(dialog) == QDialog::Accepted ? dialog.path() : QString();
    }
    if (settings.openPreviousAtStart() != StartChoice::Previous || settings.previousPath().isEmpty()) {
        return QString();
    }
    return application.applicationDir().absoluteFilePath(settings.previousPath());
}
