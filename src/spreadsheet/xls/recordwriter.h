#pragma once

#include "spreadsheet/xls/bytebuffer.h"
#include "spreadsheet/xls/record.h"

#include <initializer_list>

namespace spreadsheet {

/// A stream of records that grows at its end.
class RecordWriter
{
public:
    /// A record with all of its data; what is too large for one goes on in CONTINUE records.
    void write(RecordId id, const QByteArray &data, int largest = maxRecordData);
    void write(RecordId id, const ByteBuffer &data, int largest = maxRecordData) { write(id, data.data(), largest); }
    /// A short record of numbers of 16 bits.
    void write(RecordId id, std::initializer_list<unsigned> words);
    /// The record as it stands in its stream.
    void copy(const Record &record) { m_out.bytes(reinterpret_cast<const char *>(record.begin()), byteCount(record)); }

    /// Begins a record whose data, at most maxRecordData bytes, is put into buffer() until end() is called.
    void begin(RecordId id);
    void end();

    ByteBuffer &buffer() { return m_out; }
    int position() const { return m_out.size(); }
    const QByteArray &data() const { return m_out.data(); }

private:
    static int byteCount(const Record &record) { return static_cast<int>(record.size + recordHeaderSize); }

    ByteBuffer m_out;
    int m_begin = 0; // where the data of the present record starts
};

} // namespace spreadsheet
