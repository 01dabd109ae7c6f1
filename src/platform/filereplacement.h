#pragma once

#include <QFile>
#include <QString>

namespace platform {

/// Writes a file anew: whoever reads the path finds the whole old content until commit() has put the whole new one in
/// its place. A file that was there keeps its mode and, where that is allowed, its owner; a symbolic link stays one.
/// Only plain files are replaced, no device, pipe or folder. Where the folder doesn't let a file take another's place
/// but the file itself can be written, the new content is gathered in the folder for temporary files and copied over
/// the old one at commit(); who had the old file open then sees the new content.
class FileReplacement
{
public:
    explicit FileReplacement(const QString &path);
    /// Without commit() the path stays as it was.
    ~FileReplacement();
    Q_DISABLE_COPY(FileReplacement)

    /// False when the path can't be written, see error(). To be called once.
    bool open();
    /// What takes the new content between open() and commit().
    QFile &file() { return m_file; }
    /// False when the new content could not be put there; the old one is there then, but for a file that was being
    /// copied over, of which error() tells.
    bool commit();
    /// Why the last call failed, for the user.
    const QString &error() const { return m_error; }

private:
    bool findTarget();
    bool openTemporary(const QByteArray &folder);
    bool openAnywhere();
    bool copyOver();
    bool copyContent(QFile &to);
    bool fail(const QString &error);

    const QByteArray m_path;
    QByteArray m_target; // where links at the path lead to
    QByteArray m_temporary;
    QFile m_file;
    bool m_isNew = true;
    bool m_isElsewhere = false; // the temporary file isn't beside the target
    unsigned m_mode = 0, m_owner = 0, m_group = 0;
    QString m_error;
};

} // namespace platform
