#include "app/mainwindow.h"

#include "app/application.h"
#include "app/commands/actionstate.h"
#include "app/commands/commandgroups.h"
#include "app/commands/recentmenu.h"
#include "app/documentcommands.h"
#include "app/paneinteraction.h"
#include "app/panelayout.h"
#include "app/panewiring.h"
#include "app/programinfo.h"
#include "app/recoveryfile.h"
#include "app/report/runlog.h"
#include "app/scenewiring.h"
#include "app/settingsfollower.h"
#include "app/startdocument.h"
#include "app/startup.h"
#include "app/uithemes.h"
#include "app/windowhooks.h"
#include "app/windowlayout.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "panes/actions/actionpane.h"
#include "panes/canvas/graphpane.h"
#include "panes/dialogs/prompts.h"
#include "panes/items/itempane.h"
#include "panes/status/logpane.h"
#include "panes/status/nodestatuswidget.h"
#include "panes/status/statusbar.h"
#include "settings/settings.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTimer>

MainWindow::MainWindow(Application &application, const CommandLine &commandLine, RunLog &log, Prompts *prompts)
    : m_application(application)
    , m_commandLineOptions(commandLine)
    , m_log(log)
    , m_ownPrompts(prompts ? nullptr : new Prompts(this))
    , m_prompts(prompts ? *prompts : *m_ownPrompts)
    , m_undo(m_session)
    , m_recentDocuments(application.applicationDir().absolutePath())
    , m_documents(
          new DocumentCommands(application, m_session, m_recentDocuments, m_prompts, commandLine.overrides, this))
{
    if (application.settings().uiFont() != QApplication::font()) {
        QApplication::setFont(application.settings().uiFont());
    }
    buildPanes();
    const CommandContext context{application, m_session, m_undo, m_prompts, *m_actionPane, *m_graphPane, *m_itemPane,
        *m_layout, *m_logPane, *m_statusBar, *this};
    m_groups = std::make_unique<CommandGroups>(context, m_actions, *m_documents, m_recentDocuments);
    m_hooks = std::make_unique<WindowHooks>(context, *m_documents);
    m_actions.build(*this, m_groups->all);
    m_recentMenu = std::make_unique<RecentMenu>(*m_actions.recentMenu, m_recentDocuments, m_session, *m_documents);
    m_settingsFollower = std::make_unique<SettingsFollower>(application, m_session, m_actions);
    setFirstStates();
    connectCommands();
    connectCanvas(context, m_actions, *m_groups);
    connectActionPane(context, *m_groups);
    connectItemPane(context, *this);
    connectStatusBar(context, *m_groups);
    m_interaction = std::make_unique<PaneInteraction>(context);
    m_wiring = std::make_unique<SceneWiring>(context, *this, *m_documents, m_groups->runs);
    m_wiring->onSceneChanged(nullptr, &scene());
    connectDocuments();
    application.setMainWindow(this);
    m_recentMenu->update();
    onUpdateTitle();
    updateActions();
}

MainWindow::~MainWindow()
{
    m_hooks.reset();
    m_application.setMainWindow(nullptr);
    Settings &settings = m_application.settings();
    settings.setSessions(settings.sessions() + 1);
    storeFolders(m_application, settings);
    m_layout->store(settings);
    settings.setLogPaneShown(m_logPane->isVisibleTo(this));
    scene().disconnect(this);
    m_itemPane->letGo();
    delete m_graphPane;
    scene().clearAll();
}

void MainWindow::buildPanes()
{
    m_graphPane = new GraphPane;
    m_logPane = new LogPane;
    m_actionPane = new ActionPane(m_application.transforms());
    m_itemPane = new ItemPane(m_prompts);
    m_layout = std::make_unique<PaneLayout>(m_actionPane, m_graphPane, m_logPane, m_itemPane);
    setCentralWidget(m_layout->splitter());
    m_statusBar = new StatusBar;
    setStatusBar(m_statusBar);
}

void MainWindow::setFirstStates()
{
    m_logPane->setVisible(m_application.settings().logPaneShown());
    m_actions.setFirstStates(m_application.settings());
    m_layout->restore(m_application.settings());
    m_layout->setActions(*m_actions.viewActionPane, *m_actions.viewItemPane);
    m_actions.editSnapToGrid->setChecked(scene().snapToGrid());
    m_actions.showManualRuns(!isAutoRunOn());
}

void MainWindow::connectCommands()
{
    m_groups->view.themes().onUpdateUITheme();
    m_actions.connectSwitches(*this, m_groups->all);
    connect(&m_groups->runs, &RunCommands::autoRunChanged, this, &MainWindow::updateActions);
    connect(&m_undo, &UndoStack::changed, this, &MainWindow::updateActions);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &MainWindow::updateActions);
    connect(m_recentMenu.get(), &RecentMenu::updated, this, &MainWindow::updateActions);
    connect(m_graphPane, &GraphPane::zoomChanged, this, &MainWindow::updateActions);
}

void MainWindow::onSceneChanged(GraphScene *old, GraphScene *current)
{
    m_wiring->onSceneChanged(old, current);
    current->clearSelection();
    m_graphPane->onAutoZoom();
    m_groups->view.updateTimingProfile();
    updateActions();
}

