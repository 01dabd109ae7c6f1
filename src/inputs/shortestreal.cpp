#include "inputs/shortestreal.h"

#include "data/numberlocale.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

// Between these, both write the shortest digits in full; beyond them, what fills up long numbers may differ.
constexpr double smallestPlain = 1e-5;
constexpr double largestPlain = 1e15;

} // namespace

ShortestRealWriter::ShortestRealWriter()
{
    const std::shared_ptr<const NumberLocale> numbers = NumberLocale::of(m_locale);
    if (numbers->writesPlainly) {
        m_decimalPoint = numbers->asciiDecimalPoint;
    }
}

int ShortestRealWriter::writePlainly(double value, char *out) const
{
    const double magnitude = std::abs(value);
    if (!m_decimalPoint || !(magnitude < largestPlain) || (value == 0 && std::signbit(value))) {
        return 0;
    }
    const auto whole = static_cast<qint64>(value);
    if (static_cast<double>(whole) == value) {
        return static_cast<int>(std::to_chars(out, out + plainCapacity, whole).ptr - out);
    }
    if (magnitude < smallestPlain) {
        return 0;
    }
    const std::to_chars_result end = std::to_chars(out, out + plainCapacity, value, std::chars_format::fixed);
    if (end.ec != std::errc()) {
        return 0;
    }
    if (m_decimalPoint != '.') {
        std::replace(out, end.ptr, '.', m_decimalPoint);
    }
    return static_cast<int>(end.ptr - out);
}

QString ShortestRealWriter::textByLocale(double value) const
{
    return m_locale.toString(value, 'f', QLocale::FloatingPointShortest).remove(m_locale.groupSeparator());
}
