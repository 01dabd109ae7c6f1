#pragma once

#include "app/commands/commandcontext.h"

#include <QObject>

class DocumentCommands;
class QMenu;

/// The menu of the flows that come with the program. One that is chosen is opened at once, as a copy in a folder of the
/// user's; the log says where that is.
class ExamplesMenu : public QObject
{
    Q_OBJECT

public:
    /// Fills `menu`, which is disabled where no examples are installed, and goes with it.
    ExamplesMenu(QMenu &menu, const CommandContext &context, DocumentCommands &documents);

private:
    void open(const QString &document);

    const CommandContext m_context;
    DocumentCommands &m_documents;
};
