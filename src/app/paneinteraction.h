#pragma once

#include "app/commands/commandcontext.h"

#include <QPointer>
#include <QWidget>

/// Lets nobody work in the panes during a run, and gives the focus back afterwards to what had it.
class PaneInteraction
{
public:
    explicit PaneInteraction(const CommandContext &context)
        : m_context(context)
    {
    }

    void allow(bool allow);

private:
    const CommandContext m_context;
    QPointer<QWidget> m_focus;
};
