#include "app/application.h"
#include "app/commandlinedialog.h"
#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "app/programinfo.h"
#include "app/rowsmilestone.h"
#include "app/tips.h"
#include "data/values.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "graph/undostep.h"
#include "inputs/clipboardtext.h"
#include "panes/dialogs/prompts.h"
#include "panes/graphpane.h"
#include "panes/logpane.h"
#include "panes/statusbar.h"
#include "settings/product.h"
#include "settings/settings.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <algorithm>

// The commands of the main window.

namespace {

constexpr int milestoneMs = 20000;
constexpr int tipMs = 4000;

} // namespace

// Files

void MainWindow::onUpdateTitle()
{
    const QString path = m_session.path();
    const QString document = path.isEmpty() ? QString() : QStringLiteral("%1 - ").arg(QFileInfo(path).fileName());
    setWindowTitle(document + ProgramInfo::nameAndVersion() + QStringLiteral("[*]"));
    setWindowModified(m_session.isModified());
}

void MainWindow::onUpdateRecentDocs()
{
    m_actions.recentMenu->clear();
    const QStringList entries = m_recentDocuments.menuEntries(m_session.path());
    for (const QString &path : entries) {
        QAction *action = m_actions.recentMenu->addAction(path, this, &MainWindow::onRecentDocSelected);
        action->setData(path);
        action->setStatusTip(QStringLiteral("Open this .transform document."));
    }
    m_actions.recentMenu->addSeparator();
    QAction *clear = m_actions.recentMenu->addAction(
        QStringLiteral("Clear"), this, &MainWindow::onClearRecentDocSelected);
    clear->setStatusTip(QStringLiteral("Clear the recent .transform documents menu."));
    m_actions.recentMenu->setEnabled(!entries.isEmpty());
}

void MainWindow::onRecentDocSelected()
{
    if (const auto *action = qobject_cast<QAction *>(sender())) {
        // The menu is built anew while the document opens.
        const QString path = action->data().toString();
        QTimer::singleShot(0, m_documents, [this, path] { m_documents->onOpenPath(path); });
    }
}

void MainWindow::onClearRecentDocSelected()
{
    m_recentDocuments.clearMenu();
    QTimer::singleShot(0, this, &MainWindow::onUpdateRecentDocs);
}

void MainWindow::onFileNewWindowAction()
{
    const QStringList arguments = QCoreApplication::arguments();
    if (!scene().isProcessing() && !arguments.isEmpty()) {
        QProcess::startDetached(QCoreApplication::applicationFilePath(), {QStringLiteral("-new_window")});
    }
}

void MainWindow::onFileCommandLineAction()
{
    if (!scene().isProcessing()) {
        CommandLineDialog(scene(), m_session.path(), m_session.isModified(), m_prompts).exec();
    }
}

void MainWindow::onDocumentOpened(bool autoRun)
{
    const QSignalBlocker blocker(m_actions.editSnapToGrid);
    m_actions.editSnapToGrid->setChecked(scene().snapToGrid());
    m_actions.viewZoomFit->setChecked(true);
    m_graphPane->onZoomToFit();
    onUpdateRunStatus();
    if (autoRun == m_actions.runAuto->isChecked()) {
        stopRequested = false;
        scene().runChangesIfAuto();
        stopRequested = false;
    }
    m_actions.runAuto->setChecked(autoRun);
    onUpdateRunStatus();
}

void MainWindow::onDocumentCleared()
{
    m_actions.viewZoomFit->setChecked(true);
    m_graphPane->onZoomToFit();
    onUpdateRunStatus();
    onGraphSelectionChanged();
}

void MainWindow::onDocumentChanged()
{
    m_session.setModified(true);
}

void MainWindow::onNodesChanged()
{
    onDocumentChanged();
    onUpdateRunStatus();
}

// Editing and viewing

void MainWindow::onEditDeleteAction()
{
    if (!scene().isProcessing()) {
        const UndoStep step(QStringLiteral("delete"));
        scene().deleteSelected();
    }
}

void MainWindow::onEditSelectAllAction()
{
    for (Node *node : scene().nodes()) {
        node->setSelected(true);
    }
}

void MainWindow::onEditSnapToGridToggled(bool on)
{
    scene().setSnapToGrid(on);
    if (on) {
        scene().snapAllNodes();
    }
    onDocumentChanged();
    m_statusBar->onShowMessage(on ? QStringLiteral("snap on") : QStringLiteral("snap off"));
}

void MainWindow::onInputFromFileAction()
{
    const QStringList paths = m_prompts.openFiles(
        {QStringLiteral("Input From File"), m_application.lastDataDir(), m_application.settings().inputFileFilter()});
    if (!paths.isEmpty()) {
        m_application.setLastDataDir(QFileInfo(paths.first()).absolutePath());
        scene().addInputsFromPaths(paths);
    }
}

void MainWindow::onInputFromClipboardAction()
{
    addClipboardInput(QPointF());
}

void MainWindow::addClipboardInput(const QPointF &position)
{
    const QMimeData *mimeData = QGuiApplication::clipboard()->mimeData();
    const QList<QUrl> urls = mimeData ? mimeData->urls() : QList<QUrl>();
    // An address of the web is text like any other.
    if (std::any_of(urls.cbegin(), urls.cend(), [](const QUrl &url) { return url.isLocalFile(); })) {
        m_graphPane->onProcessDroppedPaths(urls, position);
        return;
    }
    const QString text = clipboardText(mimeData);
    if (text.isEmpty()) {
        m_prompts.information(QStringLiteral("Data type pasted not recognized."));
        return;
    }
    scene().addInputFromClipboard(text, position);
}

