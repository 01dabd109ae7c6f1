#include "app/commands/undocommands.h"

#include "app/documentsession.h"
#include "app/mainactions.h"
#include "app/undostack.h"
#include "graph/graphscene.h"
#include "graph/runcontrol.h"
#include "panes/canvas/graphpane.h"
#include "panes/items/itempane.h"
#include "platform/waitcursor.h"
#include "settings/settings.h"

UndoCommands::UndoCommands(const CommandContext &context, MainActions &actions)
    : m_context(context)
    , m_actions(actions)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &UndoCommands::onProcessUndoRedoChanges);
    connect(&context.undo, &UndoStack::changed, this, &UndoCommands::updateLabels);
    connect(&context.undo, &UndoStack::restored, this,
        [this] { m_timer.start(qRound(Settings::current().processingDelay() * 1000)); });
}

void UndoCommands::undo()
{
    step(&UndoStack::undo);
}

void UndoCommands::redo()
{
    step(&UndoStack::redo);
}

void UndoCommands::step(void (UndoStack::*action)())
{
    const WaitCursor cursor;
    GraphPane &pane = m_context.graphPane;
    const QPointF centre = pane.mapToScene(pane.viewport()->rect().center());
    m_context.itemPane.letGo();
    (m_context.undo.*action)();
    if (!pane.isAutoZoom()) {
        pane.centerOn(centre);
    }
}

void UndoCommands::updateLabels()
{
    const auto label = [](const QString &text, const QString &hint) {
        return hint.isEmpty() ? text : text + QLatin1Char(' ') + hint;
    };
    m_actions.editUndo->setText(label(QStringLiteral("&Undo"), m_context.undo.undoHint()));
    m_actions.editRedo->setText(label(QStringLiteral("&Redo"), m_context.undo.redoHint()));
}

void UndoCommands::onProcessUndoRedoChanges()
{
    GraphScene &scene = m_context.session.scene();
    stopRequested = false;
    scene.runChangesIfAuto();
    stopRequested = false;
    scene.clearSelection();
}
