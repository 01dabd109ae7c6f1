#include "app/runlog.h"

#include "platform/console.h"
#include "platform/paths.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

namespace {

const char *const category = "report";

/// A logger past the rules that switch categories off: a report is not a debugging aid.
QMessageLogger logger()
{
    return QMessageLogger(nullptr, 0, nullptr, category);
}

bool librariesAreQuiet = false;
QFile *openLog = nullptr; // of the run that goes on

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
    auto file = std::make_unique<QFile>(platform::resolvedPath(path));
    const QIODevice::OpenMode mode = overwrite ? QIODevice::Truncate : QIODevice::Append;
    if (!file->open(QIODevice::WriteOnly | QIODevice::Text | mode)) {
        error(QStringLiteral("Could not open log file at '%1'").arg(path));
        return false;
    }
    m_file = std::move(file);
    openLog = m_file.get();
    return true;
}

void RunLog::close()
{
    if (openLog == m_file.get()) {
        openLog = nullptr;
    }
    m_file.reset();
}

QString RunLog::nativePath() const
{
    return m_file ? QDir::toNativeSeparators(m_file->fileName()) : QString();
}

void RunLog::info(const QString &text)
{
    infoToConsole(text);
    writeToFile(text);
}

void RunLog::infoToConsole(const QString &text)
{
    logger().info().noquote() << text;
}

void RunLog::error(const QString &text)
{
    const QString shown = text.startsWith(QLatin1Char(' ')) ? text.mid(1) : text;
    logger().warning().noquote() << QStringLiteral("\033[31m") + shown + QStringLiteral("\033[0m");
    writeToFile(text);
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
    if (openLog) {
        openLog->write("Out of memory\n");
        openLog->flush();
    }
}

void RunLog::writeToFile(const QString &text)
{
    if (m_file) {
        m_file->write(text.toUtf8() + '\n');
        m_file->flush();
    }
}
