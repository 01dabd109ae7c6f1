#pragma once

#include "app/commands/commandcontext.h"

class QPointF;

/// Commands that add inputs.
class InputCommands
{
public:
    explicit InputCommands(const CommandContext &context)
        : m_context(context)
    {
    }

    void addFromFiles();
    /// Asks for a folder, whose files become one table.
    void addFromFolder();
    /// Makes an input of what the clipboard holds: files, or data as text. A null position chooses a place.
    void addFromClipboard(const QPointF &position);

private:
    const CommandContext m_context;
};
