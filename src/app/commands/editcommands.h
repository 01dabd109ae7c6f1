#pragma once

#include "app/commands/commandcontext.h"

class DocumentCommands;

/// Commands on the items of the canvas.
class EditCommands
{
public:
    EditCommands(const CommandContext &context, DocumentCommands &documents)
        : m_context(context)
        , m_documents(documents)
    {
    }

    void deleteSelected();
    void selectAll();
    /// Arranges the selected items, or all of them when fewer than two are selected.
    void tidyUp();
    /// Turning the grid on moves every item to it.
    void setSnapToGrid(bool on);
    /// Another locale reads numbers and dates otherwise, so everything needs to run again.
    void editLocale();
    void editPreferences();

private:
    const CommandContext m_context;
    DocumentCommands &m_documents;
};
