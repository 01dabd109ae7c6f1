#pragma once

#include <QAction>

class QMainWindow;
class QMenu;
class QToolBar;

/// The actions of the main window, each made with text, icon, shortcut and tips.
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
    void build(QMainWindow &window);
    /// With auto run off, the actions that run by hand come into menu and tool bar.
    void showManualRuns(bool show);

private:
    void makeActions(QMainWindow &window);
    void fillMenus(QMainWindow &window);
    void fillToolBar(QMainWindow &window);
};
