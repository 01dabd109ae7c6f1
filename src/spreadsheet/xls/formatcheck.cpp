#include "spreadsheet/xls/formatcheck.h"

namespace spreadsheet {

/// For the polynomial 0xAF, of which only the lower half of each entry is kept.
std::array<quint32, 256> FormatCheck::makeTable()
{
    std::array<quint32, 256> table{};
    for (quint32 i = 0; i < table.size(); ++i) {
        quint32 value = i << 24;
        for (int bit = 0; bit < 8; ++bit) {
            value = value & 0x80000000 ? (value << 1) ^ 0xAF : value << 1;
        }
        table[i] = value & 0xFFFF;
    }
    return table;
}

void FormatCheck::add(const uchar *data, quint32 size)
{
    static const std::array<quint32, 256> table = makeTable();
    for (quint32 i = 0; i < size; ++i) {
        m_sum = (m_sum << 8) ^ table[(m_sum >> 24) ^ data[i]];
    }
    ++m_count;
}

} // namespace spreadsheet
