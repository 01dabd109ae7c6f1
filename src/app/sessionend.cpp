#include "app/sessionend.h"

#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "graph/runcontrol.h"

#include <QApplication>
#include <QSessionManager>

SessionEnd::SessionEnd(MainWindow &window)
    : m_window(window)
{
    connect(&m_signals, &platform::TerminationSignals::received, this, &SessionEnd::onTerminated);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::onCommitData, Qt::DirectConnection);
}

void SessionEnd::onCommitData(QSessionManager &manager)
{
    m_window.saveRecoveryNow();
    if (!manager.allowsInteraction()) {
        return;
    }
    if (!m_window.documents().maybeSave()) {
        manager.cancel();
    }
    manager.release();
}

void SessionEnd::onTerminated()
{
    m_window.saveRecoveryNow();
    // A run that is still on ends at the next item.
    stopRequested = true;
    QCoreApplication::exit();
}
