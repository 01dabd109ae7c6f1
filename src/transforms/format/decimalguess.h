#pragma once

#include "data/cellcolumn.h"

#include <QLocale>

/// Finds out whether a column writes its decimal places behind a dot or behind a comma, by the votes of its first
/// values.
struct DecimalGuess
{
    static constexpr int sampleSize = 50;

    /// A tie leaves the decimal point of `locale`.
    static DecimalGuess of(const CellColumn &column, const QLocale &locale);

    QChar character;
    int checked = 0;
    int dotVotes = 0;
    int commaVotes = 0;
    /// Some values speak against the choice.
    bool isDoubtful() const
    {
        return (character == QLatin1Char('.') && commaVotes > 0) || (character == QLatin1Char(',') && dotVotes > 0);
    }
};
