#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>

/// Tells when one file changes, also when it is deleted and comes again or another is moved over it.
class FileWatch : public QObject
{
    Q_OBJECT

public:
    /// What a file was like at one moment.
    struct Stamp
    {
        qint64 size = -1; ///< -1 when there was none
        QDateTime modified;
        bool operator==(const Stamp &other) const { return size == other.size && modified == other.modified; }
        bool operator!=(const Stamp &other) const { return !(*this == other); }
    };
    static Stamp stamp(const QString &path);

    explicit FileWatch(const QString &path, QObject *parent = nullptr);

signals:
    void fileChanged();

private:
    void onFileChanged();
    void onFolderChanged();
    void watchAnew();

    QFileSystemWatcher m_watcher;
    const QString m_path;
    Stamp m_stamp;
};
