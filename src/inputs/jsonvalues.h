#pragma once

#include "data/realwriter.h"
#include "inputs/treepaths.h"
#include "inputs/treerecord.h"

#include <QJsonValue>
#include <deque>

/// Makes records of values that QJsonDocument has parsed.
class JsonValues
{
public:
    JsonValues(TreePaths *paths, bool longArrays);

    /// Makes `value` the record; see JsonParser::parse(). The record lasts until the next call.
    void build(const QJsonValue &value, bool topLevel, TreeRecord *record);

private:
    void add(const QJsonValue &value, TreePath *path, int depth);
    void addMembers(const QJsonObject &object, TreePath *path, int depth);
    void addLeaf(TreePath *path, TreeNode::Kind kind, const QString &text);

    TreePaths *m_paths;
    const bool m_longArrays;
    const RealWriter m_realWriter;
    bool m_topLevel = false;
    TreeRecord *m_record = nullptr;
    std::deque<QByteArray> m_texts;
};
