#pragma once

#include "inputs/xmlmessage.h"

class XmlRecordBuilder;

/// Parses XML as QDomDocument::setContent() does, with the same verdict, but tells a builder what it meets instead of
/// making a document of it. The text must not declare anything in a document type.
class XmlLibraryParser
{
public:
    explicit XmlLibraryParser(XmlRecordBuilder *builder)
        : m_builder(builder)
    {
    }

    /// False when the text isn't valid. What the builder throws ends it.
    bool parse(const QString &text);
    const XmlMessage &message() const { return m_message; }

private:
    XmlRecordBuilder *m_builder;
    XmlMessage m_message;
};
