#include "spreadsheet/xlsx/write/deflatedpart.h"

#include <algorithm>
#include <new>
#include <zlib.h>

namespace spreadsheet {
namespace {

constexpr size_t pieceSize = 32 << 10;
constexpr size_t mostAtOnce = 1 << 30; // zlib counts in unsigned int
constexpr int rawDeflate = -15;
constexpr int mostMemory = 9;

} // namespace

DeflatedPart::DeflatedPart()
    : m_stream(new z_stream_s())
    , m_crc(crc32(0, nullptr, 0))
{
    // Rows of cells: higher levels take twice the time for a twentieth of size.
    constexpr int level = 2;
    if (deflateInit2(m_stream.get(), level, Z_DEFLATED, rawDeflate, mostMemory, Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::bad_alloc();
    }
}

DeflatedPart::~DeflatedPart()
{
    if (m_stream) {
        deflateEnd(m_stream.get());
    }
}

DeflatedPart::DeflatedPart(DeflatedPart &&other) noexcept = default;

DeflatedPart &DeflatedPart::operator=(DeflatedPart &&other) noexcept
{
    std::swap(m_stream, other.m_stream);
    m_pieces.swap(other.m_pieces);
    std::swap(m_crc, other.m_crc);
    std::swap(m_size, other.m_size);
    return *this;
}

void DeflatedPart::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::string_view now = bytes.substr(0, mostAtOnce);
        bytes.remove_prefix(now.size());
        m_stream->next_in = reinterpret_cast<Bytef *>(const_cast<char *>(now.data()));
        m_stream->avail_in = static_cast<uInt>(now.size());
        m_crc = crc32(m_crc, m_stream->next_in, m_stream->avail_in);
        m_size += now.size();
        deflatePending(Z_NO_FLUSH);
    }
}

void DeflatedPart::finish()
{
    m_stream->avail_in = 0;
    deflatePending(Z_FINISH);
    deflateEnd(m_stream.get());
    m_stream.reset();
}

unsigned long long DeflatedPart::packedSize() const
{
    unsigned long long size = 0;
    for (const Piece &piece : m_pieces) {
        size += piece.size;
    }
    return size;
}

void DeflatedPart::deflatePending(int flush)
{
    do {
        if (m_pieces.empty() || m_pieces.back().size == pieceSize) {
            m_pieces.push_back({std::make_unique<unsigned char[]>(pieceSize), 0});
        }
        Piece &piece = m_pieces.back();
        m_stream->next_out = piece.bytes.get() + piece.size;
        m_stream->avail_out = static_cast<uInt>(pieceSize - piece.size);
        if (deflate(m_stream.get(), flush) == Z_STREAM_ERROR) {
            throw std::bad_alloc();
        }
        piece.size = pieceSize - m_stream->avail_out;
    } while (m_stream->avail_out == 0);
}

} // namespace spreadsheet
