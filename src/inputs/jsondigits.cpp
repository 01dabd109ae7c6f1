#include "inputs/jsondigits.h"

#include "data/values.h"
#include "inputs/jsonnumber.h"

#include <charconv>
#include <cmath>
#include <string>

namespace {

constexpr int longestShown = 40;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// A number as its digits, without zeros in front and behind, and the power of ten that its first digit counts.
struct Decimal
{
    std::string digits;
    qint64 power = 0;

    Decimal(const char *begin, const char *end)
    {
        bool behindPoint = false;
        const char *at = begin;
        for (; at < end && *at != 'e' && *at != 'E'; ++at) {
            behindPoint = behindPoint || *at == '.';
            if (!isDigit(*at)) {
                continue;
            }
            if (digits.empty() && *at == '0') {
                power -= behindPoint;
                continue;
            }
            power += !behindPoint;
            digits.push_back(*at);
        }
        while (!digits.empty() && digits.back() == '0') {
            digits.pop_back();
        }
        if (at < end) {
            // A sign that from_chars doesn't know, as it would end at it.
            at += at + 1 < end && at[1] == '+' ? 2 : 1;
            qint64 exponent = 0;
            std::from_chars(at, end, exponent);
            power += exponent;
        }
    }
};

} // namespace

void JsonDigits::check(const char *begin, const char *end, double value)
{
    if (std::abs(value) < limit) {
        return;
    }
    char shortest[32];
    const char *const shortestEnd = std::to_chars(shortest, shortest + sizeof shortest, value).ptr;
    const Decimal source(begin, end);
    const Decimal read(shortest, shortestEnd);
    if (source.power == read.power && source.digits == read.digits) {
        return;
    }
    m_numbers.add([&] {
        const int size = static_cast<int>(qMin<qint64>(end - begin, longestShown + 1));
        return ellipsized(QString::fromLatin1(begin, size), longestShown);
    });
}

void JsonDigits::forgetRecord()
{
    m_numbers.truncate(m_countBefore);
}

void JsonDigits::checkAll(const char *begin, const char *end)
{
    bool inside = false;
    for (const char *at = begin; at < end;) {
        if (inside) {
            inside = *at != '"';
            at += *at == '\\' ? 2 : 1;
        } else if (isDigit(*at)) {
            const char *const number = at > begin && at[-1] == '-' ? at - 1 : at;
            while (at < end && (isDigit(*at) || *at == '.' || *at == 'e' || *at == 'E' || *at == '+' || *at == '-')) {
                ++at;
            }
            double value = 0;
            if (JsonNumber::read(number, at, &value)) {
                check(number, at, value);
            }
        } else {
            inside = *at++ == '"';
        }
    }
}

QString JsonDigits::warning() const
{
    const qint64 count = m_numbers.count();
    if (count == 0) {
        return QString();
    }
    const QString others = m_numbers.others() > 0 ? QLatin1Char(' ') + m_numbers.othersLine() : QString();
    return QStringLiteral("%1 %2 above %3 read with other digits: %4%5")
        .arg(formatInteger(count, true), count == 1 ? QStringLiteral("number") : QStringLiteral("numbers"),
            formatInteger(static_cast<qlonglong>(limit), true), m_numbers.texts().join(QStringLiteral(", ")), others);
}
