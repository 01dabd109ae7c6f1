#include "spreadsheet/xlsx/celltext.h"

#include "spreadsheet/xlsx/write/textescape.h"
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
    m_stored.clear();
    m_depth = m_hidden = 0;
    m_hasText = m_isRich = false;
}

/// Most texts are plain ones, of which nothing is stored.
void CellText::beginStored()
{
    m_isRich = true;
    if (m_hasText) {
        std::string text;
        appendCellText(text, m_text.plain());
        m_stored = "<t xml:space=\"preserve\">" + QByteArray::fromStdString(text) + "</t>";
    }
}

void CellText::start(std::string_view name, const XmlAttributes &attributes)
{
    if (m_depth == 0 && !m_isRich && (m_hasText || name != "t")) {
        beginStored();
    }
    m_hasText = true;
    ++m_depth;
    if (m_hidden > 0 || !m_text.start(name)) {
        ++m_hidden;
    }
    if (!m_isRich) {
        return;
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
    if (m_isRich) {
        m_stored.append("</");
        appendName(name, &m_stored);
        m_stored.append('>');
    }
    return true;
}

bool CellText::append(std::string_view piece)
{
    if (m_isRich) {
        appendXmlText(piece, &m_stored);
    }
    const bool isShortEnough = static_cast<size_t>(m_stored.size()) <= 4 * RichText::longest;
    return isShortEnough && (m_hidden > 0 || m_text.append(piece));
}

} // namespace spreadsheet
