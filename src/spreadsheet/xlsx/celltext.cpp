#include "spreadsheet/xlsx/celltext.h"

#include "spreadsheet/xlsx/xmlparser.h"
#include "spreadsheet/xlsx/xmltext.h"

namespace spreadsheet {
namespace {

void appendName(std::string_view name, QByteArray *xml)
{
    xml->append(name.data(), static_cast<int>(name.size()));
}

} // namespace

void CellText::clear()
{
    m_text.clear();
    m_stored.resize(0);
    m_depth = m_hidden = 0;
    m_isRich = false;
}

void CellText::start(std::string_view name, const XmlAttributes &attributes)
{
    m_isRich = m_isRich || m_depth > 0 || name != "t";
    ++m_depth;
    if (m_hidden > 0 || !m_text.start(name)) {
        ++m_hidden;
    }
    m_stored.append('<');
    appendName(name, &m_stored);
    for (const char **item = attributes.list(); *item; item += 2) {
        appendXmlAttribute(item[0], item[1], &m_stored);
    }
    m_stored.append('>');
}

bool CellText::end(std::string_view name)
{
    if (m_depth == 0) {
        return false;
    }
    --m_depth;
    if (m_hidden > 0) {
        --m_hidden;
    } else {
        m_text.end(name);
    }
    m_stored.append("</");
    appendName(name, &m_stored);
    m_stored.append('>');
    return true;
}

bool CellText::append(std::string_view piece)
{
    appendXmlText(piece, &m_stored);
    const bool isShortEnough = static_cast<size_t>(m_stored.size()) <= 4 * RichText::longest;
    return isShortEnough && (m_hidden > 0 || m_text.append(piece));
}

} // namespace spreadsheet
