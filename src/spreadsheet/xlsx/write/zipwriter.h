#pragma once

#include "spreadsheet/xlsx/write/deflatedpart.h"
#include "spreadsheet/xlsx/write/savetarget.h"

#include <QString>
#include <list>

struct zip;

namespace spreadsheet {

/// Writes a new archive. Until finish() gave true, what was at the path before is still there. Equal parts give equal
/// archives: entries carry no time of their own.
class ZipWriter
{
public:
    explicit ZipWriter(const QString &path);
    ~ZipWriter();
    Q_DISABLE_COPY(ZipWriter)

    bool open();
    /// The part has to live until finish().
    bool add(const QByteArray &name, const DeflatedPart &part);
    /// Takes over an entry as it is compressed; the archive has to stay open until finish(). A name that is there
    /// already is left out.
    bool copy(zip *from, quint64 index);
    bool finish();
    const QString &error() const { return m_error; }

private:
    struct PartReader;
    bool fail(const QString &error);
    bool failByArchive();
    void keepProperties(zip *from, quint64 index, quint64 added);

    SaveTarget m_target;
    zip *m_zip = nullptr;
    std::list<PartReader> m_readers;
    QString m_error;
};

} // namespace spreadsheet
