#pragma once

#include "app/commands/commandcontext.h"

struct MainActions;

/// Cut, copy and paste of items, and their copies within the graph. Nothing happens during a run.
class ClipboardCommands
{
public:
    ClipboardCommands(const CommandContext &context, MainActions &actions)
        : m_context(context)
        , m_actions(actions)
    {
    }

    void cut();
    void copy();
    /// At the place in the scene that the action has as its data, else beside what is there.
    void paste();
    void duplicateBranch();
    /// The table of the one selected item, as text; asks first when it is large.
    void copyData();
    /// Whether the clipboard holds items.
    static bool canPaste();

private:
    const CommandContext m_context;
    MainActions &m_actions;
};
