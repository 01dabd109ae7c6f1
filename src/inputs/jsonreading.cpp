#include "inputs/jsonreading.h"

#include "data/numberlocale.h"
#include "inputs/jsonlibrary.h"
#include "inputs/jsonstring.h"

#include <QJsonArray>
#include <QJsonObject>
#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

bool plainNumbers()
{
    const std::shared_ptr<const NumberLocale> numbers = NumberLocale::of(QLocale());
    return numbers->writesPlainly && numbers->asciiDecimalPoint == '.';
}

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
    if (outcome == Lines) {
        noteFault(m_at, moreFollows());
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
        if (error.error == QJsonParseError::GarbageAtEnd) {
            noteFault(error.offset, moreFollows());
        } else {
            noteFault(behindToken(error.offset), error.errorString());
        }
        // A line that begins as the text does would be no object.
        if (!m_before.isEmpty()) {
            return failAtFault();
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
        flattener().checkDigits(block().begin(), block().end());
        return JsonLibrary::parsed(block().begin(), block().size(), error);
    }
    QByteArray text = m_before;
    text.append(block().begin() + m_at, block().size() - m_at);
    flattener().checkDigits(block().begin() + m_at, block().end());
    return JsonLibrary::parsed(text.constData(), text.size(), error);
}

/// The library may have read on behind the value that it doesn't take, to the next line even.
int JsonReading::behindToken(int offset)
{
    const char *const end = block().begin() + qMin(offset, block().size());
    const char *const token = std::find_if_not(
        std::make_reverse_iterator(end), std::make_reverse_iterator<const char *>(block().begin()), JsonParser::isSpace)
                                  .base();
    return static_cast<int>(token - block().begin());
}

/// Remembers where the text stopped being a document, should it turn out not to be lines of objects either.
void JsonReading::noteFault(int offset, const QString &text)
{
    const char *const begin = block().begin();
    const char *lineBegin = begin;
    offset = qMin(offset, block().size());
    m_fault = {1, 0, text};
    for (const char *at = begin; at < begin + offset; ++at) {
        if (*at == '\n' || (*at == '\r' && at[1] != '\n')) {
            ++m_fault.line;
            lineBegin = at + 1;
        }
    }
    m_fault.offset = static_cast<int>(begin + offset - lineBegin);
}

QString JsonReading::moreFollows()
{
    return QStringLiteral("more follows behind the first value");
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
    const QJsonDocument document = JsonLibrary::parsed(array.constData(), array.size(), nullptr);
    const QJsonArray values = document.array();
    return values.size() == 1 && !values.at(0).isArray() && !values.at(0).isObject();
}
