#pragma once

#include "inputs/xmlmessage.h"
#include "text/expatparser.h"

#include <string>

class BlockReader;
class XmlRecordBuilder;

/// Parses XML with expat, as much at a time as has been read, and tells a builder what is in it as the DOM of Qt would
/// have it: line ends and whitespace in attributes are left as they are, defaults of attributes aren't added. Entities
/// that the text declares are replaced within expat's limits, external ones refused, unknown ones left as they are.
class XmlStreamParser
{
public:
    enum Outcome {
        Parsed,
        Invalid, ///< by expat's verdict
        Refused  ///< too dangerous, whatever others say
    };

    /// `block` keeps all of the text.
    XmlStreamParser(BlockReader *block, XmlRecordBuilder *builder);
    Q_DISABLE_COPY(XmlStreamParser)

    /// Parses the whole text. What the builder throws ends it.
    Outcome parse();
    /// Why it wasn't parsed.
    const XmlMessage &message() const { return m_message; }

private:
    bool parseBlock();
    void refuse(const QString &message);
    void startElement(const char *name, const char **attributes);
    void endElement(const char *name);
    void finishText();
    void finishCdata();
    void unknownEntity(const char *name, bool isParameter);
    void externalEntity();
    void entityDeclaration() { m_declaresEntities = true; }
    void attributeDeclaration() { m_declaresAttributes = true; }
    void rawAttributes(const char *begin, const char *end);
    void characters(const char *bytes, int size);

    BlockReader *m_block;
    XmlRecordBuilder *m_builder;
    ExpatParser m_expat;
    int m_parsed = 0; // bytes given to the parser
    bool m_declaresEntities = false;
    bool m_declaresAttributes = false;
    XmlMessage m_message;
    std::string m_value;
};
