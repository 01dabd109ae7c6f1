#pragma once

#include <QStringList>

/// Tells how the column names of a table differ by position from those of the first table of a stack: a heading with
/// `itemName` and lines of what is missing, differs and is too much, five of each. Empty when nothing differs.
QString headerMismatch(const QString &itemName, const QStringList &firstNames, const QStringList &itemNames);
