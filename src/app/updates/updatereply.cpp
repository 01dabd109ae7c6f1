#include "app/updates/updatereply.h"

#include <QDomDocument>
#include <QStringList>

namespace {

QString unreadable()
{
    return QStringLiteral("Unable to retrieve latest version information.");
}

/// Empty unless there are three.
QVector<int> partsOf(const QString &version)
{
    QVector<int> parts;
    for (const QString &part : version.split(QLatin1Char('.'))) {
        bool isNumber = false;
        const int number = part.toInt(&isNumber);
        if (!isNumber || number < 0) {
            return {};
        }
        parts.append(number);
    }
    return parts.size() == 3 ? parts : QVector<int>();
}

} // namespace

QString UpdateReply::versionText() const
{
    QStringList parts;
    for (const int part : version) {
        parts.append(QString::number(part));
    }
    return parts.join(QLatin1Char('.'));
}

UpdateReply UpdateReply::parse(const QByteArray &reply)
{
    UpdateReply result;
    QDomDocument document;
    QString error;
    int line = 0;
    int column = 0;
    // Entities could make a small reply a very large document.
    if (reply.contains("<!ENTITY") || !document.setContent(reply, &error, &line, &column)) {
        result.message = unreadable();
        result.details = QStringLiteral("errMsg=%1 errLine=%2 errCol=%3").arg(error).arg(line).arg(column);
        return result;
    }
    const QDomElement latest = document.documentElement()
                                   .firstChildElement(QStringLiteral("windows"))
                                   .firstChildElement(QStringLiteral("latest"));
    if (latest.isNull()) {
        result.message = QStringLiteral("Unable to retrieve update information.");
        return result;
    }
    result.version = partsOf(latest.attribute(QStringLiteral("version")));
    if (result.version.isEmpty()) {
        result.message = unreadable();
    }
    const QUrl url(QUrl::fromPercentEncoding(latest.attribute(QStringLiteral("url")).toUtf8()), QUrl::StrictMode);
    // Whoever stands between us and the server must not have local files opened.
    if (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http")) {
        result.url = url;
    }
    return result;
}
