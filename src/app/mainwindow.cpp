#include "app/mainwindow.h"

#include "app/application.h"
#include "app/documentcommands.h"
#include "app/recoveryfile.h"
#include "app/runlog.h"
#include "app/tips.h"
#include "graph/colors.h"
#include "graph/graphhooks.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "graph/undostep.h"
#include "graph/waitcursor.h"
#include "outputs/outputnode.h"
#include "panes/dialogs/insufficientmemorydialog.h"
#include "panes/dialogs/prompts.h"
#include "panes/dialogs/texteditdlg.h"
#include "panes/graphpane.h"
#include "panes/logpane.h"
#include "panes/statusbar.h"
#include "platform/desktop.h"
#include "settings/settings.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <QTimer>
#include <QToolBar>

namespace {

constexpr QSize firstSize(1400, 900);

} // namespace

MainWindow::MainWindow(Application &application, const CommandLine &commandLine, RunLog &log, Prompts *prompts)
    : m_application(application)
    , m_commandLineOptions(commandLine)
    , m_log(log)
    , m_ownPrompts(prompts ? nullptr : new Prompts(this))
    , m_prompts(prompts ? *prompts : *m_ownPrompts)
    , m_recentDocuments(application.applicationDir().absolutePath())
    , m_documents(
          new DocumentCommands(application, m_session, m_recentDocuments, m_prompts, commandLine.overrides, this))
{
    if (application.settings().uiFont() != QApplication::font()) {
        QApplication::setFont(application.settings().uiFont());
    }
    m_actions.build(*this);
    buildPanes();
    connectActions();
    onSceneChanged(nullptr, &scene());
    installHooks();
    connectDocuments();
    application.setMainWindow(this);
    RunControl::setMemoryCeilingHook([this](double used, double limit) { return raiseMemoryCeiling(used, limit); });
    UndoStep::install([this](const QString &) { m_documents->refreshRecoveryFile(); }, {});
    onUpdateRecentDocs();
    onUpdateTitle();
    onUpdateRunStatus();
    onGraphSelectionChanged();
}

MainWindow::~MainWindow()
{
    UndoStep::install({}, {});
    GraphHooks::instance() = GraphHooks();
    RunControl::setMemoryCeilingHook({});
    OutputNode::setConfirmation({});
    m_application.setMainWindow(nullptr);
    Settings &settings = m_application.settings();
    settings.setSessions(settings.sessions() + 1);
    settings.setLastDocDir(m_application.lastDocDir());
    settings.setLastDataDir(m_application.lastDataDir());
    settings.setLastOutputDataDir(m_application.lastOutputDataDir());
    settings.setLogPaneShown(m_logPane->isVisibleTo(this));
    scene().disconnect(this);
    delete m_graphPane;
    scene().clearAll();
}

void MainWindow::buildPanes()
{
    m_graphPane = new GraphPane;
    m_logPane = new LogPane;
    auto *centre = new QSplitter(Qt::Vertical);
    centre->addWidget(m_graphPane);
    centre->addWidget(m_logPane);
    centre->setStretchFactor(0, 1);
    centre->setCollapsible(0, false);
    setCentralWidget(centre);
    m_statusBar = new StatusBar;
    setStatusBar(m_statusBar);
    m_logPane->setVisible(m_application.settings().logPaneShown());
    m_actions.viewLog->setChecked(m_application.settings().logPaneShown());
    m_actions.editSnapToGrid->setChecked(scene().snapToGrid());
    m_actions.showManualRuns(!isAutoRunOn());
}

