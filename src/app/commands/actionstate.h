#pragma once

class DocumentSession;
class GraphPane;
class UndoStack;

/// What it depends on which actions are enabled.
struct ActionState
{
    bool isRunning = false;
    bool isAutoRunOn = true;
    bool hasItems = false;
    bool hasSelectedItems = false;
    int selectedTables = 0;    ///< selected items that can have a table
    bool hasOneItem = false;   ///< just one is selected
    bool hasData = false;      ///< and it has a table
    bool canOutput = false;    ///< what is selected can go to an output
    bool hasSelection = false; ///< of items or connections
    bool isStale = false;      ///< an item needs processing, or failed
    bool canUndo = false;
    bool canRedo = false;
    bool canPaste = false;
    bool canZoomIn = true;
    bool canZoomOut = true;
    bool hasTwoScreens = false;
    bool isInTwoScreens = false;
    bool hasRecentDocuments = false;
};

/// What document, undo and canvas say; whether a run is on and whether documents are remembered is for the caller.
ActionState actionState(const DocumentSession &session, const UndoStack &undo, const GraphPane &pane);
