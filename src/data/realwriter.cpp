#include "data/realwriter.h"

#include "data/numberlocale.h"
#include "data/textcoding.h"

#include <cmath>
#include <cstring>

namespace {

__extension__ using Wide = unsigned __int128;

constexpr int significantDigits = 15;
constexpr int plainCapacity = 64;
constexpr double largestPlain = 9e18;

constexpr quint64 integerPowers[significantDigits + 1] = {1ULL, 10ULL, 100ULL, 1000ULL, 10000ULL, 100000ULL, 1000000ULL,
    10000000ULL, 100000000ULL, 1000000000ULL, 10000000000ULL, 100000000000ULL, 1000000000000ULL, 10000000000000ULL,
    100000000000000ULL, 1000000000000000ULL};

/// `fraction`, from 0 to below 1, times a power of ten, rounded half up; exact.
quint64 scaledFraction(double fraction, int decimals)
{
    quint64 bits;
    std::memcpy(&bits, &fraction, sizeof bits);
    const auto exponent = static_cast<int>(bits >> 52);
    const int shift = 1075 - exponent;
    if (exponent == 0 || shift > 126) {
        return 0; // below half a unit of the 15th decimal
    }
    const quint64 mantissa = (bits & ((1ULL << 52) - 1)) | 1ULL << 52;
    const Wide scaled = static_cast<Wide>(mantissa) * integerPowers[decimals];
    return static_cast<quint64>((scaled + (static_cast<Wide>(1) << (shift - 1))) >> shift);
}

char *writeDigits(quint64 value, int width, char *out)
{
    for (int i = width; i-- > 0; value /= 10) {
        out[i] = static_cast<char>('0' + value % 10);
    }
    return out + width;
}

int digitCount(quint64 value)
{
    int count = 1;
    for (; value >= 10; value /= 10) {
        ++count;
    }
    return count;
}

} // namespace

RealWriter::RealWriter(bool withGrouping, int decimals, bool trimZeros)
    : m_decimals(decimals)
    , m_withGrouping(withGrouping)
    , m_trimZeros(trimZeros)
{
    const std::shared_ptr<const NumberLocale> numbers = NumberLocale::of(m_locale);
    if (numbers->writesPlainly && !withGrouping && decimals >= -1 && decimals <= significantDigits) {
        m_plainDecimalPoint = numbers->asciiDecimalPoint;
    }
}

int RealWriter::decimalsFor(double value) const
{
    if (m_decimals != -1) {
        return m_decimals;
    }
    const double magnitude = value == 0 ? 0 : std::ceil(std::log10(std::abs(value)));
    return qBound(0, significantDigits - qMax(0, static_cast<int>(magnitude)), significantDigits);
}

int RealWriter::writePlainly(double value, char *out) const
{
    const double magnitude = std::abs(value);
    if (!m_plainDecimalPoint || !(magnitude < largestPlain)) {
        return 0;
    }
    int decimals = decimalsFor(value);
    auto whole = static_cast<quint64>(magnitude);
    quint64 fraction = scaledFraction(magnitude - static_cast<double>(whole), decimals);
    if (fraction == integerPowers[decimals]) {
        ++whole;
        fraction = 0;
    }
    char *p = out;
    if (std::signbit(value) && (whole || fraction)) {
        *p++ = '-';
    }
    p = writeDigits(whole, digitCount(whole), p);
    if (m_trimZeros) {
        while (decimals > 0 && fraction % 10 == 0) {
            fraction /= 10;
            --decimals;
        }
    }
    if (decimals > 0) {
        *p++ = m_plainDecimalPoint;
        p = writeDigits(fraction, decimals, p);
    }
    return static_cast<int>(p - out);
}

QString RealWriter::textByLocale(double value) const
{
    const QString notANumber = QStringLiteral("NaN");
    if (!std::isfinite(value)) {
        return notANumber;
    }
    QString text = m_locale.toString(value, 'f', decimalsFor(value));
    const QChar decimalPoint = m_locale.decimalPoint();
    if (m_trimZeros && text.contains(decimalPoint)) {
        int end = text.size();
        while (end > 0 && text.at(end - 1) == QLatin1Char('0')) {
            --end;
        }
        if (end > 0 && text.at(end - 1) == decimalPoint) {
            --end;
        }
        text.truncate(end);
    }
    if (!m_withGrouping) {
        text.remove(m_locale.groupSeparator());
    }
    const bool hasSign = text.startsWith(QLatin1Char('-')) || text.startsWith(m_locale.negativeSign());
    if (std::signbit(value) && text.size() > 1 && hasSign) {
        bool ok = false;
        if (m_locale.toDouble(text, &ok) == 0 && ok) {
            text.remove(0, 1);
        }
    }
    return text;
}

QString RealWriter::text(double value) const
{
    char plain[plainCapacity];
    const int size = writePlainly(value, plain);
    return size > 0 ? QString::fromLatin1(plain, size) : textByLocale(value);
}

void RealWriter::write(double value, TextBuffer &out) const
{
    out.resize(plainCapacity);
    const int size = writePlainly(value, out.data());
    if (size > 0) {
        out.resize(size);
        return;
    }
    setText(out, textByLocale(value));
}
