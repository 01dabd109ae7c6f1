#include "app/mainactions.h"

#include "app/actiontable.h"
#include "app/commands/actionstate.h"
#include "app/commands/commandgroups.h"
#include "app/help/howdoibutton.h"
#include "panes/icons.h"
#include "settings/settings.h"

#include <QActionGroup>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <array>

namespace {

QAction *makeAction(const ActionRow &row, QMainWindow &window, Commands &commands)
{
    auto *action = new QAction(QString::fromLatin1(row.text), &window);
    action->setObjectName(QString::fromLatin1(row.name));
    action->setIcon(Icons::icon(QString::fromLatin1(row.icon)));
    QList<QKeySequence> keys;
    for (const QString &key : QString::fromLatin1(row.shortcut).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        keys.append(QKeySequence(key));
    }
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WindowShortcut);
    action->setCheckable(row.checkable);
    const auto handler = row.handler;
    if (!row.checkable && handler) {
        QObject::connect(action, &QAction::triggered, &window, [handler, &commands] { handler(commands, false); });
    }
    QString tip = QString::fromLatin1(row.tip);
    if (!action->shortcut().isEmpty()) {
        tip += QStringLiteral(" (%1)").arg(action->shortcut().toString(QKeySequence::NativeText));
    }
    action->setToolTip(tip);
    action->setStatusTip(tip);
    return action;
}

} // namespace

void MainActions::build(QMainWindow &window, Commands &commands)
{
    makeActions(window, commands);
    fillMenus(window);
    fillToolBar(window);
    QObject::connect(
        howDoI, &HowDoIButton::pageChosen, &window, [&commands](const QString &page) { commands.help.showPage(page); });
}

void MainActions::makeActions(QMainWindow &window, Commands &commands)
{
    for (const ActionRow &row : ActionTable()) {
        this->*row.action = makeAction(row, window, commands);
        // Also those that stand in no menu at times answer to their keys only then.
        window.addAction(this->*row.action);
    }
    runAuto->setChecked(true);
    viewZoomFit->setChecked(true);
    auto *toolTips = new QActionGroup(&window);
    for (QAction *action : {viewToolTipsOff, viewToolTipsBrief, viewToolTipsDetailed}) {
        toolTips->addAction(action);
    }
}

void MainActions::setFirstStates(const Settings &settings)
{
    viewLog->setChecked(settings.logPaneShown());
    viewComments->setChecked(settings.showComments());
    viewChanges->setChecked(settings.showChanges());
    viewWarnings->setChecked(settings.showWarnings());
    QAction *const tips[] = {viewToolTipsOff, viewToolTipsBrief, viewToolTipsDetailed};
    tips[static_cast<int>(settings.showCenterPaneTips())]->setChecked(true);
}

void MainActions::updateIcons()
{
    for (const ActionRow &row : ActionTable()) {
        (this->*row.action)->setIcon(Icons::icon(QString::fromLatin1(row.icon)));
    }
}

void MainActions::updateIconSize()
{
    static constexpr std::array<int, lastChoice<ToolBarIcons> + 1> sides{16, 24, 32};
    const int side = sides[static_cast<size_t>(Settings::current().toolbarIconSize())];
    toolBar->setIconSize(QSize(side, side));
}

void MainActions::connectSwitches(QMainWindow &window, Commands &commands)
{
    for (const ActionRow &row : ActionTable()) {
        if (row.checkable && row.handler) {
            const auto handler = row.handler;
            QObject::connect(this->*row.action, &QAction::toggled, &window,
                [handler, &commands](bool on) { handler(commands, on); });
        }
    }
    QObject::connect(toolBar, &QToolBar::visibilityChanged, viewToolBar, &QAction::setChecked);
}

void MainActions::updateEnabled(const ActionState &state)
{
    for (const ActionRow &row : ActionTable()) {
        const bool isPossible = row.handler && (!row.isEnabled || row.isEnabled(state));
        (this->*row.action)->setEnabled(isPossible && (!state.isRunning || row.duringRun));
    }
    recentMenu->setEnabled(state.hasRecentDocuments && !state.isRunning);
    examplesMenu->setEnabled(!state.isRunning);
}

void MainActions::showManualRuns(bool show)
{
    for (QAction *action : {runChanged, runSelected, runEverything}) {
        show ? runMenu->insertAction(runStop, action) : runMenu->removeAction(action);
        action->setVisible(show);
    }
    for (QAction *action : {runChanged, runSelected}) {
        show ? toolBar->insertAction(runStop, action) : toolBar->removeAction(action);
    }
}
