#include "app/commands/filecommands.h"

#include "app/commandlinedialog.h"
#include "app/documentsession.h"
#include "graph/graphscene.h"
#include "panes/dialogs/prompts.h"

#include <QCoreApplication>
#include <QProcess>

void FileCommands::newWindow()
{
    const QStringList arguments = QCoreApplication::arguments();
    if (!m_context.session.scene().isProcessing() && !arguments.isEmpty()) {
        QProcess::startDetached(QCoreApplication::applicationFilePath(), {QStringLiteral("-new_window")});
    }
}

void FileCommands::showCommandLine()
{
    const DocumentSession &session = m_context.session;
    if (!session.scene().isProcessing()) {
        CommandLineDialog dialog(session.scene(), session.path(), session.isModified(), m_context.prompts);
        m_context.prompts.exec(dialog);
    }
}

void FileCommands::exit()
{
    m_context.window.close();
}
