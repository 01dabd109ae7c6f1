#include "data/wholenumber.h"

#include "data/numberreader.h"
#include "data/numberscan.h"

namespace {

constexpr double twoTo64 = 18446744073709551616.0;
constexpr double tooLarge = 4e34; // the doubles beyond lie so far apart that a rest needn't fit into 64 bits

/// The whole number without its sign, modulo 2^64; false when anything but digits stands there.
template<class Unit>
bool takePlain(const Unit *begin, const Unit *end, bool *negative, quint64 *whole)
{
    if (!NumberScan::trim(begin, end) || begin == end) {
        return false;
    }
    *negative = *begin == '-';
    begin += *begin == '-' || *begin == '+';
    NumberScan::Digits digits;
    const bool isPlain = begin != end && NumberScan::takeDigits(begin, end, &digits) == end;
    *whole = digits.value;
    return isPlain;
}

template<class Unit, class Text>
std::optional<qint64> rest(
    const Unit *begin, const Unit *end, const Text &text, double number, const NumberReader &reader)
{
    if (std::abs(number) >= tooLarge) {
        return std::nullopt;
    }
    bool negative = false;
    quint64 whole = 0;
    if (!takePlain(begin, end, &negative, &whole)) {
        bool ok = false;
        const qint64 read = reader.readLongLong(text, &ok);
        if (!ok) {
            return std::nullopt;
        }
        negative = read < 0;
        whole = negative ? 0 - static_cast<quint64>(read) : static_cast<quint64>(read);
    }
    // The rest is small, so that it comes out right although both sides may have lost their upper digits.
    const auto nearest = static_cast<quint64>(std::fmod(std::abs(number), twoTo64));
    const auto distance = static_cast<qint64>(whole - nearest);
    return negative ? -distance : distance;
}

} // namespace

std::optional<qint64> WholeNumber::restOf(const Cell &cell, double number, const NumberReader &reader)
{
    const auto *const begin = reinterpret_cast<const uchar *>(cell.bytes());
    return rest(begin, begin + cell.size(), cell, number, reader);
}

std::optional<qint64> WholeNumber::restOf(const QString &text, double number, const NumberReader &reader)
{
    const ushort *const begin = text.utf16();
    return rest(begin, begin + text.size(), text, number, reader);
}
