#pragma once

#include <QSaveFile>

struct zip_source;

namespace spreadsheet {

/// The file that an archive is written to: a temporary one beside it, which takes its place at commit(). A file that
/// was there keeps its mode, and a symbolic link stays one.
class SaveTarget
{
public:
    explicit SaveTarget(const QString &path);
    Q_DISABLE_COPY(SaveTarget)

    bool open();
    /// For an archive to write through; it belongs to the archive from then on, and mustn't outlive this. Null when
    /// memory ends.
    zip_source *source();
    bool commit();
    QString error() const;

private:
    struct Calls;

    QSaveFile m_file;
    int m_systemError = 0;
};

} // namespace spreadsheet
