#include "spreadsheet/xlsx/write/linktarget.h"

#include "spreadsheet/sizes.h"

#include <QUrl>
#include <QVector>
#include <cstring>

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

/// What an address holds as it is beyond ASCII: all but control characters and what no text may hold.
bool isForeignCharacter(uint c)
{
    constexpr uint firstPrintable = 0xA0, firstSpecial = 0xFFF0, lastSpecial = 0xFFFF;
    return c >= firstPrintable && !(c >= firstSpecial && c <= lastSpecial) && (c & 0xFFFE) != 0xFFFE;
}

bool isEncoded(const QVector<uint> &address, int at)
{
    constexpr uint lastAscii = 0x7F;
    const auto isDigit = [&](int place) {
        const uint c = address.at(place);
        return c <= lastAscii && isHexDigit(static_cast<char>(c));
    };
    return address.at(at) == '%' && at + 2 < address.size() && isDigit(at + 1) && isDigit(at + 2);
}

QString percentEncoded(uint c)
{
    QString encoded;
    for (const char byte : QString::fromUcs4(&c, 1).toUtf8()) {
        encoded += QLatin1Char('%') + QString::fromLatin1(QByteArray(1, byte).toHex().toUpper());
    }
    return encoded;
}

/// Encodes what no address can hold. "#" may begin one fragment, brackets may enclose the host.
QString encoded(const QString &target)
{
    const QVector<uint> address = target.toUcs4();
    const int host = address.indexOf('[') - 3;
    const bool hasHostBracket = host > 0 && address.mid(host, 3) == QVector<uint>{':', '/', '/'};
    const int hostEnd = hasHostBracket ? address.indexOf(']', host) : -1;
    QString result;
    bool hasFragment = false;
    for (int i = 0; i < address.size(); ++i) {
        const uint c = address.at(i);
        const bool isAllowed = c <= 0x7F ? isUriCharacter(static_cast<char>(c)) : isForeignCharacter(c);
        const bool isFragment = c == '#' && !hasFragment;
        const bool isHostBracket = hostEnd > 0 && (i == host + 3 || i == hostEnd);
        if (isAllowed || isEncoded(address, i) || isFragment || isHostBracket) {
            result += QString::fromUcs4(&c, 1);
        } else {
            result += percentEncoded(c);
        }
        hasFragment = hasFragment || isFragment;
    }
    return result;
}

/// Whether the address is well-formed. Characters beyond ASCII may stand wherever letters may, in the host too, which
/// the test for plain addresses would refuse.
bool isWellFormed(const QString &address)
{
    const QVector<uint> characters = address.toUcs4();
    QString plain;
    for (int i = 0; i < characters.size(); ++i) {
        const bool isLetter = characters.at(i) > 0x7F || isEncoded(characters, i);
        plain += isLetter ? QLatin1Char('x') : QLatin1Char(static_cast<char>(characters.at(i)));
        i += isEncoded(characters, i) ? 2 : 0;
    }
    return QUrl(plain, QUrl::StrictMode).isValid();
}

/// Any text as the name of a file beside the workbook, which can hold anything.
QString asName(const QString &text)
{
    QString name;
    for (const uint c : text.toUcs4()) {
        const bool isKept = c <= 0x7F ? isUriCharacter(static_cast<char>(c))
                                            && !std::strchr(":/?@!$&'()*+,;=", static_cast<int>(c))
                                      : isForeignCharacter(c);
        name += isKept ? QString::fromUcs4(&c, 1) : percentEncoded(c);
    }
    return name;
}

} // namespace

LinkTarget linkTarget(const QString &target)
{
    const QString trimmed = target.trimmed();
    LinkTarget link;
    if (trimmed.startsWith(QLatin1Char('#'))) {
        link.location = trimmed.size() <= maxHyperlinkLength ? trimmed.mid(1).toUtf8() : QByteArray();
        return link;
    }
    const QString typed = asAddress(trimmed);
    QString address = encoded(typed);
    if (!isWellFormed(address)) {
        address = asName(trimmed);
    } else if (address.size() > maxHyperlinkLength) {
        // Programs take blanks and quotes too, but nothing longer.
        address = typed.size() <= maxHyperlinkLength ? typed : trimmed;
    }
    link.address = address.size() <= maxHyperlinkLength ? address.toUtf8() : QByteArray();
    return link;
}

} // namespace spreadsheet
