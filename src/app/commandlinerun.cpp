#include "app/commandlinerun.h"

#include "app/aliasoverrides.h"
#include "app/batch/batchcolumns.h"
#include "app/batch/batchprocess.h"
#include "app/exceptionreport.h"
#include "app/flowreport/flowdescription.h"
#include "app/flowreport/flowreport.h"
#include "app/programinfo.h"
#include "app/report/commandlinereport.h"
#include "app/report/runlog.h"
#include "app/rowsmilestone.h"
#include "files/filesheet.h"
#include "graph/runcontrol.h"
#include "outputnode/outputnode.h"
#include "outputs/filenamevariables.h"
#include "panes/dialogs/insufficientmemorydialog.h"
#include "platform/console.h"
#include "settings/product.h"
#include "settings/settings.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QLocale>

namespace {

/// Where the report of a silent batch goes.
class SilentSink final : public ReportSink
{
public:
    void info(const QString &) override {}
    void error(const QString &) override {}
    bool openLog(const QString &, bool) override { return true; }
    QString logPath() const override { return QString(); }
};

} // namespace

CommandLineRun::CommandLineRun(const CommandLine &commandLine, RunLog &log)
    : m_commandLine(commandLine)
    , m_log(log)
    , m_verbosity(commandLine.verbosity)
{
    m_log.setErrorsMarked(commandLine.batch);
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
    if (error.isEmpty() && m_commandLine.batch) {
        error = batchError();
    }
    const auto run = m_commandLine.batch ? &CommandLineRun::processBatch : &CommandLineRun::process;
    const int exitCode = error.isEmpty() ? (this->*run)() : m_log.fatal(error);
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
    takeBatchVerbosity();
    tellWhatWasLost();
    return QString();
}

void CommandLineRun::takeBatchVerbosity()
{
    if (!m_commandLine.batch || m_commandLine.namesVerbosity) {
        return;
    }
    const bool hadHeading = m_commandLine.printVersion || m_commandLine.printBuild;
    m_verbosity = m_loaded.batch.verbosity;
    if (tells(Verbosity::Summary) && !hadHeading) {
        m_log.info(QString());
    }
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
    CommandLineReport report(m_scene, m_verbosity, m_log);
    report.countRepairs(m_loaded.repairs.size(), m_loaded.nodesInCircles);
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    int exitCode = 0;
    m_scene.setAutoRunOn(true);
    // The picture of the flow shows the sizes of all tables.
    const bool isDescribed = !m_commandLine.reportPath.isEmpty();
    const RunMode mode = isDescribed ? RunMode::Everything : RunMode::EverythingReleasing;
    if (!isCompleted([this, mode] { m_scene.runTransforms(mode, true); }, &exitCode)) {
        return exitCode;
    }
    RowsMilestone::advance();
    const bool hasErrors = report.write(timer.elapsed()) > 0;
    const bool isTold = !isDescribed || writeFlowReport();
    return hasErrors || !isTold ? 1 : 0;
}

bool CommandLineRun::writeFlowReport()
{
    FileNameVariables::Context context;
    context.documentPath = m_commandLine.document;
    const QString path = FileNameVariables::expanded(m_commandLine.reportPath, context);
    QString error;
    if (!FlowReport::write(path, describeFlow(m_scene, m_loaded.notes), &error)) {
        m_log.error(error);
        return false;
    }
    if (tells(Verbosity::Normal)) {
        m_log.info(QStringLiteral("Report: %1").arg(absoluteNativePath(path)));
    }
    return true;
}

/// Why the document has no batch that can be run, or empty when it has.
QString CommandLineRun::batchError() const
{
    const QString obstacle = batchObstacle(commandLineItems(m_scene));
    if (!obstacle.isEmpty()) {
        return obstacle;
    }
    return m_loaded.batch.rowCount() > 0
               ? QString()
               : QStringLiteral("'%1' has no rows of a batch. Add some with File > Batch Process and save it.")
                     .arg(QDir::toNativeSeparators(m_commandLine.document));
}

/// The document's, but for what the command line says.
BatchSettings CommandLineRun::batchSettings() const
{
    BatchSettings settings = m_loaded.batch;
    settings.verbosity = m_verbosity;
    if (m_commandLine.overwriteLog) {
        settings.logMode = BatchSettings::Overwrite;
    }
    // The log of the command line has been opened by now, or can't be, which has been said.
    settings.loggingEnabled = settings.loggingEnabled && m_commandLine.logPath.isEmpty();
    return settings;
}

int CommandLineRun::processBatch()
{
    const BatchSettings settings = batchSettings();
    SilentSink silence;
    ReportSink &sink = settings.verbosity == Verbosity::Silent ? static_cast<ReportSink &>(silence) : m_log;
    BatchProcess batch(m_scene, settings, sink);
    batch.setClearBeforeAppend(Settings::current().batchClearBeforeAppend());
    batch.setInCircles(m_loaded.nodesInCircles);
    batch.addWarnings(m_loaded.repairs.size());
    int errors = 0;
    int exitCode = 0;
    if (!isCompleted([&] { errors = batch.run(); }, &exitCode)) {
        return exitCode;
    }
    RowsMilestone::advance();
    return errors > 0 ? 1 : 0;
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

bool CommandLineRun::isCompleted(const std::function<void()> &work, int *exitCode)
{
    stopRequested = false;
    try {
        work();
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
