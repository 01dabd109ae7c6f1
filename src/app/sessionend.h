#pragma once

#include "platform/termination.h"

#include <QObject>

class MainWindow;
class QSessionManager;

/// Sees to it that nothing is lost when the desktop's session ends or the system asks the program to: what isn't saved
/// goes into the recovery file.
class SessionEnd : public QObject
{
    Q_OBJECT

public:
    explicit SessionEnd(MainWindow &window);

private:
    /// The desktop ends the session: asks to save where it allows questions.
    void onCommitData(QSessionManager &manager);
    /// Nobody can be asked.
    void onTerminated();

    MainWindow &m_window;
    platform::TerminationSignals m_signals;
};
