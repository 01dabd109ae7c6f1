#pragma once

#include "data/numberreader.h"

#include <QLocale>

/// Reads texts as numbers whose decimal character is known, whatever the locale's is: blanks, group characters and
/// the other of dot and comma are passed over.
class NumberTidier
{
public:
    /// `decimal` stands for the decimal point of the default locale.
    explicit NumberTidier(QChar decimal);

    double read(const Cell &cell, bool *ok) const;
    /// The text as the default locale reads it.
    QString tidied(const QString &text) const;

private:
    QChar m_decimal;
    QChar m_decimalPoint;
    QChar m_group;
    bool m_isAscii; ///< both decimal characters are
    NumberReader m_reader;
};
