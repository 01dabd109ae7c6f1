#include "platform/username.h"

#include <QFile>
#include <QString>
#include <pwd.h>
#include <unistd.h>

QString platform::userName()
{
    // Services and scheduled jobs often start without these variables.
    for (const char *variable : {"USER", "LOGNAME"}) {
        const QString name = qEnvironmentVariable(variable);
        if (!name.isEmpty()) {
            return name;
        }
    }
    const passwd *entry = ::getpwuid(::geteuid());
    return entry ? QFile::decodeName(entry->pw_name) : QString();
}
