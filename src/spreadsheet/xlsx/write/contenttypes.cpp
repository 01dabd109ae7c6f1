#include "spreadsheet/xlsx/write/contenttypes.h"

#include "spreadsheet/xlsx/write/textescape.h"
#include "spreadsheet/xlsx/write/xmloutline.h"

namespace spreadsheet {

QByteArray ContentTypes::applied(const QByteArray &old) const
{
    XmlOutline outline(1);
    if (!outline.read(old) || outline.root().isEmptyTag()) {
        return {};
    }
    QByteArray list;
    qint64 copied = 0;
    for (const XmlElement *element : outline.children(0)) {
        const QString part = QString::fromUtf8(element->attribute("PartName")).mid(1);
        bool isReplaced = false;
        for (const auto &change : m_changes) {
            isReplaced = isReplaced || change.first.compare(part, Qt::CaseInsensitive) == 0;
        }
        if (element->is("Override") && isReplaced) {
            list += old.mid(static_cast<int>(copied), static_cast<int>(element->begin - copied));
            copied = element->end;
        }
    }
    const qint64 end = outline.root().contentEnd;
    list += old.mid(static_cast<int>(copied), static_cast<int>(end - copied));
    for (const auto &[part, type] : m_changes) {
        if (!type.isEmpty()) {
            list += '<' + outline.root().prefix() + "Override PartName=\"/" + plainText(part) + "\" ContentType=\""
                    + type + "\"/>";
        }
    }
    return list + old.mid(static_cast<int>(end));
}

} // namespace spreadsheet
