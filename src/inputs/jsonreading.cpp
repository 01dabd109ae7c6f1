#include "inputs/jsonreading.h"

#include "data/numberlocale.h"
#include "data/textcoding.h"
#include "inputs/jsonstring.h"

#include <QJsonArray>
#include <QJsonObject>
#include <algorithm>
#include <cstring>

namespace {

/// The document that a text is, as the library's parser has it.
QJsonDocument parsed(const char *bytes, int size, QJsonParseError *error)
{
    if (TextCoding::isValidUtf8(bytes, size)) {
        return QJsonDocument::fromJson(QByteArray::fromRawData(bytes, size), error);
    }
    return QJsonDocument::fromJson(TextCoding::decode(bytes, size).toUtf8(), error);
}

bool plainNumbers()
{
    const std::shared_ptr<const NumberLocale> numbers = NumberLocale::of(QLocale());
    return numbers->writesPlainly && numbers->asciiDecimalPoint == '.';
}

// No longer than what decides about a value: "false" and what follows it.
constexpr int longestToken = 8;

} // namespace

JsonReading::JsonReading(const TreeReadOptions &options, TextSource *source)
    : TreeReading(options, false, source)
    , m_longArrays(options.arraysAsRows == 1)
    , m_plainNumbers(plainNumbers())
{
}

void JsonReading::startOver()
{
    TreeReading::startOver();
    m_parser = std::make_unique<JsonParser>(paths(), m_longArrays, m_plainNumbers);
    m_parser->setProgress([this] { reportProgress(); });
    m_values = std::make_unique<JsonValues>(paths(), m_longArrays);
    m_at = 0;
}

bool JsonReading::readRecords()
{
    more();
    if (JsonString::startsWithMark(block().begin(), static_cast<quint32>(block().size()))) {
        m_at = JsonString::markSize;
    }
    const char first = nextCharacter();
    m_begin = m_at;
    const Outcome outcome = first == '{' ? readObject() : first == '[' ? readArray() : Unsure;
    if (outcome == Unsure) {
        return readByLibrary();
    }
    return outcome == Done || readLines();
}

/// Reads on; false at the end of the text.
bool JsonReading::more()
{
    if (block().atEnd()) {
        return false;
    }
    // Taking at least as much again as is left keeps the cost of a long record in proportion to its length.
    block().readMore(qMax(block().blockSize(), block().size() - m_at));
    *block().end() = '"';
    return true;
}

/// The next character that isn't space, 0 at the end of the text.
char JsonReading::nextCharacter()
{
    while (true) {
        const char *const at = JsonParser::skipSpace(block().begin() + m_at);
        m_at = static_cast<int>(at - block().begin());
        if (at < block().end()) {
            return *at;
        }
        if (!more()) {
            return 0;
        }
    }
}

JsonParser::Status JsonReading::parseNext(bool topLevel)
{
    JsonParser::Status status;
    do {
        status = m_parser->parse(block().begin() + m_at, block().end(), topLevel, &m_record);
    } while (status == JsonParser::Incomplete && more());
    if (status == JsonParser::Parsed) {
        m_at = static_cast<int>(m_parser->rest() - block().begin());
    }
    return status;
}

JsonReading::Outcome JsonReading::readObject()
{
    const int begin = m_at;
    if (parseNext(true) != JsonParser::Parsed) {
        return Unsure;
    }
    if (nextCharacter() != 0 || m_at < block().size()) {
        return Lines;
    }
    // Reading on to see that nothing follows may have moved the text.
    m_at = begin;
    parseNext(true);
    flattener().add(m_record);
    return Done;
}

/// Adds the elements one by one. Where it gets stuck, m_before is as good as all that stands before m_at.
JsonReading::Outcome JsonReading::readArray()
{
    ++m_at;
    m_before = "[";
    if (nextCharacter() != ']') {
        while (true) {
            nextCharacter();
            if (parseNext(false) != JsonParser::Parsed) {
                return Unsure;
            }
            flattener().add(m_record);
            m_before = "[0 ";
            const char separator = nextCharacter();
            if (separator == ']') {
                break;
            }
            if (separator != ',') {
                return Unsure;
            }
            ++m_at;
            m_before = "[0,";
        }
    }
    ++m_at;
    m_before = "[]";
    return nextCharacter() == 0 && m_at == block().size() ? Done : Unsure;
}

/// What the library's parser says of the text holds, whether it takes it or not. What has been added stays.
bool JsonReading::readByLibrary()
{
    block().readAll();
    const int shift = m_before.isEmpty() ? 0 : m_at - m_before.size();
    QJsonParseError error;
    const QJsonDocument document = parsedRest(&error);
    if (document.isArray()) {
        const QJsonArray array = document.array();
        for (int i = m_before.size() > 1 ? 1 : 0; i < array.size(); ++i) {
            addByLibrary(array.at(i), false);
        }
        return true;
    }
    if (document.isObject()) {
        addByLibrary(document.object(), true);
        return true;
    }
    error.offset += shift;
    if (error.error == QJsonParseError::GarbageAtEnd || error.error == QJsonParseError::IllegalValue) {
        if (isSingleValue()) {
            return fail(QStringLiteral("Array or object expected at top-level in JSON"));
        }
        if (endsInFirstLine(error.offset)) {
            return failLine(error, error.offset - m_begin);
        }
        if (!readLines()) {
            return false;
        }
        if (m_recordLines > 0) {
            return true;
        }
    }
    const QString offset = error.offset > 0 ? QStringLiteral(" at offset %1").arg(error.offset) : QString();
    return fail(QStringLiteral("Error parsing JSON: %1%2.").arg(error.errorString(), offset));
}

/// The text with m_before in place of what has been added already, which keeps the library's tree of it small.
QJsonDocument JsonReading::parsedRest(QJsonParseError *error)
{
    if (m_before.isEmpty()) {
        return parsed(block().begin(), block().size(), error);
    }
    QByteArray text = m_before;
    text.append(block().begin() + m_at, block().size() - m_at);
    return parsed(text.constData(), text.size(), error);
}

/// True when the text begins with an array and goes wrong at `offset`, well before its first line ends: parsed as a
/// line, it would go wrong in the same way.
bool JsonReading::endsInFirstLine(int offset)
{
    const char *const begin = block().begin();
    const char *const end = block().end();
    if (m_before.isEmpty() || JsonString::startsWithMark(begin, static_cast<quint32>(block().size()))) {
        return false;
    }
    const char *const lineEnd = std::find_if(begin + m_begin, end, isLineEnd);
    const bool isAll = lineEnd == end && end[-1] > ' '; // nothing would be trimmed
    if (!isAll && offset + longestToken >= lineEnd - begin) {
        return false;
    }
    for (const char *at = begin; at < begin + m_begin; ++at) {
        m_line += *at == '\n' || (*at == '\r' && at[1] != '\n');
    }
    return true;
}

void JsonReading::addByLibrary(const QJsonValue &value, bool topLevel)
{
    m_values->build(value, topLevel, &m_record);
    flattener().add(m_record);
}

/// True when the text is a valid value of JSON, but no array or object.
bool JsonReading::isSingleValue()
{
    if (m_begin < block().size() && std::strchr("[{", block().begin()[m_begin])) {
        return false;
    }
    QByteArray array("[");
    array.append(block().begin(), block().size());
    array.append(']');
    const QJsonDocument document = parsed(array.constData(), array.size(), nullptr);
    const QJsonArray values = document.array();
    return values.size() == 1 && !values.at(0).isArray() && !values.at(0).isObject();
}
