#pragma once

#include "platform/instances.h"

#include <QString>

class Application;
class Prompts;
class RecentDocuments;
struct CommandLine;

/// The path of the document that a window begins with, or nothing: the recovery file if the person wants it, else what
/// the command line names, else the one that was open last or one that is chosen from
/// a list, as the settings say. `instances` is the number of this program's that run: the recovery file may be that of
/// another one.
QString startDocument(Application &application, const CommandLine &commandLine, const RecentDocuments &recent,
    Prompts &prompts, int instances = platform::runningInstances());
