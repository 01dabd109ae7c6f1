#pragma once

class QAction;

/// The actions of the window that the canvas offers in its menu; a null one is left out.
struct CanvasActions
{
    QAction *showFullscreen = nullptr;
    QAction *help = nullptr;
    QAction *inputFromFile = nullptr;
    QAction *inputFromClipboard = nullptr;
    QAction *outputToFile = nullptr;
    QAction *outputToChart = nullptr;
    QAction *connectTo = nullptr;
    QAction *cut = nullptr;
    QAction *copy = nullptr;
    QAction *copyData = nullptr;
    /// Gets the place of the click as its data while the menu is open.
    QAction *paste = nullptr;
    QAction *duplicateBranch = nullptr;
    QAction *remove = nullptr;
};
