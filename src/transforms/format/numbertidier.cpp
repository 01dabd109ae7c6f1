#include "transforms/format/numbertidier.h"

#include "data/textbuffer.h"

NumberTidier::NumberTidier(QChar decimal)
    : m_decimal(decimal)
    , m_decimalPoint(QLocale().decimalPoint())
    , m_group(QLocale().groupSeparator())
    , m_isAscii(m_decimal.unicode() < 128 && m_decimalPoint.unicode() < 128)
    , m_reader(false, true)
{
}

QString NumberTidier::tidied(const QString &text) const
{
    QString result;
    result.reserve(text.size());
    for (QChar c : text) {
        if (c == m_decimal) {
            result.append(m_decimalPoint);
        } else if (c.isDigit() || !(c.isSpace() || c == QLatin1Char(',') || c == QLatin1Char('.') || c == m_group)) {
            result.append(c);
        }
    }
    return result;
}

double NumberTidier::read(const Cell &cell, bool *ok) const
{
    const int size = cell.size();
    if (!m_isAscii || static_cast<quint64>(size) >= Cell::longSize || !TextCoding::isAscii(cell.bytes(), size)) {
        return m_reader.read(tidied(cell.text()), ok);
    }
    TextBuffer kept;
    kept.resize(size);
    char *end = kept.data();
    for (const char *p = cell.bytes(), *last = p + size; p < last; ++p) {
        const QChar c = QLatin1Char(*p);
        if (c == m_decimal) {
            *end++ = m_decimalPoint.toLatin1();
        } else if (!(c.isSpace() || *p == ',' || *p == '.' || c == m_group)) {
            *end++ = *p;
        }
    }
    const int keptSize = static_cast<int>(end - kept.data());
    return m_reader.read(keptSize <= Cell::inlineCapacity ? Cell::inlined(kept.constData(), keptSize)
                                                          : Cell::pointing(kept.constData(), keptSize),
        ok);
}
