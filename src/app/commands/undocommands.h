#pragma once

#include "app/commands/commandcontext.h"

#include <QObject>
#include <QTimer>

class UndoStack;
struct MainActions;

/// Undo and redo, and the run that follows when the last of several has been done.
class UndoCommands : public QObject
{
    Q_OBJECT

public:
    UndoCommands(const CommandContext &context, MainActions &actions);

    void undo();
    void redo();
    /// Shows what would be undone and redone.
    void updateLabels();
    /// No run follows: another document opens.
    void forgetRun() { m_timer.stop(); }

private:
    void onProcessUndoRedoChanges();
    /// Calls a step of the stack with the view left where it is.
    void step(void (UndoStack::*action)());

    const CommandContext m_context;
    MainActions &m_actions;
    QTimer m_timer;
};
