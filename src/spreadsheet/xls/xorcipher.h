#pragma once

#include "spreadsheet/xls/streamcipher.h"

#include <QByteArray>
#include <array>

namespace spreadsheet {

/// The oldest cipher of workbooks: sixteen bytes made of the password are mixed into the data.
class XorCipher final : public StreamCipher
{
public:
    explicit XorCipher(const QByteArray &password);

    /// What a file states of its password.
    quint16 key() const { return m_key; }
    quint16 passwordSum() const { return m_sum; }
    void decrypt(uchar *bytes, quint32 size, quint32 offset, quint32 recordSize) override;

private:
    static constexpr int period = 16;

    quint16 m_key = 0, m_sum = 0;
    std::array<quint8, period> m_bytes{};
};

} // namespace spreadsheet
