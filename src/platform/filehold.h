#pragma once

#include <QFile>
#include <memory>

namespace platform {

/// Keeps a file open for reading and writing and locked, so that no second instance writes it meanwhile.
class FileHold
{
public:
    FileHold() = default;
    ~FileHold();
    Q_DISABLE_COPY(FileHold)

    /// Lets go of the file held so far, then opens `path` (made if it isn't there) and locks it. False when it can't be
    /// written or another process holds it.
    bool acquire(const QString &path);
    void release();
    bool isHeld() const { return m_file != nullptr; }
    /// False when another file has come under that name, as when a program replaces the file it saves.
    bool isAt(const QString &path) const;
    /// The open file, null when none is held.
    QFile *file() const { return m_file.get(); }

private:
    std::unique_ptr<QFile> m_file;
};

} // namespace platform
