#pragma once

#include "app/commands/commandcontext.h"

class DocumentCommands;

/// What the layers below ask of a window: questions, hints, the memory ceiling and copies for recovery. Installed while
/// this lives.
class WindowHooks
{
public:
    WindowHooks(const CommandContext &context, DocumentCommands &documents);
    ~WindowHooks();
    WindowHooks(const WindowHooks &) = delete;
    WindowHooks &operator=(const WindowHooks &) = delete;

private:
    bool raiseMemoryCeiling(double used, double limit);
    bool confirmFiles(const QString &title, const QString &text);

    const CommandContext m_context;
};
