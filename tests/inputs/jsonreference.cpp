#include "inputs/jsonreference.h"

#include "data/values.h"
#include "inputs/referencereader.h"
#include "inputs/treereference.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

class JsonReference
{
public:
    explicit JsonReference(const TreeReadOptions &options)
        : m_table(options, options.arraysAsRows == 1)
    {
    }

    TreeOutcome read(const QString &text)
    {
        TreeOutcome reading;
        reading.done = readText(text);
        reading.warnings = m_warnings;
        if (reading.done) {
            reading.header = m_table.header();
            reading.rows = m_table.rows();
            if (m_table.emptyRows() > 0) {
                reading.infos.append(QStringLiteral("%1 empty row(s) ignored").arg(m_table.emptyRows()));
            }
        }
        return reading;
    }

private:
    bool readText(const QString &text)
    {
        QJsonParseError error;
        const QJsonDocument document = parsed(text, &error);
        if (document.isArray()) {
            for (const QJsonValue &value : document.array()) {
                m_table.add(tree(value, QString()), false);
            }
            return true;
        }
        if (document.isObject()) {
            m_table.add(tree(document.object(), QString()), true);
            return true;
        }
        if (error.error == QJsonParseError::GarbageAtEnd || error.error == QJsonParseError::IllegalValue) {
            const QJsonArray wrapped = QJsonDocument::fromJson("[" + text.toUtf8() + "]").array();
            if (wrapped.size() == 1 && !wrapped.at(0).isArray() && !wrapped.at(0).isObject()) {
                m_warnings.append(QStringLiteral("Array or object expected at top-level in JSON"));
                return false;
            }
            if (!text.trimmed().isEmpty()) {
                return readLines(text, faultAt(text.toUtf8(), error));
            }
        }
        QString warning = QStringLiteral("Error parsing JSON: ") + error.errorString();
        if (error.offset > 0) {
            warning += QStringLiteral(" at offset %1").arg(error.offset);
        }
        m_warnings.append(warning + QLatin1Char('.'));
        return false;
    }

    /// The library drops a byte order mark that a string begins with, unless it is escaped.
    static QJsonDocument parsed(QString text, QJsonParseError *error)
    {
        QJsonDocument::fromJson(text.toUtf8(), error);
        return QJsonDocument::fromJson(text.replace(QString('"') + QChar(0xFEFF), "\"\\uFEFF").toUtf8());
    }

    /// Where the text stops being a document: line, offset in it and what is wrong.
    static QString faultAt(const QByteArray &text, const QJsonParseError &error)
    {
        const bool isGarbage = error.error == QJsonParseError::GarbageAtEnd;
        int offset = error.offset;
        while (!isGarbage && offset > 0 && QByteArray(" \t\r\n").contains(text.at(offset - 1))) {
            --offset;
        }
        const QString before = QString::fromLatin1(text.constData(), offset);
        const QStringList lines = before.split(QRegularExpression(
            before.endsWith('\r') && text.mid(offset, 1) == "\n" ? "\r\n|\n|\r(?!$)" : "\r\n|\n|\r"));
        return QStringLiteral("Error parsing JSON lines: at line %1 offset %2: %3")
            .arg(lines.size())
            .arg(lines.last().size())
            .arg(isGarbage ? QStringLiteral("more follows behind the first value") : error.errorString());
    }

    bool readLines(const QString &text, const QString &fault)
    {
        int number = 0;
        bool hasRecords = false;
        for (QString line : text.split(QRegularExpression(QStringLiteral("\r\n|\n|\r")))) {
            ++number;
            line = line.trimmed();
            if (line.isEmpty()) {
                continue;
            }
            if (line.startsWith(QChar(0xFEFF))) {
                line.remove(0, 1);
            }
            QJsonParseError error;
            const QJsonDocument document = parsed(line, &error);
            if (!document.isObject()) {
                const bool isValue = error.error == QJsonParseError::NoError;
                m_warnings.append(
                    hasRecords ? QStringLiteral("Error parsing JSON lines: at line %1 offset %2: %3")
                                     .arg(number)
                                     .arg(error.offset)
                                     .arg(isValue ? QStringLiteral("an object was expected") : error.errorString())
                               : fault);
                return false;
            }
            hasRecords = true;
            m_table.add(tree(document.object(), QString()), true);
        }
        return true;
    }

    ReferenceNode tree(const QJsonValue &value, QString key)
    {
        ReferenceNode node;
        node.key = m_table.cleaned(key.replace(QLatin1Char('.'), QLatin1Char('-')));
        if (value.isArray()) {
            node.kind = ReferenceNode::Array;
            for (const QJsonValue &element : value.toArray()) {
                node.children.append(tree(element, QString()));
            }
        } else if (value.isObject()) {
            node.kind = ReferenceNode::Object;
            const QJsonObject object = value.toObject();
            for (auto member = object.begin(); member != object.end(); ++member) {
                node.children.append(tree(member.value(), member.key()));
            }
        } else {
            node.value = m_table.cleaned(value.isBool()     ? boolText(value.toBool())
                                         : value.isDouble() ? formatReal(value.toDouble(), false, -1, true)
                                         : value.isNull()   ? QStringLiteral("null")
                                                            : value.toString());
        }
        return node;
    }

    ReferenceTable m_table;
    QStringList m_warnings;
};

} // namespace

TreeOutcome referenceJson(const QByteArray &bytes, const TreeReadOptions &options)
{
    return JsonReference(options).read(wholeText(bytes));
}
