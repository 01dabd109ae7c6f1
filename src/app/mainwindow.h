#pragma once

#include "app/commandline.h"
#include "app/documentsession.h"
#include "app/mainactions.h"
#include "app/recentdocuments.h"
#include "app/undostack.h"

#include <QMainWindow>
#include <memory>

class ActionPane;
class Application;
class DocumentCommands;
class GraphPane;
class ItemPane;
class LogPane;
class PaneInteraction;
class PaneLayout;
class Prompts;
class QSplitter;
class RecentMenu;
class RunLog;
class SceneWiring;
class SettingsFollower;
class StatusBar;
class UiThemes;
class WindowHooks;
struct CommandGroups;

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
    bool isAutoRunOn() const;
    GraphScene &scene() const { return m_session.scene(); }
    DocumentSession &session() { return m_session; }
    DocumentCommands &documents() { return *m_documents; }
    UndoStack &undoStack() { return m_undo; }
    UiThemes &themes();

    // For a program that has to close
    void releaseDatasets();
    void saveRecoveryNow();

protected:
    void closeEvent(QCloseEvent *event) override;

public slots:
    /// What can be done has changed.
    void updateActions();
    void onAllowUserInteraction(bool allow);
    void onGraphSelectionChanged();
    void onNodeDataChanged(Node *node);
    void onNodesChanged();
    void onDocumentChanged();

private slots:
    void onStarted();
    void onDocumentOpened(bool autoRun);
    void onDocumentCleared();
    void onUpdateTitle();
    void onOverridesUnusable(const QString &error);

private:
    void buildPanes();
    void setFirstStates();
    void connectCommands();
    /// Another scene is live.
    void onSceneChanged(GraphScene *old, GraphScene *current);
    void connectDocuments();

    Application &m_application;
    const CommandLine m_commandLineOptions;
    RunLog &m_log;
    const std::unique_ptr<Prompts> m_ownPrompts;
    Prompts &m_prompts;
    DocumentSession m_session;
    UndoStack m_undo;
    RecentDocuments m_recentDocuments;
    DocumentCommands *m_documents;
    MainActions m_actions;
    std::unique_ptr<CommandGroups> m_groups;
    std::unique_ptr<WindowHooks> m_hooks;
    std::unique_ptr<PaneInteraction> m_interaction;
    std::unique_ptr<SceneWiring> m_wiring;
    std::unique_ptr<RecentMenu> m_recentMenu;
    std::unique_ptr<SettingsFollower> m_settingsFollower;
    ActionPane *m_actionPane = nullptr;
    GraphPane *m_graphPane = nullptr;
    ItemPane *m_itemPane = nullptr;
    std::unique_ptr<PaneLayout> m_layout;
    LogPane *m_logPane = nullptr;
    StatusBar *m_statusBar = nullptr;
    bool m_allowsInteraction = true; ///< false during a run
};
