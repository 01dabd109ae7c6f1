#include "spreadsheet/xls/biffstrings.h"

#include "spreadsheet/texttable.h"
#include "spreadsheet/xls/continueddata.h"

#include <QTextCodec>
#include <algorithm>

namespace spreadsheet {
namespace {

constexpr quint8 isWideFlag = 0x01;
constexpr quint8 hasPhoneticFlag = 0x04;
constexpr quint8 hasRunsFlag = 0x08;
constexpr quint32 runSize = 4;

/// Characters behind a flag byte, within the record.
QString charactersAt(const Record &record, quint32 at, quint32 count)
{
    const bool isWide = record.u8(at) & isWideFlag;
    ++at;
    const quint32 present = at < record.size ? (record.size - at) / (isWide ? 2 : 1) : 0;
    count = std::min(count, present);
    QString text;
    text.reserve(static_cast<int>(count));
    for (quint32 i = 0; i < count; ++i) {
        text.append(isWide ? QChar(record.u16(at + 2 * i)) : QChar(ushort(record.u8(at + i))));
    }
    return text;
}

/// ASCII stays as it is in all encodings of workbooks.
void decode(const QTextCodec &codec, std::string *bytes)
{
    if (std::any_of(bytes->begin(), bytes->end(), [](char c) { return static_cast<uchar>(c) >= 0x80; })) {
        *bytes = codec.toUnicode(bytes->data(), static_cast<int>(bytes->size())).toStdString();
    }
}

} // namespace

bool readText(ContinuedData &data, const QTextCodec *codec, std::string *utf8)
{
    const quint16 count = data.u16();
    if (codec) {
        data.bytes(count, utf8);
        decode(*codec, utf8);
        return data.isGood();
    }
    const quint8 flags = data.u8();
    const quint32 runs = flags & hasRunsFlag ? data.u16() : 0;
    const quint32 phoneticSize = flags & hasPhoneticFlag ? data.u32() : 0;
    data.characters(count, flags & isWideFlag, utf8);
    data.skip(runs * runSize);
    data.skip(phoneticSize);
    return data.isGood();
}

QString shortTextAt(const Record &record, quint32 at, const QTextCodec *codec)
{
    if (codec) {
        const quint32 begin = std::min(at + 1, record.size);
        const quint32 count = std::min<quint32>(record.u8(at), record.size - begin);
        return codec->toUnicode(reinterpret_cast<const char *>(record.data) + begin, static_cast<int>(count));
    }
    return charactersAt(record, at + 1, record.u8(at));
}

QString textAt(const Record &record, quint32 at)
{
    return charactersAt(record, at + 2, record.u16(at));
}

bool readSharedTexts(ContinuedData &data, TextTable &texts)
{
    data.skip(4); // how often they are used
    const quint32 count = data.u32();
    std::string text;
    for (quint32 i = 0; i < count && !data.atEnd(); ++i) {
        if (!readText(data, nullptr, &text)) {
            return false;
        }
        texts.append(text);
    }
    return true;
}

} // namespace spreadsheet
