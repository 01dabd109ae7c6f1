#pragma once

#include <QString>

// Words that several readers have for the same thing.

/// For a source that memory doesn't suffice for.
inline QString tooBigToRead(const QString &name)
{
    return QStringLiteral("'%1' is too big for Quillmere to read").arg(name);
}
