#pragma once

#include "data/dataset.h"

#include <memory>
#include <vector>

/// The tree of all rows as it is defined, with a node for each element of each row: what the writers, which never
/// build it, are compared with.
class OutputTreeNode
{
public:
    explicit OutputTreeNode(const QString &nodeName = QString(), OutputTreeNode *above = nullptr)
        : name(nodeName)
        , parent(above)
    {
    }

    bool isLeaf() const { return children.empty(); }
    int depth() const { return parent ? parent->depth() + 1 : 0; }
    bool isLastChild() const { return !parent || parent->children.back().get() == this; }

    OutputTreeNode *addChild(const QString &childName)
    {
        children.push_back(std::make_unique<OutputTreeNode>(childName, this));
        return children.back().get();
    }

    OutputTreeNode *firstChild(const QString &childName) const
    {
        for (const auto &child : children) {
            if (child->name == childName) {
                return child.get();
            }
        }
        return nullptr;
    }

    void prune()
    {
        std::vector<std::unique_ptr<OutputTreeNode>> kept;
        for (auto &child : children) {
            child->prune();
            if (!child->isLeaf() || !child->value.isEmpty()) {
                kept.push_back(std::move(child));
            }
        }
        children = std::move(kept);
    }

    /// Puts a new node of that name between this one and its children.
    OutputTreeNode *insertBelow(const QString &nodeName)
    {
        std::vector<std::unique_ptr<OutputTreeNode>> taken = std::move(children);
        children.clear();
        OutputTreeNode *below = addChild(nodeName);
        below->children = std::move(taken);
        for (auto &child : below->children) {
            child->parent = below;
        }
        return below;
    }

    QString name;
    QString value;
    int column = -1;
    OutputTreeNode *parent;
    std::vector<std::unique_ptr<OutputTreeNode>> children;
};

/// The tree of a dataset; the root's children are the rows.
inline std::unique_ptr<OutputTreeNode> buildOutputTreeNodes(const Dataset &dataset, bool removeEmpty)
{
    auto root = std::make_unique<OutputTreeNode>();
    const QStringList names = dataset.columnNames();
    for (const RowIndex row : dataset.allRows()) {
        OutputTreeNode *const rowNode = root->addChild(QString());
        for (int column = 0; column < names.size(); ++column) {
            const QStringList parts = names.at(column).split('.');
            OutputTreeNode *node = rowNode;
            for (int i = 0; i < parts.size(); ++i) {
                OutputTreeNode *const found = i + 1 < parts.size() ? node->firstChild(parts.at(i)) : nullptr;
                node = found ? found : node->addChild(parts.at(i));
                node->column = column;
            }
            node->value = dataset.value(row, ColumnIndex(column));
        }
    }
    if (removeEmpty) {
        root->prune();
    }
    return root;
}
