#pragma once

#include <QByteArray>
#include <initializer_list>

namespace spreadsheet {

enum class HashKind { Md5, Sha1, Sha256, Sha384, Sha512 };

/// The hash of bytes behind each other.
QByteArray digest(HashKind kind, std::initializer_list<QByteArray> pieces);
/// Hashes the last hash behind the number of the step, 32 bits with the low byte first, over and over: what makes
/// trying passwords slow. `start` is the first hash.
QByteArray repeatedDigest(HashKind kind, const QByteArray &start, quint32 steps);
/// A number of 32 bits with the low byte first.
QByteArray littleEndian(quint32 number);

} // namespace spreadsheet
