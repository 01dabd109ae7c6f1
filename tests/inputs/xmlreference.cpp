#include "inputs/xmlreference.h"

#include "inputs/referencereader.h"
#include "inputs/treereference.h"

#include <QDomDocument>

namespace {

ReferenceNode leaf(const QString &key, const QString &value)
{
    ReferenceNode node;
    node.key = key;
    node.value = value;
    return node;
}

class XmlReference
{
public:
    XmlReference(const TreeReadOptions &options, bool longRows)
        : m_table(options, longRows)
    {
    }

    ReferenceTable &table() { return m_table; }

    void addRecords(const QDomElement &document)
    {
        for (QDomNode child = document.firstChild(); !child.isNull(); child = child.nextSibling()) {
            if (child.isElement()) {
                ReferenceNode record = element(child.toElement());
                if (record.kind == ReferenceNode::Leaf) {
                    ReferenceNode object;
                    object.kind = ReferenceNode::Object;
                    if (!text(child).isEmpty()) {
                        object.children.append(record);
                    }
                    record = object;
                } else if (!record.children.isEmpty() && record.children.first().key.isNull()) {
                    record.children.first().key = m_table.cleaned(child.nodeName());
                }
                m_table.add(record, false);
            } else if (child.isText() || child.isCDATASection() || child.isEntityReference()) {
                ReferenceNode object;
                object.kind = ReferenceNode::Object;
                object.children.append(leaf(child.isEntityReference() ? QStringLiteral("#text") : child.nodeName(),
                    m_table.cleaned(textOf(child))));
                m_table.add(object, false);
            }
        }
    }

private:
    static QString textOf(const QDomNode &node)
    {
        if (node.isEntityReference()) {
            return QLatin1Char('&') + node.nodeName() + QLatin1Char(';');
        }
        return node.isText() || node.isCDATASection() ? node.nodeValue() : QString();
    }

    static QString text(const QDomNode &node)
    {
        QString joined;
        for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
            joined += textOf(child);
        }
        return joined;
    }

    ReferenceNode element(const QDomElement &source)
    {
        ReferenceNode node = leaf(m_table.cleaned(source.nodeName()), m_table.cleaned(text(source)));
        QList<ReferenceNode> children;
        const QDomNamedNodeMap attributes = source.attributes();
        for (int i = 0; i < attributes.count(); ++i) {
            const QDomNode attribute = attributes.item(i);
            children.append(leaf(m_table.cleaned(attribute.nodeName()), m_table.cleaned(attribute.nodeValue())));
        }
        for (QDomElement child = source.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            children.append(element(child));
        }
        if (children.isEmpty()) {
            return node;
        }
        node.kind = ReferenceNode::Object;
        if (!text(source).isEmpty()) {
            node.children.append(leaf(QString(), node.value));
        }
        for (int i = 0; i < children.size(); ++i) {
            ReferenceNode group;
            group.kind = ReferenceNode::Array;
            group.key = children.at(i).key;
            for (int other = children.size() - 1; other > i; --other) {
                if (children.at(other).key == group.key) {
                    group.children.prepend(children.takeAt(other));
                }
            }
            group.children.prepend(children.at(i));
            node.children.append(group.children.size() > 1 ? group : children.at(i));
        }
        return node;
    }

    ReferenceTable m_table;
};

} // namespace

TreeOutcome referenceXml(const QByteArray &bytes, const TreeReadOptions &options)
{
    QDomDocument document;
    QString message;
    int line = 0;
    int column = 0;
    TreeOutcome outcome;
    outcome.done = document.setContent(wholeText(bytes), &message, &line, &column);
    if (!outcome.done) {
        const QString warning = QStringLiteral("Error parsing XML: %1 at line %2 column %3");
        outcome.warnings.append(warning.arg(message, QString::number(line), QString::number(column)));
        return outcome;
    }
    XmlReference reference(options, options.arraysAsRows != 0);
    reference.addRecords(document.documentElement());
    outcome.header = reference.table().header();
    outcome.rows = reference.table().rows();
    if (reference.table().emptyRows() > 0) {
        outcome.infos.append(QStringLiteral("%1 empty row(s) ignored").arg(reference.table().emptyRows()));
    }
    return outcome;
}
