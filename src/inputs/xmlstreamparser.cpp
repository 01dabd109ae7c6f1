#include "inputs/xmlstreamparser.h"

#include "inputs/blockreader.h"
#include "inputs/xmlattributetext.h"
#include "inputs/xmlrecordbuilder.h"

#include <algorithm>
#include <cstring>
#include <new>

/// The functions that expat calls. Nothing may be thrown through expat, so it waits until expat is left.
struct XmlStreamParser::Handlers
{
    template<class Work>
    static void guarded(void *data, const Work &work)
    {
        auto *self = static_cast<XmlStreamParser *>(data);
        if (self->m_exception || !self->m_message.text.isEmpty()) {
            return;
        }
        try {
            work(self);
        } catch (...) {
            self->m_exception = std::current_exception();
            XML_StopParser(self->m_parser.get(), XML_FALSE);
        }
    }

    static void startElement(void *data, const char *name, const char **attributes)
    {
        guarded(data, [&](XmlStreamParser *self) { self->startElement(name, attributes); });
    }
    static void endElement(void *data, const char *)
    {
        guarded(data, [](XmlStreamParser *self) { self->m_builder->endElement(); });
    }
    static void characters(void *data, const char *bytes, int size)
    {
        guarded(data, [&](XmlStreamParser *self) { self->characters(bytes, size); });
    }
    static void startCdata(void *data) { finishText(data, false); }
    static void endCdata(void *data) { finishText(data, true); }
    static void comment(void *data, const char *) { finishText(data, false); }
    static void instruction(void *data, const char *, const char *) { finishText(data, false); }
    static void finishText(void *data, bool inCdata)
    {
        guarded(data, [=](XmlStreamParser *self) { self->m_builder->finishText(inCdata); });
    }
    static void unknownEntity(void *data, const char *name, int isParameter)
    {
        guarded(data, [=](XmlStreamParser *self) {
            if (!isParameter) {
                self->m_builder->finishText();
                self->m_builder->text("&", 1);
                self->m_builder->text(name, static_cast<int>(std::strlen(name)));
                self->m_builder->text(";", 1);
                self->m_builder->finishText();
            }
        });
    }
    static void entityDeclaration(
        void *data, const char *, int, const char *, int, const char *, const char *, const char *, const char *)
    {
        static_cast<XmlStreamParser *>(data)->m_declaresEntities = true;
    }
    static void attributeDeclaration(void *data, const char *, const char *, const char *, const char *, int)
    {
        static_cast<XmlStreamParser *>(data)->m_declaresAttributes = true;
    }
    static int externalEntity(XML_Parser parser, const char *, const char *, const char *, const char *)
    {
        auto *self = static_cast<XmlStreamParser *>(XML_GetUserData(parser));
        guarded(self, [](XmlStreamParser *s) { s->refuse(QStringLiteral("external entities are not allowed")); });
        return XML_STATUS_ERROR;
    }
};

XmlStreamParser::XmlStreamParser(BlockReader *block, XmlRecordBuilder *builder)
    : m_block(block)
    , m_builder(builder)
    , m_parser(XML_ParserCreate("UTF-8"))
{
    XML_Parser parser = m_parser.get();
    if (!parser) {
        throw std::bad_alloc();
    }
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, Handlers::startElement, Handlers::endElement);
    XML_SetCharacterDataHandler(parser, Handlers::characters);
    XML_SetCdataSectionHandler(parser, Handlers::startCdata, Handlers::endCdata);
    XML_SetCommentHandler(parser, Handlers::comment);
    XML_SetProcessingInstructionHandler(parser, Handlers::instruction);
    XML_SetSkippedEntityHandler(parser, Handlers::unknownEntity);
    XML_SetEntityDeclHandler(parser, Handlers::entityDeclaration);
    XML_SetAttlistDeclHandler(parser, Handlers::attributeDeclaration);
    XML_SetExternalEntityRefHandler(parser, Handlers::externalEntity);
    // Makes unknown entities known to the handler instead of ending the parse.
    XML_UseForeignDTD(parser, XML_TRUE);
}

