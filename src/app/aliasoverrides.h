#pragma once

#include <QString>
#include <QStringList>

class GraphScene;

/// What came of putting other files in the place of the document's.
struct OverrideResult
{
    bool changed = false;
    QString error; ///< why it stopped; empty when all were applied
};

/// Applies texts of the form <alias>=<value> in order: every input, output and chart that bears the alias gets the
/// value as its file or folder. Stops at the first that can't be applied.
OverrideResult applyOverrides(const QStringList &overrides, GraphScene &scene);
