#pragma once

#include "app/commandline.h"
#include "app/commandlineitems.h"

#include <QStringList>

/// What the user chose for the text that runs a document from the command line.
struct CommandLineTextOptions
{
    enum Format { CommandPrompt = 0, BatFile = 1 };

    Format format = CommandPrompt;
    int pauseSeconds = 0;
    int verbosity = Verbosity::Silent;
    bool logging = false;
    QString logPath;
    bool overwriteLog = false;
    bool loop = false;
    QString loopAlias;  ///< the input that takes one file after the other
    QString loopFolder; ///< with the system's separators
    QString loopMatching;
    bool hasUnsavedChanges = false;
};

struct CommandLineText
{
    QString text;
    QStringList warnings;
};

/// The files that a loop over an input goes through, proposed from the input's present path.
struct LoopPattern
{
    QString folder;
    QString matching;
    /// "[sheet]" behind the file name, or empty.
    QString worksheetSuffix;
};

LoopPattern loopPatternOf(const QString &path);

/// The command that runs a document with its present files, each of which is there to be replaced, and what the user
/// should know about it. An alias that gave a warning is left out.
CommandLineText commandLineText(const QString &program, const QString &document, const QList<CommandLineItem> &items,
    const CommandLineTextOptions &options);
