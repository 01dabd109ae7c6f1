#pragma once

#include <QString>
#include <functional>

/// A scope that makes one step of undo: what changes in it is taken back together. Steps nest; only the outermost
/// counts. Without installed hooks it does nothing.
class UndoStep
{
public:
    /// `hint` names the step in the menu, such as "add note".
    explicit UndoStep(const QString &hint);
    ~UndoStep();
    UndoStep(const UndoStep &) = delete;
    UndoStep &operator=(const UndoStep &) = delete;

    static bool isOpen() { return s_open; }
    /// `begin` runs before the change with its hint, `end` after it.
    static void install(std::function<void(const QString &hint)> begin, std::function<void()> end);

private:
    bool m_outermost;
    static bool s_open;
};
