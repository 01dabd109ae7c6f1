#include "app/windowhooks.h"

#include "app/application.h"
#include "app/documentcommands.h"
#include "app/documentsession.h"
#include "app/tips.h"
#include "app/undostack.h"
#include "graph/graphhooks.h"
#include "graph/runcontrol.h"
#include "graph/undostep.h"
#include "outputnode/outputnode.h"
#include "panes/canvas/graphpane.h"
#include "panes/dialogs/insufficientmemorydialog.h"
#include "panes/dialogs/prompts.h"
#include "panes/dialogs/texteditdlg.h"
#include "platform/waitcursor.h"
#include "settings/settings.h"

WindowHooks::WindowHooks(const CommandContext &context, DocumentCommands &documents)
    : m_context(context)
{
    GraphHooks &hooks = GraphHooks::instance();
    hooks.ask = [this](const QString &text) { return m_context.prompts.confirm(text); };
    hooks.showTip = [this](const QString &key, const QString &title, const QString &text, int milliseconds) {
        Tips::showOnce(key, title, text, milliseconds, &m_context.graphPane);
    };
    OutputNode::setConfirmation(
        [this](const QString &title, const QString &text) { return confirmFiles(title, text); });
    RunControl::setMemoryCeilingHook([this](double used, double limit) { return raiseMemoryCeiling(used, limit); });
    UndoStep::install(
        [this, &documents](const QString &hint) {
            documents.refreshRecoveryFile();
            const WaitCursor cursor;
            m_context.undo.prepare(hint);
        },
        [this] { m_context.undo.finish(); });
}

WindowHooks::~WindowHooks()
{
    UndoStep::install({}, {});
    RunControl::setMemoryCeilingHook({});
    OutputNode::setConfirmation({});
    GraphHooks::instance() = GraphHooks();
}

bool WindowHooks::confirmFiles(const QString &title, const QString &text)
{
    const WaitCursorPause pause;
    TextEditDlg dialog(title, text, &m_context.window);
    return m_context.prompts.exec(dialog) == QDialog::Accepted;
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
