#pragma once

#include <QByteArray>

namespace spreadsheet {

enum class Decryption {
    NotNeeded,
    Decrypted,
    Refused ///< encrypted with a password of its own, or in a way that is unknown
};

/// Decrypts the stream of a workbook in place when it is encrypted with the default password. The version is that of
/// its BOF records.
Decryption decryptWorkbook(quint16 version, QByteArray *stream);

} // namespace spreadsheet
