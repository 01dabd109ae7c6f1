#pragma once

#include "app/commands/commandcontext.h"

/// Commands of the File menu beside New, Open and Save.
class FileCommands
{
public:
    explicit FileCommands(const CommandContext &context)
        : m_context(context)
    {
    }

    /// Starts the program once more.
    void newWindow();
    void showCommandLine();
    void exit();

private:
    const CommandContext m_context;
};
