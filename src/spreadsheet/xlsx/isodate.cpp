#include "spreadsheet/xlsx/isodate.h"

#include "spreadsheet/datesystem.h"

namespace spreadsheet {
namespace {

/// Takes parts of a text from its front.
class Scanner
{
public:
    explicit Scanner(std::string_view text)
        : m_rest(text)
    {
    }

    bool isAtEnd() const { return m_rest.empty(); }
    bool take(char c)
    {
        const bool found = !m_rest.empty() && m_rest.front() == c;
        m_rest.remove_prefix(found ? 1 : 0);
        return found;
    }
    /// A number of exactly so many digits that is below the limit.
    bool take(size_t digits, int limit, int *number)
    {
        *number = 0;
        if (m_rest.size() < digits) {
            return false;
        }
        for (size_t i = 0; i < digits; ++i) {
            if (!isDigit(m_rest[i])) {
                return false;
            }
            *number = *number * 10 + (m_rest[i] - '0');
        }
        m_rest.remove_prefix(digits);
        return *number < limit;
    }
    /// Digits behind a decimal sign.
    bool takeFraction(double *fraction)
    {
        double place = 0.1;
        const size_t before = m_rest.size();
        for (; !m_rest.empty() && isDigit(m_rest.front()); m_rest.remove_prefix(1), place /= 10) {
            *fraction += place * (m_rest.front() - '0');
        }
        return m_rest.size() < before;
    }
    bool startsTime() const { return m_rest.size() > 2 && m_rest[2] == ':'; }

private:
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    std::string_view m_rest;
};

bool takeDate(Scanner &scanner, DateParts *parts)
{
    return scanner.take(4, 10000, &parts->year) && scanner.take('-') && scanner.take(2, 13, &parts->month)
           && scanner.take('-') && scanner.take(2, 32, &parts->day);
}

bool takeTime(Scanner &scanner, DateParts *parts, double *fraction)
{
    if (!scanner.take(2, 24, &parts->hour) || !scanner.take(':') || !scanner.take(2, 60, &parts->minute)) {
        return false;
    }
    if (!scanner.take(':')) {
        return true;
    }
    return scanner.take(2, 60, &parts->second) && (!scanner.take('.') || scanner.takeFraction(fraction));
}

bool takeZone(Scanner &scanner)
{
    int hours = 0, minutes = 0;
    if (scanner.take('Z') || scanner.isAtEnd()) {
        return scanner.isAtEnd();
    }
    return (scanner.take('+') || scanner.take('-')) && scanner.take(2, 24, &hours) && scanner.take(':')
           && scanner.take(2, 60, &minutes) && scanner.isAtEnd();
}

} // namespace

bool parseIsoDate(std::string_view text, bool uses1904, double *value)
{
    constexpr double secondsPerDay = 86400;
    Scanner scanner(text);
    DateParts parts;
    double fraction = 0.0;
    const bool isTimeAlone = scanner.startsTime();
    if (!isTimeAlone && (!takeDate(scanner, &parts) || parts.year == 0)) {
        return false;
    }
    if ((isTimeAlone || scanner.take('T')) && !takeTime(scanner, &parts, &fraction)) {
        return false;
    }
    if (!takeZone(scanner)) {
        return false;
    }
    *value = packDate(parts, uses1904);
    const bool exists = *value >= 0;
    *value += fraction / secondsPerDay;
    return exists;
}

} // namespace spreadsheet
