#include "platform/instances.h"

#include <QDir>
#include <QFile>

namespace {

/// The program that a process runs, without its folder; empty for processes of others.
QString programOf(const QString &process)
{
    QString program = QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(process)).section(QLatin1Char('/'), -1);
    // The kernel says so of a program that was replaced while it runs, as by an update.
    const QString mark = QStringLiteral(" (deleted)");
    if (program.endsWith(mark)) {
        program.chop(mark.size());
    }
    return program;
}

} // namespace

int platform::runningInstances()
{
    const QString own = programOf(QStringLiteral("self"));
    int count = 0;
    const QStringList processes = QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[1-9]*")}, QDir::Dirs);
    for (const QString &process : processes) {
        if (programOf(process) == own) {
            ++count;
        }
    }
    return qMax(count, 1);
}
