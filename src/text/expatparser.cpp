#include "text/expatparser.h"

#include <new>

ExpatParser::ExpatParser(void *owner, const char *encoding)
    : m_parser(XML_ParserCreate(encoding))
    , m_owner(owner)
{
    if (!m_parser) {
        throw std::bad_alloc();
    }
    XML_SetUserData(m_parser.get(), this);
}

bool ExpatParser::parse(const char *bytes, int size, bool isLast)
{
    const XML_Status status = XML_Parse(m_parser.get(), bytes, size, isLast);
    if (m_exception) {
        std::rethrow_exception(m_exception);
    }
    if (status != XML_STATUS_OK && XML_GetErrorCode(m_parser.get()) == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    return status == XML_STATUS_OK;
}

void ExpatParser::stop()
{
    m_isStopped = true;
    XML_StopParser(m_parser.get(), XML_FALSE);
}

QString ExpatParser::errorText() const
{
    return QString::fromLatin1(XML_ErrorString(XML_GetErrorCode(m_parser.get())));
}
