#pragma once

#include "app/commands/commandcontext.h"

/// Commands of the Help menu.
class HelpCommands
{
public:
    explicit HelpCommands(const CommandContext &context)
        : m_context(context)
    {
    }

    void about();

private:
    const CommandContext m_context;
};
