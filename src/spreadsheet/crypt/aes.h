#pragma once

#include <QByteArray>

namespace spreadsheet {

constexpr int aesBlockSize = 16;

/// Decrypts whole blocks with a key of 16, 24 or 32 bytes; what is left over at the end stays as it is. Each block for
/// itself with an empty `start`, else chained to the one before, of which `start` is the first. Empty for a key or a
/// start of another size.
QByteArray decryptAes(const QByteArray &key, const QByteArray &start, const QByteArray &bytes);

} // namespace spreadsheet
