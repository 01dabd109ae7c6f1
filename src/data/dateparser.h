#pragma once

#include "data/cell.h"
#include "data/numericpattern.h"

#include <QDate>
#include <QHash>
#include <QLocale>

/// Reads many texts as dates of one format; gives what QDate::fromString gives for the trimmed text. Formats of day,
/// month and year in digits are read without it; what it gives for others is remembered, so the default locale, whose
/// digits it reads too, must stay while the parser is in use.
class DateParser
{
public:
    explicit DateParser(const QString &format);

    /// An invalid date when the text isn't one.
    QDate parse(const Cell &cell) const { return parseBytes(cell.bytes(), cell.size()); }
    QDate parse(const QString &text) const;
    const QString &format() const { return m_format; }
    const QLocale &locale() const { return m_locale; }

private:
    QDate parseBytes(const char *bytes, int size) const;
    QDate parseSlowly(const char *bytes, int size) const;

    QString m_format;
    QLocale m_locale;
    NumericPattern m_pattern;
    mutable QHash<QByteArray, QDate> m_memory;
};

/// Reads texts by the first of several formats that fits.
class DateListParser
{
public:
    explicit DateListParser(const QStringList &formats);

    /// `matched`, which may be null, takes the position of the format; it is left alone when none fits.
    QDate parse(const Cell &cell, int *matched = nullptr) const;
    const QString &format(int position) const { return m_parsers.at(static_cast<size_t>(position)).format(); }

private:
    std::vector<DateParser> m_parsers;
};
