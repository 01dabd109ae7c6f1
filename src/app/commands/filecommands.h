#pragma once

#include "app/commands/commandcontext.h"

class DocumentCommands;
class RecentDocuments;

/// Commands of the File menu beside New, Open and Save.
class FileCommands
{
public:
    FileCommands(const CommandContext &context, DocumentCommands &documents, RecentDocuments &recent)
        : m_context(context)
        , m_documents(documents)
        , m_recent(recent)
    {
    }

    void openRecent();
    void editNotes();
    /// Starts the program once more.
    void newWindow();
    /// Runs the document over many files, if its items allow that.
    void batchProcess();
    void showCommandLine();
    /// Describes the flow in a file for somebody who doesn't have the program.
    void writeFlowReport();
    void exit();

private:
    const CommandContext m_context;
    DocumentCommands &m_documents;
    RecentDocuments &m_recent;
};
