#include "app/panewiring.h"

#include "app/commands/commandcontext.h"
#include "app/commands/commandgroups.h"
#include "app/commands/examplesmenu.h"
#include "app/documentsession.h"
#include "app/iconprogress.h"
#include "app/mainactions.h"
#include "app/mainwindow.h"
#include "app/uithemes.h"
#include "charts/chartitemwidget.h"
#include "graph/graphenums.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/actions/actionpane.h"
#include "panes/canvas/graphpane.h"
#include "panes/icons.h"
#include "panes/items/itempane.h"
#include "panes/status/nodestatuswidget.h"
#include "panes/status/statusbar.h"
#include "transforms/frame/transform.h"

#include <QAction>
#include <QShortcut>

namespace {

/// Opens the page about the selected item; what it says is for the menu of the canvas.
QAction *itemHelp(GraphPane &pane, CommandGroups &groups)
{
    auto *action = new QAction(Icons::icon(QStringLiteral("help-contents")), QStringLiteral("Help"), &pane);
    action->setToolTip(QStringLiteral("Click for more details."));
    QObject::connect(
        action, &QAction::triggered, &pane, [&pane, &groups] { groups.help.desk().showContextPage(&pane); });
    return action;
}

} // namespace

void connectCanvas(const CommandContext &context, const MainActions &actions, CommandGroups &groups)
{
    GraphPane &pane = context.graphPane;
    StatusBar &statusBar = context.statusBar;
    CanvasActions menu;
    menu.showFullscreen = actions.viewFullscreen;
    menu.help = itemHelp(pane, groups);
    menu.copyData = actions.editCopyData;
    menu.inputFromFile = actions.inputFromFile;
    menu.inputFromClipboard = actions.inputFromClipboard;
    menu.outputToFile = actions.outputToFile;
    menu.outputToChart = actions.outputToChart;
    menu.connectTo = actions.editConnect;
    menu.cut = actions.editCut;
    menu.copy = actions.editCopy;
    menu.paste = actions.editPaste;
    menu.duplicateBranch = actions.editDuplicateBranch;
    menu.remove = actions.editDelete;
    pane.setActions(menu);
    new ExamplesMenu(*actions.examplesMenu, context, groups.all.documents);
    pane.setExamples(*actions.examplesMenu);
    QObject::connect(&statusBar.itemStatus(), &NodeStatusWidget::iconClicked, &pane,
        [&groups](NodeStatusIcon icon) { groups.view.selectIconsOfType(icon); });
    QObject::connect(&pane, &GraphPane::statusMessage, &statusBar, &StatusBar::onShowMessage);
    QObject::connect(&pane, &GraphPane::runSelectedRequested, &pane, [&groups] { groups.runs.run(RunMode::Selected); });
    QObject::connect(&pane, &GraphPane::typedCharInNote, &context.itemPane, &ItemPane::onTypedCharInNote);
    QObject::connect(&pane, &GraphPane::zoomChanged, &pane, [&groups] { groups.view.onZoomChanged(); });
}

void connectActionPane(const CommandContext &context, CommandGroups &groups)
{
    ActionPane *pane = &context.actionPane;
    DocumentSession *session = &context.session;
    QObject::connect(pane, &ActionPane::addedTransform, pane,
        [session](Transform *prototype) { session->scene().addTransform(prototype); });
    QObject::connect(pane, &ActionPane::highlightTransformNodes, pane,
        [session](bool on, int type) { session->scene().onHighlightTransformNodes(on, type); });
    QObject::connect(pane, &ActionPane::inputFileClicked, pane, [&groups] { groups.inputs.addFromFiles(); });
    QObject::connect(pane, &ActionPane::inputFolderClicked, pane, [&groups] { groups.inputs.addFromFolder(); });
    QObject::connect(
        pane, &ActionPane::inputClipboardClicked, pane, [&groups] { groups.inputs.addFromClipboard(QPointF()); });
    QObject::connect(pane, &ActionPane::outputFileClicked, pane, [&groups] { groups.outputs.toFile(); });
    QObject::connect(pane, &ActionPane::outputChartClicked, pane, [&groups] { groups.outputs.toChart(); });
    QObject::connect(&groups.view.themes(), &UiThemes::changed, pane, &ActionPane::onThemeChanged);
    pane->onThemeChanged();
    auto *toFilter = new QShortcut(Qt::CTRL + Qt::Key_K, &context.window);
    QObject::connect(toFilter, &QShortcut::activated, pane, &ActionPane::onSetFocusToTransformFilter);
}

void connectStatusBar(const CommandContext &context, CommandGroups &groups)
{
    StatusBar *statusBar = &context.statusBar;
    QObject::connect(statusBar, &StatusBar::feedbackClicked, statusBar, [&groups] { groups.help.onFeedbackClicked(); });
    QObject::connect(
        statusBar, &StatusBar::introVideoClicked, statusBar, [&groups] { groups.help.onIntroVideoClicked(); });
    auto *progress = new IconProgress(context.window);
    QObject::connect(statusBar, &StatusBar::progressShown, progress, &IconProgress::onProgress);
}

void connectItemPane(const CommandContext &context, MainWindow &window)
{
    ItemPane *pane = &context.itemPane;
    ChartItemWidget::enlist();
    QObject::connect(pane, &ItemPane::nodeCommentChanged, &window, &MainWindow::onDocumentChanged);
    QObject::connect(pane, &ItemPane::changeNeedsSave, &window, &MainWindow::onDocumentChanged);
    StatusBar *statusBar = &context.statusBar;
    QObject::connect(pane, &ItemPane::selectedDataCellsChanged, statusBar,
        [pane, statusBar] { statusBar->showStatistics(pane->selectionText()); });
    QObject::connect(pane, &ItemPane::nodeStatusChanged, &window, &MainWindow::updateActions);
}
