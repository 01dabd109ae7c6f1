#pragma once

#include <QString>

class Dataset;

/// Texts that nodes and runs say of themselves.
namespace NodeText {

/// "0.25 second(s)", and "<0.001 second(s)" for no time at all.
QString duration(qint64 milliseconds);
/// "Yes" or "No".
QString yesNo(bool value);
/// "3 rows x 1 col".
QString size(int rows, int columns);
/// The same with counts from 1000 on rounded to thousands.
QString roundedSize(int rows, int columns);
/// The table as HTML of about `maxChars` characters at most, cells cut to `maxCellChars`; what doesn't fit is left out.
QString tableHtml(const Dataset &dataset, bool showHeader, int maxCellChars, int maxChars);

} // namespace NodeText
