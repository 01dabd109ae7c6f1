#pragma once

#include <memory>
#include <string_view>
#include <vector>

struct z_stream_s;

namespace spreadsheet {

/// A part on its way into an archive: takes its bytes piece by piece and keeps them deflated. Throws std::bad_alloc
/// when memory ends.
class DeflatedPart
{
public:
    struct Piece
    {
        std::unique_ptr<unsigned char[]> bytes;
        size_t size = 0;
    };

    DeflatedPart();
    ~DeflatedPart();
    DeflatedPart(DeflatedPart &&other) noexcept;
    DeflatedPart &operator=(DeflatedPart &&other) noexcept;

    void write(std::string_view bytes);
    /// Once, behind the last byte.
    void finish();

    unsigned long crc() const { return m_crc; }
    /// Bytes before and after.
    unsigned long long size() const { return m_size; }
    unsigned long long packedSize() const;
    const std::vector<Piece> &pieces() const { return m_pieces; }

private:
    void deflatePending(int flush);

    std::unique_ptr<z_stream_s> m_stream;
    std::vector<Piece> m_pieces;
    unsigned long m_crc = 0;
    unsigned long long m_size = 0;
};

} // namespace spreadsheet
