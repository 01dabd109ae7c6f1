#pragma once

#include <QJsonDocument>

/// The parser of the library, with what it lacks.
namespace JsonLibrary {

/// The document that a text in WTF-8 is. A U+FEFF that a string begins with, which the library would take for a
/// byte order mark, is kept. `error` may be null; its offset counts the bytes of the text.
QJsonDocument parsed(const char *bytes, int size, QJsonParseError *error);

} // namespace JsonLibrary
