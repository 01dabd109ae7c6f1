#pragma once

#include "platform/filereplacement.h"

struct zip_source;

namespace spreadsheet {

/// The file that an archive is written to, which stays as it was until commit().
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

    platform::FileReplacement m_replacement;
    int m_systemError = 0;
};

} // namespace spreadsheet
