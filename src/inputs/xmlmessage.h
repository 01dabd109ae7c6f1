#pragma once

#include <QString>

/// What an XML parser has against a text, and where.
struct XmlMessage
{
    QString text;    ///< empty when there is nothing
    qint64 line = 0; ///< 1-based, as is the column
    qint64 column = 0;
};

inline QString xmlNestingMessage()
{
    return QStringLiteral("elements are nested too deeply");
}
