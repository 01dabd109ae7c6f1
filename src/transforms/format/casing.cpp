#include "transforms/format/casing.h"

#include <QStringList>
#include <algorithm>

namespace Casing {

static bool hasCategory(QChar c, QChar::Category category)
{
    return c.unicode() > 127 && c.category() == category;
}

bool isLowerLetter(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) || hasCategory(c, QChar::Letter_Lowercase);
}

bool isUpperLetter(QChar c)
{
    return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) || hasCategory(c, QChar::Letter_Uppercase);
}

bool isWordApart(QChar before)
{
    return !before.isLetter() && before != QLatin1Char('\'') && before.category() != QChar::Mark_NonSpacing;
}

int lower(char *text, int size)
{
    std::transform(text, text + size, text, [](char c) { return toLower(c); });
    return size;
}

int upper(char *text, int size)
{
    std::transform(text, text + size, text, [](char c) { return toUpper(c); });
    return size;
}

int camel(char *text, int size, bool isUpper)
{
    int end = 0;
    for (int i = 0; i < size; ++i) {
        const int start = i;
        while (i < size && !isSpace(text[i])) {
            ++i;
        }
        char *const word = text + end;
        std::copy(text + start, text + i, word);
        if (end == 0 && !isUpper) {
            lower(word, i - start);
        } else {
            title(word, i - start, false);
        }
        end += i - start;
    }
    return end;
}

QString titleCase(const QString &text, bool keepUpper)
{
    QString result = text;
    title(result.data(), result.size(), keepUpper);
    return result;
}

static QStringList words(const QString &text)
{
    QStringList result;
    int start = 0;
    for (int i = 0; i <= text.size(); ++i) {
        if (i == text.size() || text.at(i).isSpace()) {
            if (i > start) {
                result.append(text.mid(start, i - start));
            }
            start = i + 1;
        }
    }
    return result;
}

QString camelCase(const QString &text, bool upper)
{
    QString result;
    for (const QString &word : words(text)) {
        result += result.isEmpty() && !upper ? word.toLower() : titleCase(word, false);
    }
    return result;
}

} // namespace Casing
