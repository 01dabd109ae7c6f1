#include "spreadsheet/xlsx/write/xmloutline.h"

#include <cctype>
#include <expat.h>

namespace spreadsheet {
namespace {

constexpr size_t mostElements = 1000000;

XML_Parser parserOf(void *parser)
{
    return static_cast<XML_Parser>(parser);
}

} // namespace

QByteArray XmlElement::attribute(const char *localName) const
{
    for (const Attribute &attribute : attributes) {
        if (attribute.name.mid(attribute.name.indexOf(':') + 1) == localName && !attribute.name.startsWith("xmlns")) {
            return attribute.value;
        }
    }
    return {};
}

QByteArray XmlElement::prefixOf(const char *nameSpaceEnd) const
{
    for (const Attribute &attribute : attributes) {
        const QByteArray prefix = attribute.name.startsWith("xmlns:") ? attribute.name.mid(6) : QByteArray();
        // The parser knows nothing of namespaces, and would take one that can't begin a name.
        const bool isName = !prefix.isEmpty()
                            && (isalpha(static_cast<unsigned char>(prefix.at(0))) || prefix.at(0) == '_');
        if (isName && attribute.value.endsWith(nameSpaceEnd)) {
            return prefix + ':';
        }
    }
    return {};
}

struct XmlOutline::Handlers
{
    static XmlOutline *outline(void *user) { return static_cast<XmlOutline *>(user); }
    static void XMLCALL onBegin(void *user, const XML_Char *name, const XML_Char **attributes)
    {
        outline(user)->begin(name, attributes);
    }
    static void XMLCALL onEnd(void *user, const XML_Char *) { outline(user)->end(); }
    static void XMLCALL onDoctype(void *user, const XML_Char *, const XML_Char *, const XML_Char *, int)
    {
        outline(user)->stop();
    }
    static void XMLCALL onDeclaration(void *user, const XML_Char *, const XML_Char *encoding, int)
    {
        outline(user)->m_encoding = encoding;
        const XML_Parser parser = parserOf(outline(user)->m_parser);
        outline(user)->m_declarationEnd = XML_GetCurrentByteIndex(parser) + XML_GetCurrentByteCount(parser);
    }
};

XmlOutline::XmlOutline(int deepest, const char *within)
    : m_parser(XML_ParserCreate("UTF-8"))
    , m_deepest(deepest)
    , m_within(within)
{
    if (!m_parser) {
        throw std::bad_alloc();
    }
    XML_SetUserData(parserOf(m_parser), this);
    XML_SetElementHandler(parserOf(m_parser), Handlers::onBegin, Handlers::onEnd);
    XML_SetStartDoctypeDeclHandler(parserOf(m_parser), Handlers::onDoctype);
    XML_SetXmlDeclHandler(parserOf(m_parser), Handlers::onDeclaration);
}

XmlOutline::~XmlOutline()
{
    XML_ParserFree(parserOf(m_parser));
}

bool XmlOutline::feed(const char *bytes, int size)
{
    m_failed = m_failed || XML_Parse(parserOf(m_parser), bytes, size, XML_FALSE) != XML_STATUS_OK;
    return !m_failed;
}

bool XmlOutline::finish()
{
    m_failed = m_failed || XML_Parse(parserOf(m_parser), nullptr, 0, XML_TRUE) != XML_STATUS_OK;
    return !m_failed && !m_elements.empty();
}

bool XmlOutline::read(const QByteArray &part)
{
    return feed(part.constData(), part.size()) && finish();
}

const XmlElement *XmlOutline::child(const char *localName, int parent) const
{
    for (const XmlElement &element : m_elements) {
        if (element.parent == parent && element.is(localName)) {
            return &element;
        }
    }
    return nullptr;
}

XmlOutline::Elements XmlOutline::children(int parent) const
{
    Elements found;
    for (const XmlElement &element : m_elements) {
        if (element.parent == parent) {
            found.push_back(&element);
        }
    }
    return found;
}

/// True for what encloses alternatives, and for those that don't count with all they hold.
bool XmlOutline::isTransparent(const char *name)
{
    // Children of the root are told by their names and keep their places; only where they are counted does it matter.
    const bool isWatched = m_depth > 1 || m_deepest == 0;
    if (m_leftOut > 0 || !isWatched) {
        m_leftOut += m_leftOut > 0 ? 1 : 0;
        return m_leftOut > 0;
    }
    const AlternateContent::Role role = m_alternatives.begin(name, m_depth);
    m_leftOut = role == AlternateContent::Role::LeftOut ? 1 : 0;
    m_wrapperCount += role == AlternateContent::Role::Wrapper ? 1 : 0;
    return role != AlternateContent::Role::Element;
}

void XmlOutline::begin(const char *name, const char **attributes)
{
    const bool isSkipped = isTransparent(name);
    const int depth = m_depth++ - m_wrapperCount;
    if (isSkipped) {
        return;
    }
    m_rootChildCount += depth == 1 ? 1 : 0;
    const bool isLeftOut = depth > 0 && depth == m_deepest && !m_within.isEmpty()
                           && !m_elements[static_cast<size_t>(m_open.back())].is(m_within.constData());
    if (depth > m_deepest || isLeftOut) {
        return;
    }
    if (m_elements.size() >= mostElements) {
        stop();
        return;
    }
    XmlElement element;
    element.name = name;
    element.depth = depth;
    element.parent = m_open.empty() ? -1 : m_open.back();
    element.begin = XML_GetCurrentByteIndex(parserOf(m_parser));
    element.contentBegin = element.begin + XML_GetCurrentByteCount(parserOf(m_parser));
    for (; *attributes; attributes += 2) {
        element.attributes.push_back({attributes[0], attributes[1]});
    }
    m_open.push_back(static_cast<int>(m_elements.size()));
    m_elements.push_back(std::move(element));
}

void XmlOutline::end()
{
    --m_depth;
    if (m_leftOut > 0) {
        --m_leftOut;
        return;
    }
    if (m_alternatives.end(m_depth)) {
        --m_wrapperCount;
        return;
    }
    const int depth = m_depth - m_wrapperCount;
    if (m_open.empty() || m_elements[static_cast<size_t>(m_open.back())].depth != depth) {
        return; // it was left out
    }
    XmlElement &element = m_elements[static_cast<size_t>(m_open.back())];
    m_open.pop_back();
    element.contentEnd = XML_GetCurrentByteIndex(parserOf(m_parser));
    element.end = element.contentEnd + XML_GetCurrentByteCount(parserOf(m_parser));
}

void XmlOutline::stop()
{
    m_failed = true;
    XML_StopParser(parserOf(m_parser), XML_FALSE);
}

} // namespace spreadsheet
