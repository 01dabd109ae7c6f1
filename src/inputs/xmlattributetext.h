#pragma once

#include <string>

/// Values of attributes as they stand between their quotes in well-formed XML.
namespace XmlAttributeText {

/// True when the tag from `begin` to `end` has what parsers treat differently: references and whitespace but blanks.
bool isUnusual(const char *begin, const char *end);
/// Replaces character references and those of the five entities that need no declaration; others stay.
void decode(const char *begin, const char *end, std::string *out);

} // namespace XmlAttributeText
