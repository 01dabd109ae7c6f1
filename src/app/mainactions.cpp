#include "app/mainactions.h"

#include "app/commands/actionstate.h"
#include "app/commands/commands.h"
#include "app/commands/editcommands.h"
#include "app/commands/filecommands.h"
#include "app/commands/helpcommands.h"
#include "app/commands/inputcommands.h"
#include "app/commands/runcommands.h"
#include "app/commands/viewcommands.h"
#include "app/documentcommands.h"
#include "graph/graphenums.h"
#include "settings/settings.h"

#include <QIcon>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointF>
#include <QToolBar>
#include <array>

namespace {

struct ActionRow
{
    QAction *MainActions::*action;
    const char *name;
    const char *text;
    const char *shortcut;
    const char *icon; ///< of the icon theme
    const char *tip;
    bool checkable;
    /// Carries it out; `on` is the new state of one that can be checked.
    void (*handler)(Commands &c, bool on);
    /// Whether it makes sense now; null for always. Nothing but what says otherwise is enabled during a run.
    bool (*isEnabled)(const ActionState &s);
    bool duringRun;
};

const ActionRow rows[] = {
    {&MainActions::fileNew, "m_fileNewAction", "&New", "Ctrl+N", "document-new", "Create a new .transform document.",
        false, [](Commands &c, bool) { c.documents.onNew(); }, nullptr, false},
    {&MainActions::fileOpen, "m_fileOpenAction", "&Open...", "Ctrl+O", "document-open",
        "Open an existing .transform document.", false, [](Commands &c, bool) { c.documents.onOpen(); }, nullptr,
        false},
    {&MainActions::fileNewWindow, "m_fileNewWindowAction", "New &Window", "Ctrl+Shift+N", "window-new",
        "Start a new Quillmere instance in a new window.", false, [](Commands &c, bool) { c.files.newWindow(); },
        nullptr, false},
    {&MainActions::fileSave, "m_fileSaveAction", "&Save", "Ctrl+S", "document-save",
        "Save the current .transform document.", false, [](Commands &c, bool) { c.documents.onSave(); }, nullptr,
        false},
    {&MainActions::fileSaveAs, "m_fileSaveAsAction", "Save &As...", "", "document-save-as",
        "Save the current .transform document to a different name/location.", false,
        [](Commands &c, bool) { c.documents.onSaveAs(); }, nullptr, false},
    {&MainActions::fileCommandLine, "m_fileCommandLineAction", "&Command Line...", "", "utilities-terminal",
        "Get text to use on the command line.", false, [](Commands &c, bool) { c.files.showCommandLine(); }, nullptr,
        false},
    {&MainActions::fileExit, "m_fileExitAction", "E&xit", "", "application-exit", "Exit.", false,
        [](Commands &c, bool) { c.files.exit(); }, nullptr, false},
    {&MainActions::editDelete, "m_editDeleteAction", "&Delete", "Del", "edit-delete",
        "Delete the items selected in the center pane.", false, [](Commands &c, bool) { c.edit.deleteSelected(); },
        [](const ActionState &s) { return s.hasSelection; }, false},
    {&MainActions::editSelectAll, "m_editSelectAllAction", "Select &All", "Ctrl+A", "edit-select-all",
        "Select All items in the center pane.", false, [](Commands &c, bool) { c.edit.selectAll(); }, nullptr, false},
    {&MainActions::editSnapToGrid, "m_editSnapToGridAction", "Snap To &Grid", "", "snap-to-grid",
        "Snap items to a grid.", true, [](Commands &c, bool on) { c.edit.setSnapToGrid(on); }, nullptr, false},
    {&MainActions::inputFromFile, "m_inputFromFileAction", "From File", "Alt+I", "document-import",
        "Input a dataset from a file.", false, [](Commands &c, bool) { c.inputs.addFromFiles(); }, nullptr, false},
    {&MainActions::inputFromClipboard, "m_inputFromClipboardAction", "From Clipboard", "Alt+Shift+I", "edit-paste",
        "Input a dataset from the clipboard.", false, [](Commands &c, bool) { c.inputs.addFromClipboard(QPointF()); },
        nullptr, false},
    {&MainActions::runAuto, "m_runAutoAction", "&Auto Run", "", "view-refresh", "Automatically run changes.", true,
        [](Commands &c, bool on) { c.runs.setAutoRun(on); }, nullptr, false},
    {&MainActions::runChanged, "m_runChangedAction", "Run &Unprocessed", "Ctrl+R", "media-playback-start",
        "Run items that need processing.", false, [](Commands &c, bool) { c.runs.run(RunMode::Changes); },
        [](const ActionState &s) { return !s.isAutoRunOn && s.isStale; }, false},
    {&MainActions::runSelected, "m_runSelectedAction", "Run &Selected", "Ctrl+Shift+R", "media-skip-forward",
        "Run selected items (whether changed or not).", false, [](Commands &c, bool) { c.runs.run(RunMode::Selected); },
        [](const ActionState &s) { return !s.isAutoRunOn && s.hasSelectedItems; }, false},
    {&MainActions::runEverything, "m_runEverythingAction", "Run &All", "F5", "media-seek-forward",
        "Run all items (whether changed or not). You should usually use 'Run changed' or 'Run selected'.", false,
        [](Commands &c, bool) { c.runs.run(RunMode::Everything); },
        [](const ActionState &s) { return !s.isAutoRunOn && s.hasItems; }, false},
    {&MainActions::runStop, "m_runStopAction", "S&top Run", "Ctrl+\\", "process-stop", "Stop the current run.", false,
        [](Commands &c, bool) { c.runs.stop(); }, [](const ActionState &s) { return s.isRunning; }, true},
    {&MainActions::viewZoomFit, "m_viewZoomFitAction", "Zoom &Fit", "Ctrl+=", "zoom-fit-best",
        "Toggle on to automatically zoom so all items in the center pane fit on screen.", true,
        [](Commands &c, bool on) { c.view.setZoomFit(on); }, nullptr, false},
    {&MainActions::viewZoomIn, "m_viewZoomInAction", "Zoom &In", "Ctrl++", "zoom-in", "Zoom In on the center pane.",
        false, [](Commands &c, bool) { c.view.zoomIn(); }, [](const ActionState &s) { return s.canZoomIn; }, false},
    {&MainActions::viewZoomOut, "m_viewZoomOutAction", "Zoom &Out", "Ctrl+-", "zoom-out",
        "Zoom out from the center pane.", false, [](Commands &c, bool) { c.view.zoomOut(); },
        [](const ActionState &s) { return s.canZoomOut; }, false},
    {&MainActions::viewToolBar, "m_viewToolBarAction", "&Tool bar", "", "", "Show/hide the toolbar.", true,
        [](Commands &c, bool on) { c.view.setToolBarShown(on); }, nullptr, false},
    {&MainActions::viewLog, "m_viewLogAction", "&Log Pane", "Ctrl+L", "", "Show/hide the Log pane.", true,
        [](Commands &c, bool on) { c.view.setLogShown(on); }, nullptr, false},
    {&MainActions::helpAbout, "m_helpAboutAction", "&About", "", "help-about", "Show the 'About' window.", false,
        [](Commands &c, bool) { c.help.about(); }, nullptr, false},
};

QAction *makeAction(const ActionRow &row, QMainWindow &window, Commands &commands)
{
    auto *action = new QAction(QString::fromLatin1(row.text), &window);
    action->setObjectName(QString::fromLatin1(row.name));
    action->setIcon(QIcon::fromTheme(QString::fromLatin1(row.icon)));
    action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
    action->setShortcutContext(Qt::WindowShortcut);
    action->setCheckable(row.checkable);
    const auto handler = row.handler;
    if (!row.checkable) {
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

/// Adds actions to a menu or tool bar; a null one is a separator.
template<class Target>
void addAll(Target &target, std::initializer_list<QAction *> actions)
{
    for (QAction *action : actions) {
        action ? target.addAction(action) : (void)target.addSeparator();
    }
}

} // namespace

void MainActions::build(QMainWindow &window, Commands &commands)
{
    makeActions(window, commands);
    fillMenus(window);
    fillToolBar(window);
}

void MainActions::makeActions(QMainWindow &window, Commands &commands)
{
    for (const ActionRow &row : rows) {
        this->*row.action = makeAction(row, window, commands);
        // Also those that stand in no menu at times answer to their keys only then.
        window.addAction(this->*row.action);
    }
    runAuto->setChecked(true);
    viewZoomFit->setChecked(true);
}

void MainActions::fillMenus(QMainWindow &window)
{
    QMenuBar &bar = *window.menuBar();
    QMenu *file = bar.addMenu(QStringLiteral("&File"));
    addAll(*file, {fileNew, fileOpen});
    recentMenu = file->addMenu(QStringLiteral("&Recent"));
    addAll(*file, {nullptr, fileNewWindow, nullptr, fileSave, fileSaveAs, nullptr, fileCommandLine, nullptr, fileExit});
    addAll(*bar.addMenu(QStringLiteral("&Edit")),
        {inputFromFile, inputFromClipboard, nullptr, editDelete, nullptr, editSnapToGrid, editSelectAll});
    runMenu = bar.addMenu(QStringLiteral("&Run"));
    addAll(*runMenu, {runAuto, nullptr, runStop});
    addAll(
        *bar.addMenu(QStringLiteral("&View")), {viewZoomFit, viewZoomIn, viewZoomOut, nullptr, viewToolBar, viewLog});
    addAll(*bar.addMenu(QStringLiteral("&Help")), {helpAbout});
}

void MainActions::fillToolBar(QMainWindow &window)
{
    toolBar = window.addToolBar(QStringLiteral("Tool bar"));
    toolBar->setObjectName(QStringLiteral("m_toolBar"));
    toolBar->setFloatable(false);
    updateIconSize();
    addAll(*toolBar, {fileNew, fileOpen, fileSave, nullptr, inputFromFile, inputFromClipboard, nullptr, runAuto,
                         runStop, nullptr, viewZoomFit, viewZoomIn, viewZoomOut, nullptr, editDelete});
}

void MainActions::updateIconSize()
{
    static constexpr std::array<int, lastChoice<ToolBarIcons> + 1> sides{16, 24, 32};
    const int side = sides[static_cast<size_t>(Settings::current().toolbarIconSize())];
    toolBar->setIconSize(QSize(side, side));
}

void MainActions::connectSwitches(QMainWindow &window, Commands &commands)
{
    for (const ActionRow &row : rows) {
        if (row.checkable) {
            const auto handler = row.handler;
            QObject::connect(this->*row.action, &QAction::toggled, &window,
                [handler, &commands](bool on) { handler(commands, on); });
        }
    }
    QObject::connect(toolBar, &QToolBar::visibilityChanged, viewToolBar, &QAction::setChecked);
}

void MainActions::updateEnabled(const ActionState &state)
{
    for (const ActionRow &row : rows) {
        const bool isPossible = !row.isEnabled || row.isEnabled(state);
        (this->*row.action)->setEnabled(isPossible && (!state.isRunning || row.duringRun));
    }
    recentMenu->setEnabled(state.hasRecentDocuments && !state.isRunning);
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
