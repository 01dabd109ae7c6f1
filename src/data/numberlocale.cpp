#include "data/numberlocale.h"

namespace {

bool readsAsEverywhere(const QLocale &locale)
{
    const QLocale::NumberOptions strict = QLocale::RejectLeadingZeroInExponent | QLocale::RejectTrailingZeroesAfterDot;
    return !(locale.numberOptions() & strict) && locale.exponential().toLower() == QLatin1Char('e');
}

bool writesAscii(const QLocale &locale)
{
    return locale.zeroDigit() == QLatin1Char('0') && locale.negativeSign() == QLatin1Char('-');
}

char asAscii(QChar c)
{
    return c.unicode() < 0x80 ? c.toLatin1() : '\0';
}

} // namespace

NumberLocale::NumberLocale(const QLocale &numberLocale)
    : locale(numberLocale)
    , decimalPoint(numberLocale.decimalPoint())
    , readsPlainly(readsAsEverywhere(numberLocale))
    , writesPlainly(writesAscii(numberLocale))
    , asciiDecimalPoint(asAscii(decimalPoint))
{
}

std::shared_ptr<const NumberLocale> NumberLocale::of(const QLocale &locale)
{
    static std::shared_ptr<const NumberLocale> last;
    if (!last || last->locale != locale) {
        last = std::make_shared<const NumberLocale>(locale);
    }
    return last;
}
