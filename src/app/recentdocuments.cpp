#include "app/recentdocuments.h"

#include "platform/paths.h"
#include "settings/settings.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

RecentDocuments::RecentDocuments(const QString &applicationFolder)
    : m_applicationFolder(applicationFolder)
    , m_recentDocs(Settings::current().recentDocs().mid(0, menuLength))
    , m_recentDocsWindow(Settings::current().recentDocsWindow().mid(0, windowLength))
{
    if (m_recentDocsWindow.isEmpty()) {
        m_recentDocsWindow = m_recentDocs;
    }
}

QString RecentDocuments::stored(const QString &path) const
{
    const QString absolutePath = platform::resolvedPath(path);
    return QDir::toNativeSeparators(
        Settings::current().isIni() ? QDir(m_applicationFolder).relativeFilePath(absolutePath) : absolutePath);
}

QString RecentDocuments::absolute(const QString &entry) const
{
    return platform::resolvedPath(QDir(m_applicationFolder).absoluteFilePath(QDir::fromNativeSeparators(entry)));
}

void RecentDocuments::addTo(QStringList &list, const QString &path, int length) const
{
    const QFileInfo added(path);
    for (int i = list.size() - 1; i >= 0; --i) {
        if (QFileInfo(absolute(list.at(i))) == added) {
            list.removeAt(i);
        }
    }
    list.prepend(stored(path));
    while (list.size() > length) {
        list.removeLast();
    }
}

void RecentDocuments::add(const QString &path)
{
    addTo(m_recentDocs, path, menuLength);
    addTo(m_recentDocsWindow, path, windowLength);
    Settings::current().setRecentDocs(m_recentDocs);
    Settings::current().setRecentDocsWindow(m_recentDocsWindow);
}

void RecentDocuments::clearMenu()
{
    m_recentDocs.clear();
    Settings::current().setRecentDocs(m_recentDocs);
}

QStringList RecentDocuments::menuEntries(const QString &current) const
{
    QStringList entries;
    QSet<QString> seen;
    for (const QString &entry : m_recentDocs) {
        const QString path = absolute(entry);
        const QString key = path.trimmed().toLower();
        const bool isCurrent = !current.isEmpty() && QFileInfo(path) == QFileInfo(current);
        if (!isCurrent && QFileInfo::exists(path) && !seen.contains(key)) {
            seen.insert(key);
            entries.append(QDir::toNativeSeparators(path));
        }
    }
    return entries;
}

QStringList RecentDocuments::windowEntries() const
{
    QStringList entries;
    for (const QString &entry : m_recentDocsWindow) {
        entries.append(QDir::toNativeSeparators(absolute(entry)));
    }
    return entries;
}
