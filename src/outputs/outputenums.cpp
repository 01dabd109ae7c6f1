#include "outputs/outputenums.h"

QStringList WriteMode::labels()
{
    return {QStringLiteral("Disabled"), QStringLiteral("Overwrite"), QStringLiteral("Append"), QStringLiteral("New")};
}

QString WriteMode::label(int mode)
{
    return labels().value(mode);
}

QStringList LineEndings::labels()
{
    return {QStringLiteral("Automatic"), QStringLiteral("Windows (CRLF)"), QStringLiteral("Mac\\Unix (LF)"),
        QStringLiteral("Old Mac (CR)"), QStringLiteral("Record separator (0x1E)")};
}

QString LineEndings::label(int endings)
{
    return labels().value(endings);
}

int LineEndings::resolved(int endings)
{
    if (endings > Automatic && endings <= RecordSeparator) {
        return endings;
    }
#ifdef Q_OS_WIN
    return Windows;
#else
    return Unix;
#endif
}

QByteArray LineEndings::bytes(int endings)
{
    switch (resolved(endings)) {
    case Windows:
        return QByteArrayLiteral("\r\n");
    case OldMac:
        return QByteArrayLiteral("\r");
    case RecordSeparator:
        return QByteArrayLiteral("\x1E");
    default:
        return QByteArrayLiteral("\n");
    }
}

QStringList Quoting::labels()
{
    return {QStringLiteral("As needed"), QStringLiteral("Always"), QStringLiteral("Never")};
}

QString Quoting::label(int quoting)
{
    return labels().value(quoting);
}

QStringList OutputTarget::labels()
{
    return {QStringLiteral("Single file"), QStringLiteral("Multiple files")};
}

QString OutputTarget::label(int target)
{
    return labels().value(target);
}

QStringList OverwriteScope::labels()
{
    return {QStringLiteral("File"), QStringLiteral("Sheet")};
}

QString OverwriteScope::label(int scope)
{
    return labels().value(scope);
}

QStringList ExcelFormatMode::labels()
{
    return {QStringLiteral("Automatic"), QStringLiteral("General"), QStringLiteral("Manual")};
}

QString ExcelFormatMode::label(int mode)
{
    return labels().value(mode);
}

QStringList JsonTypeMode::labels()
{
    return {QStringLiteral("Automatic"), QStringLiteral("String"), QStringLiteral("Manual")};
}

QString JsonTypeMode::label(int mode)
{
    return labels().value(mode);
}
