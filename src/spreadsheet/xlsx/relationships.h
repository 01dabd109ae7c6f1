#pragma once

#include <QHash>
#include <QString>
#include <vector>

namespace spreadsheet {

class ZipArchive;

/// What a part of a workbook refers to in other parts and outside.
class Relationships
{
public:
    struct Relation
    {
        QString id;
        QString kind;   ///< last section of its type, such as "worksheet"; equal in all versions of the format
        QString target; ///< name of a part from the root of the archive; outside the file, what the relation says
        bool isExternal = false;
    };

    /// Reads the relations of a part; an empty name stands for the whole file. A part without any has none. False with
    /// an error when they are damaged.
    bool load(ZipArchive &archive, const QString &part, QString *error);

    const std::vector<Relation> &all() const { return m_relations; }
    /// Null when there is none; the first of equal ids counts.
    const Relation *byId(const QString &id) const;
    /// The first of a kind that leads to a part of the archive; null when there is none.
    const Relation *byKind(const QString &kind) const;

    /// Where the relations of a part stand.
    static QString partFor(const QString &part);
    /// The part that a target means, seen from a part.
    static QString resolve(const QString &part, const QString &target);

private:
    std::vector<Relation> m_relations;
    QHash<QString, size_t> m_byId;
};

} // namespace spreadsheet
