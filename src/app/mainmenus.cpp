#include "app/help/howdoibutton.h"
#include "app/mainactions.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

// What stands in the menus and in the tool bar.

namespace {

/// Adds actions to a menu or tool bar; a null one is a separator.
template<class Target>
void addAll(Target &target, std::initializer_list<QAction *> actions)
{
    for (QAction *action : actions) {
        action ? target.addAction(action) : (void)target.addSeparator();
    }
}

QMenu *addMenu(QMenuBar &bar, const char *name, const char *text)
{
    QMenu *menu = bar.addMenu(QString::fromLatin1(text));
    menu->setObjectName(QString::fromLatin1(name));
    menu->setToolTipsVisible(true);
    return menu;
}

QMenu *addMenu(QMenu &parent, const char *name, const char *text)
{
    QMenu *menu = parent.addMenu(QString::fromLatin1(text));
    menu->setObjectName(QString::fromLatin1(name));
    menu->setToolTipsVisible(true);
    return menu;
}

} // namespace

void MainActions::fillMenus(QMainWindow &window)
{
    QMenuBar &bar = *window.menuBar();
    QMenu &file = *addMenu(bar, "m_menuFile", "&File");
    addAll(file, {fileNew, fileOpen, fileOpenRecent});
    recentMenu = addMenu(file, "m_fileRecentDocsMenu", "&Recent");
    addAll(file, {nullptr, fileNewWindow, nullptr, fileNotes, nullptr, fileSave, fileSaveAs, nullptr, fileBatchProcess,
                     fileCommandLine, fileFlowReport, nullptr, fileExit});
    addAll(*addMenu(bar, "m_menuEdit", "&Edit"),
        {editUndo, editRedo, nullptr, editCut, editCopy, editPaste, nullptr, editDelete, nullptr, editSnapToGrid,
            editTidyUp, editSelectAll, nullptr, editLocale, nullptr, editPreferences});
    runMenu = addMenu(bar, "m_menuRun", "&Run");
    addAll(*runMenu, {runAuto, nullptr, runStop});
    fillViewMenu(*addMenu(bar, "m_menuView", "&View"));
    QMenu &helpMenu = *addMenu(bar, "m_menuHelp", "&Help");
    addAll(helpMenu, {help, helpIntroVideo, helpQuickStart, helpExpertTips, helpKeyboardShortcuts});
    examplesMenu = addMenu(helpMenu, "m_helpExamplesMenu", "E&xamples");
    addAll(helpMenu,
        {helpFAQ, helpForum, helpSupport, nullptr, helpCheckForUpdates, helpSubscribeToNewsletter, helpAbout});
}

void MainActions::fillViewMenu(QMenu &view)
{
    addAll(view, {viewZoomFit, viewZoomIn, viewZoomOut, viewZoomSelected, viewZoomMagnify, viewFind, nullptr,
                     viewCompareHeaders, viewCompareData, nullptr, viewNodeSummary, viewTimingProfile, nullptr,
                     viewComments, viewChanges, viewWarnings});
    addAll(*addMenu(view, "menuShowToolTips", "Show Too&l Tips"),
        {viewToolTipsOff, viewToolTipsBrief, viewToolTipsDetailed});
    addAll(view, {nullptr, viewToolBar, viewActionPane, viewLog, viewItemPane, nullptr, viewToggleTheme, nullptr,
                     viewTwoScreens});
}

void MainActions::fillToolBar(QMainWindow &window)
{
    toolBar = window.addToolBar(QStringLiteral("Tool bar"));
    toolBar->setObjectName(QStringLiteral("m_toolBar"));
    toolBar->setFloatable(false);
    updateIconSize();
    addAll(*toolBar,
        {fileNew, fileOpen, fileOpenRecent, fileSave, nullptr, runAuto, runStop, viewNodeSummary, viewTimingProfile,
            nullptr, editUndo, editRedo, nullptr, fileBatchProcess, nullptr, viewZoomFit, viewZoomIn, viewZoomOut,
            viewZoomMagnify, viewFind, editSnapToGrid, nullptr, editDelete, nullptr});
    howDoI = new HowDoIButton(toolBar);
    toolBar->addWidget(howDoI);
}
