#include "data/values.h"

#include "data/numberlocale.h"
#include "data/numberreader.h"
#include "data/numberscan.h"
#include "data/realwriter.h"

#include <algorithm>

namespace {

/// The reader for the default locale with these rules, made anew only when that locale has changed.
const NumberReader &defaultReader(bool emptyIsOk, bool ignoreCurrency)
{
    static NumberReader readers[] = {{false, false}, {false, true}, {true, false}, {true, true}};
    const QLocale locale;
    if (readers[0].locale() != locale) {
        for (int i = 0; i < 4; ++i) {
            readers[i] = NumberReader(locale, i & 2, i & 1);
        }
    }
    return readers[(emptyIsOk ? 2 : 0) + (ignoreCurrency ? 1 : 0)];
}

bool report(bool value, bool success, bool *ok)
{
    if (ok) {
        *ok = success;
    }
    return value;
}

} // namespace

double parseNumber(const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok)
{
    return defaultReader(emptyIsOk, ignoreCurrency).read(text, ok);
}

double parseNumber(const QLocale &locale, const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok)
{
    return NumberReader(locale, emptyIsOk, ignoreCurrency).read(text, ok);
}

qlonglong parseLongLong(const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok)
{
    return defaultReader(emptyIsOk, ignoreCurrency).readLongLong(text, ok);
}

int parseInt(const QString &text, bool emptyIsOk, bool ignoreCurrency, bool *ok)
{
    return defaultReader(emptyIsOk, ignoreCurrency).readInt(text, ok);
}

QList<double> toNumberList(const QStringList &values, bool emptyIsOk, bool ignoreCurrency)
{
    const NumberReader reader(emptyIsOk, ignoreCurrency);
    QList<double> numbers;
    numbers.reserve(values.size());
    for (const QString &value : values) {
        bool ok = false;
        const double number = reader.read(value, &ok);
        if (ok) {
            numbers.append(number);
        }
    }
    return numbers;
}

void removeCurrencySymbols(QString &text)
{
    const auto isCurrency = [](QChar c) { return c.category() == QChar::Symbol_Currency; };
    if (std::any_of(text.cbegin(), text.cend(), isCurrency)) {
        const auto end = std::remove_if(text.begin(), text.end(), isCurrency);
        text.truncate(static_cast<int>(end - text.begin()));
    }
}

bool isJsonNumber(const QString &text)
{
    const QString trimmed = text.trimmed();
    const ushort *const begin = trimmed.utf16();
    return NumberScan::isJsonNumber(begin, begin + trimmed.size());
}

QString formatInteger(qlonglong value, bool withGrouping)
{
    const QLocale locale;
    if (withGrouping) {
        return locale.toString(value);
    }
    return NumberLocale::of(locale)->writesPlainly ? QString::number(value)
                                                   : locale.toString(value).remove(locale.groupSeparator());
}

QString formatReal(double value, bool withGrouping, int decimals, bool trimZeros)
{
    return RealWriter(withGrouping, decimals, trimZeros).text(value);
}

QString formatRealList(const QList<double> &values)
{
    const RealWriter writer;
    QStringList texts;
    texts.reserve(values.size());
    for (double value : values) {
        texts.append(writer.text(value));
    }
    return texts.join(QLatin1Char(','));
}

bool parseBoolean(const QString &text, bool rejectEmpty, bool allowNumbers, bool *ok)
{
    const QString lower = text.trimmed().toLower();
    if (rejectEmpty && lower.isEmpty()) {
        return report(false, false, ok);
    }
    if (lower == QLatin1String("true")) {
        return report(true, true, ok);
    }
    if (lower == QLatin1String("false")) {
        return report(false, true, ok);
    }
    if (!allowNumbers) {
        return report(false, false, ok);
    }
    bool isNumber = false;
    const double number = parseNumber(lower, false, false, &isNumber);
    return report(isNumber && number != 0, isNumber, ok);
}

QString boolText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString localeName(const QLocale &locale)
{
    return QLocale::languageToString(locale.language()) + QLatin1Char('/') + QLocale::countryToString(locale.country());
}

QString ellipsized(const QString &text, int limit)
{
    if (text.size() <= limit) {
        return text;
    }
    int kept = qMax(0, limit - 1);
    if (kept > 0 && text.at(kept - 1).isHighSurrogate()) {
        --kept; // half a character shows as a box
    }
    return limit > 0 ? text.left(kept) + QChar(0x2026) : QString();
}
