#include "inputs/xmlstreamparser.h"

#include "inputs/blockreader.h"
#include "inputs/xmlattributetext.h"
#include "inputs/xmlrecordbuilder.h"

#include <algorithm>
#include <cstring>

XmlStreamParser::XmlStreamParser(BlockReader *block, XmlRecordBuilder *builder)
    : m_block(block)
    , m_builder(builder)
    , m_expat(this, "UTF-8")
{
    m_expat.tellElements<&XmlStreamParser::startElement, &XmlStreamParser::endElement>();
    m_expat.tellText<&XmlStreamParser::characters>();
    m_expat.tellCdata<&XmlStreamParser::finishText, &XmlStreamParser::finishCdata>();
    m_expat.tellMarks<&XmlStreamParser::finishText>();
    m_expat.tellEntities<&XmlStreamParser::unknownEntity, &XmlStreamParser::externalEntity>();
    m_expat.tellDeclarations<&XmlStreamParser::entityDeclaration, &XmlStreamParser::attributeDeclaration>();
}

XmlStreamParser::Outcome XmlStreamParser::parse()
{
    bool valid = true;
    do {
        // A piece as long as what is still unfinished keeps the cost of a long tag in proportion to its length.
        const qint64 finished = m_expat.byteIndex();
        m_block->readMore(static_cast<int>(qMax<qint64>(m_block->blockSize(), m_parsed - qMax<qint64>(0, finished))));
        valid = parseBlock();
    } while (valid && !m_block->atEnd());
    if (valid) {
        return Parsed;
    }
    const bool isRefused = !m_message.text.isEmpty();
    if (!isRefused) {
        m_message.text = m_expat.errorText();
    }
    m_message.line = m_expat.line();
    m_message.column = m_expat.column() + 1;
    return isRefused || m_declaresEntities ? Refused : Invalid;
}

bool XmlStreamParser::parseBlock()
{
    const char *const begin = m_block->begin() + m_parsed;
    const int size = m_block->size() - m_parsed;
    m_parsed += size;
    return m_expat.parse(begin, size, m_block->atEnd());
}

void XmlStreamParser::refuse(const QString &message)
{
    m_message.text = message;
    m_expat.stop();
}

void XmlStreamParser::startElement(const char *name, const char **attributes)
{
    if (!m_builder->startElement(name, static_cast<int>(std::strlen(name)))) {
        refuse(xmlNestingMessage());
        return;
    }
    const int count = m_expat.statedAttributeCount();
    if (count == 0) {
        return;
    }
    const char *const tag = m_block->begin() + m_expat.byteIndex();
    const char *const tagEnd = tag + m_expat.byteCount();
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

void XmlStreamParser::endElement(const char *)
{
    m_builder->endElement();
}

void XmlStreamParser::finishText()
{
    m_builder->finishText();
}

void XmlStreamParser::finishCdata()
{
    m_builder->finishText(true);
}

void XmlStreamParser::unknownEntity(const char *name, bool isParameter)
{
    if (!isParameter) {
        m_builder->finishText();
        m_builder->text("&", 1);
        m_builder->text(name, static_cast<int>(std::strlen(name)));
        m_builder->text(";", 1);
        m_builder->finishText();
    }
}

void XmlStreamParser::externalEntity()
{
    refuse(QStringLiteral("external entities are not allowed"));
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
        const char *const source = m_block->begin() + m_expat.byteIndex();
        if (*source == '\r') {
            m_builder->text(source, m_expat.byteCount());
            return;
        }
    }
    m_builder->text(bytes, size);
}
