#pragma once

#include "spreadsheet/crypt/digest.h"

#include <QByteArray>
#include <QString>

namespace spreadsheet {

/// What an encrypted file states in XML of its cipher and password, as newer programs write it. AES with chained blocks
/// is known.
class AgileEncryption
{
public:
    /// Reads the XML; false when it states what is unknown or can't be.
    bool read(const QByteArray &xml);
    /// Finds the key of the content by a password in UTF-16; false for a wrong one.
    bool findKey(const QByteArray &password);
    /// Decrypts the content, which is encrypted in segments.
    QByteArray decrypt(const QByteArray &bytes) const;

private:
    /// A cipher and where its salts begin.
    struct Cipher
    {
        HashKind hash = HashKind::Sha1;
        int hashSize = 0, keySize = 0; // bytes
        QByteArray salt;
    };
    QByteArray keyFor(const QByteArray &passwordHash, const char *purpose) const;

    Cipher m_content, m_password;
    quint32 m_steps = 0; // of hashing the password
    QByteArray m_verifier, m_verifierHash, m_encryptedKey;
    QByteArray m_key;
};

} // namespace spreadsheet
