#pragma once

#include <QtGlobal>

/// Texts between the quotes of JSON strings.
namespace JsonString {

struct Found
{
    const char *end = nullptr; ///< the closing quote, which may be that behind the text
    bool isPlain = true;       ///< nothing but ASCII from the blank on
    bool hasEscapes = false;
};

/// Looks for the end of the string whose first character is at `begin`. A quote stands at `end`, behind the text, and
/// 16 more bytes are readable.
Found find(const char *begin, const char *end);
/// True when the text is as the parser takes it: valid escapes, no halves of surrogate pairs but as escapes.
bool isValid(const char *bytes, quint32 size);
constexpr int markSize = 3;
/// True when the text starts with U+FEFF: a byte order mark where a document begins, a character elsewhere.
bool startsWithMark(const char *bytes, quint32 size);
/// Writes the text that valid escapes stand for to `out`, in WTF-8; never longer than it was. Returns its size.
quint32 unescape(const char *bytes, quint32 size, char *out);

} // namespace JsonString
