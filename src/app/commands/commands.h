#pragma once

class DocumentCommands;
class EditCommands;
class FileCommands;
class HelpCommands;
class InputCommands;
class RunCommands;
class ViewCommands;

/// The groups of commands that the table of actions calls.
struct Commands
{
    DocumentCommands &documents;
    FileCommands &files;
    EditCommands &edit;
    InputCommands &inputs;
    RunCommands &runs;
    ViewCommands &view;
    HelpCommands &help;
};
