#include "files/encodings.h"

#include <QSet>
#include <QTextCodec>

static QStringList allNames()
{
    QStringList names;
    QSet<QByteArray> seen;
    for (const QByteArray &name : QTextCodec::availableCodecs()) {
        if (!seen.contains(name)) {
            names.append(QString::fromLatin1(name));
        }
        for (const QByteArray &alias : QTextCodec::codecForName(name)->aliases()) {
            seen.insert(alias);
        }
    }
    names.sort();
    return names;
}

const QStringList &Encodings::names()
{
    static const QStringList names = allNames();
    return names;
}

QStringList Encodings::commonFirst()
{
    QStringList ordered = names();
    ordered.removeDuplicates();
    for (const char *common : {"UTF-16", "ISO-8859-1", "windows-1252", "UTF-8"}) {
        ordered.removeAll(QLatin1String(common));
        ordered.prepend(QLatin1String(common));
    }
    return ordered;
}
