#pragma once

#include "spreadsheet/xls/streamcipher.h"

#include <QByteArray>
#include <functional>
#include <nettle/arcfour.h>

namespace spreadsheet {

/// The cipher RC4 with a new key for each block of the stream. Bytes that aren't encrypted use up the cipher's as well.
class BlockRc4 final : public StreamCipher
{
public:
    explicit BlockRc4(std::function<QByteArray(quint32 block)> keyOfBlock)
        : m_keyOfBlock(std::move(keyOfBlock))
    {
    }

    void decrypt(uchar *bytes, quint32 size, quint32 offset, quint32 recordSize) override;
    /// Bytes that stand by themselves, encrypted with the key of block 0.
    QByteArray decrypted(const QByteArray &bytes) const;

private:
    void goTo(quint32 offset);

    static constexpr quint32 blockSize = 1024;

    std::function<QByteArray(quint32)> m_keyOfBlock;
    arcfour_ctx m_cipher{};
    quint32 m_offset = 0; // of the stream, for which the cipher is ready
    bool m_hasKey = false;
};

} // namespace spreadsheet
