#include "spreadsheet/xlsx/write/linktarget.h"

#include "spreadsheet/sizes.h"

#include <QUrl>

namespace spreadsheet {
namespace {

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f');
}

bool isUriCharacter(char c)
{
    return (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z')
           || (c != '\0' && std::string_view("-._~:/?@!$&'()*+,;=").find(c) != std::string_view::npos);
}

bool hasDriveLetter(const QString &target)
{
    return target.size() > 2 && target.at(0).isLetter() && target.at(0).unicode() < 0x80
           && target.at(1) == QLatin1Char(':')
           && (target.at(2) == QLatin1Char('\\') || target.at(2) == QLatin1Char('/'));
}

/// Paths as addresses; other targets as they are.
QString asAddress(const QString &target)
{
    QString path = target;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (hasDriveLetter(target)) {
        return QStringLiteral("file:///") + path;
    }
    if (target.startsWith(QLatin1String("\\\\"))) {
        return QStringLiteral("file:") + path;
    }
    return target.startsWith(QLatin1Char('/')) && !target.startsWith(QLatin1String("//"))
               ? QStringLiteral("file://") + path
               : target;
}

/// Encodes what no address can hold. "#" may begin one fragment, brackets may enclose the host.
QByteArray encoded(const QByteArray &address)
{
    const int host = address.indexOf("://[");
    const int hostEnd = host < 0 ? -1 : address.indexOf(']', host);
    QByteArray result;
    bool hasFragment = false;
    for (int i = 0; i < address.size(); ++i) {
        const char c = address.at(i);
        const bool isEncoded = c == '%' && i + 2 < address.size() && isHexDigit(address.at(i + 1))
                               && isHexDigit(address.at(i + 2));
        const bool isFragment = c == '#' && !hasFragment;
        const bool isHostBracket = hostEnd > 0 && (i == host + 3 || i == hostEnd);
        if (isUriCharacter(c) || isEncoded || isFragment || isHostBracket) {
            result += c;
        } else {
            result += '%' + QByteArray(1, c).toHex().toUpper();
        }
        hasFragment = hasFragment || isFragment;
    }
    return result;
}

} // namespace

LinkTarget linkTarget(const QString &target)
{
    const QString trimmed = target.trimmed();
    LinkTarget link;
    if (trimmed.startsWith(QLatin1Char('#'))) {
        link.location = trimmed.mid(1).toUtf8();
    } else if (!trimmed.isEmpty()) {
        link.address = encoded(asAddress(trimmed).toUtf8());
        if (!QUrl(QString::fromLatin1(link.address), QUrl::StrictMode).isValid()) {
            // As the name of a file beside the workbook it can hold anything.
            link.address = QUrl::toPercentEncoding(trimmed);
        }
    }
    return link.address.size() > maxHyperlinkLength || link.location.size() > maxHyperlinkLength ? LinkTarget() : link;
}

} // namespace spreadsheet
