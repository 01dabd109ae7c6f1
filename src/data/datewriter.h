#pragma once

#include "data/numericpattern.h"
#include "data/textbuffer.h"

#include <QDate>
#include <QLocale>

/// Writes many dates in one format, exactly as QLocale::toString does.
class DateWriter
{
public:
    explicit DateWriter(const QString &format, const QLocale &locale = QLocale());

    QString text(const QDate &date) const;
    /// Replaces what `out` holds by the text in WTF-8.
    void write(const QDate &date, TextBuffer &out) const;
    /// The same for a day of the Gregorian calendar that exists.
    void write(int year, int month, int day, TextBuffer &out) const;

private:
    int writePlainly(const QDate &date, char *out) const;

    QString m_format;
    QLocale m_locale;
    NumericPattern m_pattern;
};
