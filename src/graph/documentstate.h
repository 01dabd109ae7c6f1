#pragma once

#include <QString>

/// What belongs to a document rather than to the scene that shows it at the moment. Scenes that stand for the same
/// document share one; a scene made for anything else, such as a paste or a batch run, has its own and so can't change
/// that of the open document.
struct DocumentState
{
    bool autoRunOn = true;
    bool snapToGrid = true;
    /// Absolute; empty for a document that was never saved.
    QString path;
};
