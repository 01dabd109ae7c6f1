#include "spreadsheet/xlsx/write/xmloutline.h"

#include <cctype>

namespace spreadsheet {
namespace {

constexpr size_t mostElements = 1000000;

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

XmlOutline::XmlOutline(int deepest, const char *within)
    : m_expat(this, "UTF-8")
    , m_deepest(deepest)
    , m_within(within)
{
    m_expat.tellElements<&XmlOutline::onStart, &XmlOutline::onEnd>();
    m_expat.tellDoctype<&XmlOutline::stop>();
    m_expat.tellXmlDeclaration<&XmlOutline::onDeclaration>();
}

bool XmlOutline::feed(const char *bytes, int size)
{
    m_failed = m_failed || !m_expat.parse(bytes, size, false);
    return !m_failed;
}

bool XmlOutline::finish()
{
    m_failed = m_failed || !m_expat.parse(nullptr, 0, true);
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

void XmlOutline::onStart(const char *name, const char **attributes)
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
    element.begin = m_expat.byteIndex();
    element.contentBegin = element.begin + m_expat.byteCount();
    for (; *attributes; attributes += 2) {
        element.attributes.push_back({attributes[0], attributes[1]});
    }
    m_open.push_back(static_cast<int>(m_elements.size()));
    m_elements.push_back(std::move(element));
}

void XmlOutline::onEnd(const char *)
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
    element.contentEnd = m_expat.byteIndex();
    element.end = element.contentEnd + m_expat.byteCount();
}

void XmlOutline::onDeclaration(const char *encoding)
{
    m_encoding = encoding;
    m_declarationEnd = m_expat.byteIndex() + m_expat.byteCount();
}

void XmlOutline::stop()
{
    m_failed = true;
    m_expat.stop();
}

} // namespace spreadsheet
