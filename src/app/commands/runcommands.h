#pragma once

#include "app/commands/commandcontext.h"

#include <QObject>

struct MainActions;
enum class RunMode;

/// Commands of the Run menu, and what is said after a run.
class RunCommands : public QObject
{
    Q_OBJECT

public:
    RunCommands(const CommandContext &context, MainActions &actions);

    void run(RunMode mode);
    void stop();
    /// Turning it on runs what needs it.
    void setAutoRun(bool on);
    /// Runs what a document that has been opened needs, as far as it wants that.
    void startOpened(bool autoRun);
    void onCompleted();
    /// Points to the button that runs by hand, the first time that there is something for it.
    void showRunTip();

signals:
    void autoRunChanged();

private:
    const CommandContext m_context;
    MainActions &m_actions;
};
