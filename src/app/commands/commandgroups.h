#pragma once

#include "app/commands/clipboardcommands.h"
#include "app/commands/commands.h"
#include "app/commands/comparecommands.h"
#include "app/commands/editcommands.h"
#include "app/commands/filecommands.h"
#include "app/commands/helpcommands.h"
#include "app/commands/inputcommands.h"
#include "app/commands/outputcommands.h"
#include "app/commands/runcommands.h"
#include "app/commands/undocommands.h"
#include "app/commands/viewcommands.h"
#include "app/itemkeys.h"

/// The groups of commands, and what the table of actions sees of them.
struct CommandGroups
{
    CommandGroups(
        const CommandContext &context, MainActions &actions, DocumentCommands &documents, RecentDocuments &recent)
        : files(context, documents, recent)
        , undo(context, actions)
        , clipboard(context, actions)
        , edit(context, documents)
        , inputs(context)
        , outputs(context)
        , runs(context, actions)
        , view(context, actions)
        , compare(context)
        , help(context)
        , itemKeys(context)
        , all{documents, files, undo, clipboard, edit, inputs, outputs, runs, view, compare, help}
    {
    }

    FileCommands files;
    UndoCommands undo;
    ClipboardCommands clipboard;
    EditCommands edit;
    InputCommands inputs;
    OutputCommands outputs;
    RunCommands runs;
    ViewCommands view;
    CompareCommands compare;
    HelpCommands help;
    ItemKeys itemKeys;
    Commands all;
};
