#pragma once

#include <QStringView>

/// Tests of numbers that end in a check digit. Digits of any script count; whitespace is skipped.
namespace CheckDigits {

bool isEan13(QStringView text);
bool isUpcA(QStringView text);
/// GTIN-8, GTIN-12, GTIN-13 or GTIN-14.
bool isGtin(QStringView text);
/// ISBN-10 or ISBN-13; dashes are skipped too.
bool isIsbn(QStringView text);
/// Ten digits or letters; small ones only count when case doesn't.
bool isAsin(QStringView text, bool caseSensitive);
/// Country, length and remainder; small letters only count when case doesn't.
bool isIban(QStringView text, bool caseSensitive);

/// The value of a decimal digit of any script, or -1.
int digitOf(QChar c);

} // namespace CheckDigits
