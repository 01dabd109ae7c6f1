#include "spreadsheet/numberformats.h"

namespace spreadsheet {
namespace {

constexpr int builtInElapsedTime = 46; // [h]:mm:ss
constexpr int thaiElapsedTime = 79;    // the same of Thai versions

NumberMeaning builtInMeaning(int number)
{
    if (number == builtInElapsedTime || number == thaiElapsedTime) {
        return NumberMeaning::ElapsedTime;
    }
    // Dates and times of all languages, and those of East Asian and Thai versions.
    const bool isDate = (number >= 14 && number <= 22) || (number >= 27 && number <= 36)
                        || (number >= 45 && number <= 47) || (number >= 50 && number <= 58)
                        || (number >= 71 && number <= 81);
    return isDate ? NumberMeaning::Date : NumberMeaning::Number;
}

/// What stands in brackets: an elapsed time such as [h] or [mm] counts, a colour, condition or locale doesn't.
bool isElapsedTime(const QString &inBrackets)
{
    if (inBrackets.isEmpty()) {
        return false;
    }
    const QChar first = inBrackets.at(0).toLower();
    const bool isTimeLetter = first == QLatin1Char('h') || first == QLatin1Char('m') || first == QLatin1Char('s');
    return isTimeLetter && inBrackets.count(first, Qt::CaseInsensitive) == inBrackets.size();
}

bool isDateLetter(QChar c)
{
    switch (c.toLower().unicode()) {
    case 'd':
    case 'm':
    case 'y':
    case 'h':
    case 's':
        return true;
    default:
        return false;
    }
}

} // namespace

NumberMeaning numberMeaning(int number, const QString &code)
{
    if (code.isEmpty()) {
        return builtInMeaning(number);
    }
    if (code.startsWith(QLatin1String("General"), Qt::CaseInsensitive)
        || code.startsWith(QLatin1String("Standard"), Qt::CaseInsensitive)) {
        return NumberMeaning::Number;
    }
    bool isDate = false;
    // The section for positive numbers decides.
    for (int i = 0; i < code.size() && code.at(i) != QLatin1Char(';'); ++i) {
        switch (code.at(i).unicode()) {
        case '"': {
            const int end = code.indexOf(QLatin1Char('"'), i + 1);
            i = end < 0 ? code.size() : end;
            break;
        }
        case '[': {
            const int end = code.indexOf(QLatin1Char(']'), i + 1);
            if (end > 0 && isElapsedTime(code.mid(i + 1, end - i - 1))) {
                return NumberMeaning::ElapsedTime;
            }
            i = end < 0 ? code.size() : end;
            break;
        }
        case '\\':
        case '_':
        case '*':
            ++i; // the next character is shown, left out or repeated
            break;
        default:
            isDate = isDate || isDateLetter(code.at(i));
        }
    }
    return isDate ? NumberMeaning::Date : NumberMeaning::Number;
}

QString builtInNumberCode(int number)
{
    static const char *const codes[] = {"General", "0", "0.00", "#,##0", "#,##0.00", nullptr, nullptr, nullptr, nullptr,
        "0%", "0.00%", "0.00E+00", "# ?/?", "# ?\?/?\?", "mm-dd-yy", "d-mmm-yy", "d-mmm", "mmm-yy", "h:mm AM/PM",
        "h:mm:ss AM/PM", "h:mm", "h:mm:ss", "m/d/yy h:mm"};
    static const char *const later[] = {"#,##0 ;(#,##0)", "#,##0 ;[Red](#,##0)", "#,##0.00;(#,##0.00)",
        "#,##0.00;[Red](#,##0.00)", nullptr, nullptr, nullptr, nullptr, "mm:ss", "[h]:mm:ss", "mmss.0", "##0.0E+0",
        "@"};
    if (number >= 0 && number <= 22) {
        return QLatin1String(codes[number]);
    }
    return number >= 37 && number <= 49 ? QString(QLatin1String(later[number - 37])) : QString();
}

} // namespace spreadsheet
