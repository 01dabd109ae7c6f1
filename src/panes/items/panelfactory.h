#pragma once

#include <QHash>
#include <functional>

class ItemWidget;
class Node;

/// Makes the panel of an item by its kind. Higher layers register theirs.
class PanelFactory
{
public:
    using Maker = std::function<ItemWidget *(Node &node)>;

    static PanelFactory &instance();
    /// `kind` is a value of ItemType.
    void add(int kind, Maker maker);
    /// A kind without a panel of its own gets the common one.
    ItemWidget *make(Node &node) const;

private:
    PanelFactory();

    QHash<int, Maker> m_makers;
};
