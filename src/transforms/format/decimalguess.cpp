#include "transforms/format/decimalguess.h"

#include <algorithm>

DecimalGuess DecimalGuess::of(const CellColumn &column, const QLocale &locale)
{
    DecimalGuess guess;
    guess.checked = qMin(column.size(), sampleSize);
    for (int row = 0; row < guess.checked; ++row) {
        const Cell &cell = column.at(row);
        const char *const begin = cell.bytes();
        const char *const end = begin + cell.size();
        const bool isOneDot = std::count(begin, end, '.') == 1;
        const bool isOneComma = std::count(begin, end, ',') == 1;
        if (isOneDot && isOneComma) {
            const bool isDotLast = std::find(begin, end, '.') > std::find(begin, end, ',');
            ++(isDotLast ? guess.dotVotes : guess.commaVotes);
        } else if (isOneDot) {
            ++guess.dotVotes;
        } else if (isOneComma) {
            ++guess.commaVotes;
        }
    }
    if (guess.dotVotes == guess.commaVotes) {
        guess.character = locale.decimalPoint();
    } else {
        guess.character = QLatin1Char(guess.dotVotes > guess.commaVotes ? '.' : ',');
    }
    return guess;
}
