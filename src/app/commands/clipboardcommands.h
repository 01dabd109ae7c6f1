#pragma once

#include "app/commands/commandcontext.h"

class QPointF;

/// Cut, copy and paste of items, and their copies within the graph. Nothing happens during a run.
class ClipboardCommands
{
public:
    explicit ClipboardCommands(const CommandContext &context)
        : m_context(context)
    {
    }

    void cut();
    void copy();
    /// Without a position in the scene the items come beside what is there.
    void paste(const QPointF *position = nullptr);
    void duplicateBranch();
    /// Whether the clipboard holds items.
    static bool canPaste();

private:
    const CommandContext m_context;
};
