#include "spreadsheet/crypt/agileencryption.h"

#include "spreadsheet/crypt/aes.h"

#include <QXmlStreamReader>
#include <algorithm>

namespace spreadsheet {
namespace {

constexpr quint32 mostSteps = 10000000; // more can't be stated by a sound file
constexpr char filler = '\x36';

struct NamedHash
{
    const char *name;
    HashKind kind;
    int size; // bytes
};

constexpr NamedHash hashes[] = {
    {"SHA1", HashKind::Sha1, 20},
    {"SHA-1", HashKind::Sha1, 20},
    {"SHA256", HashKind::Sha256, 32},
    {"SHA-256", HashKind::Sha256, 32},
    {"SHA384", HashKind::Sha384, 48},
    {"SHA-384", HashKind::Sha384, 48},
    {"SHA512", HashKind::Sha512, 64},
    {"SHA-512", HashKind::Sha512, 64},
};

QByteArray fitted(QByteArray bytes, int size)
{
    const int missing = size - bytes.size();
    return missing > 0 ? bytes.append(missing, filler) : bytes.left(size);
}

QByteArray bytesOf(const QXmlStreamAttributes &attributes, const char *name)
{
    return QByteArray::fromBase64(attributes.value(QLatin1String(name)).toLatin1());
}

} // namespace

bool AgileEncryption::read(const QByteArray &xml)
{
    const auto readCipher = [](const QXmlStreamAttributes &attributes, Cipher *cipher) {
        const QString hash = attributes.value(QLatin1String("hashAlgorithm")).toString();
        const auto *found = std::find_if(std::begin(hashes), std::end(hashes),
            [&hash](const NamedHash &named) { return hash == QLatin1String(named.name); });
        const int bits = attributes.value(QLatin1String("keyBits")).toInt();
        cipher->salt = bytesOf(attributes, "saltValue");
        cipher->keySize = bits / 8;
        const bool isAes = attributes.value(QLatin1String("cipherAlgorithm")) == QLatin1String("AES");
        const bool isChained = attributes.value(QLatin1String("cipherChaining")) == QLatin1String("ChainingModeCBC");
        if (found == std::end(hashes) || !isAes || !isChained || cipher->salt.isEmpty()) {
            return false;
        }
        cipher->hash = found->kind;
        cipher->hashSize = found->size;
        return bits == 128 || bits == 192 || bits == 256;
    };
    bool hasContent = false, hasPassword = false;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd() && !hasPassword) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.name() == QLatin1String("keyData")) {
            hasContent = readCipher(attributes, &m_content);
        } else if (reader.name() == QLatin1String("encryptedKey")
                   && attributes.hasAttribute(QLatin1String("spinCount"))) {
            hasPassword = readCipher(attributes, &m_password);
            m_steps = attributes.value(QLatin1String("spinCount")).toUInt();
            m_verifier = bytesOf(attributes, "encryptedVerifierHashInput");
            m_verifierHash = bytesOf(attributes, "encryptedVerifierHashValue");
            m_encryptedKey = bytesOf(attributes, "encryptedKeyValue");
        }
    }
    return hasContent && hasPassword && m_steps <= mostSteps;
}

/// A key is made of the password for each purpose.
QByteArray AgileEncryption::keyFor(const QByteArray &passwordHash, const char *purpose) const
{
    return fitted(digest(m_password.hash, {passwordHash, QByteArray::fromHex(purpose)}), m_password.keySize);
}

bool AgileEncryption::findKey(const QByteArray &password)
{
    const QByteArray start = fitted(m_password.salt, aesBlockSize);
    const QByteArray hash = repeatedDigest(
        m_password.hash, digest(m_password.hash, {m_password.salt, password}), m_steps);
    const auto decrypted = [&](const char *purpose, const QByteArray &bytes) {
        return decryptAes(keyFor(hash, purpose), start, bytes);
    };
    const QByteArray verifier = decrypted("fea7d2763b4b9e79", m_verifier).left(m_password.salt.size());
    const QByteArray verifierHash = decrypted("d7aa0f6d3061344e", m_verifierHash).left(m_password.hashSize);
    m_key = decrypted("146e0be7abacd0d6", m_encryptedKey).left(m_content.keySize);
    return !verifierHash.isEmpty() && digest(m_password.hash, {verifier}) == verifierHash
           && m_key.size() == m_content.keySize;
}

QByteArray AgileEncryption::decrypt(const QByteArray &bytes) const
{
    constexpr int segmentSize = 4096;
    QByteArray result;
    result.reserve(bytes.size());
    quint32 segment = 0;
    for (int at = 0; at < bytes.size(); at += segmentSize) {
        const QByteArray start = digest(m_content.hash, {m_content.salt, littleEndian(segment++)});
        result += decryptAes(m_key, fitted(start, aesBlockSize), bytes.mid(at, segmentSize));
    }
    return result;
}

} // namespace spreadsheet
