#pragma once

#include "app/commands/commandcontext.h"

#include <QString>
#include <functional>

class DocumentCommands;
class IONode;

/// What the layers below ask of a window: questions, what is to be read of a folder, hints, the memory ceiling and
/// copies for recovery. Installed while this lives.
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
    /// Null when the person doesn't want it.
    IONode *askForFolderInput(const QString &folder, const QString &mask);

    const CommandContext m_context;
    /// The maker that asks nobody.
    std::function<IONode *(const QString &folder, const QString &mask)> m_createFolderInput;
};
