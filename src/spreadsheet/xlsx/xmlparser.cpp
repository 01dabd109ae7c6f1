#include "spreadsheet/xlsx/xmlparser.h"

#include "spreadsheet/xlsx/ziparchive.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace spreadsheet {
namespace {

constexpr int greatestDepth = 256;
constexpr long long longestTag = 4 << 20;

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && static_cast<unsigned char>(text.front()) <= ' ') {
        text.remove_prefix(1);
    }
    return !text.empty() && text.front() == '+' ? text.substr(1) : text;
}

template<typename Number>
Number parsed(const char *text, Number otherwise)
{
    if (!text) {
        return otherwise;
    }
    const std::string_view digits = trimmed(text);
    Number number;
    return std::from_chars(digits.data(), digits.data() + digits.size(), number).ec == std::errc() ? number : otherwise;
}

} // namespace

// Attributes

const char *XmlAttributes::find(std::string_view name) const
{
    for (const char **item = m_list; *item; item += 2) {
        if (name == *item) {
            return item[1];
        }
    }
    return nullptr;
}

std::string_view XmlAttributes::value(std::string_view name) const
{
    const char *found = find(name);
    return found ? std::string_view(found) : std::string_view();
}

const char *XmlAttributes::findPrefixed(std::string_view localName) const
{
    for (const char **item = m_list; *item; item += 2) {
        const char *colon = std::strchr(*item, ':');
        if (colon && localName == colon + 1 && std::strncmp(*item, "xmlns:", 6) != 0) {
            return item[1];
        }
    }
    return nullptr;
}

int XmlAttributes::number(std::string_view name, int otherwise) const
{
    return parsed(find(name), otherwise);
}

double XmlAttributes::real(std::string_view name, double otherwise) const
{
    const double number = parsed(find(name), otherwise);
    return qIsFinite(number) ? number : otherwise;
}

bool XmlAttributes::flag(std::string_view name, bool otherwise) const
{
    const char *found = find(name);
    return found ? isTrue(found) : otherwise;
}

// Parser

XmlParser::XmlParser(XmlHandler *handler)
    : m_expat(this)
    , m_handler(handler)
{
    m_expat.tellElements<&XmlParser::onStart, &XmlParser::onEnd>();
    m_expat.tellText<&XmlParser::onText>();
    m_expat.tellDoctype<&XmlParser::onDoctype>();
    m_expat.tellCdata<&XmlParser::onCdataStart, &XmlParser::onCdataEnd>();
}

/// Two bytes a character would show in the first tag or in front of it.
bool XmlParser::startsAsUtf8(const char *bytes, int size)
{
    const std::string_view start(bytes, static_cast<size_t>(size));
    return start.size() > 3 && (start.substr(0, 3) == "\xEF\xBB\xBF" || (start[0] == '<' && start[1] != '\0'));
}

bool XmlParser::feed(const char *bytes, int size)
{
    m_isUtf8 = m_fed == 0 ? startsAsUtf8(bytes, size) : m_isUtf8;
    const char *const end = bytes + size;
    for (const char *at = bytes; at < end;) {
        const char *behind = isBetweenTags() ? takeElements(at, end) : at;
        m_taken += behind - at;
        if (m_expat.isStopped() || behind == end) {
            return !m_expat.isStopped();
        }
        const char *next = m_isUtf8 ? m_handler->nextElements(behind + 1, end) : end;
        if (!parse(behind, static_cast<int>(next - behind), false)) {
            return false;
        }
        at = next;
    }
    // A tag that doesn't end is read anew with each piece.
    if (m_fed - m_expat.byteIndex() > longestTag) {
        m_error = QStringLiteral("a tag is too long");
        return false;
    }
    return true;
}

/// Whether all bytes so far belong to tags and texts that are complete, and the next may be handed to the handler.
bool XmlParser::isBetweenTags() const
{
    return m_depth > 0 && m_skipped == 0 && m_isUtf8 && !m_isInCdata && m_prefix.empty()
           && m_expat.byteIndex() == m_fed;
}

const char *XmlParser::takeElements(const char *from, const char *end)
{
    const char *behind = m_handler->takeElements(from, end);
    stopWhenDone();
    return behind;
}

bool XmlParser::close()
{
    return m_error.isEmpty() && (m_expat.isStopped() || parse("", 0, true));
}

bool XmlParser::parse(const char *bytes, int size, bool isLast)
{
    if (m_expat.isStopped() || !m_error.isEmpty()) {
        return false;
    }
    m_fed += size;
    if (m_expat.parse(bytes, size, isLast)) {
        return true;
    }
    if (m_expat.isStopped()) {
        return m_error.isEmpty() && isLast;
    }
    m_error = QStringLiteral("%1 at byte %2")
                  .arg(m_expat.errorText())
                  .arg(m_taken + std::max<long long>(0, m_expat.byteIndex()));
    return false;
}

void XmlParser::stopWhenDone()
{
    if (m_handler->isDone() || !m_handler->error().isEmpty()) {
        m_expat.stop();
    }
}

void XmlParser::onStart(const char *name, const char **attributes)
{
    if (++m_depth > greatestDepth) {
        m_error = QStringLiteral("elements are nested too deeply");
        m_expat.stop();
        return;
    }
    if (m_skipped > 0) {
        ++m_skipped;
        return;
    }
    if (m_depth == 1) {
        const char *colon = std::strchr(name, ':');
        m_prefix.assign(name, colon ? static_cast<size_t>(colon + 1 - name) : 0);
    }
    const AlternateContent::Role role = m_alternatives.begin(name, m_depth);
    if (role != AlternateContent::Role::Element) {
        m_skipped = role == AlternateContent::Role::LeftOut ? 1 : 0;
        return;
    }
    const bool isOurs = std::strncmp(name, m_prefix.data(), m_prefix.size()) == 0;
    if (!isOurs || !m_handler->startElement(name + m_prefix.size(), XmlAttributes(attributes))) {
        m_skipped = 1;
    }
    stopWhenDone();
}

void XmlParser::onEnd(const char *name)
{
    const int depth = m_depth--;
    if (m_skipped > 0) {
        --m_skipped;
        return;
    }
    if (!m_alternatives.end(depth)) {
        m_handler->endElement(name + m_prefix.size());
        stopWhenDone();
    }
}

void XmlParser::onText(const char *text, int size)
{
    if (m_skipped == 0) {
        m_handler->text({text, static_cast<size_t>(size)});
        stopWhenDone();
    }
}

void XmlParser::onDoctype()
{
    m_error = QStringLiteral("document type declarations are not allowed");
    m_expat.stop();
}

bool parsePart(ZipArchive &archive, const QString &part, XmlHandler *handler, QString *error)
{
    XmlParser parser(handler);
    if (!archive.stream(part, [&](const char *bytes, int size) { return parser.feed(bytes, size); })) {
        *error = archive.error();
        return false;
    }
    const bool closed = parser.close();
    if (!handler->error().isEmpty()) {
        *error = handler->error();
        return false;
    }
    if (!closed) {
        *error = QStringLiteral("The part '%1' is damaged: %2").arg(part, parser.error());
        return false;
    }
    return true;
}

} // namespace spreadsheet
