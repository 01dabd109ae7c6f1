#include "platform/console.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <langinfo.h>

void platform::useUtf8InPlainLocale()
{
    std::setlocale(LC_CTYPE, "");
    if (qstrcmp(::nl_langinfo(CODESET), "ANSI_X3.4-1968") == 0) {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    }
}

void platform::surviveClosedConsole()
{
    std::signal(SIGPIPE, SIG_IGN);
}

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
