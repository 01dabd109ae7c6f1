#include "data/numericpattern.h"

#include "data/numberscan.h"
#include "data/textcoding.h"

#include <algorithm>
#include <cstring>

namespace {

/// Punctuation, blanks and signs of other scripts mean themselves in a format; letters, quotes and escapes may not.
bool isFixedCharacter(QChar c)
{
    return c.unicode() >= 0x80 ? !c.isDigit() && !c.isSpace() && !c.isSurrogate() && c.toLower() == c.toUpper()
                               : std::strchr(" /.,:;-_()", c.toLatin1()) != nullptr && !c.isNull();
}

bool isHarmless(char c)
{
    return NumberScan::isAsciiLetter(static_cast<uchar>(c)) || std::strchr("/.:,;", c);
}

bool takeLiteral(const char *&p, const char *end, const QByteArray &literal)
{
    const auto size = static_cast<size_t>(literal.size());
    if (static_cast<size_t>(end - p) < size || std::memcmp(p, literal.constData(), size) != 0) {
        return false;
    }
    p += size;
    return true;
}

NumericPattern::Outcome takeNumber(const char *&p, const char *end, const NumericPattern::Step &step, int *number)
{
    if (p == end) {
        return NumericPattern::NoMatch;
    }
    const int widest = step.fixedWidth ? step.fixedWidth : 2;
    int value = 0;
    int width = 0;
    while (width < widest && p < end && NumberScan::isDigit(static_cast<uchar>(*p))) {
        const int longer = value * 10 + (*p - '0');
        if (longer > step.largest) {
            break; // the digit belongs to what follows
        }
        value = longer;
        ++p;
        ++width;
    }
    if (width < widest && p < end && !NumberScan::isDigit(static_cast<uchar>(*p)) && (width == 0 || *p & 0x80)
        && !isHarmless(*p)) {
        return NumericPattern::Unsure; // signs, blanks and digits of other scripts
    }
    if (width == 0 || width < step.fixedWidth || value < step.smallest) {
        return NumericPattern::NoMatch;
    }
    *number = value;
    return NumericPattern::Match;
}

void writeNumber(int value, int width, char *&out)
{
    for (int i = width; i-- > 0; value /= 10) {
        out[i] = static_cast<char>('0' + value % 10);
    }
    out += width;
}

} // namespace

bool NumericPattern::addDatePart(QChar letter, int count, const QByteArray &literal)
{
    if (letter == QLatin1Char('d') && count <= 2) {
        m_steps.push_back({Day, count == 2 ? 2 : 0, 1, 31, literal});
    } else if (letter == QLatin1Char('M') && count <= 2) {
        m_steps.push_back({Month, count == 2 ? 2 : 0, 1, 12, literal});
    } else if (letter == QLatin1Char('y') && count == 4) {
        m_steps.push_back({Year, 4, 1, 9999, literal});
    } else if (letter == QLatin1Char('y') && count == 2) {
        m_steps.push_back({TwoDigitYear, 2, 0, 99, literal});
    } else {
        return false;
    }
    return true;
}

bool NumericPattern::addTimePart(QChar letter, int count, const QByteArray &literal)
{
    const QChar lower = letter.toLower();
    const bool isHour = lower == QLatin1Char('h');
    if (count > 2 || (!isHour && letter != QLatin1Char('m') && letter != QLatin1Char('s'))) {
        return false;
    }
    const Part part = isHour ? Hour : letter == QLatin1Char('m') ? Minute : Second;
    m_steps.push_back({part, count == 2 ? 2 : 0, 0, isHour ? 23 : 59, literal});
    return true;
}

int NumericPattern::partCount(Part part) const
{
    return static_cast<int>(
        std::count_if(m_steps.cbegin(), m_steps.cend(), [part](const Step &step) { return step.part == part; }));
}

bool NumericPattern::hasWholeDate() const
{
    return partCount(Day) == 1 && partCount(Month) == 1 && partCount(Year) + partCount(TwoDigitYear) == 1;
}

bool NumericPattern::hasTime() const
{
    return partCount(Hour) == 1 && partCount(Minute) <= 1 && partCount(Second) <= 1;
}

/// Takes a format apart; false when there is something in it that is neither a part nor a fixed character.
bool NumericPattern::compile(const QString &format)
{
    static const QString quotedT = QStringLiteral("'T'"); // as in 2024-02-29T10:30
    QByteArray literal;
    for (int i = 0; i < format.size();) {
        const QChar c = format.at(i);
        int next = i + 1;
        if (isFixedCharacter(c)) {
            TextCoding::appendEncoded(literal, &c, 1);
        } else if (format.midRef(i, quotedT.size()) == quotedT) {
            literal += 'T';
            next = i + quotedT.size();
        } else {
            while (next < format.size() && format.at(next) == c) {
                ++next;
            }
            if (!addDatePart(c, next - i, literal) && !addTimePart(c, next - i, literal)) {
                return false;
            }
            literal.clear();
        }
        i = next;
    }
    m_tail = literal;
    return true;
}

NumericPattern NumericPattern::forDate(const QString &format)
{
    NumericPattern pattern;
    const bool isDate = pattern.compile(format) && pattern.hasWholeDate() && pattern.m_steps.size() == 3;
    return isDate ? pattern : NumericPattern();
}

NumericPattern NumericPattern::forDateTime(const QString &format)
{
    NumericPattern pattern;
    const bool isDateTime = pattern.compile(format) && pattern.hasWholeDate() && pattern.hasTime();
    return isDateTime ? pattern : NumericPattern();
}

NumericPattern NumericPattern::forTime(bool withSeconds)
{
    NumericPattern pattern;
    pattern.m_steps = {{Hour, 0, 0, 23, {}}, {Minute, 0, 0, 59, ":"}};
    if (withSeconds) {
        pattern.m_steps.push_back({Second, 0, 0, 59, ":"});
    }
    return pattern;
}

NumericPattern::Outcome NumericPattern::match(const char *bytes, int size, Numbers *numbers) const
{
    if (!isUsable()) {
        return Unsure;
    }
    const char *p = bytes;
    const char *const end = bytes + size;
    for (const Step &step : m_steps) {
        if (!takeLiteral(p, end, step.literal)) {
            return NoMatch;
        }
        const Outcome outcome = takeNumber(p, end, step, &numbers->of[step.part]);
        if (outcome != Match) {
            return outcome;
        }
    }
    return takeLiteral(p, end, m_tail) && p == end ? Match : NoMatch;
}

int NumericPattern::writtenSize() const
{
    int size = m_tail.size();
    for (const Step &step : m_steps) {
        size += step.literal.size() + qMax(2, step.fixedWidth);
    }
    return size;
}

void NumericPattern::writeDate(int year, int month, int day, char *&out) const
{
    for (const Step &step : m_steps) {
        std::memcpy(out, step.literal.constData(), static_cast<size_t>(step.literal.size()));
        out += step.literal.size();
        const int value = step.part == Day ? day : step.part == Month ? month : step.part == Year ? year : year % 100;
        writeNumber(value, step.fixedWidth ? step.fixedWidth : 1 + (value > 9), out);
    }
    std::memcpy(out, m_tail.constData(), static_cast<size_t>(m_tail.size()));
    out += m_tail.size();
}
