#include "inputs/filewatch.h"

#include "platform/paths.h"

#include <QFileInfo>

FileWatch::Stamp FileWatch::stamp(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() ? Stamp{file.size(), file.lastModified()} : Stamp();
}

FileWatch::FileWatch(const QString &path, QObject *parent)
    : QObject(parent)
    , m_path(platform::resolvedPath(path))
    , m_stamp(stamp(m_path))
{
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatch::onFileChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FileWatch::onFolderChanged);
    watchAnew();
    // A file that is gone can't be watched: its folder tells when it comes again.
    m_watcher.addPath(QFileInfo(m_path).absolutePath());
}

void FileWatch::onFileChanged()
{
    m_stamp = stamp(m_path);
    watchAnew();
    emit fileChanged();
}

void FileWatch::onFolderChanged()
{
    const Stamp now = stamp(m_path);
    if (now != m_stamp) {
        m_stamp = now;
        watchAnew();
        emit fileChanged();
    }
}

/// The watcher stays with the file that it was given; another may have come under its name.
void FileWatch::watchAnew()
{
    if (m_watcher.files().contains(m_path)) {
        m_watcher.removePath(m_path);
    }
    if (QFileInfo::exists(m_path)) {
        m_watcher.addPath(m_path);
    }
}
