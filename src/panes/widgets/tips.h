#pragma once

#include <QString>

class QWidget;

/// Hints that show once in the program's life.
namespace Tips {

/// Shows a hint under `anchor` for that long, unless it has been shown before or the anchor can't be seen.
void showOnce(const QString &key, const QString &title, const QString &text, int milliseconds, QWidget *anchor);

} // namespace Tips
