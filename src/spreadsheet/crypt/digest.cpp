#include "spreadsheet/crypt/digest.h"

#include <QtEndian>
#include <nettle/nettle-meta.h>
#include <vector>

namespace spreadsheet {
namespace {

const nettle_hash &hashOf(HashKind kind)
{
    switch (kind) {
    case HashKind::Md5:
        return nettle_md5;
    case HashKind::Sha1:
        return nettle_sha1;
    case HashKind::Sha256:
        return nettle_sha256;
    case HashKind::Sha384:
        return nettle_sha384;
    case HashKind::Sha512:
        break;
    }
    return nettle_sha512;
}

/// Room for the state of a hash, aligned for any.
using State = std::vector<std::max_align_t>;

State stateFor(const nettle_hash &hash)
{
    return State(hash.context_size / sizeof(std::max_align_t) + 1);
}

uint8_t *bytesOf(QByteArray &bytes)
{
    return reinterpret_cast<uint8_t *>(bytes.data());
}

const uint8_t *bytesOf(const QByteArray &bytes)
{
    return reinterpret_cast<const uint8_t *>(bytes.constData());
}

} // namespace

QByteArray digest(HashKind kind, std::initializer_list<QByteArray> pieces)
{
    const nettle_hash &hash = hashOf(kind);
    State state = stateFor(hash);
    hash.init(state.data());
    for (const QByteArray &piece : pieces) {
        hash.update(state.data(), static_cast<size_t>(piece.size()), bytesOf(piece));
    }
    QByteArray result(static_cast<int>(hash.digest_size), '\0');
    hash.digest(state.data(), hash.digest_size, bytesOf(result));
    return result;
}

QByteArray repeatedDigest(HashKind kind, const QByteArray &start, quint32 steps)
{
    const nettle_hash &hash = hashOf(kind);
    State state = stateFor(hash);
    QByteArray last = start;
    last.resize(static_cast<int>(hash.digest_size));
    uint8_t *bytes = bytesOf(last);
    for (quint32 step = 0; step < steps; ++step) {
        const quint32 number = qToLittleEndian(step);
        hash.init(state.data());
        hash.update(state.data(), sizeof(number), reinterpret_cast<const uint8_t *>(&number));
        hash.update(state.data(), hash.digest_size, bytes);
        hash.digest(state.data(), hash.digest_size, bytes);
    }
    return last;
}

QByteArray littleEndian(quint32 number)
{
    const quint32 turned = qToLittleEndian(number);
    return {reinterpret_cast<const char *>(&turned), sizeof(turned)};
}

} // namespace spreadsheet
