#pragma once

#include <QString>

/// Guards the kinds that may make a table far larger than their input.
namespace TableSize {

/// False for a table that can't be held in the memory of usual computers.
bool isPossible(qint64 rows, qint64 columns);
/// The outcome and the warning for such a table, which comes out empty.
QString resultText();
QString warning(qint64 rows, qint64 columns);

} // namespace TableSize
