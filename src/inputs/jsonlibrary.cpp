#include "inputs/jsonlibrary.h"

#include "data/textcoding.h"

namespace {

const char markInString[] = "\"\xEF\xBB\xBF";
const char escapedMark[] = "\"\\uFEFF";
constexpr int markSize = 4;
constexpr int escapedSize = 7;

/// Where byte `offset` of the text with escaped marks stood before.
int offsetBefore(const QByteArray &text, int offset)
{
    constexpr int growth = escapedSize - markSize;
    for (int at = text.indexOf(markInString); at >= 0 && at + escapedSize <= offset;
         at = text.indexOf(markInString, at + markSize)) {
        offset -= growth;
    }
    return offset;
}

} // namespace

QJsonDocument JsonLibrary::parsed(const char *bytes, int size, QJsonParseError *error)
{
    QByteArray text = QByteArray::fromRawData(bytes, size);
    if (!TextCoding::isValidUtf8(bytes, size)) {
        text = TextCoding::decode(bytes, size).toUtf8();
    }
    if (!text.contains(markInString)) {
        return QJsonDocument::fromJson(text, error);
    }
    QByteArray escaped = text;
    escaped.replace(markInString, escapedMark);
    const QJsonDocument document = QJsonDocument::fromJson(escaped, error);
    if (error) {
        error->offset = offsetBefore(text, error->offset);
    }
    return document;
}
