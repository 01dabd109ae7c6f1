#pragma once

#include <QLocale>

/// Writes many numbers with the fewest digits that read back as the same number, never with an exponent and without
/// grouping: what QLocale().toString(value, 'f', QLocale::FloatingPointShortest) gives less its group separators.
class ShortestRealWriter
{
public:
    /// Most bytes that writePlainly() writes.
    static constexpr int plainCapacity = 48;

    ShortestRealWriter();

    /// Writes the text of an everyday number under an everyday locale and returns its size; 0 for all others.
    int writePlainly(double value, char *out) const;
    /// The text of any number, by way of the locale.
    QString textByLocale(double value) const;

private:
    const QLocale m_locale;
    char m_decimalPoint = 0; // 0 when the locale writes other digits or signs than ASCII's
};
