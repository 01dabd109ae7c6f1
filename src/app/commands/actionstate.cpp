#include "app/commands/actionstate.h"

#include "app/commands/clipboardcommands.h"
#include "app/documentsession.h"
#include "app/undostack.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/canvas/graphpane.h"
#include "panes/explore/exploreditems.h"

#include <QGuiApplication>

ActionState actionState(const DocumentSession &session, const UndoStack &undo, const GraphPane &pane)
{
    const GraphScene &scene = session.scene();
    ActionState state;
    state.isAutoRunOn = scene.isAutoRunOn();
    state.hasItems = !scene.nodes().isEmpty();
    state.hasSelectedItems = !scene.nodes(true).isEmpty();
    state.hasSelection = state.hasSelectedItems || !scene.connections(true).isEmpty();
    const QList<Node *> selected = scene.nodes(true);
    state.selectedTables = ExploredItems::withTable(selected).size();
    state.hasOneItem = selected.size() == 1;
    state.hasData = state.hasOneItem && selected.first()->dataset().columnCount() > 0;
    state.canOutput = selected.size() == 1 && selected.first()->maxOutputs() > 0;
    state.isStale = !scene.nodesInState(NodeState::NeedsProcessing).isEmpty()
                    || !scene.nodesInState(NodeState::Failed).isEmpty();
    state.canUndo = undo.canUndo();
    state.canRedo = undo.canRedo();
    state.canPaste = ClipboardCommands::canPaste();
    state.canZoomIn = pane.canZoomIn();
    state.canZoomOut = pane.canZoomOut();
    state.hasTwoScreens = QGuiApplication::screens().size() >= 2;
    return state;
}
