#include "outputs/xmlnames.h"

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
    return result.mid(marks).replace(' ', '-');
}

QString XmlNames::checkXmlTagName(const QString &name)
{
    if (name.startsWith(QLatin1Char('_')) || name.startsWith(QLatin1Char('!'))) {
        return QString();
    }
    const QString fault = faultOf(name);
    return fault.isEmpty() ? QString() : QStringLiteral("Column name '%1' invalid as an XML tag: %2").arg(name, fault);
}