XmlStreamParser::Outcome XmlStreamParser::parse()
{
    bool valid = true;
    do {
        // A piece as long as what is still unfinished keeps the cost of a long tag in proportion to its length.
        const auto finished = static_cast<qint64>(XML_GetCurrentByteIndex(m_parser.get()));
        m_block->readMore(static_cast<int>(qMax<qint64>(m_block->blockSize(), m_parsed - qMax<qint64>(0, finished))));
        valid = parseBlock();
    } while (valid && !m_block->atEnd());
    if (m_exception) {
        std::rethrow_exception(m_exception);
    }
    if (valid) {
        return Parsed;
    }
    const bool isRefused = !m_message.text.isEmpty();
    if (!isRefused) {
        const XML_Error error = XML_GetErrorCode(m_parser.get());
        if (error == XML_ERROR_NO_MEMORY) {
            throw std::bad_alloc();
        }
        m_message.text = QString::fromLatin1(XML_ErrorString(error));
    }
    m_message.line = static_cast<qint64>(XML_GetCurrentLineNumber(m_parser.get()));
    m_message.column = static_cast<qint64>(XML_GetCurrentColumnNumber(m_parser.get())) + 1;
    return isRefused || m_declaresEntities ? Refused : Invalid;
}

bool XmlStreamParser::parseBlock()
{
    const char *const begin = m_block->begin() + m_parsed;
    const int size = m_block->size() - m_parsed;
    m_parsed += size;
    return XML_Parse(m_parser.get(), begin, size, m_block->atEnd()) == XML_STATUS_OK;
}

void XmlStreamParser::refuse(const QString &message)
{
    m_message.text = message;
    XML_StopParser(m_parser.get(), XML_FALSE);
}

void XmlStreamParser::startElement(const char *name, const char **attributes)
{
    if (!m_builder->startElement(name, static_cast<int>(std::strlen(name)))) {
        refuse(xmlNestingMessage());
        return;
    }
    const int count = XML_GetSpecifiedAttributeCount(m_parser.get());
    if (count == 0) {
        return;
    }
    const char *const tag = m_block->begin() + XML_GetCurrentByteIndex(m_parser.get());
    const char *const tagEnd = tag + XML_GetCurrentByteCount(m_parser.get());
    if (!m_declaresEntities && (m_declaresAttributes || XmlAttributeText::isUnusual(tag, tagEnd))) {
        rawAttributes(tag, tagEnd);
        return;
    }
    for (int i = 0; i < count; i += 2) {
        const char *const value = attributes[i + 1];
        m_builder->attribute(
            attributes[i], static_cast<int>(std::strlen(attributes[i])), value, static_cast<int>(std::strlen(value)));
    }
}

/// The attributes of a tag that is known to be well-formed, as they stand in the text.
void XmlStreamParser::rawAttributes(const char *begin, const char *end)
{
    const auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
    const char *at = std::find_if(begin, end, isSpace);
    while (true) {
        at = std::find_if_not(at, end, isSpace);
        const char *const equals = std::find(at, end, '=');
        if (equals == end) {
            return;
        }
        const char *const nameEnd = std::find_if(at, equals, isSpace);
        const char *const open = std::find_if_not(equals + 1, end, isSpace);
        const char *const close = open < end ? std::find(open + 1, end, *open) : end;
        if (close == end) {
            return;
        }
        XmlAttributeText::decode(open + 1, close, &m_value);
        m_builder->attribute(at, static_cast<int>(nameEnd - at), m_value.data(), static_cast<int>(m_value.size()));
        at = close + 1;
    }
}

void XmlStreamParser::characters(const char *bytes, int size)
{
    if (size == 1 && *bytes == '\n') {
        // Line ends come one at a time, and always as line feeds.
        const char *const source = m_block->begin() + XML_GetCurrentByteIndex(m_parser.get());
        if (*source == '\r') {
            m_builder->text(source, XML_GetCurrentByteCount(m_parser.get()));
            return;
        }
    }
    m_builder->text(bytes, size);
}
