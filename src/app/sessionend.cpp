#include "app/sessionend.h"

#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "graph/graphscene.h"
#include "graph/runcontrol.h"

#include <QApplication>
#include <QSessionManager>
#include <QTimer>

namespace {

constexpr int retryMs = 20;

} // namespace

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
    if (m_window.scene().isProcessing() || RunControl::currentRun() != 0) {
        // Ends at the next item; only then the document is whole again.
        stopRequested = true;
        QTimer::singleShot(retryMs, this, &SessionEnd::onTerminated);
        return;
    }
    m_window.saveRecoveryNow();
    QCoreApplication::exit();
}
