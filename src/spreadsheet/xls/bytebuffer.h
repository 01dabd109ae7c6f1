#pragma once

#include <QByteArray>
#include <QString>
#include <cstring>

namespace spreadsheet {

/// Bytes that grow at their end; numbers are put in with their low byte first, as .xls files want them.
class ByteBuffer
{
public:
    void u8(unsigned value) { m_bytes.append(static_cast<char>(value)); }
    void u16(unsigned value) { put(static_cast<quint16>(value)); }
    void u32(quint32 value) { put(value); }
    void f64(double value) { put(value); }
    void zeros(int count) { m_bytes.append(count, '\0'); }
    void bytes(const char *data, int size) { m_bytes.append(data, size); }
    void bytes(const QByteArray &data) { m_bytes.append(data); }
    /// A byte that tells the width of the characters, and the characters: one byte each where that is enough.
    void characters(const QString &text);

    int size() const { return m_bytes.size(); }
    bool isEmpty() const { return m_bytes.isEmpty(); }
    void clear() { m_bytes.resize(0); } // keeps the memory
    void reserve(int size) { m_bytes.reserve(size); }
    // Replace bytes that are there already
    void setU16(int place, unsigned value) { set(place, static_cast<quint16>(value)); }
    void setU32(int place, quint32 value) { set(place, value); }
    const QByteArray &data() const { return m_bytes; }

private:
    template<typename Value>
    void put(Value value)
    {
        static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "numbers are copied as they lie in memory");
        m_bytes.append(reinterpret_cast<const char *>(&value), sizeof(value));
    }

    template<typename Value>
    void set(int place, Value value)
    {
        std::memcpy(m_bytes.data() + place, &value, sizeof(value));
    }

    QByteArray m_bytes;
};

} // namespace spreadsheet
