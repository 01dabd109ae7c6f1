#include "inputs/jsonreference.h"

#include "data/values.h"
#include "inputs/treereference.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextStream>

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
        const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &error);
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
                return readLines(text);
            }
        }
        QString warning = QStringLiteral("Error parsing JSON: ") + error.errorString();
        if (error.offset > 0) {
            warning += QStringLiteral(" at offset %1").arg(error.offset);
        }
        m_warnings.append(warning + QLatin1Char('.'));
        return false;
    }

    bool readLines(const QString &text)
    {
        int number = 0;
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
            const QJsonDocument document = QJsonDocument::fromJson(line.toUtf8(), &error);
            if (!document.isObject()) {
                m_warnings.append(QStringLiteral("Error parsing JSON lines: at line %1 offset %2: %3")
                                      .arg(number)
                                      .arg(error.offset)
                                      .arg(error.errorString()));
                return false;
            }
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
    QTextStream stream(bytes);
    stream.setCodec("UTF-8");
    return JsonReference(options).read(stream.readAll());
}
