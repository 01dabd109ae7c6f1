#include "app/canvaswiring.h"

#include "app/commands/commandcontext.h"
#include "app/commands/commandgroups.h"
#include "app/mainactions.h"
#include "graph/graphenums.h"
#include "panes/canvas/graphpane.h"
#include "panes/items/itempane.h"
#include "panes/status/nodestatuswidget.h"
#include "panes/status/statusbar.h"

void connectCanvas(const CommandContext &context, const MainActions &actions, CommandGroups &groups)
{
    GraphPane &pane = context.graphPane;
    StatusBar &statusBar = context.statusBar;
    CanvasActions menu;
    menu.inputFromFile = actions.inputFromFile;
    menu.inputFromClipboard = actions.inputFromClipboard;
    menu.connectTo = actions.editConnect;
    menu.cut = actions.editCut;
    menu.copy = actions.editCopy;
    menu.paste = actions.editPaste;
    menu.duplicateBranch = actions.editDuplicateBranch;
    menu.remove = actions.editDelete;
    pane.setActions(menu);
    QObject::connect(&statusBar.itemStatus(), &NodeStatusWidget::iconClicked, &pane,
        [&groups](NodeStatusIcon icon) { groups.view.selectIconsOfType(icon); });
    QObject::connect(&pane, &GraphPane::statusMessage, &statusBar, &StatusBar::onShowMessage);
    QObject::connect(&pane, &GraphPane::runSelectedRequested, &pane, [&groups] { groups.runs.run(RunMode::Selected); });
    QObject::connect(&pane, &GraphPane::typedCharInNote, &context.itemPane, &ItemPane::onTypedCharInNote);
    QObject::connect(&pane, &GraphPane::zoomChanged, &pane, [&groups] { groups.view.onZoomChanged(); });
}
