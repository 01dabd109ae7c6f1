#include "files/delimiters.h"

QStringList DelimiterKind::labels()
{
    return {QStringLiteral("Automatic"), QStringLiteral("Comma (,)"), QStringLiteral("Semi-colon (;)"),
        QStringLiteral("Colon (:)"), QStringLiteral("Tab (\\t)"), QStringLiteral("Pipe (|)"),
        QStringLiteral("Caret (^)"), QStringLiteral("Space ( )"), QStringLiteral("Custom"),
        QStringLiteral("Unit separator (0x1F)")};
}

QString DelimiterKind::label(int kind)
{
    return labels().value(kind);
}

QChar DelimiterKind::character(int kind, QChar custom)
{
    switch (kind) {
    case Comma:
        return QLatin1Char(',');
    case SemiColon:
        return QLatin1Char(';');
    case Colon:
        return QLatin1Char(':');
    case Tab:
        return QLatin1Char('\t');
    case Pipe:
        return QLatin1Char('|');
    case Caret:
        return QLatin1Char('^');
    case Space:
        return QLatin1Char(' ');
    case Custom:
        return custom;
    case UnitSeparator:
        return QChar(0x1F);
    default:
        return QChar();
    }
}
