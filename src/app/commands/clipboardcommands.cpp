#include "app/commands/clipboardcommands.h"

#include "app/documentsession.h"
#include "app/mainactions.h"
#include "document/graphfragment.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/undostep.h"
#include "panes/items/datasetexport.h"
#include "panes/items/itempane.h"
#include "platform/waitcursor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

void ClipboardCommands::copy()
{
    const QByteArray fragment = GraphFragment::ofSelection(m_context.session.scene());
    if (fragment.isEmpty()) {
        return;
    }
    auto *data = new QMimeData;
    data->setData(QLatin1String(GraphFragment::mimeType), fragment);
    data->setData(QLatin1String(GraphFragment::xmlMimeType), fragment);
    QGuiApplication::clipboard()->setMimeData(data);
}

void ClipboardCommands::cut()
{
    GraphScene &scene = m_context.session.scene();
    if (!scene.isProcessing() && !scene.nodes(true).isEmpty()) {
        const UndoStep step(scene, QStringLiteral("cut"));
        copy();
        m_context.itemPane.letGo();
        scene.deleteSelected();
    }
}

bool ClipboardCommands::canPaste()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasFormat(QLatin1String(GraphFragment::mimeType));
}

void ClipboardCommands::paste()
{
    DocumentSession &session = m_context.session;
    if (session.scene().isProcessing()) {
        return;
    }
    const UndoStep step(session.scene(), QStringLiteral("paste"));
    const WaitCursor cursor;
    session.scene().clearSelection();
    if (!canPaste()) {
        return;
    }
    const QByteArray bytes = QGuiApplication::clipboard()->mimeData()->data(QLatin1String(GraphFragment::mimeType));
    // A scene with a document of its own, so that reading can't change the live one's.
    GraphScene source;
    if (GraphFragment::read(bytes, source, session.path())) {
        const QVariant place = m_actions.editPaste->data();
        const QPointF position = place.toPointF();
        session.scene().pasteScene(source, place.isValid() ? &position : nullptr);
    }
}

void ClipboardCommands::duplicateBranch()
{
    m_context.session.scene().duplicateBranch();
}

void ClipboardCommands::copyData()
{
    const QList<Node *> selected = m_context.session.scene().nodes(true);
    if (selected.size() == 1) {
        DatasetExport(m_context.prompts).copy(selected.first()->dataset());
    }
}
