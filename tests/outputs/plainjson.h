#pragma once

#include "data/values.h"
#include "outputs/jsonwriter.h"
#include "outputtreenode.h"

/// JSON written from the tree of all rows, step by step, as text.
class PlainJson
{
public:
    PlainJson(const Dataset &dataset, const JsonColumnTypes &types, bool removeEmpty, const QString &lineEnding)
        : m_types(types)
        , m_lineEnding(lineEnding)
    {
        text = "[" + lineEnding;
        const auto root = buildOutputTreeNodes(dataset, removeEmpty);
        for (const auto &row : root->children) {
            write(*row);
        }
        text += "]" + lineEnding;
    }

    QString text;
    CappedList issues;

private:
    void write(const OutputTreeNode &node)
    {
        const QString indent(2 * node.depth(), ' ');
        if (node.isLeaf()) {
            const QString value = valueText(node);
            text += indent + "\"" + escaped(node.name) + "\": " + value;
        } else {
            text += indent + (node.depth() == 1 ? QString("{") : "\"" + escaped(node.name) + "\": {") + m_lineEnding;
            for (const auto &child : node.children) {
                write(*child);
            }
            text += indent + "}";
        }
        text += (node.isLastChild() ? "" : ",") + m_lineEnding;
    }

    QString valueText(const OutputTreeNode &leaf)
    {
        const int type = m_types.value(leaf.column, 0);
        bool ok = true;
        QString result;
        if (type == JsonColumnType::Boolean) {
            result = parseBoolean(leaf.value, true, true, &ok) ? "true" : "false";
        } else if (type == JsonColumnType::Number) {
            ok = isJsonNumber(leaf.value.trimmed());
            result = leaf.value;
        } else {
            result = type == JsonColumnType::RawData ? leaf.value : "\"" + escaped(leaf.value) + "\"";
        }
        if (!ok) {
            issues.add("'" + leaf.value + "' not of type " + JsonColumnType::label(type) + " in column "
                       + QString::number(leaf.column + 1) + ".");
            return "null";
        }
        return result;
    }

    static QString escaped(QString text)
    {
        const QString from = "\\\"/\b\f\n\r\t";
        const QString to = "\\\"/bfnrt";
        for (int i = text.size() - 1; i >= 0; --i) {
            const int at = from.indexOf(text.at(i));
            if (at >= 0) {
                text.replace(i, 1, QString("\\") + to.at(at));
            }
        }
        return text;
    }

    const JsonColumnTypes m_types;
    const QString m_lineEnding;
};
