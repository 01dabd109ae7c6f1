#include "spreadsheet/xls/xorcipher.h"

namespace spreadsheet {
namespace {

constexpr int usedBits = 7; // of each character

unsigned turned(unsigned value, int by, int width)
{
    const unsigned mask = (1u << width) - 1;
    return ((value << by) | (value >> (width - by))) & mask;
}

/// The next state of a shift register.
unsigned shifted(unsigned state)
{
    constexpr unsigned taps = 0x1020;
    const unsigned next = turned(state, 1, 16);
    return next & 1 ? next ^ taps : next;
}

/// From the last character to the first, the bits of each from the lowest on choose states of the register.
quint16 keyOf(const QByteArray &password)
{
    unsigned key = 0, state = 0x8000, end = 0xFFFF;
    for (int i = password.size() - 1; i >= 0; --i) {
        unsigned character = static_cast<uchar>(password.at(i)) & 0x7F;
        for (int bit = 0; bit < usedBits + 1; ++bit, character >>= 1) {
            state = shifted(state);
            key ^= character & 1 ? state : 0;
            end = shifted(end);
        }
    }
    return static_cast<quint16>(key ^ end);
}

quint16 sumOf(const QByteArray &password)
{
    constexpr unsigned constant = 0xCE4B;
    constexpr int width = 15;
    unsigned sum = static_cast<unsigned>(password.size()) ^ constant;
    for (int i = 0; i < password.size(); ++i) {
        sum ^= turned(static_cast<uchar>(password.at(i)), (i + 1) % width, width);
    }
    return static_cast<quint16>(sum);
}

} // namespace

XorCipher::XorCipher(const QByteArray &password)
    : m_key(keyOf(password))
    , m_sum(sumOf(password))
{
    static const QByteArray filler = QByteArray::fromHex("bbffffbaffffb98000be0f00bf0f00");
    const QByteArray filled = password + filler;
    for (int i = 0; i < period; ++i) {
        const unsigned ofKey = i % 2 == 0 ? m_key & 0xFF : m_key >> 8;
        const unsigned mixed = (static_cast<uchar>(filled.at(i)) ^ ofKey) & 0xFF;
        m_bytes[static_cast<size_t>(i)] = static_cast<quint8>(turned(mixed, 2, 8));
    }
}

void XorCipher::decrypt(uchar *bytes, quint32 size, quint32 offset, quint32 recordSize)
{
    for (quint32 i = 0; i < size; ++i) {
        bytes[i] = static_cast<uchar>(turned(bytes[i], 3, 8) ^ m_bytes[(offset + recordSize + i) % period]);
    }
}

} // namespace spreadsheet
