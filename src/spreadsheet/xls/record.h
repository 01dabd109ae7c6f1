#pragma once

#include "spreadsheet/xls/recordid.h"

#include <QtEndian>

namespace spreadsheet {

constexpr quint32 recordHeaderSize = 4; ///< id and size, 16 bits each
constexpr quint32 maxRecordData = 8224; ///< bytes of data; what is longer goes on in CONTINUE records

/// A record where it stands in the stream, which must outlive it. Numbers are little endian.
struct Record
{
    RecordId id = RecordId::Eof;
    quint32 size = 0; ///< bytes of data
    const uchar *data = nullptr;

    /// The number at a place of the data; 0 where the data ends before it.
    quint8 u8(quint32 at) const { return at < size ? data[at] : 0; }
    quint16 u16(quint32 at) const { return number<quint16>(at); }
    quint32 u32(quint32 at) const { return number<quint32>(at); }
    quint64 u64(quint32 at) const { return number<quint64>(at); }

    /// With its header.
    const uchar *begin() const { return data - recordHeaderSize; }
    const uchar *end() const { return data + size; }

private:
    template<typename Integer>
    Integer number(quint32 at) const
    {
        return at <= size && size - at >= sizeof(Integer) ? qFromLittleEndian<Integer>(data + at) : Integer(0);
    }
};

} // namespace spreadsheet
