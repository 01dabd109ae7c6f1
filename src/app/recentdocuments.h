#pragma once

#include <QStringList>

/// The documents opened and saved last, newest first, as the settings keep them: a short list for the menu and a longer
/// one for the window that shows them. With portable settings the paths are relative to the program.
class RecentDocuments
{
public:
    static constexpr int menuLength = 7;
    static constexpr int windowLength = 15;

    /// `applicationFolder` is what relative paths start from.
    explicit RecentDocuments(const QString &applicationFolder);

    void add(const QString &path);
    /// Empties the menu's list only.
    void clearMenu();
    /// What the menu offers while `current` is open: existing files, each once, with the system's separators.
    QStringList menuEntries(const QString &current) const;
    /// Absolute paths of the longer list, also of files that are gone.
    QStringList windowEntries() const;

private:
    QString stored(const QString &path) const;
    QString absolute(const QString &entry) const;
    void addTo(QStringList &list, const QString &path, int length) const;

    QString m_applicationFolder;
    QStringList m_recentDocs;
    QStringList m_recentDocsWindow;
};
