#include "spreadsheet/crypt/encryptionheader.h"

#include "spreadsheet/crypt/digest.h"

#include <QtEndian>

namespace spreadsheet {
namespace {

constexpr int saltSize = 16, verifierSize = 16;
constexpr int rc4HashSize = 20, aesHashSize = 32; // of SHA-1, the latter in whole blocks
constexpr int smallestKey = 5, largestKey = 32;   // bytes
constexpr int smallKeyRoom = 16;                  // keys of the smallest size are filled up with zeros

quint32 numberAt(const QByteArray &bytes, int at)
{
    return at >= 0 && at + 4 <= bytes.size() ? qFromLittleEndian<quint32>(bytes.constData() + at) : 0;
}

} // namespace

bool EncryptionHeader::read(const QByteArray &bytes)
{
    constexpr int algorithmPlace = 12, keySizePlace = 20, bitsInByte = 8;
    const quint32 headerSize = numberAt(bytes, 0);
    if (headerSize < keySizePlace || headerSize > static_cast<quint32>(bytes.size())) {
        return false;
    }
    algorithm = numberAt(bytes, algorithmPlace);
    const quint32 bits = numberAt(bytes, keySizePlace);
    keySize = bits == 0 && algorithm == Rc4 ? smallestKey : static_cast<int>(bits / bitsInByte);
    int at = static_cast<int>(headerSize) + 4;
    const bool hasSalt = numberAt(bytes, at) == saltSize;
    at += 4;
    salt = bytes.mid(at, saltSize);
    at += saltSize;
    verifier = bytes.mid(at, verifierSize);
    at += verifierSize + 4;
    const int hashSize = algorithm == Rc4 ? rc4HashSize : aesHashSize;
    verifierHash = bytes.mid(at, hashSize);
    return hasSalt && keySize >= smallestKey && keySize <= largestKey && verifierHash.size() == hashSize;
}

QByteArray EncryptionHeader::rc4Key(const QByteArray &passwordHash, quint32 block) const
{
    QByteArray key = digest(HashKind::Sha1, {passwordHash, littleEndian(block)}).left(keySize);
    if (keySize == smallestKey) {
        key.append(smallKeyRoom - smallestKey, '\0');
    }
    return key;
}

QByteArray EncryptionHeader::aesKey(const QByteArray &passwordHash) const
{
    constexpr int paddedSize = 64;
    const QByteArray hash = digest(HashKind::Sha1, {passwordHash, littleEndian(0)});
    QByteArray key;
    for (const char filler : {'\x36', '\x5C'}) {
        QByteArray padded(paddedSize, filler);
        for (int i = 0; i < hash.size(); ++i) {
            padded[i] = static_cast<char>(padded.at(i) ^ hash.at(i));
        }
        key += digest(HashKind::Sha1, {padded});
    }
    return key.left(keySize);
}

} // namespace spreadsheet
