#pragma once

#include <QByteArray>
#include <string>
#include <string_view>

namespace spreadsheet {

/// Appends text as it stands in an attribute or in an element: with escapes for what XML takes otherwise.
void appendXmlText(std::string_view text, QByteArray *xml);
/// Appends ` name="value"`.
void appendXmlAttribute(std::string_view name, std::string_view value, QByteArray *xml);

/// Appends a text of the workbook with its "_xHHHH_" turned into the UTF-16 units that they stand for. Those that make
/// no character stay as they are.
void appendUnescaped(std::string_view text, std::string *plain);

} // namespace spreadsheet
