#include "outputs/xmlnames.h"

#include <algorithm>

namespace {

bool isLetter(uint character)
{
    return QChar::isLetter(character);
}

bool isNameCharacter(uint character)
{
    return isLetter(character) || QChar::isDigit(character) || character == '_' || character == '-' || character == '.';
}

/// Empty when the name will do.
QString faultOf(const QString &name)
{
    if (name.isEmpty()) {
        return QStringLiteral("empty name");
    }
    if (name.startsWith(QLatin1String("xml"), Qt::CaseInsensitive)) {
        return QStringLiteral("starts with 'xml'");
    }
    if (!isLetter(name.toUcs4().constFirst())) {
        return QStringLiteral("doesn't start with a letter");
    }
    const QByteArray stored = XmlNames::tag(name);
    const QVector<uint> characters = TextCoding::decode(stored.constData(), stored.size()).toUcs4();
    for (int i = 1; i < characters.size(); ++i) {
        if (!isNameCharacter(characters.at(i))) {
            return QStringLiteral("invalid character '%1'").arg(QString::fromUcs4(&characters.at(i), 1));
        }
    }
    return QString();
}

/// True when a part between points gives no tag or, as the last one, no attribute's key.
bool hasNamelessPart(const QString &name)
{
    const QStringList parts = name.split(QLatin1Char('.'));
    return XmlNames::isKeyless(parts.constLast()) || std::any_of(parts.cbegin(), parts.cend(), [](const QString &part) {
        return XmlNames::isTagless(part.midRef(0));
    });
}

} // namespace

const ByteReplacements &XmlNames::references()
{
    static const ByteReplacements table{
        {'&', "&amp;"}, {'"', "&quot;"}, {'\'', "&apos;"}, {'<', "&lt;"}, {'>', "&gt;"}};
    return table;
}

QByteArray XmlNames::escaped(const QString &text)
{
    QByteArray result;
    appendReplaced(result, StoredText(toStored(text)), references());
    return result;
}

QByteArray XmlNames::tag(const QString &name)
{
    QByteArray result = escaped(name);
    int marks = 0;
    while (marks < result.size() && result.at(marks) == '!') {
        ++marks;
    }
    result = result.mid(marks).replace(' ', '-');
    return result.isEmpty() ? QByteArray("_") : result;
}

bool XmlNames::isTagless(const QStringRef &name)
{
    return std::all_of(name.begin(), name.end(), [](QChar c) { return c == QLatin1Char('!'); });
}

bool XmlNames::isKeyless(const QString &name)
{
    return name.startsWith(QLatin1Char('_')) && isTagless(name.midRef(1));
}

QString XmlNames::checkXmlTagName(const QString &name)
{
    const bool isMarked = name.startsWith(QLatin1Char('_')) || name.startsWith(QLatin1Char('!'));
    QString fault = isMarked ? QString() : faultOf(name);
    if (fault.isEmpty() && hasNamelessPart(name)) {
        fault = QStringLiteral("empty part, written as '_'");
    }
    return fault.isEmpty() ? QString() : QStringLiteral("Column name '%1' invalid as an XML tag: %2").arg(name, fault);
}
