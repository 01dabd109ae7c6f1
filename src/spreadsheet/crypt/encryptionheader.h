#pragma once

#include <QByteArray>

namespace spreadsheet {

/// What an encrypted file states of its cipher and password, in the binary form that .xls and the older .xlsx have in
/// common.
struct EncryptionHeader
{
    enum Algorithm : quint32 { Rc4 = 0x6801, Aes128 = 0x660E, Aes192 = 0x660F, Aes256 = 0x6610 };

    quint32 algorithm = 0;
    int keySize = 0; ///< bytes, 5 to 32
    QByteArray salt; ///< 16 bytes
    /// An encrypted random text of 16 bytes, and its encrypted hash: the password is right when they fit together.
    QByteArray verifier, verifierHash;

    /// Reads what stands behind version and flags; false when it isn't whole or states what no program writes.
    bool read(const QByteArray &bytes);
    /// The key of the cipher for a block, from the hash of salt and password.
    QByteArray rc4Key(const QByteArray &passwordHash, quint32 block) const;
    QByteArray aesKey(const QByteArray &passwordHash) const;
};

} // namespace spreadsheet
