#pragma once

#include "spreadsheet/xls/bytebuffer.h"
#include "spreadsheet/xls/record.h"

#include <array>

namespace spreadsheet {

/// The XFCRC record: number and check sum of a workbook's cell formats. Where they don't fit, programs ignore what the
/// workbook says of the formats in its extensions.
class FormatCheck
{
public:
    /// Adds the data of an XF record.
    void add(const uchar *data, quint32 size);
    /// True when the record states what was added.
    bool isStatedIn(const Record &record) const
    {
        return record.size >= sumPlace + sizeof(m_sum) && record.u16(countPlace) == m_count
               && record.u32(sumPlace) == m_sum;
    }
    /// Puts count and sum into a record whose data begins at a place of the buffer.
    void enter(ByteBuffer &out, int data) const
    {
        out.setU16(data + static_cast<int>(countPlace), m_count);
        out.setU32(data + static_cast<int>(sumPlace), m_sum);
    }

private:
    static constexpr quint32 countPlace = 14, sumPlace = 16;
    static std::array<quint32, 256> makeTable();

    quint32 m_sum = 0;
    unsigned m_count = 0;
};

} // namespace spreadsheet
