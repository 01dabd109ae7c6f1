#pragma once

#include "outputs/xmlwriter.h"
#include "outputtreenode.h"

#include <QMap>
#include <algorithm>

/// XML written from the tree of all rows, step by step, as text.
class PlainXml
{
public:
    PlainXml(const Dataset &dataset, const XmlWriter::Format &format, const QString &lineEnding)
        : m_lineEnding(lineEnding)
    {
        std::unique_ptr<OutputTreeNode> top = buildOutputTreeNodes(dataset, format.removeEmpty);
        QStringList parts = partsOf(format.rowName);
        for (size_t row = 0; row < top->children.size(); ++row) {
            OutputTreeNode *node = top->children[row].get();
            node->column = static_cast<int>(row);
            node->name = parts.at(0);
            for (int i = 1; i < parts.size(); ++i) {
                node = node->insertBelow(parts.at(i));
            }
        }
        parts = partsOf(format.rootName);
        top->name = parts.takeLast();
        while (!parts.isEmpty()) {
            auto above = std::make_unique<OutputTreeNode>(parts.takeLast());
            top->parent = above.get();
            above->children.push_back(std::move(top));
            top = std::move(above);
        }
        text = "<?xml version=\"1.0\" encoding=\"" + format.encoding + "\"?>" + lineEnding;
        if (!format.comment.isEmpty()) {
            text += "<!--" + escaped(format.comment) + "-->" + lineEnding;
        }
        write(*top, format.aboveRoot, format.belowRoot);
    }

    QString text;

private:
    static QStringList partsOf(const QString &name)
    {
        const QStringList parts = name.split('.', Qt::SkipEmptyParts);
        return parts.isEmpty() ? QStringList{QString()} : parts;
    }

    static QString escaped(QString text)
    {
        return text.replace('&', "&amp;")
            .replace('"', "&quot;")
            .replace('\'', "&apos;")
            .replace('<', "&lt;")
            .replace('>', "&gt;");
    }

    static QString tagOf(const QString &name)
    {
        QString tag = escaped(name);
        while (tag.startsWith('!')) {
            tag.remove(0, 1);
        }
        return tag.isEmpty() ? QString("_") : tag.replace(' ', '-');
    }

    static bool isKeyless(const QString &name) { return name.startsWith('_') && name.count('!') == name.size() - 1; }

    /// The key of an attribute; where nothing is left of its name, underscores that no sibling has for a key.
    static QString keyOf(const OutputTreeNode &leaf)
    {
        QString key = tagOf(leaf.name.mid(1));
        const auto isTaken = [&key](const std::unique_ptr<OutputTreeNode> &sibling) {
            return sibling->name.startsWith('_') && !isKeyless(sibling->name) && tagOf(sibling->name.mid(1)) == key;
        };
        const auto &siblings = leaf.parent->children;
        while (isKeyless(leaf.name) && std::any_of(siblings.begin(), siblings.end(), isTaken)) {
            key += '_';
        }
        return key;
    }

    void addLines(const QString &lines, const QString &indent)
    {
        if (!lines.isEmpty()) {
            for (const QString &line : lines.split('\n')) {
                text += indent + line + m_lineEnding;
            }
        }
    }

    void write(const OutputTreeNode &node, const QString &above, const QString &below)
    {
        if (node.isLeaf()) {
            return;
        }
        const QString tag = tagOf(node.name);
        const QString indent(2 * node.depth(), ' ');
        QMap<QString, QString> attributes;
        std::vector<const OutputTreeNode *> elements;
        for (const auto &child : node.children) {
            if (!child->isLeaf() || !child->name.startsWith('_')) {
                elements.push_back(child.get());
            } else if (!child->value.isEmpty()) {
                attributes[keyOf(*child)] = escaped(child->value);
            }
        }
        if (!elements.empty() && !node.value.isEmpty()) {
            QString key = "value";
            while (attributes.contains(key)) {
                key = "_" + key;
            }
            attributes[key] = escaped(node.value);
        }
        if (attributes.isEmpty()) {
            addLines(above, indent);
            text += indent + "<" + tag + ">" + m_lineEnding;
            addLines(below, indent + "  ");
        } else {
            QStringList pairs;
            for (auto it = attributes.cbegin(); it != attributes.cend(); ++it) {
                pairs.append(it.key() + "=\"" + it.value() + "\"");
            }
            text += indent + "<" + tag + " " + pairs.join(" ");
            if (elements.empty()) {
                text += (node.value.isEmpty() ? "/>" : ">" + escaped(node.value) + "</" + tag + ">") + m_lineEnding;
                return;
            }
            text += ">" + m_lineEnding;
        }
        std::stable_sort(elements.begin(), elements.end(),
            [](const OutputTreeNode *a, const OutputTreeNode *b) { return a->column < b->column; });
        for (const OutputTreeNode *child : elements) {
            if (child->isLeaf()) {
                const QString childTag = tagOf(child->name);
                text += indent + "  <" + childTag + ">" + escaped(child->value) + "</" + childTag + ">" + m_lineEnding;
            } else {
                write(*child, QString(), QString());
            }
        }
        text += indent + "</" + tag + ">" + m_lineEnding;
    }

    const QString m_lineEnding;
};
