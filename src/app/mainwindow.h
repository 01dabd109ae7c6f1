#pragma once

#include "app/commandline.h"
#include "app/documentsession.h"
#include "app/mainactions.h"
#include "app/recentdocuments.h"
#include "graph/graphscene.h"

#include <QMainWindow>
#include <memory>

class Application;
class DocumentCommands;
class GraphPane;
class LogPane;
class Prompts;
class QSplitter;
class RunLog;
class StatusBar;

/// The window of the program: menus and panes round the canvas. It hands each command to whoever carries it out.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Asks by `prompts`, or by boxes of its own if that is null.
    MainWindow(Application &application, const CommandLine &commandLine, RunLog &log, Prompts *prompts = nullptr);
    ~MainWindow() override;

    /// Shows the window; the document to begin with opens from the event loop, where exceptions are taken care of.
    void start();
    bool isAutoRunOn() const { return m_session.scene().isAutoRunOn(); }
    GraphScene &scene() const { return m_session.scene(); }
    DocumentSession &session() { return m_session; }
    DocumentCommands &documents() { return *m_documents; }

    // For a program that has to close
    void releaseDatasets();
    void saveRecoveryNow();

protected:
    void closeEvent(QCloseEvent *event) override;

private slots:
    void onStarted();
    void onRecentDocSelected();
    void onClearRecentDocSelected();
    void onUpdateRecentDocs();
    void onFileNewWindowAction();
    void onFileCommandLineAction();
    void onEditDeleteAction();
    void onEditSelectAllAction();
    void onEditSnapToGridToggled(bool on);
    void onInputFromFileAction();
    void onInputFromClipboardAction();
    void onRunStopAction();
    void onRunEverythingAction();
    void onRunChangesAction();
    void onRunSelectedAction();
    void onRunAutoToggled(bool on);
    void onUpdateRunStatus();
    void onCompletedTransforms();
    void onAllowUserInteraction(bool allow);
    void onGraphSelectionChanged();
    void onNodeDataChanged(Node *node);
    void onNodesChanged();
    void onDocumentChanged();
    void onDocumentOpened(bool autoRun);
    void onDocumentCleared();
    void onZoomFitToggled(bool on);
    void onUpdateZoomActions();
    void onUpdateTitle();
    void onAbout();
    void onOverridesUnusable(const QString &error);

private:
    void buildPanes();
    void connectActions();
    /// Wires a scene that becomes the live one, and lets go of the one that was.
    void onSceneChanged(GraphScene *old, GraphScene *current);
    void installHooks();
    void connectDocuments();
    void restoreLayout();
    /// Makes an input of what the clipboard holds: files, or data as text. A null position chooses a place.
    void addClipboardInput(const QPointF &position);
    void run(RunMode mode);
    bool raiseMemoryCeiling(double used, double limit);
    QString documentToStartWith();

    Application &m_application;
    const CommandLine m_commandLineOptions;
    RunLog &m_log;
    const std::unique_ptr<Prompts> m_ownPrompts;
    Prompts &m_prompts;
    DocumentSession m_session;
    RecentDocuments m_recentDocuments;
    DocumentCommands *m_documents;
    MainActions m_actions;
    GraphPane *m_graphPane = nullptr;
    LogPane *m_logPane = nullptr;
    StatusBar *m_statusBar = nullptr;
    bool m_allowsInteraction = true; ///< false during a run
};
