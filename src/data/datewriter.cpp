#include "data/datewriter.h"

namespace {

constexpr int longestPlain = 64;

}

DateWriter::DateWriter(const QString &format, const QLocale &locale)
    : m_format(format)
    , m_locale(locale)
{
    if (locale.zeroDigit() == QLatin1Char('0')) {
        m_pattern = NumericPattern::forDate(format);
    }
    if (m_pattern.writtenSize() > longestPlain) {
        m_pattern = NumericPattern();
    }
}

int DateWriter::writePlainly(const QDate &date, char *out) const
{
    int year = 0;
    int month = 0;
    int day = 0;
    if (m_pattern.isUsable()) {
        date.getDate(&year, &month, &day);
    }
    if (year < 1 || year > 9999) {
        return 0;
    }
    char *end = out;
    m_pattern.writeDate(year, month, day, end);
    return static_cast<int>(end - out);
}

QString DateWriter::text(const QDate &date) const
{
    char plain[longestPlain];
    const int size = writePlainly(date, plain);
    return size > 0 ? TextCoding::decode(plain, size) : m_locale.toString(date, m_format);
}

void DateWriter::write(const QDate &date, TextBuffer &out) const
{
    out.resize(longestPlain);
    const int size = writePlainly(date, out.data());
    if (size > 0) {
        out.resize(size);
        return;
    }
    setText(out, m_locale.toString(date, m_format));
}

void DateWriter::write(int year, int month, int day, TextBuffer &out) const
{
    if (!m_pattern.isUsable() || year < 1 || year > 9999) {
        write(QDate(year, month, day), out);
        return;
    }
    out.resize(longestPlain);
    char *end = out.data();
    m_pattern.writeDate(year, month, day, end);
    out.resize(static_cast<int>(end - out.data()));
}
