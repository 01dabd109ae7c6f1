#pragma once

#include "spreadsheet/xls/record.h"

namespace spreadsheet {

/// Walks over the records of a stream, which must outlive it.
class RecordReader
{
public:
    RecordReader(const uchar *stream, quint32 size, quint32 offset = 0)
        : m_stream(stream)
        , m_size(size)
        , m_next(offset)
    {
    }

    /// Goes to the next record; false when there is none, or less than its header says, see isCut().
    bool next();
    /// Goes to the next record only if it is of that kind.
    bool nextIf(RecordId id);
    const Record &record() const { return m_record; }
    /// True when the stream ended within a record.
    bool isCut() const { return m_isCut; }
    /// Of the record behind the present one.
    quint32 nextOffset() const { return m_next; }

private:
    const uchar *m_stream;
    quint32 m_size;
    quint32 m_next;
    bool m_isCut = false;
    Record m_record;
};

inline bool RecordReader::next()
{
    if (m_next >= m_size) {
        return false;
    }
    const quint32 left = m_size - m_next;
    const uchar *at = m_stream + m_next;
    const quint32 size = left < recordHeaderSize ? 0 : qFromLittleEndian<quint16>(at + 2);
    if (left < recordHeaderSize || left - recordHeaderSize < size) {
        m_isCut = true;
        m_next = m_size;
        return false;
    }
    m_record = {RecordId(qFromLittleEndian<quint16>(at)), size, at + recordHeaderSize};
    m_next += recordHeaderSize + size;
    return true;
}

inline bool RecordReader::nextIf(RecordId id)
{
    const bool isThere = m_next < m_size && m_size - m_next >= recordHeaderSize
                         && qFromLittleEndian<quint16>(m_stream + m_next) == static_cast<quint16>(id);
    return isThere && next();
}

} // namespace spreadsheet
