#include "spreadsheet/xls/continueddata.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr quint8 isWideFlag = 0x01;
constexpr char32_t replacement = 0xFFFD;

/// Puts pieces of UTF-16 together, whose surrogate pairs may lie in two of them.
class Utf8Text
{
public:
    explicit Utf8Text(std::string *utf8)
        : m_utf8(utf8)
    {
        m_utf8->clear();
    }

    void appendLatin1(const uchar *bytes, quint32 count)
    {
        endPair();
        if (std::all_of(bytes, bytes + count, [](uchar c) { return c < 0x80; })) {
            m_utf8->append(reinterpret_cast<const char *>(bytes), count);
            return;
        }
        for (quint32 i = 0; i < count; ++i) {
            appendPoint(bytes[i]);
        }
    }

    void appendUtf16(const uchar *bytes, quint32 count)
    {
        for (quint32 i = 0; i < count; ++i) {
            const auto unit = static_cast<char16_t>(bytes[2 * i] | (bytes[2 * i + 1] << 8));
            if (m_high != 0 && (unit & 0xFC00) == 0xDC00) {
                appendPoint(0x10000 + ((char32_t(m_high) & 0x3FF) << 10) + (unit & 0x3FF));
                m_high = 0;
                continue;
            }
            endPair();
            if ((unit & 0xFC00) == 0xD800) {
                m_high = unit;
            } else {
                appendPoint((unit & 0xFC00) == 0xDC00 ? replacement : unit);
            }
        }
    }

    /// Replaces half a pair at the end.
    void endPair()
    {
        if (m_high != 0) {
            m_high = 0;
            appendPoint(replacement);
        }
    }

private:
    void appendPoint(char32_t point)
    {
        const auto last = [point](int shift) { return static_cast<char>(0x80 | ((point >> shift) & 0x3F)); };
        if (point < 0x80) {
            m_utf8->push_back(static_cast<char>(point));
        } else if (point < 0x800) {
            m_utf8->append({static_cast<char>(0xC0 | (point >> 6)), last(0)});
        } else if (point < 0x10000) {
            m_utf8->append({static_cast<char>(0xE0 | (point >> 12)), last(6), last(0)});
        } else {
            m_utf8->append({static_cast<char>(0xF0 | (point >> 18)), last(12), last(6), last(0)});
        }
    }

    std::string *m_utf8;
    char16_t m_high = 0; // the first half of a pair, waiting for the second
};

} // namespace

ContinuedData::ContinuedData(RecordReader &records, quint32 offset)
    : m_records(records)
    , m_at(records.record().data + std::min(offset, records.record().size))
    , m_end(records.record().end())
{
}

bool ContinuedData::nextPiece()
{
    if (!m_records.nextIf(RecordId::Continue)) {
        return false;
    }
    m_at = m_records.record().data;
    m_end = m_records.record().end();
    return true;
}

bool ContinuedData::atEnd()
{
    while (m_at == m_end) {
        if (!nextPiece()) {
            return true;
        }
    }
    return false;
}

bool ContinuedData::isMissing()
{
    m_isGood = m_isGood && !atEnd();
    return !m_isGood;
}

template<typename Integer>
Integer ContinuedData::number()
{
    if (static_cast<size_t>(m_end - m_at) >= sizeof(Integer)) {
        const auto value = qFromLittleEndian<Integer>(m_at);
        m_at += sizeof(Integer);
        return value;
    }
    quint32 value = 0;
    for (size_t i = 0; i < sizeof(Integer); ++i) {
        if (isMissing()) {
            return 0;
        }
        value |= quint32(*m_at++) << (8 * i);
    }
    return static_cast<Integer>(value);
}

template quint8 ContinuedData::number<quint8>();
template quint16 ContinuedData::number<quint16>();
template quint32 ContinuedData::number<quint32>();

void ContinuedData::skip(quint32 size)
{
    while (size > 0 && !isMissing()) {
        const quint32 step = std::min(size, static_cast<quint32>(m_end - m_at));
        m_at += step;
        size -= step;
    }
}

void ContinuedData::bytes(quint32 count, std::string *bytes)
{
    bytes->clear();
    while (count > 0 && !isMissing()) {
        const quint32 step = std::min(count, static_cast<quint32>(m_end - m_at));
        bytes->append(reinterpret_cast<const char *>(m_at), step);
        m_at += step;
        count -= step;
    }
    if (!m_isGood) {
        bytes->clear();
    }
}

void ContinuedData::characters(quint32 count, bool isWide, std::string *utf8)
{
    Utf8Text text(utf8);
    while (count > 0 && m_isGood) {
        if (m_at == m_end) {
            isWide = u8() & isWideFlag;
            continue;
        }
        const quint32 width = isWide ? 2 : 1;
        const quint32 step = std::min(count, static_cast<quint32>(m_end - m_at) / width);
        if (isWide) {
            text.appendUtf16(m_at, step);
        } else {
            text.appendLatin1(m_at, step);
        }
        m_at += step * width;
        count -= step;
        // A character is never cut.
        m_isGood = step > 0;
    }
    text.endPair();
    if (!m_isGood) {
        utf8->clear();
    }
}

} // namespace spreadsheet
