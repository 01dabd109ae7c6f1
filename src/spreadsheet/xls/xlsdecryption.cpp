#include "spreadsheet/xls/xlsdecryption.h"

#include "spreadsheet/crypt/defaultpassword.h"
#include "spreadsheet/crypt/digest.h"
#include "spreadsheet/crypt/encryptionheader.h"
#include "spreadsheet/xls/blockrc4.h"
#include "spreadsheet/xls/recordreader.h"
#include "spreadsheet/xls/substreams.h"
#include "spreadsheet/xls/xorcipher.h"

#include <memory>

namespace spreadsheet {
namespace {

using Cipher = std::unique_ptr<StreamCipher>;

QByteArray bytesOf(const Record &record, quint32 at, quint32 size)
{
    const bool isThere = at <= record.size && record.size - at >= size;
    return isThere ? QByteArray(reinterpret_cast<const char *>(record.data) + at, static_cast<int>(size))
                   : QByteArray();
}

/// `at` is where the record states what belongs to the password. Null when it isn't the default one.
Cipher xorCipher(const Record &filePass, quint32 at)
{
    auto cipher = std::make_unique<XorCipher>(defaultPassword());
    const bool isRight = filePass.size >= at + 4 && cipher->key() == filePass.u16(at)
                         && cipher->passwordSum() == filePass.u16(at + 2);
    return isRight ? std::move(cipher) : nullptr;
}

/// True when a random text and its hash, both encrypted, fit together.
bool fits(const BlockRc4 &cipher, HashKind hash, const QByteArray &verifier, const QByteArray &verifierHash)
{
    const QByteArray both = cipher.decrypted(verifier + verifierHash);
    return !verifierHash.isEmpty() && digest(hash, {both.left(verifier.size())}) == both.right(verifierHash.size());
}

/// With keys of 40 bits.
Cipher shortKeyCipher(const Record &filePass)
{
    constexpr quint32 saltPlace = 6, partSize = 16;
    constexpr int keptSize = 5, repeats = 16;
    const QByteArray salt = bytesOf(filePass, saltPlace, partSize);
    const QByteArray verifier = bytesOf(filePass, saltPlace + partSize, partSize);
    const QByteArray verifierHash = bytesOf(filePass, saltPlace + 2 * partSize, partSize);
    const QByteArray passwordHash = digest(HashKind::Md5, {defaultPasswordUtf16()}).left(keptSize);
    const QByteArray salted = digest(HashKind::Md5, {(passwordHash + salt).repeated(repeats)}).left(keptSize);
    auto cipher = std::make_unique<BlockRc4>([salted](quint32 block) {
        return digest(HashKind::Md5, {salted, littleEndian(block)});
    });
    return fits(*cipher, HashKind::Md5, verifier, verifierHash) ? std::move(cipher) : nullptr;
}

/// With keys of up to 128 bits.
Cipher longKeyCipher(const Record &filePass)
{
    constexpr quint32 headerPlace = 10;
    EncryptionHeader header;
    if (filePass.size < headerPlace || !header.read(bytesOf(filePass, headerPlace, filePass.size - headerPlace))
        || header.algorithm != EncryptionHeader::Rc4) {
        return nullptr;
    }
    const QByteArray passwordHash = digest(HashKind::Sha1, {header.salt, defaultPasswordUtf16()});
    auto cipher = std::make_unique<BlockRc4>(
        [header, passwordHash](quint32 block) { return header.rc4Key(passwordHash, block); });
    return fits(*cipher, HashKind::Sha1, header.verifier, header.verifierHash) ? std::move(cipher) : nullptr;
}

/// Null for a way of encryption that is unknown, or for another password.
Cipher cipherOf(const Record &filePass, quint16 version)
{
    constexpr quint16 mixed = 0, ciphered = 1;
    if (version != biff8Version) {
        return xorCipher(filePass, 0);
    }
    switch (filePass.u16(0)) {
    case mixed:
        return xorCipher(filePass, 2);
    case ciphered:
        return filePass.u16(2) == 1 ? shortKeyCipher(filePass) : longKeyCipher(filePass);
    default:
        return nullptr;
    }
}

/// Programs must be able to read these before they know the password.
bool isNeverEncrypted(RecordId id)
{
    switch (id) {
    case RecordId::Bof:
    case RecordId::FilePass:
    case RecordId::SharedUsers:
    case RecordId::FileLock:
    case RecordId::InterfaceHeader:
    case RecordId::RevisionsInfo:
    case RecordId::RevisionsHead:
        return true;
    default:
        return false;
    }
}

} // namespace

Decryption decryptWorkbook(quint16 version, QByteArray *stream)
{
    const auto size = static_cast<quint32>(stream->size());
    const auto *bytes = reinterpret_cast<const uchar *>(stream->constData());
    RecordReader records(bytes, size);
    do {
        if (!records.next() || records.record().id == RecordId::Eof) {
            return Decryption::NotNeeded;
        }
    } while (records.record().id != RecordId::FilePass);
    const Cipher cipher = cipherOf(records.record(), version);
    if (!cipher) {
        return Decryption::Refused;
    }
    auto *changed = reinterpret_cast<uchar *>(stream->data());
    records = RecordReader(changed, size, records.nextOffset());
    while (records.next()) {
        const Record &record = records.record();
        // Where a sheet begins stays readable.
        const quint32 readable = record.id == RecordId::BoundSheet ? qMin<quint32>(4, record.size) : 0;
        if (!isNeverEncrypted(record.id)) {
            const auto at = static_cast<quint32>(record.data - changed) + readable;
            cipher->decrypt(changed + at, record.size - readable, at, record.size);
        }
    }
    return Decryption::Decrypted;
}

} // namespace spreadsheet
