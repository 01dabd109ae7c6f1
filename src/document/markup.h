#pragma once

#include <QString>

class QByteArray;
class QDomDocument;

/// Where and why a text isn't a document; `line` and `column` count from 1.
struct MarkupError
{
    QString text;
    int line = 1;
    int column = 1;
};

/// The name that every document declares as its type.
QString documentTypeName();

/// Reads the bytes of a document or of a clipboard fragment into a tree. False, with `error`, for what isn't
/// well-formed and for markup that no document has: entity declarations, very deep nesting.
bool parseMarkup(const QByteArray &bytes, QDomDocument &document, MarkupError &error);
