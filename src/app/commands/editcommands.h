#pragma once

#include "app/commands/commandcontext.h"

/// Commands on the items of the canvas.
class EditCommands
{
public:
    explicit EditCommands(const CommandContext &context)
        : m_context(context)
    {
    }

    void deleteSelected();
    void selectAll();
    /// Turning the grid on moves every item to it.
    void setSnapToGrid(bool on);

private:
    const CommandContext m_context;
};
