#include "spreadsheet/xlsx/encryptedpackage.h"

#include "spreadsheet/crypt/aes.h"
#include "spreadsheet/crypt/agileencryption.h"
#include "spreadsheet/crypt/defaultpassword.h"
#include "spreadsheet/crypt/digest.h"
#include "spreadsheet/crypt/encryptionheader.h"
#include "spreadsheet/xls/compoundfile.h"

#include <QtEndian>

namespace spreadsheet {
namespace {

constexpr int versionSize = 8; // with flags

/// What decrypts the content, by what the file states of its password; null when that isn't the default one.
QByteArray decryptStandard(const QByteArray &info, const QByteArray &content)
{
    constexpr quint32 hashSteps = 50000;
    EncryptionHeader header;
    if (!header.read(info.mid(versionSize)) || header.algorithm == EncryptionHeader::Rc4) {
        return {};
    }
    const QByteArray start = digest(HashKind::Sha1, {header.salt, defaultPasswordUtf16()});
    const QByteArray key = header.aesKey(repeatedDigest(HashKind::Sha1, start, hashSteps));
    const QByteArray verifier = decryptAes(key, {}, header.verifier);
    const QByteArray hash = digest(HashKind::Sha1, {verifier});
    const bool isRight = !verifier.isEmpty() && decryptAes(key, {}, header.verifierHash).left(hash.size()) == hash;
    return isRight ? decryptAes(key, {}, content) : QByteArray();
}

QByteArray decryptAgile(const QByteArray &info, const QByteArray &content)
{
    AgileEncryption encryption;
    const bool isRight = encryption.read(info.mid(versionSize)) && encryption.findKey(defaultPasswordUtf16());
    return isRight ? encryption.decrypt(content) : QByteArray();
}

} // namespace

QByteArray decryptPackage(CompoundFile &file)
{
    constexpr quint16 agileVersion = 4;
    constexpr int largestInfo = 1 << 20;
    const int infoPart = file.find(QStringLiteral("EncryptionInfo"));
    const int packagePart = file.find(QStringLiteral("EncryptedPackage"));
    QByteArray info, package;
    if (infoPart < 0 || packagePart < 0 || !file.read(infoPart, &info) || info.size() < versionSize
        || info.size() > largestInfo || !file.read(packagePart, &package)) {
        return {};
    }
    quint64 size = 0;
    if (package.size() < static_cast<int>(sizeof(size))) {
        return {};
    }
    size = qFromLittleEndian<quint64>(package.constData());
    package.remove(0, sizeof(size));
    const auto major = qFromLittleEndian<quint16>(info.constData());
    const auto minor = qFromLittleEndian<quint16>(info.constData() + 2);
    const bool isAgile = major == agileVersion && minor == agileVersion;
    QByteArray archive = isAgile ? decryptAgile(info, package) : decryptStandard(info, package);
    if (size < static_cast<quint64>(archive.size())) {
        archive.truncate(static_cast<int>(size)); // the rest fills up the last block
    }
    return archive;
}

} // namespace spreadsheet
