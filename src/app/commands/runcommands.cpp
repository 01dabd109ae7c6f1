#include "app/commands/runcommands.h"

#include "app/documentsession.h"
#include "app/mainactions.h"
#include "app/rowsmilestone.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "panes/canvas/timingprofile.h"
#include "panes/status/logpane.h"
#include "panes/status/statusbar.h"
#include "panes/widgets/tips.h"

#include <QMessageBox>
#include <QTimer>
#include <QToolBar>

namespace {

constexpr int milestoneMs = 20000;
constexpr int tipMs = 4000;

} // namespace

RunCommands::RunCommands(const CommandContext &context, MainActions &actions)
    : m_context(context)
    , m_actions(actions)
{
}

void RunCommands::run(RunMode mode)
{
    stopRequested = false;
    m_context.session.scene().runTransforms(mode, false);
    stopRequested = false;
}

void RunCommands::stop()
{
    m_context.statusBar.onShowMessage(QStringLiteral("Run stopped by user"));
    m_context.logPane.onShowLogMessage(QStringLiteral("Run stopped by user"));
    stopRequested = true;
    if (m_actions.runAuto->isChecked()) {
        m_actions.runAuto->setChecked(false);
        Tips::showOnce(QStringLiteral("tip_restart_auto_run"), QStringLiteral("Auto run"),
            QStringLiteral("Click here to go back to auto running changes."), tipMs,
            m_actions.toolBar->widgetForAction(m_actions.runAuto));
    }
}

void RunCommands::setAutoRun(bool on)
{
    GraphScene &scene = m_context.session.scene();
    scene.setAutoRunOn(on);
    m_actions.showManualRuns(!on);
    m_context.session.setModified(true);
    if (on && !scene.isProcessing() && !scene.nodesInState(NodeState::NeedsProcessing).isEmpty()) {
        run(RunMode::Changes);
    }
    emit autoRunChanged();
}

void RunCommands::startOpened(bool autoRun)
{
    if (autoRun == m_actions.runAuto->isChecked()) {
        stopRequested = false;
        m_context.session.scene().runChangesIfAuto();
        stopRequested = false;
    }
    m_actions.runAuto->setChecked(autoRun);
}

void RunCommands::onCompleted()
{
    m_context.statusBar.onShowMessage(QStringLiteral("Processing completed"));
    if (m_actions.viewTimingProfile->isChecked()) {
        showTimingProfile(m_context.session.scene(), true);
    }
    const int power = RowsMilestone::advance();
    if (power == 0) {
        return;
    }
    auto *box = new QMessageBox(QMessageBox::Information, QStringLiteral("Achievement"), RowsMilestone::message(power),
        QMessageBox::Ok, &m_context.window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
    QTimer::singleShot(milestoneMs, box, &QWidget::close);
}

void RunCommands::showRunTip()
{
    Tips::showOnce(QStringLiteral("tip_run_unprocessed"), QStringLiteral("Run unprocessed"),
        QStringLiteral("Click here to run unprocessed changes."), tipMs,
        m_actions.toolBar->widgetForAction(m_actions.runChanged));
}
