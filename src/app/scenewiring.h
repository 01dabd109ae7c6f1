#pragma once

#include "app/commands/commandcontext.h"
#include "app/panetips.h"

class DocumentCommands;
class GraphScene;
class MainWindow;
class RunCommands;

/// Connects the live scene to the window, the panes and the commands, and parts them from the one that was live before.
class SceneWiring
{
public:
    SceneWiring(const CommandContext &context, MainWindow &window, DocumentCommands &documents, RunCommands &runs);

    /// `old` is null for the first.
    void onSceneChanged(GraphScene *old, GraphScene *current);

private:
    void connectToWindow(GraphScene *scene);
    void connectToPanes(GraphScene *scene);

    const CommandContext m_context;
    MainWindow &m_window;
    DocumentCommands &m_documents;
    RunCommands &m_runs;
    PaneTips m_tips;
};
