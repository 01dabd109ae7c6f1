#include "files/medium.h"

QString Medium::label(int medium)
{
    switch (medium) {
    case File:
        return QStringLiteral("File");
    case Clipboard:
        return QStringLiteral("Clipboard");
    case Folder:
        return QStringLiteral("Folder");
    default:
        return QString();
    }
}
