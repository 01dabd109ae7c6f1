#include "spreadsheet/xlsx/write/relationshipsedit.h"

#include "spreadsheet/xlsx/relationships.h"
#include "spreadsheet/xlsx/write/textescape.h"
#include "spreadsheet/xlsx/write/xmloutline.h"

#include <QUrl>
#include <algorithm>

namespace spreadsheet {

bool RelationshipsEdit::read(const QString &part, const QByteArray &bytes)
{
    m_part = part;
    m_folder = part.left(part.lastIndexOf(QLatin1Char('/')) + 1);
    if (bytes.isEmpty()) {
        return true;
    }
    XmlOutline outline(1);
    if (!outline.read(bytes)) {
        return false;
    }
    for (const XmlElement *element : outline.children(0)) {
        if (element->is("Relationship")) {
            m_entries.push_back({element->attribute("Id"), element->attribute("Type"), element->attribute("Target"),
                element->attribute("TargetMode") == "External"});
        }
    }
    return true;
}

const RelationshipsEdit::Entry *RelationshipsEdit::find(const char *typeEnd) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
        [typeEnd](const Entry &entry) { return entry.type.endsWith(typeEnd) && !entry.isExternal; });
    return found == m_entries.end() ? nullptr : &*found;
}

const RelationshipsEdit::Entry *RelationshipsEdit::byId(const QByteArray &id) const
{
    const auto found = std::find_if(
        m_entries.begin(), m_entries.end(), [&id](const Entry &entry) { return entry.id == id; });
    return found == m_entries.end() ? nullptr : &*found;
}

QString RelationshipsEdit::targetPart(const Entry &entry) const
{
    return QUrl::fromPercentEncoding(Relationships::resolve(m_part, QString::fromUtf8(entry.target)).toUtf8());
}

QByteArray RelationshipsEdit::add(const QByteArray &type, const QByteArray &target, bool isExternal)
{
    QByteArray id;
    if (m_nextId == 1) {
        // Larger than each number that is taken; looked for once, since a sheet may get thousands.
        for (const Entry &entry : m_entries) {
            if (entry.id.toLower().startsWith("rid")) {
                m_nextId = std::max(m_nextId, std::min(entry.id.mid(3).toInt(), 100000000) + 1);
            }
        }
    }
    id = "rId" + QByteArray::number(m_nextId++);
    m_entries.push_back({id, type, target, isExternal});
    m_isChanged = true;
    return id;
}

QByteArray RelationshipsEdit::addPart(const QByteArray &type, const QString &target)
{
    const bool isBelow = target.startsWith(m_folder);
    const QString path = isBelow ? target.mid(m_folder.size()) : QLatin1Char('/') + target;
    return add(type, QUrl::toPercentEncoding(path, "/"), false);
}

template<typename Condition>
void RelationshipsEdit::removeIf(Condition condition)
{
    const auto kept = std::remove_if(m_entries.begin(), m_entries.end(), condition);
    m_isChanged = m_isChanged || kept != m_entries.end();
    m_entries.erase(kept, m_entries.end());
}

void RelationshipsEdit::remove(const QByteArray &id)
{
    removeIf([&id](const Entry &entry) { return entry.id == id; });
}

void RelationshipsEdit::removeUnused(const char *typeEnd, const QSet<QByteArray> &used)
{
    removeIf([&](const Entry &entry) { return entry.type.endsWith(typeEnd) && !used.contains(entry.id); });
}

QByteArray RelationshipsEdit::toXml() const
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                     "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
    for (const Entry &entry : m_entries) {
        xml += "<Relationship Id=\"" + plainText(QString::fromUtf8(entry.id)) + "\" Type=\""
               + plainText(QString::fromUtf8(entry.type)) + "\" Target=\"" + plainText(QString::fromUtf8(entry.target))
               + (entry.isExternal ? "\" TargetMode=\"External\"/>" : "\"/>");
    }
    return xml + "</Relationships>";
}

QString RelationshipsEdit::ownPart() const
{
    return Relationships::partFor(m_part);
}

} // namespace spreadsheet
