#pragma once

#include <QByteArray>
#include <QString>
#include <string>
#include <string_view>

namespace spreadsheet {

/// Appends a text of the workbook, UTF-8, for an element's content or an attribute's value. Characters that XML can't
/// hold, and carriage returns, become _xHHHH_, as does what looks like such a form already. Bytes that aren't UTF-8
/// become U+FFFD.
void appendCellText(std::string &out, std::string_view text);

/// The same as one text.
QByteArray cellText(const QString &text);
/// A text that knows no _xHHHH_ forms, such as an address; characters that XML can't hold become U+FFFD.
QByteArray plainText(const QString &text);

} // namespace spreadsheet
