#include "app/scenewiring.h"

#include "app/application.h"
#include "app/commands/runcommands.h"
#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "graph/colors.h"
#include "graph/graphscene.h"
#include "graph/transformnode.h"
#include "panes/canvas/graphpane.h"
#include "panes/dialogs/prompts.h"
#include "panes/items/itempane.h"
#include "panes/status/logpane.h"
#include "panes/status/statusbar.h"

SceneWiring::SceneWiring(
    const CommandContext &context, MainWindow &window, DocumentCommands &documents, RunCommands &runs)
    : m_context(context)
    , m_window(window)
    , m_documents(documents)
    , m_runs(runs)
    , m_tips(context)
{
}

void SceneWiring::onSceneChanged(GraphScene *old, GraphScene *current)
{
    if (old) {
        const std::initializer_list<QObject *> listeners = {
            &m_window, &m_documents, &m_runs, &m_context.statusBar, &m_context.logPane, &m_tips.listener()};
        for (QObject *listener : listeners) {
            old->disconnect(listener);
        }
    }
    current->setBackgroundBrush(m_context.application.colors().color(Colors::Background));
    current->layOutConnections(); // which the copies that undo keeps go without
    m_context.graphPane.setGraph(current);
    connectToWindow(current);
    connectToPanes(current);
    m_tips.follow(current);
}

void SceneWiring::connectToWindow(GraphScene *scene)
{
    MainWindow *window = &m_window;
    QObject::connect(scene, &GraphScene::nodesAdded, window, &MainWindow::onNodesChanged);
    QObject::connect(scene, &GraphScene::nodesDeleted, window, &MainWindow::onNodesChanged);
    QObject::connect(scene, &GraphScene::nodesPosChanged, window, &MainWindow::onDocumentChanged);
    QObject::connect(scene, &GraphScene::nodeParametersChanged, window, &MainWindow::onDocumentChanged);
    QObject::connect(scene, &GraphScene::nodeDataChanged, window, &MainWindow::onNodeDataChanged);
    QObject::connect(scene, &GraphScene::allowUserInteraction, window, &MainWindow::onAllowUserInteraction);
    QObject::connect(scene, &QGraphicsScene::selectionChanged, window, &MainWindow::onGraphSelectionChanged);
    QObject::connect(scene, &GraphScene::completedTransforms, &m_runs, &RunCommands::onCompleted);
    QObject::connect(
        scene, &GraphScene::doubleClickNode, &m_documents, [this] { m_context.itemPane.showFullscreen(); });
    QObject::connect(scene, &GraphScene::fileOpen, &m_documents, &DocumentCommands::onOpenPath);
}

void SceneWiring::connectToPanes(GraphScene *scene)
{
    StatusBar *statusBar = &m_context.statusBar;
    QObject::connect(scene, &GraphScene::showStatusBarMessage, statusBar, &StatusBar::onShowMessage);
    QObject::connect(scene, &GraphScene::showTempMessage, statusBar, &StatusBar::onShowMessage);
    QObject::connect(scene, &GraphScene::showProgress, statusBar, &StatusBar::onShowProgress);
    QObject::connect(scene, &GraphScene::showLogMessage, &m_context.logPane, &LogPane::onShowLogMessage);
    Prompts *prompts = &m_context.prompts;
    MainWindow *window = &m_window;
    QObject::connect(
        scene, &GraphScene::showWarningMessage, window, [prompts](const QString &text) { prompts->warning(text); });
    QObject::connect(
        scene, &GraphScene::showCriticalMessage, window, [prompts](const QString &text) { prompts->critical(text); });
}
