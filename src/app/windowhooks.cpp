#include "app/windowhooks.h"

#include "app/application.h"
#include "app/documentcommands.h"
#include "app/documentsession.h"
#include "app/undostack.h"
#include "graph/graphscene.h"
#include "graph/nodefactory.h"
#include "graph/runcontrol.h"
#include "inputnode/inputnode.h"
#include "panes/canvas/graphpane.h"
#include "panes/dialogs/filetypequestions.h"
#include "panes/dialogs/inputfromfolderdialog.h"
#include "panes/dialogs/insufficientmemorydialog.h"
#include "panes/dialogs/prompts.h"
#include "panes/dialogs/texteditdlg.h"
#include "panes/widgets/tips.h"
#include "platform/waitcursor.h"
#include "settings/settings.h"

WindowHooks::WindowHooks(const CommandContext &context, DocumentCommands &documents)
    : m_context(context)
{
    GraphHooks &hooks = m_context.session.scene().document()->hooks;
    hooks.ask = [this](const QString &text) { return m_context.prompts.confirm(text); };
    hooks.learnInputTypes = [this](const QStringList &paths) {
        FileTypeQuestions::learnInputTypes(m_context.prompts, paths);
    };
    hooks.showTip = [this](const QString &key, const QString &title, const QString &text, int milliseconds) {
        Tips::showOnce(key, title, text, milliseconds, &m_context.graphPane);
    };
    hooks.askAboutFiles = [this](const QString &title, const QString &text) { return confirmFiles(title, text); };
    hooks.beginUndoStep = [this, &documents](const QString &hint, bool isTyping) {
        documents.refreshRecoveryFile();
        const WaitCursor cursor;
        m_context.undo.prepare(hint, isTyping);
    };
    hooks.endUndoStep = [this] { m_context.undo.finish(); };
    m_createFolderInput = NodeFactory::instance().createFolderInput;
    NodeFactory::instance().createFolderInput = [this](const QString &folder, const QString &mask) {
        return askForFolderInput(folder, mask);
    };
    RunControl::setMemoryCeilingHook([this](double used, double limit) { return raiseMemoryCeiling(used, limit); });
}

WindowHooks::~WindowHooks()
{
    NodeFactory::instance().createFolderInput = m_createFolderInput;
    RunControl::setMemoryCeilingHook({});
    m_context.session.scene().document()->hooks = GraphHooks();
}

bool WindowHooks::confirmFiles(const QString &title, const QString &text)
{
    const WaitCursorPause pause;
    TextEditDlg dialog(title, text, &m_context.window);
    return m_context.prompts.exec(dialog) == QDialog::Accepted;
}

IONode *WindowHooks::askForFolderInput(const QString &folder, const QString &mask)
{
    const WaitCursorPause pause;
    FolderInput source;
    source.folder = folder;
    source.fileMatch = mask.isEmpty() ? source.fileMatch : mask;
    InputFromFolderDialog dialog(source, m_context.prompts, &m_context.window);
    if (m_context.prompts.exec(dialog) != QDialog::Accepted) {
        return nullptr;
    }
    return new InputNode(InputOptions::forFolder(dialog.source(), dialog.fileType()));
}

bool WindowHooks::raiseMemoryCeiling(double used, double limit)
{
    const WaitCursorPause pause;
    InsufficientMemoryDialog dialog(used, limit, m_context.session.isModified(), &m_context.window);
    m_context.prompts.exec(dialog);
    if (dialog.isExitChosen()) {
        return false;
    }
    m_context.application.settings().setMaxMemoryUsage(dialog.newLimit());
    return true;
}
