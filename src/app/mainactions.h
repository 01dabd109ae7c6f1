#pragma once

#include <QAction>

class HowDoIButton;
class QMainWindow;
class QMenu;
class QToolBar;
class Settings;
struct ActionState;
struct Commands;

/// The actions of the main window, made from the rows of ActionTable, with the menus and the tool bar that show them.
struct MainActions
{
    QAction *fileNew = nullptr;
    QAction *fileOpen = nullptr;
    QAction *fileSave = nullptr;
    QAction *fileExit = nullptr;
    QAction *fileSaveAs = nullptr;
    QAction *editUndo = nullptr;
    QAction *editRedo = nullptr;
    QAction *editDelete = nullptr;
    QAction *editSelectAll = nullptr;
    QAction *viewZoomFit = nullptr;
    QAction *viewZoomIn = nullptr;
    QAction *viewZoomOut = nullptr;
    QAction *helpAbout = nullptr;
    QAction *editPreferences = nullptr;
    QAction *helpQuickStart = nullptr;
    QAction *insertDataToFile = nullptr;
    QAction *help = nullptr;
    QAction *helpCheckForUpdates = nullptr;
    QAction *helpSubscribeToNewsletter = nullptr;
    QAction *editSnapToGrid = nullptr;
    QAction *editTidyUp = nullptr;
    QAction *fileBatchProcess = nullptr;
    QAction *helpFAQ = nullptr;
    QAction *helpSupport = nullptr;
    QAction *viewToolBar = nullptr;
    QAction *viewComments = nullptr;
    QAction *fileNewWindow = nullptr;
    QAction *viewChanges = nullptr;
    QAction *fileNotes = nullptr;
    QAction *helpForum = nullptr;
    QAction *viewWarnings = nullptr;
    QAction *viewTwoScreens = nullptr;
    QAction *fileOpenRecent = nullptr;
    QAction *viewToggleTheme = nullptr;
    QAction *fileCommandLine = nullptr;
    QAction *fileFlowReport = nullptr;
    QAction *runAuto = nullptr;
    QAction *runChanged = nullptr;
    QAction *runSelected = nullptr;
    QAction *runStop = nullptr;
    QAction *runEverything = nullptr;
    QAction *viewLog = nullptr;
    QAction *helpExpertTips = nullptr;
    QAction *helpIntroVideo = nullptr;
    QAction *viewToolTipsOff = nullptr;
    QAction *viewToolTipsBrief = nullptr;
    QAction *viewToolTipsDetailed = nullptr;
    QAction *viewTimingProfile = nullptr;
    QAction *helpKeyboardShortcuts = nullptr;
    QAction *viewFind = nullptr;
    QAction *viewZoomMagnify = nullptr;
    QAction *viewZoomSelected = nullptr;
    QAction *viewCompareData = nullptr;
    QAction *viewCompareHeaders = nullptr;
    QAction *viewNodeSummary = nullptr;
    QAction *editLocale = nullptr;
    QAction *viewActionPane = nullptr;
    QAction *viewItemPane = nullptr;
    QAction *editCopy = nullptr;
    QAction *editPaste = nullptr;
    QAction *editCut = nullptr;
    QAction *editDuplicateBranch = nullptr;
    QAction *editCopyData = nullptr;
    QAction *viewFullscreen = nullptr;
    QAction *editConnect = nullptr;
    QAction *outputToFile = nullptr;
    QAction *outputToChart = nullptr;
    QAction *inputFromFile = nullptr;
    QAction *inputFromClipboard = nullptr;
    QMenu *recentMenu = nullptr;
    QMenu *examplesMenu = nullptr;
    HowDoIButton *howDoI = nullptr;
    QMenu *runMenu = nullptr;
    QToolBar *toolBar = nullptr;

    /// Makes the actions and puts them into the window's menus and tool bar.
    void build(QMainWindow &window, Commands &commands);
    /// Checks what the settings say is on.
    void setFirstStates(const Settings &settings);
    /// From now on those that can be checked act when they change; before, their first states are set.
    void connectSwitches(QMainWindow &window, Commands &commands);
    void updateEnabled(const ActionState &state);
    /// With auto run off, the actions that run by hand come into menu and tool bar.
    void showManualRuns(bool show);
    /// Gives the tool bar the icons of the size that the settings say.
    void updateIconSize();
    /// Takes the icons anew, in their light or dark form.
    void updateIcons();

private:
    void makeActions(QMainWindow &window, Commands &commands);
    // mainmenus.cpp
    void fillMenus(QMainWindow &window);
    void fillViewMenu(QMenu &view);
    void fillToolBar(QMainWindow &window);
};
