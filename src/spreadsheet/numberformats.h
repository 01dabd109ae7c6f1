#pragma once

#include <QString>

namespace spreadsheet {

/// Codes of numbers from here on stand in the file; smaller ones are built in unless the file redefines them.
constexpr int firstCustomNumberFormat = 164;

/// True when a number format shows numbers as dates or times: by its code, or by its number when `code` is empty.
bool isDateFormat(int number, const QString &code);
/// The English code of a built-in format; empty for numbers that have none.
QString builtInNumberCode(int number);

} // namespace spreadsheet
