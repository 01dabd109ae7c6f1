#pragma once

#include <QStringList>

/// Absolute paths of the files of a folder that match one of the wildcards `filters`, by name, then those of the
/// folders in it when `recurse` is set. Files that can't be read, are empty or have an extension of the list
/// `blockedExtensions` (as the settings hold it) are left out with a line in `warnings`. A folder that links lead to
/// more than once is listed once.
QStringList listInputFiles(const QString &folder, const QStringList &filters, const QString &blockedExtensions,
    bool recurse, QStringList *warnings);
