#include "data/numberreader.h"

#include "data/numberlocale.h"
#include "data/numberscan.h"
#include "data/values.h"

#include <algorithm>
#include <limits>

namespace {

template<class Value>
Value report(Value value, bool success, bool *ok)
{
    if (ok) {
        *ok = success;
    }
    return success ? value : Value();
}

const uchar *asUnits(const char *bytes)
{
    return reinterpret_cast<const uchar *>(bytes);
}

} // namespace

NumberReader::NumberReader(bool emptyIsOk, bool ignoreCurrency)
    : NumberReader(QLocale(), emptyIsOk, ignoreCurrency)
{
}

NumberReader::NumberReader(const QLocale &locale, bool emptyIsOk, bool ignoreCurrency)
    : m_locale(NumberLocale::of(locale))
    , m_emptyIsOk(emptyIsOk)
    , m_ignoreCurrency(ignoreCurrency)
{
}

const QLocale &NumberReader::locale() const
{
    return m_locale->locale;
}

template<class Unit, class Value, class Plain, class Slow>
Value NumberReader::readUnits(const Unit *begin, const Unit *end, bool *ok, Plain plain, Slow slow) const
{
    if (!m_locale->readsPlainly || !NumberScan::trim(begin, end)) {
        return slow();
    }
    if (begin == end) {
        return report(Value(), m_emptyIsOk, ok);
    }
    if (NumberScan::isAsciiLetter(*begin)) {
        // A number begins with no letter, but a currency symbol may hide one of the words that read as numbers.
        const uint letter = static_cast<uint>(*begin) | 0x20;
        return m_ignoreCurrency && (letter == 'n' || letter == 'i') ? slow() : report(Value(), false, ok);
    }
    if (m_ignoreCurrency && *begin == '$' && end - begin > 1 && NumberScan::isDigit(begin[1])) {
        ++begin;
    }
    Value value = Value();
    const NumberScan::Outcome outcome = plain(begin, end, m_locale->asciiDecimalPoint, &value);
    return outcome == NumberScan::Unsure ? slow() : report(value, outcome == NumberScan::Number, ok);
}

double NumberReader::read(const Cell &cell, bool *ok) const
{
    const uchar *const begin = asUnits(cell.bytes());
    return readUnits<uchar, double>(
        begin, begin + cell.size(), ok, NumberScan::readReal<uchar>, [&] { return readSlowly(cell.text(), ok); });
}

double NumberReader::read(const QString &text, bool *ok) const
{
    const ushort *const begin = text.utf16();
    return readUnits<ushort, double>(
        begin, begin + text.size(), ok, NumberScan::readReal<ushort>, [&] { return readSlowly(text, ok); });
}

qlonglong NumberReader::readLongLong(const Cell &cell, bool *ok) const
{
    const uchar *const begin = asUnits(cell.bytes());
    return readUnits<uchar, qlonglong>(
        begin, begin + cell.size(), ok, NumberScan::readWhole<uchar>, [&] { return readWholeSlowly(cell.text(), ok); });
}

qlonglong NumberReader::readLongLong(const QString &text, bool *ok) const
{
    const ushort *const begin = text.utf16();
    return readUnits<ushort, qlonglong>(
        begin, begin + text.size(), ok, NumberScan::readWhole<ushort>, [&] { return readWholeSlowly(text, ok); });
}

int NumberReader::readInt(const Cell &cell, bool *ok) const
{
    bool read = false;
    const qlonglong value = readLongLong(cell, &read);
    return toInt(value, read, ok);
}

int NumberReader::readInt(const QString &text, bool *ok) const
{
    bool read = false;
    const qlonglong value = readLongLong(text, &read);
    return toInt(value, read, ok);
}

int NumberReader::toInt(qlonglong value, bool read, bool *ok)
{
    const bool fits = value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
    return report(static_cast<int>(fits ? value : 0), read && fits, ok);
}

double NumberReader::readSlowly(const QString &text, bool *ok) const
{
    QString number = text.trimmed();
    const QString lower = number.toLower();
    if (lower == QLatin1String("nan") || lower == QLatin1String("inf") || lower == QLatin1String("-inf")) {
        return report(0.0, false, ok);
    }
    if (m_ignoreCurrency) {
        removeCurrencySymbols(number);
    }
    if (number.isEmpty()) {
        return report(0.0, m_emptyIsOk, ok);
    }
    bool read = false;
    const double value = m_locale->locale.toDouble(number, &read);
    return report(value, read, ok);
}

qlonglong NumberReader::readWholeSlowly(const QString &text, bool *ok) const
{
    QString number = text.trimmed();
    if (m_ignoreCurrency) {
        removeCurrencySymbols(number);
    }
    if (number.isEmpty()) {
        return report(0LL, m_emptyIsOk, ok);
    }
    const int point = number.lastIndexOf(m_locale->decimalPoint);
    const auto isZero = [](QChar c) { return c == QLatin1Char('0'); };
    if (point >= 0 && std::all_of(number.cbegin() + point + 1, number.cend(), isZero)) {
        number.truncate(point);
    }
    bool read = false;
    const qlonglong value = m_locale->locale.toLongLong(number, &read);
    return report(value, read, ok);
}
