#pragma once

#include "data/realwriter.h"

#include <QLocale>

/// Writes many numbers in one of the formats of QLocale::toString.
class NumberFormatter
{
public:
    /// `format` is one of e, E, f, g and G, or s for the shortest text that reads back as the same number.
    NumberFormatter(const QLocale &locale, char format, int precision, bool withGrouping);

    /// Replaces what `out` holds by the text in WTF-8.
    void write(double value, TextBuffer &out) const;

private:
    QString text(double value) const;

    QLocale m_locale;
    char m_format;
    int m_precision;
    bool m_withGrouping;
    bool m_isPlain;
    RealWriter m_plainWriter;
};
