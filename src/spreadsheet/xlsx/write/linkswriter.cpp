#include "spreadsheet/xlsx/write/linkswriter.h"

#include "spreadsheet/xlsx/write/linktarget.h"
#include "spreadsheet/xlsx/write/relationshipsedit.h"
#include "spreadsheet/xlsx/write/textescape.h"
#include "spreadsheet/xlsx/write/xmloutline.h"

#include <QRegularExpression>

namespace spreadsheet {
namespace {

constexpr char relationsNamespaceEnd[] = "/relationships";

} // namespace

LinksWriter::LinksWriter(const XmlOutline &sheet, RelationshipsEdit &relations, const QByteArray &relationType)
    : m_relations(relations)
    , m_relationType(relationType)
    , m_prefix(sheet.root().prefix())
    , m_idPrefix(sheet.root().prefixOf(relationsNamespaceEnd))
{
    if (const XmlElement *old = sheet.child("hyperlinks")) {
        for (const XmlElement::Attribute &attribute : old->attributes) {
            if (attribute.name.startsWith("xmlns:")) {
                m_declarations += ' ' + attribute.name + "=\"" + plainText(QString::fromUtf8(attribute.value)) + '"';
            }
        }
        m_idPrefix = m_idPrefix.isEmpty() ? old->prefixOf(relationsNamespaceEnd) : m_idPrefix;
    }
    if (m_idPrefix.isEmpty()) {
        m_idPrefix = "r:";
        m_declarations += " xmlns:r=\"" + relationType.left(relationType.lastIndexOf('/')) + '"';
    }
}

QByteArray LinksWriter::write(const std::vector<Hyperlink> &links)
{
    QByteArray elements;
    for (const Hyperlink &link : links) {
        elements += link.stored.isEmpty() ? added(link) : stored(link.stored);
    }
    m_relations.removeUnused("/hyperlink", m_used);
    if (elements.isEmpty()) {
        return elements;
    }
    const QByteArray name = m_prefix + "hyperlinks";
    return '<' + name + m_declarations + '>' + elements + "</" + name + '>';
}

QByteArray LinksWriter::stored(const QByteArray &element)
{
    static const QRegularExpression id(QStringLiteral("\\s[^\\s=\"]+:id=\"([^\"]*)\""));
    const QRegularExpressionMatch match = id.match(QString::fromUtf8(element));
    if (match.hasMatch()) {
        m_used.insert(match.captured(1).toUtf8());
    }
    return '<' + m_prefix + element.mid(1);
}

QByteArray LinksWriter::added(const Hyperlink &link)
{
    const LinkTarget target = linkTarget(link.target);
    if (!target.isValid()) {
        ++m_leftOut;
        return {};
    }
    QByteArray element = '<' + m_prefix + "hyperlink ref=\"" + rangeReference(link.range) + '"';
    if (target.address.isEmpty()) {
        return element + " location=\"" + cellText(QString::fromUtf8(target.location)) + "\"/>";
    }
    QByteArray &id = m_idsByAddress[target.address];
    if (id.isEmpty()) {
        id = m_relations.add(m_relationType, target.address, true);
        m_used.insert(id);
    }
    return element + ' ' + m_idPrefix + "id=\"" + id + "\"/>";
}

} // namespace spreadsheet
