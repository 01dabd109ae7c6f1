#pragma once

#include <QString>
#include <Qt>

class QWidget;

/// Hints that show once in the program's life.
namespace Tips {

/// How long a window that opens waits with its hint: it becomes active a moment after it is shown, which hides hints.
constexpr int openingPauseMs = 500;

/// Shows a hint under `anchor`, or at its right edge, for that long, unless it has been shown before or the anchor
/// can't be seen. True if it shows now.
bool showOnce(const QString &key, const QString &title, const QString &text, int milliseconds, QWidget *anchor,
    Qt::Edge side = Qt::BottomEdge);

/// A tool tip that shows as it is written. Tool tips take text that looks like HTML for HTML, and would even load its
/// images.
QString plain(const QString &text);

} // namespace Tips
