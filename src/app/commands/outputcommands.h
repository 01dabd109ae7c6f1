#pragma once

#include "app/commands/commandcontext.h"

/// Commands that add what a table goes to.
class OutputCommands
{
public:
    explicit OutputCommands(const CommandContext &context)
        : m_context(context)
    {
    }

    /// Asks for the file.
    void toFile();
    void toChart();

private:
    const CommandContext m_context;
};
