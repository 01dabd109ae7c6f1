#pragma once

class ClipboardCommands;
class CompareCommands;
class DocumentCommands;
class EditCommands;
class FileCommands;
class HelpCommands;
class InputCommands;
class OutputCommands;
class RunCommands;
class UndoCommands;
class ViewCommands;

/// The groups of commands that the table of actions calls.
struct Commands
{
    DocumentCommands &documents;
    FileCommands &files;
    UndoCommands &undo;
    ClipboardCommands &clipboard;
    EditCommands &edit;
    InputCommands &inputs;
    OutputCommands &outputs;
    RunCommands &runs;
    ViewCommands &view;
    CompareCommands &compare;
    HelpCommands &help;
};
