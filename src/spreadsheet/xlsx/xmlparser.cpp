#include "spreadsheet/xlsx/xmlparser.h"

#include "spreadsheet/xlsx/ziparchive.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <expat.h>

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
    : m_parser(XML_ParserCreate(nullptr))
    , m_handler(handler)
{
    if (!m_parser) {
        throw std::bad_alloc();
    }
    XML_SetUserData(m_parser, this);
    XML_SetElementHandler(m_parser, onStart, onEnd);
    XML_SetCharacterDataHandler(m_parser, onText);
    XML_SetStartDoctypeDeclHandler(m_parser, onDoctype);
    XML_SetCdataSectionHandler(m_parser, onCdataStart, onCdataEnd);
}

XmlParser::~XmlParser()
{
    XML_ParserFree(m_parser);
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
        if (m_isStopped || behind == end) {
            return !m_isStopped;
        }
        const char *next = m_isUtf8 ? m_handler->nextElements(behind + 1, end) : end;
        if (!parse(behind, static_cast<int>(next - behind), false)) {
            return false;
        }
        at = next;
    }
    // A tag that doesn't end is read anew with each piece.
    if (m_fed - XML_GetCurrentByteIndex(m_parser) > longestTag) {
        m_error = QStringLiteral("a tag is too long");
        return false;
    }
    return true;
}

/// Whether all bytes so far belong to tags and texts that are complete, and the next may be handed to the handler.
bool XmlParser::isBetweenTags() const
{
    return m_depth > 0 && m_skipped == 0 && m_isUtf8 && !m_isInCdata && m_prefix.empty()
           && XML_GetCurrentByteIndex(m_parser) == m_fed;
}

const char *XmlParser::takeElements(const char *from, const char *end)
{
    const char *behind = m_handler->takeElements(from, end);
    m_isStopped = m_handler->isDone() || !m_handler->error().isEmpty();
    return behind;
}

bool XmlParser::close()
{
    return m_error.isEmpty() && (m_isStopped || parse("", 0, true));
}

bool XmlParser::parse(const char *bytes, int size, bool isLast)
{
    if (m_isStopped || !m_error.isEmpty()) {
        return false;
    }
    m_fed += size;
    const XML_Status status = XML_Parse(m_parser, bytes, size, isLast);
    if (m_exception) {
        std::rethrow_exception(m_exception);
    }
    if (status == XML_STATUS_OK) {
        return true;
    }
    const XML_Error code = XML_GetErrorCode(m_parser);
    if (code == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    if (m_isStopped) {
        return m_error.isEmpty() && isLast;
    }
    m_error = QStringLiteral("%1 at byte %2")
                  .arg(QString::fromLatin1(XML_ErrorString(code)))
                  .arg(m_taken + std::max<long long>(0, XML_GetCurrentByteIndex(m_parser)));
    return false;
}

void XmlParser::stop()
{
    m_isStopped = true;
    XML_StopParser(m_parser, XML_FALSE);
}

/// Handlers may throw; the C code between them and the caller must not see it.
template<typename Call>
void XmlParser::guarded(const Call &call)
{
    if (m_isStopped) {
        return; // the parser may still report the end of an empty element
    }
    try {
        call();
    } catch (...) {
        m_exception = std::current_exception();
        stop();
        return;
    }
    if (m_handler->isDone() || !m_handler->error().isEmpty()) {
        stop();
    }
}

void XmlParser::onStart(void *parser, const char *name, const char **attributes)
{
    auto *self = static_cast<XmlParser *>(parser);
    self->guarded([&] { self->start(name, attributes); });
}

void XmlParser::start(const char *name, const char **attributes)
{
    if (++m_depth > greatestDepth) {
        m_error = QStringLiteral("elements are nested too deeply");
        return stop();
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
}

void XmlParser::onEnd(void *parser, const char *name)
{
    auto *self = static_cast<XmlParser *>(parser);
    const int depth = self->m_depth--;
    if (self->m_skipped > 0) {
        --self->m_skipped;
        return;
    }
    if (self->m_alternatives.end(depth)) {
        return;
    }
    self->guarded([&] { self->m_handler->endElement(name + self->m_prefix.size()); });
}

void XmlParser::onText(void *parser, const char *text, int size)
{
    auto *self = static_cast<XmlParser *>(parser);
    if (self->m_skipped == 0) {
        self->guarded([&] { self->m_handler->text({text, static_cast<size_t>(size)}); });
    }
}

void XmlParser::onDoctype(void *parser, const char *, const char *, const char *, int)
{
    auto *self = static_cast<XmlParser *>(parser);
    self->m_error = QStringLiteral("document type declarations are not allowed");
    self->stop();
}

void XmlParser::onCdataStart(void *parser)
{
    static_cast<XmlParser *>(parser)->m_isInCdata = true;
}

void XmlParser::onCdataEnd(void *parser)
{
    static_cast<XmlParser *>(parser)->m_isInCdata = false;
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
