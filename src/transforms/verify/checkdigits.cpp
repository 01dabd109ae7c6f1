#include "transforms/verify/checkdigits.h"

#include "transforms/verify/ibanlengths.h"

#include <array>

namespace CheckDigits {

namespace {

constexpr int mostDigits = 14;

/// The digits of a text; `count` is -1 when it holds anything else or too many.
struct DigitSequence
{
    std::array<int, mostDigits> values{};
    int count = 0;

    void add(int value)
    {
        if (count >= 0 && count < mostDigits) {
            values[static_cast<size_t>(count++)] = value;
        } else {
            count = -1;
        }
    }
    int at(int i) const { return values[static_cast<size_t>(i)]; }
};

DigitSequence digitsOf(QStringView text)
{
    DigitSequence digits;
    for (QChar c : text) {
        const int digit = digitOf(c);
        if (digit >= 0) {
            digits.add(digit);
        } else if (!c.isSpace()) {
            digits.count = -1;
        }
        if (digits.count < 0) {
            break;
        }
    }
    return digits;
}

/// The last digit makes the sum of all, weighted by turns from the left, a multiple of 10.
bool hasCheckDigit(const DigitSequence &digits, int firstWeight, int secondWeight)
{
    int sum = 0;
    for (int i = 0; i < digits.count - 1; ++i) {
        sum += digits.at(i) * (i % 2 == 0 ? firstWeight : secondWeight);
    }
    return digits.at(digits.count - 1) == (10 - sum % 10) % 10;
}

bool isIsbn10(const DigitSequence &digits)
{
    int sum = 0;
    for (int i = 0; i < 10; ++i) {
        sum += digits.at(i) * (10 - i);
    }
    return sum % 11 == 0;
}

bool isIsbn13(const DigitSequence &digits)
{
    const bool isBook = digits.at(0) == 9 && digits.at(1) == 7 && (digits.at(2) == 8 || digits.at(2) == 9);
    return isBook && hasCheckDigit(digits, 1, 3);
}

/// 0 to 35 for a digit or a letter, -1 for anything else.
int letterOrDigit(QChar c, bool caseSensitive)
{
    if (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) {
        return c.unicode() - 'A' + 10;
    }
    if (!caseSensitive && c >= QLatin1Char('a') && c <= QLatin1Char('z')) {
        return c.unicode() - 'a' + 10;
    }
    return digitOf(c);
}

} // namespace

int digitOf(QChar c)
{
    if (c.unicode() <= 127) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9') ? c.unicode() - '0' : -1;
    }
    return c.category() == QChar::Number_DecimalDigit ? c.digitValue() : -1;
}

bool isEan13(QStringView text)
{
    const DigitSequence digits = digitsOf(text);
    return digits.count == 13 && hasCheckDigit(digits, 1, 3);
}

bool isUpcA(QStringView text)
{
    const DigitSequence digits = digitsOf(text);
    return digits.count == 12 && hasCheckDigit(digits, 3, 1);
}

bool isGtin(QStringView text)
{
    const DigitSequence digits = digitsOf(text);
    switch (digits.count) {
    case 8:
    case 12:
    case 14:
        return hasCheckDigit(digits, 3, 1);
    case 13:
        // Counted as 14 digits with a zero in front.
        return hasCheckDigit(digits, 1, 3);
    default:
        return false;
    }
}

bool isIsbn(QStringView text)
{
    DigitSequence digits;
    bool hasTen = false;
    for (QChar c : text) {
        const int digit = digitOf(c);
        if (digit >= 0) {
            digits.add(digit);
        } else if ((c == QLatin1Char('x') || c == QLatin1Char('X')) && digits.count == 9) {
            digits.add(10);
            hasTen = true;
        } else if (!c.isSpace() && c.category() != QChar::Punctuation_Dash) {
            return false;
        }
    }
    return digits.count == 10 ? isIsbn10(digits) : digits.count == 13 && !hasTen && isIsbn13(digits);
}

bool isAsin(QStringView text, bool caseSensitive)
{
    int count = 0;
    for (QChar c : text) {
        if (letterOrDigit(c, caseSensitive) >= 0) {
            ++count;
        } else if (!c.isSpace()) {
            return false;
        }
    }
    return count == 10;
}

bool isIban(QStringView text, bool caseSensitive)
{
    constexpr int longest = 34;
    constexpr int moved = 4; // country and check digits go to the end
    std::array<int, longest> values{};
    int count = 0;
    for (QChar c : text) {
        const int value = letterOrDigit(c, caseSensitive);
        if (value >= 0 && count < longest) {
            values[static_cast<size_t>(count++)] = value;
        } else if (value >= 0 || !c.isSpace()) {
            return false;
        }
    }
    if (count < moved || values[0] < 10 || values[1] < 10
        || count != ibanLength(static_cast<char>('A' + values[0] - 10), static_cast<char>('A' + values[1] - 10))) {
        return false;
    }
    int remainder = 0;
    for (int i = 0; i < count; ++i) {
        const int value = values[static_cast<size_t>((i + moved) % count)];
        remainder = (remainder * (value < 10 ? 10 : 100) + value) % 97;
    }
    return remainder == 1;
}

} // namespace CheckDigits
