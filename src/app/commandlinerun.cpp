#include "app/commandlinerun.h"

#include "app/aliasoverrides.h"
#include "app/commandlinereport.h"
#include "app/exceptionreport.h"
#include "app/programinfo.h"
#include "app/rowsmilestone.h"
#include "app/runlog.h"
#include "graph/runcontrol.h"
#include "outputnode/outputnode.h"
#include "panes/dialogs/insufficientmemorydialog.h"
#include "platform/console.h"
#include "settings/product.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QLocale>

CommandLineRun::CommandLineRun(const CommandLine &commandLine, RunLog &log)
    : m_commandLine(commandLine)
    , m_log(log)
{
    RunControl::setMemoryCeilingHook([this](double used, double limit) {
        for (const QString &line :
            InsufficientMemoryDialog::explanation(used, limit).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            m_log.error(line);
        }
        return false;
    });
}

int CommandLineRun::run()
{
    writeHeading();
    QString error = m_commandLine.document.isEmpty()
                        ? QStringLiteral("No .%1 file specified.").arg(QLatin1String(Product::documentSuffix))
                        : open();
    if (error.isEmpty()) {
        error = applyOverrides(m_commandLine.overrides, m_scene).error;
    }
    const int exitCode = error.isEmpty() ? process() : m_log.fatal(error);
    m_log.close();
    platform::flushConsole();
    return exitCode;
}

void CommandLineRun::writeHeading()
{
    const bool asked = m_commandLine.printVersion || m_commandLine.printBuild;
    if (tells(Verbosity::Summary) || asked || m_commandLine.document.isEmpty()) {
        m_log.info(QString());
    }
    if (m_commandLine.printVersion) {
        m_log.info(QStringLiteral("Version: %1").arg(ProgramInfo::nameAndVersion()));
    }
    if (m_commandLine.printBuild) {
        m_log.info(QStringLiteral("Build: %1").arg(ProgramInfo::build()));
    }
}

QString CommandLineRun::open()
{
    QString error;
    m_scene.setDocumentPath(m_commandLine.document);
    if (!loadDocument(m_commandLine.document, m_scene, {}, m_loaded, error)) {
        return QStringLiteral("Unable to open '%1': %2").arg(QDir::toNativeSeparators(m_commandLine.document), error);
    }
    if (!m_loaded.locale.isEmpty() && QLocale(m_loaded.locale) != QLocale()) {
        QLocale::setDefault(QLocale(m_loaded.locale));
    }
    tellWhatWasLost();
    return QString();
}

void CommandLineRun::tellWhatWasLost()
{
    // No box can say it here, and a flow that lacks a step must not look as if it were whole.
    if (tells(Verbosity::Summary)) {
        if (!m_loaded.notAdded.isEmpty()) {
            m_log.error(m_loaded.notAdded);
        }
        for (const QString &line : qAsConst(m_loaded.repairs)) {
            m_log.error(QStringLiteral("Warning: ") + line);
        }
    }
    if (m_loaded.laterVersion && tells(Verbosity::Extra)) {
        m_log.error(QStringLiteral("This document was created with a later version of the software."));
    }
}

int CommandLineRun::process()
{
    if (tells(Verbosity::Normal)) {
        m_log.info(QStringLiteral("File: '%1'").arg(QDir::toNativeSeparators(m_commandLine.document)));
        m_log.info(QStringLiteral("Started: %1").arg(QDateTime::currentDateTime().toString()));
    }
    askNothing();
    CommandLineReport report(m_scene, m_commandLine.verbosity, m_log);
    report.countRepairs(m_loaded.repairs.size(), m_loaded.nodesInCircles);
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    int exitCode = 0;
    if (!runScene(&exitCode)) {
        return exitCode;
    }
    RowsMilestone::advance();
    return report.write(timer.elapsed()) > 0 ? 1 : 0;
}

/// Nobody is there to confirm what many files are written.
void CommandLineRun::askNothing()
{
    for (Node *node : m_scene.nodes()) {
        if (auto *output = qobject_cast<OutputNode *>(node)) {
            OutputOptions options = output->options();
            options.confirmMultiFile = false;
            output->setOptions(options);
        }
    }
}

bool CommandLineRun::runScene(int *exitCode)
{
    m_scene.setAutoRunOn(true);
    stopRequested = false;
    try {
        m_scene.runTransforms(RunMode::EverythingReleasing, true);
    } catch (...) {
        const ExceptionReport exception = ExceptionReport::ofCurrent();
        m_log.error(exception.logLine);
        m_log.error(exception.message);
        *exitCode = exception.code;
        return false;
    }
    stopRequested = false;
    return true;
}
