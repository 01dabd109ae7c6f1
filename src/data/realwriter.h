#pragma once

#include "data/textbuffer.h"

#include <QLocale>

/// Writes many numbers as text, exactly as formatReal does under the default locale at the time of construction.
class RealWriter
{
public:
    explicit RealWriter(bool withGrouping = false, int decimals = -1, bool trimZeros = true);

    QString text(double value) const;
    /// Replaces what `out` holds by the text in WTF-8.
    void write(double value, TextBuffer &out) const;

private:
    int writePlainly(double value, char *out) const;
    int decimalsFor(double value) const;
    QString textByLocale(double value) const;

    QLocale m_locale;
    int m_decimals;
    bool m_withGrouping;
    bool m_trimZeros;
    char m_plainDecimalPoint = 0; ///< 0 when the locale writes other digits or signs than ASCII's
};
