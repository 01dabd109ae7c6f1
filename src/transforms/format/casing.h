#pragma once

#include <QString>

/// The case conversions: of whole texts, and in place for those that change characters one by one. The functions in
/// place work on QChar and, for ASCII, on char, and return the size left.
namespace Casing {

bool isLowerLetter(QChar c);
bool isUpperLetter(QChar c);
inline bool isLowerLetter(char c)
{
    return c >= 'a' && c <= 'z';
}
inline bool isUpperLetter(char c)
{
    return c >= 'A' && c <= 'Z';
}
inline bool isLetter(QChar c)
{
    return c.isLetter();
}
inline bool isLetter(char c)
{
    return isLowerLetter(c) || isUpperLetter(c);
}
/// True for a character behind which a word starts.
bool isWordApart(QChar before);
inline bool isWordApart(char before)
{
    return !isLetter(before) && before != '\'';
}
inline bool isSpace(QChar c)
{
    return c.isSpace();
}
inline bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}
inline QChar toUpper(QChar c)
{
    return c.toUpper();
}
inline char toUpper(char c)
{
    return isLowerLetter(c) ? static_cast<char>(c - 'a' + 'A') : c;
}
inline QChar toLower(QChar c)
{
    return c.toLower();
}
inline char toLower(char c)
{
    return isUpperLetter(c) ? static_cast<char>(c - 'A' + 'a') : c;
}

/// For ASCII what QString::toLower and toUpper do.
int lower(char *text, int size);
int upper(char *text, int size);

/// A letter at the start of a word becomes upper case; one behind a letter becomes lower case unless `keepUpper`.
template<class Char>
int title(Char *text, int size, bool keepUpper)
{
    for (int i = 0; i < size; ++i) {
        if (i == 0 || isWordApart(text[i - 1])) {
            text[i] = isLowerLetter(text[i]) ? toUpper(text[i]) : text[i];
        } else if (!keepUpper && isUpperLetter(text[i]) && isLetter(text[i - 1])) {
            text[i] = toLower(text[i]);
        }
    }
    return size;
}

/// The first letter of the text becomes upper case; later ones become lower case unless `keepUpper`.
template<class Char>
int sentence(Char *text, int size, bool keepUpper)
{
    bool isFirst = true;
    for (int i = 0; i < size; ++i) {
        if (!isLetter(text[i])) {
            continue;
        }
        if (isFirst) {
            text[i] = toUpper(text[i]);
            isFirst = false;
        } else if (!keepUpper) {
            text[i] = toLower(text[i]);
        }
    }
    return size;
}

/// Upper-case letters become lower case, all other letters upper case.
template<class Char>
int inverted(Char *text, int size)
{
    for (int i = 0; i < size; ++i) {
        if (isLetter(text[i])) {
            text[i] = isUpperLetter(text[i]) ? toLower(text[i]) : toUpper(text[i]);
        }
    }
    return size;
}

/// Each run of whitespace becomes one `mark`.
template<class Char>
int joined(Char *text, int size, Char mark)
{
    int end = 0;
    bool inSpace = false;
    for (int i = 0; i < size; ++i) {
        const bool wasInSpace = inSpace;
        inSpace = isSpace(text[i]);
        if (!inSpace) {
            text[end++] = text[i];
        } else if (!wasInSpace) {
            text[end++] = mark;
        }
    }
    return end;
}

/// For ASCII what camelCase does.
int camel(char *text, int size, bool upper);

QString titleCase(const QString &text, bool keepUpper);
/// The words of the text run together, each with a capital; the first one in lower case unless `upper`.
QString camelCase(const QString &text, bool upper);

} // namespace Casing
