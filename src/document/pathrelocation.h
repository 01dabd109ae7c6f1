#pragma once

#include <QString>

/// Finds files that have moved together with a document: their paths are taken relative to where the document was
/// saved, and again relative to where it is opened.
class PathRelocation
{
public:
    /// Either path may be empty, and both may be the same: then nothing is relocated.
    PathRelocation(const QString &savedDocPath, const QString &openedDocPath);

    /// A path of a document in the form of this system: trimmed, with slashes.
    static QString cleaned(const QString &path);

    /// The path of an existing file or folder: `path` itself, or the relocated one where only that exists.
    QString existing(const QString &path);
    /// The path of a file to write: relocated when the folder of an absolute `path` is missing and the other isn't.
    QString writable(const QString &path);
    /// True once a path has been replaced.
    bool hasRelocated() const { return m_hasRelocated; }

private:
    /// Empty when there is nothing to relocate by.
    QString relocated(const QString &path) const;

    QString m_oldFolder;
    QString m_newFolder;
    bool m_hasRelocated = false;
};
