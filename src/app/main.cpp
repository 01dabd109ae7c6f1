#include "app/application.h"
#include "app/commandline.h"
#include "app/commandlinerun.h"
#include "app/consoleanswer.h"
#include "app/mainwindow.h"
#include "app/platformchoice.h"
#include "app/report/runlog.h"
#include "app/sessionend.h"
#include "app/startup.h"
#include "outputs/filenamevariables.h"
#include "platform/console.h"
#include "platform/display.h"

#include <QHashFunctions>
#include <cstdio>
#include <new>

namespace {

/// A run without a window works with no display at all, unless the user chose a platform.
void choosePlatform(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !namesPlatform(argc, argv)) {
        qputenv("QT_QPA_PLATFORM", platformsWithoutWindow({argv, argv + argc}).c_str());
    }
}

/// Without the program's own path.
QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    return arguments;
}

bool openLog(const CommandLine &commandLine, RunLog &log)
{
    FileNameVariables::Context context;
    context.documentPath = commandLine.document;
    return log.open(FileNameVariables::expanded(commandLine.logPath, context), commandLine.overwriteLog);
}

int runWindow(Application &application, const CommandLine &commandLine, RunLog &log)
{
    // The log is that of runs without a window.
    log.close();
    MainWindow window(application, commandLine, log);
    const SessionEnd sessionEnd(window);
    QObject::connect(&application, &QGuiApplication::lastWindowClosed, &application, &QCoreApplication::quit);
    window.start();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    std::set_new_handler(Application::outOfMemoryHandler);
    // Several outputs follow the order of hashes, which must be the same on every run.
    qSetGlobalQHashSeed(0);
    platform::useUtf8InPlainLocale();
    if (const QString answer = consoleAnswer(argumentsOf(argc, argv)); !answer.isEmpty()) {
        std::fputs(answer.toUtf8().constData(), stdout);
        return std::fflush(stdout) == 0 ? 0 : 1;
    }
    const bool withoutWindow = asksForCommandLine(argc, argv);
    RunLog::installMessageHandler(withoutWindow);
    const bool hasDisplay = qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || namesPlatform(argc, argv)
                            || platform::hasDisplay();
    if (withoutWindow) {
        platform::surviveClosedConsole();
    }
    if (withoutWindow || !hasDisplay) {
        choosePlatform(argc, argv); // which also lets the arguments be read where no window can be opened
    }
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    Application application(argc, argv, withoutWindow ? Application::Mode::CommandLine : Application::Mode::Window);
    const CommandLine commandLine = parseCommandLine(QCoreApplication::arguments());
    RunLog log;
    if (!commandLine.error.isEmpty()) {
        return log.fatal(commandLine.error);
    }
    if (!withoutWindow && !hasDisplay) {
        return log.fatal(QStringLiteral("There is no display to open a window on. Use -cli to run without a window."));
    }
    StartUp::applySettings(withoutWindow);
    if (!commandLine.logPath.isEmpty()) {
        openLog(commandLine, log);
    }
    try {
        return commandLine.commandLine ? CommandLineRun(commandLine, log).run()
                                       : runWindow(application, commandLine, log);
    } catch (const std::bad_alloc &) {
        // Qt's containers take their memory past operator new and throw.
        Application::outOfMemoryHandler();
    }
}
