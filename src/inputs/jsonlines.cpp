#include "inputs/jsonreading.h"

#include "data/textcoding.h"
#include "inputs/jsonlibrary.h"

#include <QJsonObject>
#include <algorithm>

namespace {

constexpr ushort byteOrderMark = 0xFEFF;

} // namespace

/// One object a line.
bool JsonReading::readLines()
{
    startOver();
    m_parser->setOneLine(true);
    *block().end() = '"';
    while (true) {
        if (passEmptyLine()) {
            continue;
        }
        const char *const begin = block().begin() + m_at;
        JsonParser::Status status = JsonParser::Incomplete;
        if (begin < block().end()) {
            status = *begin == '{' ? parseLine() : JsonParser::Refused;
        }
        if (status == JsonParser::Incomplete && refillLines()) {
            continue;
        }
        if (m_at == block().size()) {
            return true;
        }
        if (status != JsonParser::Parsed && !readOddLine()) {
            return false;
        }
    }
}

/// Moves behind blanks and tabs, and behind the line's end when one follows.
bool JsonReading::passEmptyLine()
{
    const char *at = block().begin() + m_at;
    while (*at == ' ' || *at == '\t') {
        ++at;
    }
    m_at = static_cast<int>(at - block().begin());
    if (at >= block().end() || !isLineEnd(*at)) {
        return false;
    }
    if (*at == '\r' && at + 1 == block().end() && refillLines()) {
        return true; // to see whether a line feed belongs to it
    }
    ++m_line;
    m_at += *at == '\r' && at + 1 < block().end() && at[1] == '\n' ? 2 : 1;
    return true;
}

/// Reads on, forgetting the lines that are done; false at the end of the text.
bool JsonReading::refillLines()
{
    if (block().atEnd()) {
        return false;
    }
    const char *const rest = block().begin() + m_at;
    block().refill(rest, qMax(block().blockSize(), static_cast<int>(block().end() - rest)));
    *block().end() = '"';
    m_at = 0;
    return true;
}

/// Takes the object that the line is, up to the line's end.
JsonParser::Status JsonReading::parseLine()
{
    const JsonParser::Status status = m_parser->parse(block().begin() + m_at, block().end(), true, &m_record);
    if (status != JsonParser::Parsed) {
        return status;
    }
    const char *at = m_parser->rest();
    while (*at == ' ' || *at == '\t') {
        ++at;
    }
    if (at >= block().end() && !block().atEnd()) {
        return JsonParser::Incomplete;
    }
    if (at < block().end() && !isLineEnd(*at)) {
        return JsonParser::Refused;
    }
    flattener().add(m_record);
    ++m_recordLines;
    m_at = static_cast<int>(at - block().begin());
    return status;
}

/// Takes a line by way of the library's parser. False when it isn't an object.
bool JsonReading::readOddLine()
{
    const char *lineEnd;
    do {
        lineEnd = std::find_if(block().begin() + m_at, block().end(), isLineEnd);
    } while (lineEnd == block().end() && refillLines());
    const int size = static_cast<int>(lineEnd - block().begin()) - m_at;
    QString line = TextCoding::decode(block().begin() + m_at, size).trimmed();
    m_at += size;
    if (line.isEmpty()) {
        return true;
    }
    if (line.at(0).unicode() == byteOrderMark) {
        line.remove(0, 1);
    }
    const QByteArray bytes = line.toUtf8();
    QJsonParseError error;
    const QJsonDocument document = JsonLibrary::parsed(bytes.constData(), bytes.size(), &error);
    if (!document.isObject()) {
        return failLine(error);
    }
    flattener().checkDigits(bytes.constData(), bytes.constData() + bytes.size());
    addByLibrary(document.object(), true);
    ++m_recordLines;
    return true;
}

bool JsonReading::failLine(const QJsonParseError &error)
{
    // Where not even the first line is an object, the text is more likely a document with a fault.
    if (m_recordLines > 0) {
        const bool isValue = error.error == QJsonParseError::NoError;
        m_fault = {m_line, error.offset, isValue ? QStringLiteral("an object was expected") : error.errorString()};
    }
    return failAtFault();
}

bool JsonReading::failAtFault()
{
    const QString warning = QStringLiteral("Error parsing JSON lines: at line %1 offset %2: %3");
    return fail(warning.arg(m_fault.line).arg(m_fault.offset).arg(m_fault.text));
}
