#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// What an input's text is most likely delimited by.
struct DelimiterGuess
{
    /// Characters that are looked at.
    static constexpr int sampleSize = 4096;

    int kind;     ///< a value of DelimiterKind
    QString info; ///< tells of the guess and how it came about

    /// Counts the candidates in the first sampleSize characters of `text`, which is in WTF-8. Comma wins when
    /// none is there.
    static DelimiterGuess fromText(const char *text, int size);
};

/// The delimiters that a person can choose, as values of DelimiterKind in the order of lists.
QList<int> delimiterChoices(bool withAutomatic, bool withColonAndSpace, bool withCustom);