void MainWindow::connectActions()
{
    const auto on = [this](QAction *action, void (MainWindow::*slot)()) {
        connect(action, &QAction::triggered, this, slot);
    };
    connect(m_actions.fileNew, &QAction::triggered, m_documents, &DocumentCommands::onNew);
    connect(m_actions.fileOpen, &QAction::triggered, m_documents, &DocumentCommands::onOpen);
    connect(m_actions.fileSave, &QAction::triggered, m_documents, &DocumentCommands::onSave);
    connect(m_actions.fileSaveAs, &QAction::triggered, m_documents, &DocumentCommands::onSaveAs);
    connect(m_actions.fileExit, &QAction::triggered, this, &QWidget::close);
    on(m_actions.fileNewWindow, &MainWindow::onFileNewWindowAction);
    on(m_actions.fileCommandLine, &MainWindow::onFileCommandLineAction);
    on(m_actions.editDelete, &MainWindow::onEditDeleteAction);
    on(m_actions.editSelectAll, &MainWindow::onEditSelectAllAction);
    on(m_actions.inputFromFile, &MainWindow::onInputFromFileAction);
    on(m_actions.inputFromClipboard, &MainWindow::onInputFromClipboardAction);
    on(m_actions.runStop, &MainWindow::onRunStopAction);
    on(m_actions.runEverything, &MainWindow::onRunEverythingAction);
    on(m_actions.runChanged, &MainWindow::onRunChangesAction);
    on(m_actions.runSelected, &MainWindow::onRunSelectedAction);
    on(m_actions.helpAbout, &MainWindow::onAbout);
    connect(m_actions.editSnapToGrid, &QAction::toggled, this, &MainWindow::onEditSnapToGridToggled);
    connect(m_actions.runAuto, &QAction::toggled, this, &MainWindow::onRunAutoToggled);
    connect(m_actions.viewZoomFit, &QAction::toggled, this, &MainWindow::onZoomFitToggled);
    connect(m_actions.viewZoomIn, &QAction::triggered, m_graphPane, QOverload<>::of(&GraphPane::onZoomIn));
    connect(m_actions.viewZoomOut, &QAction::triggered, m_graphPane, QOverload<>::of(&GraphPane::onZoomOut));
    connect(m_graphPane, &GraphPane::zoomChanged, this, &MainWindow::onUpdateZoomActions);
    connect(m_actions.viewLog, &QAction::toggled, m_logPane, &QWidget::setVisible);
    connect(m_actions.viewToolBar, &QAction::toggled, m_actions.toolBar, &QWidget::setVisible);
    connect(m_actions.toolBar, &QToolBar::visibilityChanged, m_actions.viewToolBar, &QAction::setChecked);
}

void MainWindow::onSceneChanged(GraphScene *old, GraphScene *current)
{
    if (old) {
        for (QObject *listener : {static_cast<QObject *>(this), static_cast<QObject *>(m_documents),
                 static_cast<QObject *>(m_statusBar), static_cast<QObject *>(m_logPane)}) {
            old->disconnect(listener);
        }
    }
    current->setBackgroundBrush(m_application.colors().color(Colors::Background));
    m_graphPane->setGraph(current);
    connect(current, &GraphScene::nodesAdded, this, &MainWindow::onNodesChanged);
    connect(current, &GraphScene::nodesDeleted, this, &MainWindow::onNodesChanged);
    connect(current, &GraphScene::nodesPosChanged, this, &MainWindow::onDocumentChanged);
    connect(current, &GraphScene::nodeParametersChanged, this, &MainWindow::onDocumentChanged);
    connect(current, &GraphScene::nodeDataChanged, this, &MainWindow::onNodeDataChanged);
    connect(current, &GraphScene::completedTransforms, this, &MainWindow::onCompletedTransforms);
    connect(current, &GraphScene::allowUserInteraction, this, &MainWindow::onAllowUserInteraction);
    connect(current, &QGraphicsScene::selectionChanged, this, &MainWindow::onGraphSelectionChanged);
    connect(current, &GraphScene::fileOpen, m_documents, &DocumentCommands::onOpenPath);
    connect(current, &GraphScene::showStatusBarMessage, m_statusBar, &StatusBar::onShowMessage);
    connect(current, &GraphScene::showTempMessage, m_statusBar, &StatusBar::onShowMessage);
    connect(current, &GraphScene::showLogMessage, m_logPane, &LogPane::onShowLogMessage);
    connect(current, &GraphScene::showProgress, m_statusBar, &StatusBar::onShowProgress);
    connect(current, &GraphScene::showWarningMessage, this, [this](const QString &text) { m_prompts.warning(text); });
    connect(current, &GraphScene::showCriticalMessage, this, [this](const QString &text) { m_prompts.critical(text); });
}

void MainWindow::installHooks()
{
    connect(&m_application, &Application::heartBeat, m_statusBar, &StatusBar::onHeartBeat);
    GraphHooks &hooks = GraphHooks::instance();
    hooks.ask = [this](const QString &text) { return m_prompts.confirm(text); };
    OutputNode::setConfirmation([this](const QString &title, const QString &text) {
        const WaitCursorPause pause;
        TextEditDlg dialog(title, text, this);
        return m_prompts.exec(dialog) == QDialog::Accepted;
    });
    hooks.showTip = [this](const QString &key, const QString &title, const QString &text, int milliseconds) {
        Tips::showOnce(key, title, text, milliseconds, m_graphPane);
    };
}