void MainWindow::onZoomFitToggled(bool on)
{
    on ? m_graphPane->onZoomToFit() : m_graphPane->onZoomFree();
}

void MainWindow::onUpdateZoomActions()
{
    const QSignalBlocker blocker(m_actions.viewZoomFit);
    m_actions.viewZoomFit->setChecked(m_graphPane->isAutoZoom());
    m_actions.viewZoomIn->setEnabled(m_graphPane->canZoomIn());
    m_actions.viewZoomOut->setEnabled(m_graphPane->canZoomOut());
}

void MainWindow::onAbout()
{
    m_prompts.about(QStringLiteral(
        "<b>%1</b><p>Cleans, reshapes, merges, checks and converts tables.<p>%2<p>Free software under the GNU "
        "General Public License, version 3 or later.")
                        .arg(ProgramInfo::nameAndVersion(), ProgramInfo::build()));
}

// Runs

void MainWindow::run(RunMode mode)
{
    stopRequested = false;
    scene().runTransforms(mode, false);
    stopRequested = false;
}

void MainWindow::onRunEverythingAction()
{
    run(RunMode::Everything);
}

void MainWindow::onRunChangesAction()
{
    run(RunMode::Changes);
}

void MainWindow::onRunSelectedAction()
{
    run(RunMode::Selected);
}

void MainWindow::onRunStopAction()
{
    m_statusBar->onShowMessage(QStringLiteral("Run stopped by user"));
    m_logPane->onShowLogMessage(QStringLiteral("Run stopped by user"));
    stopRequested = true;
    if (m_actions.runAuto->isChecked()) {
        m_actions.runAuto->setChecked(false);
        Tips::showOnce(QStringLiteral("tip_restart_auto_run"), QStringLiteral("Auto run"),
            QStringLiteral("Click here to go back to auto running changes."), tipMs,
            m_actions.toolBar->widgetForAction(m_actions.runAuto));
    }
}

void MainWindow::onRunAutoToggled(bool on)
{
    scene().setAutoRunOn(on);
    m_actions.showManualRuns(!on);
    m_session.setModified(true);
    if (on && !scene().isProcessing() && !scene().nodesInState(NodeState::NeedsProcessing).isEmpty()) {
        run(RunMode::Changes);
    }
    onUpdateRunStatus();
}

void MainWindow::onUpdateRunStatus()
{
    if (!m_allowsInteraction) {
        return;
    }
    const bool byHand = !isAutoRunOn();
    const bool isStale = !scene().nodesInState(NodeState::NeedsProcessing).isEmpty()
                         || !scene().nodesInState(NodeState::Failed).isEmpty();
    m_actions.runEverything->setEnabled(byHand && !scene().nodes().isEmpty());
    m_actions.runChanged->setEnabled(byHand && isStale);
    m_actions.runSelected->setEnabled(byHand && !scene().nodes(true).isEmpty());
    if (m_actions.runChanged->isEnabled()) {
        Tips::showOnce(QStringLiteral("tip_run_unprocessed"), QStringLiteral("Run unprocessed"),
            QStringLiteral("Click here to run unprocessed changes."), tipMs,
            m_actions.toolBar->widgetForAction(m_actions.runChanged));
    }
}

void MainWindow::onCompletedTransforms()
{
    m_statusBar->onShowMessage(QStringLiteral("Processing completed"));
    const int power = RowsMilestone::advance();
    if (power == 0) {
        return;
    }
    auto *box = new QMessageBox(
        QMessageBox::Information, QStringLiteral("Achievement"), RowsMilestone::message(power), QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
    QTimer::singleShot(milestoneMs, box, &QWidget::close);
}

void MainWindow::onAllowUserInteraction(bool allow)
{
    m_allowsInteraction = allow;
    for (QAction *action : findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly)) {
        action->setEnabled(allow);
    }
    m_actions.recentMenu->setEnabled(allow);
    m_actions.runStop->setEnabled(!allow);
    m_graphPane->setEnabled(allow);
    m_graphPane->setInteractive(allow);
    m_logPane->setEnabled(allow);
    if (allow) {
        onUpdateZoomActions();
        onUpdateRecentDocs();
        onUpdateRunStatus();
        onGraphSelectionChanged();
    }
}

void MainWindow::onGraphSelectionChanged()
{
    const int items = scene().nodes(true).size();
    const int connections = scene().connections(true).size();
    m_actions.editDelete->setEnabled(items + connections > 0 && m_allowsInteraction);
    onUpdateRunStatus();
    if (items + connections == 0) {
        return;
    }
    const QString itemText = QStringLiteral("%1 %2").arg(
        formatInteger(items, true), items == 1 ? QStringLiteral("item") : QStringLiteral("items"));
    const QString connectionText = QStringLiteral("%1 %2").arg(formatInteger(connections, true),
        connections == 1 ? QStringLiteral("conection") : QStringLiteral("connections"));
    m_statusBar->onShowMessage(QStringLiteral("%1 selected").arg(itemText + QStringLiteral(", ") + connectionText));
}

void MainWindow::onNodeDataChanged(Node *node)
{
    if (node->state() == NodeState::Processed) {
        m_statusBar->onShowMessage(QStringLiteral("%1 updated").arg(node->name()));
    }
}
