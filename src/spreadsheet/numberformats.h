#pragma once

#include <QString>

namespace spreadsheet {

/// Codes of numbers from here on stand in the file; smaller ones are built in unless the file redefines them.
constexpr int firstCustomNumberFormat = 164;

/// What the numbers that a format shows stand for.
enum class NumberMeaning {
    Number,
    Date,       ///< a date, a time of day or both
    ElapsedTime ///< a span of time that may be longer than a day, such as hours by [h]:mm
};

/// By the format's code, or by its number when `code` is empty.
NumberMeaning numberMeaning(int number, const QString &code);
/// The English code of a built-in format; empty for numbers that have none.
QString builtInNumberCode(int number);

} // namespace spreadsheet
