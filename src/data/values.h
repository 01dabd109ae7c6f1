#pragma once

#include <QDate>
#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QTime>

// How text is read as a value and a value written as text, always by the default locale unless one is given. A text
// that doesn't read gives 0, false or an invalid date and `*ok` false; `ok` may be null. Text is trimmed first.
// Loops over rows use NumberReader, RealWriter, DateParser and DateWriter, which work on cells.

// Numbers

/// A number by the locale's decimal point and group separator. "nan", "inf" and "-inf" are no numbers.
double parseNumber(const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok = nullptr);
double parseNumber(const QLocale &locale, const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok = nullptr);
/// A whole number; zeros behind the decimal point are let pass.
qlonglong parseLongLong(const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok = nullptr);
int parseInt(const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok = nullptr);
/// The numbers among `values`, in their order.
QList<double> toNumberList(const QStringList &values, bool emptyIsOk, bool ignoreCurrency);
/// Drops every currency symbol, wherever it stands.
void removeCurrencySymbols(QString &text);
/// True for a number as JSON writes it.
bool isJsonNumber(const QString &text);

QString formatInteger(qlonglong value, bool withGrouping);
/// `decimals` -1 gives 15 significant digits, with zeros at the end unless `trimZeros`. Infinity gives "NaN".
QString formatReal(double value, bool withGrouping, int decimals, bool trimZeros);
/// The numbers in full precision without grouping, separated by commas.
QString formatRealList(const QList<double> &values);

// Booleans

/// "true" or "false" in any case; with `allowNumbers` also 0 and other numbers.
bool parseBoolean(const QString &text, bool rejectEmpty, bool allowNumbers, bool *ok = nullptr);
QString boolText(bool value);

// Dates and times

/// A date in a format of QDate::fromString; invalid when the text isn't one.
QDate parseDate(const QString &text, const QString &format);
/// The date by the first of `formats` that reads it; that format goes to `matchedFormat`, which may be null.
QDate parseDate(const QString &text, const QStringList &formats, QString *matchedFormat);
/// Hours, minutes and, where given, seconds, separated by colons.
QTime parseTime(const QString &text);
QString dateText(const QDate &date);
QString dateText(const QDate &date, const QString &format);
QString dateTimeText(const QDateTime &dateTime);
/// The date formats of the settings, in the order in which they are tried.
QStringList dateFormats();
/// Lines that explain the letters of a date format, for tool tips.
QString dateFormatHelp();

// Comparison

/// Strict order: numbers by value, dates under `dateFormat` by day, everything else and equals by code units.
bool valueLess(const QString &a, const QString &b, const QString &dateFormat);
/// Sorts by valueLess; safe for mixed lists, for which that order has cycles.
void sortValues(QStringList &values, const QString &dateFormat);
/// Says how two texts are to be compared: as dates when both read under their formats, else as numbers when both read
/// (currency symbols ignored), else as text.
void classifyPair(const QString &a, const QString &b, const QString &formatA, const QString &formatB, bool &isDate,
    QDate &dateA, QDate &dateB, bool &isNumber, double &numberA, double &numberB);
/// As classifyPair, quick for texts seen before; numbers only when `allowNumbers`.
void classifyPairCached(const QString &a, const QString &b, const QString &formatA, const QString &formatB,
    bool &isDate, QDate &dateA, QDate &dateB, bool allowNumbers, bool &isNumber, double &numberA, double &numberB);
/// Forgets what classifyPairCached has read.
void clearValueCaches();

// Text shown to a person

/// Language and country, such as "English/United States".
QString localeName(const QLocale &locale);
/// `text`, or its beginning with "…" when it is longer than `limit` characters; never longer than `limit`.
QString ellipsized(const QString &text, int limit);
