#pragma once

#include <QString>

/// How much a worksheet of an Excel file can hold.
namespace ExcelLimits {

/// What to tell when a table of that size doesn't fit; empty when it does, or for types other than Excel's.
QString warning(int fileType, int rows, int columns);
/// The same for a table that is being written nevertheless.
QString writingWarning(int fileType, int rows, int columns);

} // namespace ExcelLimits
