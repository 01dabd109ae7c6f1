#include "data/dateparser.h"
#include "data/numberreader.h"
#include "data/values.h"
#include "data/wholenumber.h"

#include <QMap>
#include <algorithm>

namespace {

/// A text with all that the order of values asks of it.
struct SortValue
{
    QString text;
    double number = 0;
    qint64 rest = 0; ///< what a whole number lies above `number`
    bool isNumber = false;
    QDate date;
};

qint64 restOf(const QString &text, double number, const NumberReader &reader)
{
    return WholeNumber::isShared(number) ? WholeNumber::restOf(text, number, reader).value_or(0) : 0;
}

bool sortsBefore(const SortValue &a, const SortValue &b)
{
    if (a.isNumber && b.isNumber && a.number != b.number) {
        return a.number < b.number;
    }
    if (a.isNumber && b.isNumber && a.rest != b.rest) {
        return a.rest < b.rest;
    }
    if (a.date.isValid() && b.date.isValid() && a.date != b.date) {
        return a.date < b.date;
    }
    return a.text < b.text;
}

using DateKey = QPair<QString, QString>;

QMap<DateKey, QDate> &dateCache()
{
    static QMap<DateKey, QDate> cache;
    return cache;
}

QHash<QString, double> &numberCache()
{
    static QHash<QString, double> cache;
    return cache;
}

QDate cachedDate(const QString &text, const QString &format)
{
    const DateKey key(text, format);
    const auto known = dateCache().constFind(key);
    if (known != dateCache().constEnd()) {
        return *known;
    }
    const QDate date = parseDate(text, format);
    dateCache().insert(key, date);
    return date;
}

double cachedNumber(const QString &text, bool *ok)
{
    const auto known = numberCache().constFind(text);
    if (known != numberCache().constEnd()) {
        *ok = true;
        return *known;
    }
    const double number = parseNumber(text, false, true, ok);
    if (*ok) {
        numberCache().insert(text, number);
    }
    return number;
}

/// A text and the format under which it may be a date.
struct DatedText
{
    const QString &text;
    const QString &format;
};

template<class ReadDate>
bool bothDates(const DatedText &a, const DatedText &b, QDate &dateA, QDate &dateB, ReadDate readDate)
{
    if (a.format.isEmpty() || b.format.isEmpty()) {
        return false;
    }
    dateA = readDate(a.text, a.format);
    if (!dateA.isValid()) {
        return false;
    }
    dateB = readDate(b.text, b.format);
    return dateB.isValid();
}

template<class ReadNumber>
bool bothNumbers(const QString &a, const QString &b, double &numberA, double &numberB, ReadNumber readNumber)
{
    bool read = false;
    numberA = readNumber(a, &read);
    if (read) {
        numberB = readNumber(b, &read);
    }
    return read;
}

} // namespace

bool valueLess(const QString &a, const QString &b, const QString &dateFormat)
{
    bool isNumber = false;
    const NumberReader reader(false, false);
    const double numberA = reader.read(a, &isNumber);
    if (isNumber) {
        const double numberB = reader.read(b, &isNumber);
        if (isNumber && numberA != numberB) {
            return numberA < numberB;
        }
        const qint64 restOfA = isNumber ? restOf(a, numberA, reader) : 0;
        const qint64 restOfB = isNumber ? restOf(b, numberB, reader) : 0;
        if (restOfA != restOfB) {
            return restOfA < restOfB;
        }
    }
    if (!dateFormat.isEmpty()) {
        const QDate dateA = parseDate(a, dateFormat);
        const QDate dateB = dateA.isValid() ? parseDate(b, dateFormat) : QDate();
        if (dateB.isValid() && dateA != dateB) {
            return dateA < dateB;
        }
    }
    return a < b;
}

void sortValues(QStringList &values, const QString &dateFormat)
{
    const NumberReader reader(false, false);
    const DateParser parser(dateFormat);
    std::vector<SortValue> keyed;
    keyed.reserve(static_cast<size_t>(values.size()));
    for (const QString &value : qAsConst(values)) {
        SortValue entry;
        entry.text = value;
        entry.number = reader.read(value, &entry.isNumber);
        entry.rest = restOf(value, entry.number, reader);
        if (!dateFormat.isEmpty()) {
            entry.date = parser.parse(value);
        }
        keyed.push_back(std::move(entry));
    }
    // The order of a mixed list can run in a circle, which a merge sort survives and a quick sort needn't.
    std::stable_sort(keyed.begin(), keyed.end(), sortsBefore);
    int position = 0;
    for (SortValue &entry : keyed) {
        values[position++] = std::move(entry.text);
    }
}

void classifyPair(const QString &a, const QString &b, const QString &formatA, const QString &formatB, bool &isDate,
    QDate &dateA, QDate &dateB, bool &isNumber, double &numberA, double &numberB)
{
    const auto readDate = [](const QString &text, const QString &format) { return parseDate(text, format); };
    const auto readNumber = [](const QString &text, bool *ok) { return parseNumber(text, false, true, ok); };
    isDate = bothDates({a, formatA}, {b, formatB}, dateA, dateB, readDate);
    isNumber = !isDate && bothNumbers(a, b, numberA, numberB, readNumber);
}

void classifyPairCached(const QString &a, const QString &b, const QString &formatA, const QString &formatB,
    bool &isDate, QDate &dateA, QDate &dateB, bool allowNumbers, bool &isNumber, double &numberA, double &numberB)
{
    isDate = bothDates({a, formatA}, {b, formatB}, dateA, dateB, cachedDate);
    isNumber = !isDate && allowNumbers && bothNumbers(a, b, numberA, numberB, cachedNumber);
}

void clearValueCaches()
{
    dateCache().clear();
    numberCache().clear();
}
