#pragma once

class QAction;
struct ActionState;
struct Commands;
struct MainActions;

/// One action of the main window: what it is called, what it calls and when it is enabled.
struct ActionRow
{
    QAction *MainActions::*action;
    const char *name; ///< of the object
    const char *text;
    const char *shortcut; ///< the second of two stands in a line of its own
    const char *icon;
    const char *tip;
    bool checkable;
    /// Carries it out; `on` is the new state of one that can be checked. One without is never enabled.
    void (*handler)(Commands &c, bool on);
    /// Whether it makes sense now; null for always. Nothing but what says otherwise is enabled during a run.
    bool (*isEnabled)(const ActionState &s);
    bool duringRun;
};

/// The actions of the main window, in the order of their documentation.
struct ActionTable
{
    static const ActionRow *begin();
    static const ActionRow *end();
};