void MainWindow::connectDocuments()
{
    connect(&m_application, &Application::heartBeat, m_statusBar, &StatusBar::onHeartBeat);
    connect(&m_session, &DocumentSession::sceneChanged, this, &MainWindow::onSceneChanged);
    connect(&m_session, &DocumentSession::modifiedChanged, this, &QWidget::setWindowModified);
    connect(&m_session, &DocumentSession::pathChanged, this, &MainWindow::onUpdateTitle);
    connect(&m_session, &DocumentSession::aboutToClear, m_itemPane, &ItemPane::letGo);
    connect(&m_session, &DocumentSession::aboutToClear, m_logPane, &QPlainTextEdit::clear);
    connect(&m_session, &DocumentSession::aboutToClear, &m_undo, &UndoStack::clear);
    connect(&m_session, &DocumentSession::aboutToClear, &m_groups->undo, &UndoCommands::forgetRun);
    connect(m_documents, &DocumentCommands::documentOpened, &m_undo, &UndoStack::clear);
    connect(m_documents, &DocumentCommands::statusMessage, m_statusBar, &StatusBar::onShowMessage);
    connect(m_documents, &DocumentCommands::recentChanged, m_recentMenu.get(), &RecentMenu::update);
    connect(m_documents, &DocumentCommands::localeChanged, m_statusBar, &StatusBar::onUpdateLocale);
    connect(m_documents, &DocumentCommands::documentOpened, this, &MainWindow::onDocumentOpened);
    connect(m_documents, &DocumentCommands::documentCleared, this, &MainWindow::onDocumentCleared);
    connect(m_documents, &DocumentCommands::overridesUnusable, this, &MainWindow::onOverridesUnusable);
}

void MainWindow::start()
{
    const Settings &settings = m_application.settings();
    restoreFolders(m_application, settings);
    show();
    restoreLayout(*this, settings);
    m_layout->restore(settings);
    m_graphPane->setFocus();
    QTimer::singleShot(0, this, &MainWindow::onStarted);
}

void MainWindow::onStarted()
{
    Settings &settings = m_application.settings();
    const QString path = startDocument(m_application, m_commandLineOptions, m_recentDocuments, m_prompts);
    if (!path.isEmpty() && QFileInfo::exists(path)) {
        m_documents->openDocument(path);
    }
    StartUp::greet(settings, m_prompts, m_groups->help, *m_actions.examplesMenu);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (!m_documents->maybeSave()) {
        event->ignore();
        return;
    }
    // A run that is still on ends at the next item.
    stopRequested = true;
    Settings &settings = m_application.settings();
    storeLayout(*this, settings);
    const QString path = m_session.path();
    settings.setPreviousPath(
        settings.isIni() && !path.isEmpty() ? m_application.applicationDir().relativeFilePath(path) : path);
    m_session.releaseHold();
    RecoveryFile::remove();
    event->accept();
}

bool MainWindow::isAutoRunOn() const
{
    return scene().isAutoRunOn();
}

UiThemes &MainWindow::themes()
{
    return m_groups->view.themes();
}

void MainWindow::releaseDatasets()
{
    m_session.releaseDatasets();
}

void MainWindow::saveRecoveryNow()
{
    m_documents->saveRecoveryNow();
}

void MainWindow::onOverridesUnusable(const QString &error)
{
    QCoreApplication::exit(m_log.fatal(error));
}

void MainWindow::onUpdateTitle()
{
    const QString path = m_session.path();
    const QString document = path.isEmpty() ? QString() : QStringLiteral("%1 - ").arg(QFileInfo(path).fileName());
    setWindowTitle(document + ProgramInfo::nameAndVersion() + QStringLiteral("[*]"));
    setWindowModified(m_session.isModified());
}

void MainWindow::onNodeDataChanged(Node *node)
{
    m_statusBar->itemStatus().showCountsInRun(scene());
    m_itemPane->refresh(node);
    if (node->state() == NodeState::Processed) {
        m_statusBar->onShowMessage(QStringLiteral("%1 updated").arg(node->name()));
    }
}

void MainWindow::onGraphSelectionChanged()
{
    const int items = scene().nodes(true).size();
    const int connections = scene().connections(true).size();
    updateActions();
    m_itemPane->showSelection(scene());
    m_statusBar->showSelection(items, connections);
}

void MainWindow::onDocumentOpened(bool autoRun)
{
    {
        const QSignalBlocker blocker(m_actions.editSnapToGrid);
        m_actions.editSnapToGrid->setChecked(scene().snapToGrid());
    }
    m_groups->view.fitDocument();
    updateActions();
    m_groups->runs.startOpened(autoRun);
    updateActions();
}

void MainWindow::onDocumentCleared()
{
    m_groups->view.fitDocument();
    onGraphSelectionChanged();
}

void MainWindow::onDocumentChanged()
{
    m_session.setModified(true);
}

void MainWindow::onNodesChanged()
{
    onDocumentChanged();
    updateActions();
}

void MainWindow::onAllowUserInteraction(bool allow)
{
    m_allowsInteraction = allow;
    m_interaction->allow(allow);
    if (allow) {
        m_recentMenu->update();
        onGraphSelectionChanged();
    } else {
        updateActions();
    }
}

void MainWindow::updateActions()
{
    ActionState state = actionState(m_session, m_undo, *m_graphPane);
    state.isRunning = !m_allowsInteraction;
    state.isInTwoScreens = m_groups->view.isInTwoScreens();
    state.hasRecentDocuments = !m_recentMenu->isEmpty();
    m_actions.updateEnabled(state);
    m_actionPane->setCanOutput(state.canOutput);
    m_statusBar->itemStatus().showCounts(scene());
    if (m_actions.runChanged->isEnabled()) {
        m_groups->runs.showRunTip();
    }
}
