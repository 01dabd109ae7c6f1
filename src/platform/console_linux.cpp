#include "platform/console.h"

#include <QByteArray>
#include <QString>
#include <cstdio>

void platform::writeConsoleLine(const QString &line)
{
    // One write for line and line end, so that lines of parallel runs into one pipe don't mix.
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
    std::fflush(stderr);
}

void platform::flushConsole()
{
    std::fflush(stdout);
    std::fflush(stderr);
}
