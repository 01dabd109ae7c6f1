#pragma once

#include <QString>

/// Guards the kinds that may make a table far larger than their input.
namespace TableSize {

/// False for a table that can't be held in the memory that the settings allow, or in one column's rows.
bool isPossible(qint64 rows, qint64 columns);
/// False for texts of `bytes` each that can't be held in that memory, or one of which no cell can hold.
bool isPossibleText(qint64 texts, qint64 bytes);
/// The outcome and the warning for such a table, which comes out empty.
QString resultText();
QString warning(qint64 rows, qint64 columns);

} // namespace TableSize
