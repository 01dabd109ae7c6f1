#include "outputs/outputtree.h"

#include <QHash>
#include <QPair>
#include <algorithm>

namespace {

/// A node while the tree grows, its children by number in order of creation.
struct Draft
{
    OutputTree::Node node;
    std::vector<int> children;
};

/// Grows a tree name by name.
class Builder
{
public:
    Builder()
        : m_drafts(1)
    {
    }

    void addColumn(int column, const QString &name)
    {
        const QStringList parts = name.split(QLatin1Char('.'));
        int at = 0;
        touch(at, column);
        for (int i = 0; i < parts.size(); ++i) {
            const bool isLast = i == parts.size() - 1;
            const int found = isLast ? -1 : m_firstByName.value({at, parts.at(i)}, -1);
            at = found >= 0 ? found : addChild(at, parts.at(i));
            touch(at, column);
        }
        m_drafts[static_cast<size_t>(at)].node.valueColumn = column;
    }

    /// The nodes, renumbered so that each is followed by its descendants.
    std::vector<OutputTree::Node> finished()
    {
        std::vector<OutputTree::Node> nodes;
        nodes.reserve(m_drafts.size());
        // Names can nest very deeply, so the way back is held in a list.
        struct Open
        {
            int draft;
            int number;
            size_t nextChild;
        };
        std::vector<Open> open;
        const auto enter = [&](int draft) {
            OutputTree::Node node = m_drafts[static_cast<size_t>(draft)].node;
            node.parent = open.empty() ? -1 : open.back().number;
            node.depth = static_cast<int>(open.size());
            open.push_back({draft, static_cast<int>(nodes.size()), 0});
            nodes.push_back(node);
        };
        enter(0);
        while (!open.empty()) {
            const std::vector<int> &children = m_drafts[static_cast<size_t>(open.back().draft)].children;
            if (open.back().nextChild < children.size()) {
                enter(children[open.back().nextChild++]);
            } else {
                nodes[static_cast<size_t>(open.back().number)].end = static_cast<int>(nodes.size());
                open.pop_back();
            }
        }
        return nodes;
    }

private:
    void touch(int draft, int column) { m_drafts[static_cast<size_t>(draft)].node.column = column; }

    int addChild(int parent, const QString &name)
    {
        const int child = static_cast<int>(m_drafts.size());
        m_drafts.emplace_back();
        m_drafts.back().node.name = name;
        m_drafts[static_cast<size_t>(parent)].children.push_back(child);
        const QPair<int, QString> key(parent, name);
        if (!m_firstByName.contains(key)) {
            m_firstByName.insert(key, child);
        }
        return child;
    }

    std::vector<Draft> m_drafts;
    QHash<QPair<int, QString>, int> m_firstByName;
};

std::vector<OutputTree::Node> shapeOf(const QStringList &names)
{
    Builder builder;
    for (int column = 0; column < names.size(); ++column) {
        builder.addColumn(column, names.at(column));
    }
    return builder.finished();
}

const Cell noValue;

} // namespace

QString OutputTree::tooDeep(const QStringList &names)
{
    const auto found = std::find_if(
        names.cbegin(), names.cend(), [](const QString &name) { return name.count(QLatin1Char('.')) >= maxLevels; });
    return found == names.cend() ? QString() : *found;
}

OutputTree::OutputTree(const Dataset &dataset, bool removeEmpty)
    : m_cells(dataset)
    , m_nodes(shapeOf(dataset.columnNames()))
    , m_states(m_nodes.size())
    , m_removeEmpty(removeEmpty)
{
    assumeAll();
}

void OutputTree::assumeAll()
{
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        const bool hasChild = m_nodes[i].end > static_cast<int>(i) + 1;
        m_states[i] = hasChild ? HasValue | HasChild : HasValue;
    }
}

bool OutputTree::goTo(int row)
{
    m_row = row;
    if (!m_removeEmpty) {
        return true;
    }
    std::fill(m_states.begin(), m_states.end(), uchar(0));
    for (size_t i = m_nodes.size() - 1; i > 0; --i) {
        const Node &node = m_nodes[i];
        if (node.valueColumn >= 0 && !m_cells.at(row, node.valueColumn).isEmpty()) {
            m_states[i] |= HasValue;
        }
        if (m_states[i]) {
            m_states[static_cast<size_t>(node.parent)] |= HasChild;
        }
    }
    return m_states[0] != 0;
}

const Cell &OutputTree::value(int node) const
{
    const int column = m_nodes[static_cast<size_t>(node)].valueColumn;
    return column < 0 ? noValue : m_cells.at(m_row, column);
}

OutputTree buildOutputTree(const Dataset &dataset, bool removeEmpty)
{
    return OutputTree(dataset, removeEmpty);
}
