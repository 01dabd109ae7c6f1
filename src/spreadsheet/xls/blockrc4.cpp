#include "spreadsheet/xls/blockrc4.h"

#include <algorithm>
#include <array>

namespace spreadsheet {
namespace {

void setKey(arcfour_ctx *cipher, const QByteArray &key)
{
    arcfour_set_key(cipher, static_cast<size_t>(key.size()), reinterpret_cast<const uint8_t *>(key.constData()));
}

} // namespace

void BlockRc4::goTo(quint32 offset)
{
    const quint32 block = offset / blockSize;
    if (!m_hasKey || m_offset / blockSize != block || m_offset > offset) {
        setKey(&m_cipher, m_keyOfBlock(block));
        m_offset = block * blockSize;
        m_hasKey = true;
    }
    std::array<uint8_t, blockSize> passedOver{};
    arcfour_crypt(&m_cipher, offset - m_offset, passedOver.data(), passedOver.data());
    m_offset = offset;
}

void BlockRc4::decrypt(uchar *bytes, quint32 size, quint32 offset, quint32)
{
    while (size > 0) {
        goTo(offset);
        const quint32 step = std::min(size, blockSize - offset % blockSize);
        arcfour_crypt(&m_cipher, step, bytes, bytes);
        bytes += step;
        size -= step;
        offset += step;
        m_offset = offset;
        m_hasKey = offset % blockSize != 0;
    }
}

QByteArray BlockRc4::decrypted(const QByteArray &bytes) const
{
    arcfour_ctx cipher;
    setKey(&cipher, m_keyOfBlock(0));
    QByteArray result(bytes.size(), '\0');
    arcfour_crypt(&cipher, static_cast<size_t>(bytes.size()), reinterpret_cast<uint8_t *>(result.data()),
        reinterpret_cast<const uint8_t *>(bytes.constData()));
    return result;
}

} // namespace spreadsheet
