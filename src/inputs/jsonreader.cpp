#include "inputs/jsonreader.h"

#include "data/numberlocale.h"
#include "data/textcoding.h"
#include "inputs/jsonparser.h"
#include "inputs/jsonvalues.h"
#include "inputs/treereading.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstring>

namespace {

constexpr ushort byteOrderMark = 0xFEFF;

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

bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

} // namespace

class JsonReader::Reading final : public TreeReading
{
public:
    Reading(const TreeReadOptions &options, TextSource *source)
        : TreeReading(options, false, source)
        , m_longArrays(options.arraysAsRows == 1)
        , m_plainNumbers(plainNumbers())
    {
    }

private:
    enum Outcome { Done, Unsure, Lines };

    void startOver() override;
    bool readRecords() override;
    char nextCharacter();
    bool more();
    JsonParser::Status parseNext(bool topLevel);
    Outcome readObject();
    Outcome readArray();
    bool readByLibrary();
    void addByLibrary(const QJsonValue &value, bool topLevel);
    bool isSingleValue();
    bool readLines();
    bool refillLines();
    JsonParser::Status parseLine();
    bool readOddLine();

    const bool m_longArrays;
    const bool m_plainNumbers;
    std::unique_ptr<JsonParser> m_parser;
    std::unique_ptr<JsonValues> m_values;
    TreeRecord m_record;
    int m_at = 0; // how much of the text in the block is done
    qint64 m_line = 1;
    qint64 m_recordLines = 0;
};

void JsonReader::Reading::startOver()
{
    TreeReading::startOver();
    m_parser = std::make_unique<JsonParser>(paths(), m_longArrays, m_plainNumbers);
    m_parser->setProgress([this] { reportProgress(); });
    m_values = std::make_unique<JsonValues>(paths(), m_longArrays);
    m_at = 0;
}

bool JsonReader::Reading::readRecords()
{
    more();
    if (block().size() >= 3 && std::memcmp(block().begin(), "\xEF\xBB\xBF", 3) == 0) {
        m_at = 3;
    }
    const char first = nextCharacter();
    Outcome outcome = first == '{' ? readObject() : first == '[' ? readArray() : Unsure;
    if (outcome == Unsure) {
        startOver();
        return readByLibrary();
    }
    if (outcome == Lines) {
        startOver();
        return readLines();
    }
    return true;
}

/// Reads on; false at the end of the text.
bool JsonReader::Reading::more()
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
char JsonReader::Reading::nextCharacter()
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

JsonParser::Status JsonReader::Reading::parseNext(bool topLevel)
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

JsonReader::Reading::Outcome JsonReader::Reading::readObject()
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

JsonReader::Reading::Outcome JsonReader::Reading::readArray()
{
    ++m_at;
    if (nextCharacter() != ']') {
        while (true) {
            nextCharacter();
            if (parseNext(false) != JsonParser::Parsed) {
                return Unsure;
            }
            flattener().add(m_record);
            const char separator = nextCharacter();
            if (separator == ']') {
                break;
            }
            if (separator != ',') {
                return Unsure;
            }
            ++m_at;
        }
    }
    ++m_at;
    return nextCharacter() == 0 && m_at == block().size() ? Done : Unsure;
}

/// What the library's parser says of the text holds, whether it takes it or not.
bool JsonReader::Reading::readByLibrary()
{
    block().readAll();
    QJsonParseError error;
    const QJsonDocument document = parsed(block().begin(), block().size(), &error);
    if (document.isArray()) {
        const QJsonArray array = document.array();
        for (const QJsonValue &value : array) {
            addByLibrary(value, false);
        }
        return true;
    }
    if (document.isObject()) {
        addByLibrary(document.object(), true);
        return true;
    }
    const bool mayBeLines = error.error == QJsonParseError::GarbageAtEnd
                            || error.error == QJsonParseError::IllegalValue;
    if (mayBeLines && isSingleValue()) {
        return fail(QStringLiteral("Array or object expected at top-level in JSON"));
    }
    if (mayBeLines && !readLines()) {
        return false;
    }
    if (m_recordLines > 0) {
        return true;
    }
    const QString offset = error.offset > 0 ? QStringLiteral(" at offset %1").arg(error.offset) : QString();
    return fail(QStringLiteral("Error parsing JSON: %1%2.").arg(error.errorString(), offset));
}

void JsonReader::Reading::addByLibrary(const QJsonValue &value, bool topLevel)
{
    m_values->build(value, topLevel, &m_record);
    flattener().add(m_record);
}

/// True when the text is a valid value of JSON, but no array or object.
bool JsonReader::Reading::isSingleValue()
{
    QByteArray array("[");
    array.append(block().begin(), block().size());
    array.append(']');
    const QJsonDocument document = parsed(array.constData(), array.size(), nullptr);
    const QJsonArray values = document.array();
    return values.size() == 1 && !values.at(0).isArray() && !values.at(0).isObject();
}

/// One object a line.
bool JsonReader::Reading::readLines()
{
    m_parser->setOneLine(true);
    m_at = 0;
    *block().end() = '"';
    while (true) {
        const char *at = block().begin() + m_at;
        while (*at == ' ' || *at == '\t') {
            ++at;
        }
        if (at >= block().end()) {
            if (refillLines()) {
                continue;
            }
            return true;
        }
        if (isLineEnd(*at)) {
            const bool isPair = *at == '\r' && at[1] == '\n' && at + 1 < block().end();
            if (*at == '\r' && at + 1 == block().end() && refillLines()) {
                continue;
            }
            m_at = static_cast<int>(at - block().begin()) + (isPair ? 2 : 1);
            ++m_line;
            continue;
        }
        JsonParser::Status status = *at == '{' ? parseLine() : JsonParser::Refused;
        if (status == JsonParser::Incomplete) {
            if (refillLines()) {
                continue;
            }
            status = JsonParser::Refused;
        }
        if (status == JsonParser::Refused && !readOddLine()) {
            return false;
        }
    }
}

/// Reads on, forgetting the lines that are done; false at the end of the text.
bool JsonReader::Reading::refillLines()
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
JsonParser::Status JsonReader::Reading::parseLine()
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
bool JsonReader::Reading::readOddLine()
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
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(line.toUtf8(), &error);
    if (!document.isObject()) {
        const QString warning = QStringLiteral("Error parsing JSON lines: at line %1 offset %2: %3");
        return fail(warning.arg(m_line).arg(error.offset).arg(error.errorString()));
    }
    addByLibrary(document.object(), true);
    ++m_recordLines;
    return true;
}

JsonReader::JsonReader(const TreeReadOptions &options, TextSource *source)
    : m_reading(std::make_unique<Reading>(options, source))
{
}

JsonReader::~JsonReader() = default;

void JsonReader::setProgress(std::function<void(double)> progress)
{
    m_reading->setProgress(std::move(progress));
}

void JsonReader::setBlockSize(int size)
{
    m_reading->setBlockSize(size);
}

bool JsonReader::read(Dataset *dataset)
{
    return m_reading->read(dataset);
}

const QStringList &JsonReader::infos() const
{
    return m_reading->infos();
}

const QStringList &JsonReader::warnings() const
{
    return m_reading->warnings();
}
