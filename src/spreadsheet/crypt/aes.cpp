#include "spreadsheet/crypt/aes.h"

#include <nettle/cbc.h>
#include <nettle/nettle-meta.h>
#include <vector>

namespace spreadsheet {
namespace {

const nettle_cipher *cipherFor(int keySize)
{
    for (const nettle_cipher *cipher : {&nettle_aes128, &nettle_aes192, &nettle_aes256}) {
        if (cipher->key_size == static_cast<unsigned>(keySize)) {
            return cipher;
        }
    }
    return nullptr;
}

} // namespace

QByteArray decryptAes(const QByteArray &key, const QByteArray &start, const QByteArray &bytes)
{
    const nettle_cipher *cipher = cipherFor(key.size());
    if (!cipher || (!start.isEmpty() && start.size() != aesBlockSize)) {
        return {};
    }
    std::vector<std::max_align_t> state(cipher->context_size / sizeof(std::max_align_t) + 1);
    cipher->set_decrypt_key(state.data(), reinterpret_cast<const uint8_t *>(key.constData()));
    QByteArray result = bytes;
    const auto size = static_cast<size_t>(bytes.size() - bytes.size() % aesBlockSize);
    auto *data = reinterpret_cast<uint8_t *>(result.data());
    if (start.isEmpty()) {
        cipher->decrypt(state.data(), size, data, data);
    } else {
        QByteArray last = start;
        cbc_decrypt(
            state.data(), cipher->decrypt, aesBlockSize, reinterpret_cast<uint8_t *>(last.data()), size, data, data);
    }
    return result;
}

} // namespace spreadsheet
