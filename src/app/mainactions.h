#pragma once

#include <QAction>

class QMainWindow;
class QMenu;
class QToolBar;
struct ActionState;
struct Commands;

/// The actions of the main window. A row of their table gives each its name, text, key, icon, tips, what it calls and
/// when it is enabled.
struct MainActions
{
    QAction *fileNew = nullptr;
    QAction *fileOpen = nullptr;
    QAction *fileNewWindow = nullptr;
    QAction *fileSave = nullptr;
    QAction *fileSaveAs = nullptr;
    QAction *fileCommandLine = nullptr;
    QAction *fileExit = nullptr;
    QAction *editDelete = nullptr;
    QAction *editSelectAll = nullptr;
    QAction *editSnapToGrid = nullptr;
    QAction *inputFromFile = nullptr;
    QAction *inputFromClipboard = nullptr;
    QAction *runAuto = nullptr;
    QAction *runChanged = nullptr;
    QAction *runSelected = nullptr;
    QAction *runEverything = nullptr;
    QAction *runStop = nullptr;
    QAction *viewZoomFit = nullptr;
    QAction *viewZoomIn = nullptr;
    QAction *viewZoomOut = nullptr;
    QAction *viewToolBar = nullptr;
    QAction *viewLog = nullptr;
    QAction *helpAbout = nullptr;
    QMenu *recentMenu = nullptr;
    QMenu *runMenu = nullptr;
    QToolBar *toolBar = nullptr;

    /// Makes the actions and puts them into the window's menus and tool bar.
    void build(QMainWindow &window, Commands &commands);
    /// From now on those that can be checked act when they change; before, their first states are set.
    void connectSwitches(QMainWindow &window, Commands &commands);
    void updateEnabled(const ActionState &state);
    /// With auto run off, the actions that run by hand come into menu and tool bar.
    void showManualRuns(bool show);
    /// Gives the tool bar the icons of the size that the settings say.
    void updateIconSize();

private:
    void makeActions(QMainWindow &window, Commands &commands);
    void fillMenus(QMainWindow &window);
    void fillToolBar(QMainWindow &window);
};
