#pragma once

#include <QLocale>
#include <memory>

/// What the plain paths for numbers need to know of a locale, worked out once.
class NumberLocale
{
public:
    explicit NumberLocale(const QLocale &numberLocale);

    /// The one of `locale`, or of the default locale; shared with the last caller of the same locale.
    static std::shared_ptr<const NumberLocale> of(const QLocale &locale);

    const QLocale locale;
    const QChar decimalPoint;
    const bool readsPlainly;      ///< ASCII digits, signs and exponents read as everywhere
    const bool writesPlainly;     ///< digits and signs are ASCII's
    const char asciiDecimalPoint; ///< 0 when the decimal point isn't ASCII
};
