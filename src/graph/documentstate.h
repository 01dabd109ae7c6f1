#pragma once

#include "graph/graphhooks.h"

#include <QString>

/// What belongs to a document rather than to the scene that shows it at the moment. Scenes that stand for the same
/// document share one; a scene made for anything else, such as a paste or a batch run, has its own and so can't change
/// that of the open document.
struct DocumentState
{
    /// Waits between a change of a watched file and the new reading, in milliseconds.
    struct WatchDelays
    {
        int quiet = 5000; ///< for the file to rest
        int busy = 2000;  ///< for a run to end
    };

    bool autoRunOn = true;
    bool snapToGrid = true;
    /// Absolute; empty for a document that was never saved.
    QString path;
    /// The id of the next new item; larger than that of any item of the document's scenes.
    int nextId = 0;
    /// While an UndoStep lives; further ones within it count as part of it.
    bool isUndoStepOpen = false;
    WatchDelays watchDelays;
    /// The window that shows the document, if there is one.
    GraphHooks hooks;
};
