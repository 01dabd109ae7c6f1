#pragma once

#include "spreadsheet/xlsx/write/contenttypes.h"
#include "spreadsheet/xlsx/write/deflatedpart.h"
#include "spreadsheet/xlsx/write/partedit.h"
#include "spreadsheet/xlsx/write/relationshipsedit.h"
#include "spreadsheet/xlsx/ziparchive.h"

#include <QStringList>
#include <map>
#include <memory>

namespace spreadsheet {

class XmlOutline;
class ZipWriter;

/// The parts of a workbook on the way from its old archive, or from an empty workbook, to a new archive. Parts that
/// nobody touches are copied as they are compressed. Functions that give false leave a text in error().
class Package
{
public:
    /// `archive` is null for a new workbook, which begins with the parts of an empty one.
    explicit Package(ZipArchive *archive);
    ~Package();
    Q_DISABLE_COPY(Package)

    bool contains(const QString &part) const;
    /// A small part as UTF-8.
    bool read(const QString &part, QByteArray *bytes);
    /// Finds the upper elements of a part.
    bool outline(const QString &part, XmlOutline *outline);
    /// Finds the upper elements of a text that comes to stand for a part which wasn't there.
    void begin(const QString &part, const QByteArray &type, const QByteArray &text);
    /// The part is written anew, with these changes.
    bool change(const QString &part, PartEdit edit);
    void remove(const QString &part);
    /// A name that no part has, made of `pattern` with a number for %1.
    QString freeName(const QString &pattern) const;
    /// Of a part; they are written with the rest. Null when they can't be read.
    RelationshipsEdit *relationships(const QString &part);

    bool write(const QString &path);
    const QString &error() const { return m_error; }

private:
    using Sink = ZipArchive::Sink;
    bool fail(const QString &error);
    bool stream(const QString &part, const Sink &sink);
    void put(const QString &part, const QByteArray &bytes);
    bool putRelationships();
    bool writeEntries(ZipWriter &writer);

    ZipArchive *m_archive;
    std::map<QString, QByteArray> m_fresh; // parts that begin here, by lower-case name
    QStringList m_order;                   // of those parts, under their names
    std::map<QString, DeflatedPart> m_written;
    QStringList m_removed;
    ContentTypes m_types;
    std::map<QString, std::unique_ptr<RelationshipsEdit>> m_relationships;
    QString m_error;
};

} // namespace spreadsheet
