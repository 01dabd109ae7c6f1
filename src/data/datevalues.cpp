#include "data/dateparser.h"
#include "data/textbuffer.h"
#include "data/values.h"
#include "settings/settings.h"

#include <QDateTime>

namespace {

/// Compiled parsers by format, kept until the default locale changes.
const DateParser &parserFor(const QString &format)
{
    constexpr int mostParsers = 100;
    static QHash<QString, std::shared_ptr<const DateParser>> parsers;
    static std::shared_ptr<const DateParser> last;
    const QLocale locale;
    if (last && last->format() == format && last->locale() == locale) {
        return *last;
    }
    std::shared_ptr<const DateParser> &parser = parsers[format];
    if (!parser || parser->locale() != locale) {
        parser = std::make_shared<const DateParser>(format);
    }
    last = parser;
    if (parsers.size() > mostParsers) {
        parsers.clear();
    }
    return *last;
}

QTime timeOf(const NumericPattern::Numbers &numbers)
{
    return QTime(numbers[NumericPattern::Hour], numbers[NumericPattern::Minute], numbers[NumericPattern::Second]);
}

} // namespace

QDate parseDate(const QString &text, const QString &format)
{
    return parserFor(format).parse(text);
}

QDate parseDate(const QString &text, const QStringList &formats, QString *matchedFormat)
{
    for (const QString &format : formats) {
        const QDate date = parseDate(text, format);
        if (date.isValid()) {
            if (matchedFormat) {
                *matchedFormat = format;
            }
            return date;
        }
    }
    return QDate();
}

QTime parseTime(const QString &text)
{
    struct Form
    {
        QString format;
        NumericPattern pattern;
    };
    static const Form forms[] = {{QStringLiteral("h:m:s"), NumericPattern::forTime(true)},
        {QStringLiteral("h:m"), NumericPattern::forTime(false)}};
    const QString trimmed = text.trimmed();
    TextBuffer bytes;
    setText(bytes, trimmed);
    for (const Form &form : forms) {
        NumericPattern::Numbers numbers;
        const auto outcome = form.pattern.match(bytes.constData(), bytes.size(), &numbers);
        if (outcome == NumericPattern::Match) {
            return timeOf(numbers);
        }
        const QTime time = outcome == NumericPattern::Unsure ? QTime::fromString(trimmed, form.format) : QTime();
        if (time.isValid()) {
            return time;
        }
    }
    return QTime();
}

QString dateText(const QDate &date)
{
    return QLocale().toString(date, QLocale::LongFormat);
}

QString dateText(const QDate &date, const QString &format)
{
    return QLocale().toString(date, format);
}

QString dateTimeText(const QDateTime &dateTime)
{
    return QLocale().toString(dateTime, QLocale::LongFormat);
}

QStringList dateFormats()
{
    return Settings::current().dateFormats();
}

QString dateFormatHelp()
{
    const QDate date(QDate::currentDate().year(), 2, 1);
    QStringList lines{QStringLiteral("Where, for %1:").arg(dateText(date))};
    for (const char *letters : {"d", "dd", "ddd", "dddd", "M", "MM", "MMM", "MMMM", "yy", "yyyy"}) {
        const QString format = QLatin1String(letters);
        lines.append(format + QLatin1Char('=') + dateText(date, format));
    }
    lines.append(QStringLiteral("Case is important."));
    return lines.join(QLatin1Char('\n'));
}
