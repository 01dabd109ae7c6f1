#include "inputs/jsonvalues.h"

#include "data/values.h"

#include <QJsonArray>
#include <QJsonObject>

JsonValues::JsonValues(TreePaths *paths, bool longArrays)
    : m_paths(paths)
    , m_longArrays(longArrays)
{
}

void JsonValues::build(const QJsonValue &value, bool topLevel, TreeRecord *record)
{
    m_record = record;
    m_record->clear();
    m_record->order = TreeRecord::BySource;
    m_topLevel = topLevel && value.isObject();
    m_texts.clear();
    add(value, m_paths->root(), 0);
}

/// The parser's limit of depth bounds the recursion.
void JsonValues::add(const QJsonValue &value, TreePath *path, int depth)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        addLeaf(path, TreeNode::Literal, boolText(value.toBool()));
        return;
    case QJsonValue::Double:
        addLeaf(path, TreeNode::Literal, m_realWriter.text(value.toDouble()));
        return;
    case QJsonValue::String:
        addLeaf(path, TreeNode::Text, value.toString());
        return;
    case QJsonValue::Array:
    case QJsonValue::Object:
        break;
    default:
        addLeaf(path, TreeNode::Literal, QStringLiteral("null"));
        return;
    }
    const size_t index = m_record->nodes.size();
    TreeNode node;
    node.path = path;
    node.kind = value.isObject() ? TreeNode::Object : TreeNode::Array;
    m_record->nodes.push_back(node);
    if (value.isObject()) {
        if (m_topLevel && depth == 1) {
            m_record->hasObjectMembers = true;
            path = m_paths->objectRoot();
        }
        addMembers(value.toObject(), path, depth + 1);
    } else {
        m_record->hasArrays = m_record->hasArrays || m_longArrays;
        int position = 0;
        const QJsonArray array = value.toArray();
        for (const QJsonValue &element : array) {
            add(element, m_longArrays ? path : m_paths->position(path, position++), depth + 1);
        }
    }
    m_record->nodes[index].end = static_cast<quint32>(m_record->nodes.size());
}

void JsonValues::addMembers(const QJsonObject &object, TreePath *path, int depth)
{
    QByteArray key;
    for (auto member = object.begin(); member != object.end(); ++member) {
        const QString name = member.key();
        key.resize(0);
        TextCoding::appendEncoded(key, name.constData(), name.size());
        add(member.value(), m_paths->child(path, key.constData(), key.size()), depth);
    }
}

void JsonValues::addLeaf(TreePath *path, TreeNode::Kind kind, const QString &text)
{
    m_texts.emplace_back();
    TextCoding::appendEncoded(m_texts.back(), text.constData(), text.size());
    TreeNode node;
    node.path = path;
    node.kind = kind;
    node.bytes = m_texts.back().constData();
    node.size = static_cast<quint32>(m_texts.back().size());
    m_record->nodes.push_back(node);
    m_record->nodes.back().end = static_cast<quint32>(m_record->nodes.size());
}
