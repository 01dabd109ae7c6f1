#include "spreadsheet/xls/sharedtextslayout.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr quint32 headSize = 8; // how often texts are used, and how many there are
constexpr quint8 isWideFlag = 0x01, hasPhoneticFlag = 0x04, hasRunsFlag = 0x08;
constexpr quint32 runSize = 4;

/// Goes over the data of records as if it were in one piece.
class Walker
{
public:
    explicit Walker(const std::vector<Record> &records)
        : m_records(records)
    {
    }

    TextPlace place() const { return m_place; }
    bool isGood() const { return m_isGood; }

    /// Goes to the next record at the end of one.
    void settle()
    {
        while (left() == 0 && m_place.record + 1 < m_records.size()) {
            ++m_place.record;
            m_place.offset = 0;
        }
        m_isGood = m_isGood && left() > 0;
    }

    quint32 number(int bytes)
    {
        quint32 value = 0;
        for (int i = 0; i < bytes; ++i) {
            settle();
            value |= static_cast<quint32>(m_isGood ? record().data[m_place.offset++] : 0) << (8 * i);
        }
        return value;
    }

    void skip(quint64 bytes)
    {
        while (bytes > 0 && m_isGood) {
            settle();
            const auto step = static_cast<quint32>(std::min<quint64>(bytes, left()));
            m_place.offset += step;
            bytes -= step;
        }
    }

    /// Each further record says anew how wide characters are.
    void skipCharacters(quint32 count, bool isWide)
    {
        while (count > 0 && m_isGood) {
            if (left() == 0) {
                isWide = number(1) & isWideFlag;
                continue;
            }
            const quint32 width = isWide ? 2 : 1;
            const quint32 step = std::min(count, left() / width);
            m_place.offset += step * width;
            count -= step;
            m_isGood = step > 0;
        }
    }

private:
    const Record &record() const { return m_records[m_place.record]; }
    quint32 left() const { return record().size - m_place.offset; }

    const std::vector<Record> &m_records;
    TextPlace m_place;
    bool m_isGood = true;
};

} // namespace

std::vector<TextPlace> sharedTextPlaces(const std::vector<Record> &records, quint32 count)
{
    std::vector<TextPlace> places;
    if (records.empty() || records.front().size < headSize) {
        return places;
    }
    places.reserve(count + 1);
    Walker walker(records);
    walker.skip(headSize);
    for (quint32 i = 0; i < count; ++i) {
        walker.settle();
        places.push_back(walker.place());
        const quint32 length = walker.number(2);
        const quint32 flags = walker.number(1);
        const quint32 runs = flags & hasRunsFlag ? walker.number(2) : 0;
        const quint32 phoneticSize = flags & hasPhoneticFlag ? walker.number(4) : 0;
        walker.skipCharacters(length, flags & isWideFlag);
        walker.skip(runs * runSize);
        walker.skip(phoneticSize);
        if (!walker.isGood()) {
            return {};
        }
    }
    places.push_back(walker.place());
    return places;
}

} // namespace spreadsheet
