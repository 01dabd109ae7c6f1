#include "app/report/runlog.h"

#include "platform/console.h"

#include <QDebug>

namespace {

const char *const category = "report";

/// A logger past the rules that switch categories off: a report is not a debugging aid.
QMessageLogger logger()
{
    return QMessageLogger(nullptr, 0, nullptr, category);
}

bool librariesAreQuiet = false;
ReportFile *openFile = nullptr; // of the run that goes on

void writeMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, category) == 0) {
        platform::writeConsoleLine(text);
    } else if (!librariesAreQuiet || type == QtCriticalMsg || type == QtFatalMsg) {
        platform::writeConsoleLine(qFormatLogMessage(type, context, text));
    }
}

} // namespace

void RunLog::installMessageHandler(bool quiet)
{
    librariesAreQuiet = quiet;
    qInstallMessageHandler(writeMessage);
}

bool RunLog::open(const QString &path, bool overwrite)
{
    if (!openLog(path, overwrite)) {
        error(QStringLiteral("Could not open log file at '%1'").arg(path));
        return false;
    }
    return true;
}

bool RunLog::openLog(const QString &path, bool overwrite)
{
    if (!m_file.open(path, overwrite)) {
        return false;
    }
    openFile = &m_file;
    return true;
}

void RunLog::close()
{
    if (openFile == &m_file) {
        openFile = nullptr;
    }
    m_file.close();
}

void RunLog::info(const QString &text)
{
    infoToConsole(text);
    m_file.info(text);
}

void RunLog::infoToConsole(const QString &text)
{
    logger().info().noquote() << text;
}

void RunLog::error(const QString &text)
{
    const QString shown = text.startsWith(QLatin1Char(' ')) ? text.mid(1) : text;
    logger().warning().noquote() << QStringLiteral("\033[31m") + shown + QStringLiteral("\033[0m");
    m_file.error(text);
}

int RunLog::fatal(const QString &text)
{
    error(text);
    error(QStringLiteral("Aborted processing"));
    platform::flushConsole();
    return fatalExitCode;
}

void RunLog::reportOutOfMemory()
{
    platform::writeConsoleLine(QStringLiteral("Out of memory"));
    if (openFile) {
        openFile->writeBytes("Out of memory\n");
    }
}
