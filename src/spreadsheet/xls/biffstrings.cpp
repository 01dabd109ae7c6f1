#include "spreadsheet/xls/biffstrings.h"

#include "spreadsheet/texttable.h"
#include "spreadsheet/xls/continueddata.h"

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

} // namespace

bool readText(ContinuedData &data, std::string *utf8)
{
    const quint16 count = data.u16();
    const quint8 flags = data.u8();
    const quint32 runs = flags & hasRunsFlag ? data.u16() : 0;
    const quint32 phoneticSize = flags & hasPhoneticFlag ? data.u32() : 0;
    data.characters(count, flags & isWideFlag, utf8);
    data.skip(runs * runSize);
    data.skip(phoneticSize);
    return data.isGood();
}

QString shortTextAt(const Record &record, quint32 at)
{
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
        if (!readText(data, &text)) {
            return false;
        }
        texts.append(text);
    }
    return true;
}

} // namespace spreadsheet
