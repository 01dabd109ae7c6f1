#include "app/commands/filecommands.h"

#include "app/batch/batchcolumns.h"
#include "app/batch/batchprocessdialog.h"
#include "app/commandlinedialog.h"
#include "app/documentcommands.h"
#include "app/documentsession.h"
#include "app/flowreport/flowdescription.h"
#include "app/flowreport/flowreport.h"
#include "app/recentdocuments.h"
#include "graph/graphscene.h"
#include "panes/dialogs/notesdialog.h"
#include "panes/dialogs/openrecentdialog.h"
#include "panes/dialogs/prompts.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

void FileCommands::openRecent()
{
    if (m_context.session.scene().isProcessing()) {
        return;
    }
    OpenRecentDialog dialog(m_recent.windowEntries(), &m_context.window);
    if (m_context.prompts.exec(dialog) == QDialog::Accepted && !dialog.path().isEmpty()) {
        m_documents.onOpenPath(dialog.path());
    }
}

void FileCommands::editNotes()
{
    DocumentSession &session = m_context.session;
    if (session.scene().isProcessing()) {
        return;
    }
    NotesDialog dialog(session.notes(), &m_context.window);
    if (m_context.prompts.exec(dialog) == QDialog::Accepted && dialog.notes() != session.notes()) {
        session.setNotes(dialog.notes());
        session.setModified(true);
    }
}

void FileCommands::newWindow()
{
    const QStringList arguments = QCoreApplication::arguments();
    if (!m_context.session.scene().isProcessing() && !arguments.isEmpty()) {
        QProcess::startDetached(QCoreApplication::applicationFilePath(), {QStringLiteral("-new_window")});
    }
}

void FileCommands::batchProcess()
{
    DocumentSession &session = m_context.session;
    if (session.scene().isProcessing()) {
        return;
    }
    const QString obstacle = batchObstacle(commandLineItems(session.scene()));
    if (!obstacle.isEmpty()) {
        m_context.prompts.warning(obstacle);
        return;
    }
    BatchProcessDialog dialog(session.scene(), session.batch(), m_context.prompts);
    m_context.prompts.exec(dialog);
    session.setBatch(dialog.settings());
    if (dialog.isWindowModified()) {
        session.setModified(true);
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

void FileCommands::writeFlowReport()
{
    const DocumentSession &session = m_context.session;
    if (session.scene().isProcessing()) {
        return;
    }
    const QFileInfo document(session.path());
    const QString start = session.path().isEmpty() ? QString()
                                                   : document.path() + QLatin1Char('/') + document.completeBaseName();
    QString path = m_context.prompts.saveFile({QStringLiteral("Flow report"), start + QStringLiteral(".html"),
        QStringLiteral("HTML (*.html);;Markdown (*.md)")});
    if (path.isEmpty()) {
        return;
    }
    if (QFileInfo(path).suffix().isEmpty()) {
        path += QStringLiteral(".html");
    }
    QString error;
    if (!FlowReport::write(path, describeFlow(session.scene(), session.notes()), &error)) {
        m_context.prompts.critical(error);
    }
}

void FileCommands::exit()
{
    m_context.window.close();
}
