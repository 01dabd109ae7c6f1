#include "transforms/format/numberformatter.h"

#include <QString>
#include <cmath>

static constexpr int mostPlainDecimals = 15;

NumberFormatter::NumberFormatter(const QLocale &locale, char format, int precision, bool withGrouping)
    : m_locale(locale)
    , m_format(format == 's' ? 'f' : format)
    , m_precision(format == 's' ? QLocale::FloatingPointShortest : precision)
    , m_withGrouping(withGrouping)
    , m_isPlain(format == 'f' && precision <= mostPlainDecimals && !withGrouping && locale == QLocale())
    , m_plainWriter(false, m_isPlain ? precision : 0, false)
{
}

void NumberFormatter::write(double value, TextBuffer &out) const
{
    if (m_isPlain && std::isfinite(value)) { // infinity has words of its own

        m_plainWriter.write(value, out);
    } else {
        setText(out, text(value));
    }
}

QString NumberFormatter::text(double value) const
{
    QString result = m_locale.toString(value, m_format, m_precision);
    const bool hasSign = result.startsWith(QLatin1Char('-')) || result.startsWith(m_locale.negativeSign());
    if (value < 0 && hasSign) {
        bool ok = false;
        if (m_locale.toDouble(result, &ok) == 0 && ok) {
            result.remove(0, 1);
        }
    }
    if (!m_withGrouping) {
        result.remove(m_locale.groupSeparator());
    }
    return result;
}