void MainWindow::connectDocuments()
{
    connect(&m_session, &DocumentSession::sceneChanged, this, &MainWindow::onSceneChanged);
    connect(&m_session, &DocumentSession::modifiedChanged, this, &QWidget::setWindowModified);
    connect(&m_session, &DocumentSession::pathChanged, this, &MainWindow::onUpdateTitle);
    connect(&m_session, &DocumentSession::aboutToClear, m_logPane, &QPlainTextEdit::clear);
    connect(m_documents, &DocumentCommands::statusMessage, m_statusBar, &StatusBar::onShowMessage);
    connect(m_documents, &DocumentCommands::recentChanged, this, &MainWindow::onUpdateRecentDocs);
    connect(m_documents, &DocumentCommands::localeChanged, m_statusBar, &StatusBar::onUpdateLocale);
    connect(m_documents, &DocumentCommands::documentOpened, this, &MainWindow::onDocumentOpened);
    connect(m_documents, &DocumentCommands::documentCleared, this, &MainWindow::onDocumentCleared);
    connect(m_documents, &DocumentCommands::overridesUnusable, this, &MainWindow::onOverridesUnusable);
}

void MainWindow::start()
{
    const Settings &settings = m_application.settings();
    m_application.setLastDocDir(settings.lastDocDir());
    m_application.setLastDataDir(settings.lastDataDir());
    m_application.setLastOutputDataDir(settings.lastOutputDataDir());
    show();
    restoreLayout();
    QTimer::singleShot(0, this, &MainWindow::onStarted);
}

void MainWindow::onStarted()
{
    const Settings &settings = m_application.settings();
    const QString path = documentToStartWith();
    if (!path.isEmpty() && QFileInfo::exists(path)) {
        m_documents->openDocument(path);
    }
    if (settings.isIni() && !settings.isWritable()) {
        m_prompts.critical(QStringLiteral(
            "Cannot write preferences to '%1'.\nMake sure the file and folder have write permission\nor store "
            "'Preferences' in the %2.")
                               .arg(QDir::toNativeSeparators(settings.fileName()), platform::settingsStoreName()));
    }
}

void MainWindow::restoreLayout()
{
    restoreState(m_application.settings().windowState());
    if (restoreGeometry(m_application.settings().geometry())) {
        return;
    }
    const QRect available = screen()->availableGeometry();
    if (available.width() > firstSize.width() && available.height() > firstSize.height()) {
        setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, firstSize, available));
    } else {
        showMaximized();
    }
}

QString MainWindow::documentToStartWith()
{
    if (RecoveryFile::canBeOffered()) {
        if (m_prompts.confirm(QStringLiteral("An automatic recovery file was created %1 ago. Do you wish to open it?")
                                  .arg(RecoveryFile::ageText()))) {
            return RecoveryFile::path();
        }
    }
    if (!m_commandLineOptions.document.isEmpty()) {
        return m_commandLineOptions.document;
    }
    const Settings &settings = m_application.settings();
    constexpr int openPrevious = 1;
    if (m_commandLineOptions.newWindow || settings.openPreviousAtStart() != openPrevious
        || settings.previousPath().isEmpty()) {
        return QString();
    }
    return m_application.applicationDir().absoluteFilePath(settings.previousPath());
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
    settings.setGeometry(saveGeometry());
    settings.setWindowState(saveState());
    const QString path = m_session.path();
    settings.setPreviousPath(
        settings.isIni() && !path.isEmpty() ? m_application.applicationDir().relativeFilePath(path) : path);
    m_session.releaseHold();
    RecoveryFile::remove();
    event->accept();
}

void MainWindow::releaseDatasets()
{
    for (Node *node : scene().nodes()) {
        node->clearDataset();
        node->setState(NodeState::NeedsProcessing, false);
    }
}

void MainWindow::saveRecoveryNow()
{
    m_documents->saveRecoveryNow();
}

bool MainWindow::raiseMemoryCeiling(double used, double limit)
{
    const WaitCursorPause pause;
    InsufficientMemoryDialog dialog(used, limit, isWindowModified(), this);
    m_prompts.exec(dialog);
    if (dialog.isExitChosen()) {
        return false;
    }
    m_application.settings().setMaxMemoryUsage(dialog.newLimit());
    m_statusBar->onUpdateMemory();
    return true;
}

void MainWindow::onOverridesUnusable(const QString &error)
{
    QCoreApplication::exit(m_log.fatal(error));
}
