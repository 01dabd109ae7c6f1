#pragma once

#include "spreadsheet/sheetlayout.h"

#include <QSet>

namespace spreadsheet {

class RelationshipsEdit;
class XmlOutline;

/// Writes the hyperlinks element of a sheet and enters new links into the sheet's relations; those of links that are
/// gone leave them.
class LinksWriter
{
public:
    LinksWriter(const XmlOutline &sheet, RelationshipsEdit &relations, const QByteArray &relationType);

    /// Empty when there are no links.
    QByteArray write(const std::vector<Hyperlink> &links);
    /// Links that no file could hold.
    int leftOutCount() const { return m_leftOut; }

private:
    QByteArray stored(const QByteArray &element);
    QByteArray added(const Hyperlink &link);

    RelationshipsEdit &m_relations;
    QByteArray m_relationType;
    QByteArray m_prefix;       // of elements
    QByteArray m_idPrefix;     // of the attribute with the relation's id
    QByteArray m_declarations; // of namespaces that the sheet's root doesn't declare
    QHash<QByteArray, QByteArray> m_idsByAddress;
    QSet<QByteArray> m_used;
    int m_leftOut = 0;
};

} // namespace spreadsheet
