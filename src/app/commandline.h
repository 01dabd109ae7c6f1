#pragma once

#include <QString>
#include <QStringList>

/// How much a command-line run tells.
namespace Verbosity {

enum { Silent = 0, Summary = 1, Normal = 2, Extra = 3, Maximum = 4 };

/// "Silent" and so on; empty for a number outside 0 to 4.
QString name(int level);
/// What the level tells, in words.
QString description(int level);

} // namespace Verbosity

/// What the arguments of the process ask for.
struct CommandLine
{
    bool commandLine = false; ///< run without a window
    bool batch = false;       ///< run the batch that the document holds
    bool newWindow = false;   ///< open no document that wasn't named
    bool printVersion = false;
    bool printBuild = false;
    int verbosity = Verbosity::Silent;
    bool namesVerbosity = false;
    QString logPath; ///< as typed, variables and all; empty without a log
    bool overwriteLog = false;
    QString reportPath;    ///< as logPath, of the report on the flow
    QString document;      ///< absolute; empty when none was named
    QStringList overrides; ///< texts of the form <alias>=<value>, in the order of the arguments
    QString error;         ///< why the program can't go on; empty when it can
};

/// Reads the arguments, the first of which is the program's own path. Stops at the first that can't be used and says
/// so in `error`; what came before it is kept.
CommandLine parseCommandLine(const QStringList &arguments);

/// The name of an option, in lower case and without its dashes; empty for an argument that is none.
QString optionName(const QString &argument);
/// True for an option whose value is the next argument, whatever that looks like.
bool takesValue(const QString &optionName);

/// True when the arguments ask for a run without a window; for use before there is an application object.
bool asksForCommandLine(int argc, char **argv);
/// True when the arguments name a platform plugin of their own.
bool namesPlatform(int argc, char **argv);
