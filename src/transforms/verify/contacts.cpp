#include "transforms/verify/contacts.h"

#include "data/textregex.h"

#include <algorithm>
#include <cstring>

namespace Contacts {

namespace {

TextRegex compiled(const char *pattern)
{
    return TextRegex(QString::fromLatin1(pattern), Qt::CaseInsensitive);
}

const TextRegex &emailRegex()
{
    static const TextRegex regex = compiled(
        R"~((?:[a-z0-9!#$%&'*+/=?^_`{|}~-]+(?:\.[a-z0-9!#$%&'*+/=?^_`{|}~-]+)*)~"
        R"~(|"(?:[\x01-\x08\x0b\x0c\x0e-\x1f\x21\x23-\x5b\x5d-\x7f]|\\[\x01-\x09\x0b\x0c\x0e-\x7f])*"))~"
        R"~(@(?:(?:[a-z0-9](?:[a-z0-9-]*[a-z0-9])?\.)+[a-z0-9](?:[a-z0-9-]*[a-z0-9])?)~"
        R"~(|\[(?:(?:(2(5[0-5]|[0-4][0-9])|1[0-9][0-9]|[1-9]?[0-9]))\.){3})~"
        R"~((?:(2(5[0-5]|[0-4][0-9])|1[0-9][0-9]|[1-9]?[0-9]))~"
        R"~(|[a-z0-9-]*[a-z0-9]:(?:[\x01-\x08\x0b\x0c\x0e-\x1f\x21-\x5a\x53-\x7f]|\\[\x01-\x09\x0b\x0c\x0e-\x7f])+)\]))~");
    return regex;
}

const TextRegex &telephoneRegex()
{
    static const TextRegex regex = compiled(R"(^(\+\d{1,2}\s?)?1?\-?\.?\s?\(?\d{3}\)?[\s.-]?\d{3}[\s.-]?\d{4}$)");
    return regex;
}

bool isAlphanumeric(QChar c)
{
    const uint lower = c.unicode() | 0x20u;
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (lower >= 'a' && lower <= 'z');
}

bool mayEndLocalPart(QChar c)
{
    return isAlphanumeric(c) || (c.unicode() != 0 && std::strchr("!#$%&'*+/=?^_`{|}~-", c.unicode()));
}

/// True when a host name of two labels or more begins there.
bool startsHostName(QStringView text)
{
    const auto end = std::find_if(
        text.begin(), text.end(), [](QChar c) { return !isAlphanumeric(c) && c != QLatin1Char('-'); });
    const auto size = end - text.begin();
    return size > 0 && isAlphanumeric(text.front()) && isAlphanumeric(end[-1]) && size + 1 < text.size()
           && *end == QLatin1Char('.') && isAlphanumeric(end[1]);
}

enum QuickAnswer { Yes, No, Unsure };

/// Decides about the usual addresses in ASCII without the expression: what stands on both sides of the "@" tells.
QuickAnswer quickEmail(QStringView text)
{
    QuickAnswer verdict = No;
    for (int i = 1; i + 1 < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('@')) {
            continue;
        }
        if (mayEndLocalPart(text.at(i - 1)) && startsHostName(text.mid(i + 1))) {
            return Yes;
        }
        if (text.at(i - 1) == QLatin1Char('"') || text.at(i + 1) == QLatin1Char('[')) {
            verdict = Unsure;
        }
    }
    return verdict;
}

} // namespace

bool holdsEmail(Utf16Cell &text)
{
    const QuickAnswer verdict = text.isAscii() ? quickEmail(text.units()) : Unsure;
    return verdict == Yes || (verdict == Unsure && emailRegex().isFoundIn(text.string()));
}

bool isTelephone(Utf16Cell &text)
{
    constexpr int fewest = 10; // ten digits and nothing between
    constexpr int most = 23;   // with everything between, and a line feed
    const int size = text.cell().size();
    return size >= fewest && size <= most && telephoneRegex().isFoundIn(text.string());
}

} // namespace Contacts
