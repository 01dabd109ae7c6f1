#pragma once

class ActionPane;
class Application;
class DocumentSession;
class GraphPane;
class ItemPane;
class LogPane;
class PaneLayout;
class Prompts;
class QWidget;
class StatusBar;
class UndoStack;

/// What the groups of commands work on; all of it outlives them.
struct CommandContext
{
    Application &application;
    DocumentSession &session;
    UndoStack &undo;
    Prompts &prompts;
    ActionPane &actionPane;
    GraphPane &graphPane;
    ItemPane &itemPane;
    PaneLayout &layout;
    LogPane &logPane;
    StatusBar &statusBar;
    QWidget &window;
};
