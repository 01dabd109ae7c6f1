#include "app/itemkeys.h"

#include "app/documentsession.h"
#include "graph/graphscene.h"
#include "graph/ionode.h"
#include "graph/nodeorder.h"
#include "panes/canvas/graphpane.h"

#include <QShortcut>

namespace {

constexpr int lastNumber = 9;
constexpr int visibleMargin = 50;

QList<Node *> asNodes(const QList<IONode *> &items)
{
    QList<Node *> nodes;
    for (IONode *item : items) {
        nodes.append(item);
    }
    return nodes;
}

} // namespace

ItemKeys::ItemKeys(const CommandContext &context)
    : m_context(context)
{
    for (int number = 1; number <= lastNumber; ++number) {
        auto *input = new QShortcut(Qt::CTRL + Qt::Key_0 + number, &context.window);
        QObject::connect(input, &QShortcut::activated, [this, number] { selectInput(number); });
        auto *output = new QShortcut(Qt::SHIFT + Qt::CTRL + Qt::Key_0 + number, &context.window);
        QObject::connect(output, &QShortcut::activated, [this, number] { selectOutput(number); });
    }
}

void ItemKeys::selectInput(int number) const
{
    select(asNodes(m_context.session.scene().inputNodes()), number);
}

void ItemKeys::selectOutput(int number) const
{
    select(asNodes(m_context.session.scene().outputNodes()), number);
}

void ItemKeys::select(QList<Node *> nodes, int number) const
{
    GraphScene &scene = m_context.session.scene();
    if (scene.isProcessing() || number > nodes.size()) {
        return;
    }
    NodeOrder::sortById(nodes);
    scene.clearSelection();
    nodes.at(number - 1)->setSelected(true);
    m_context.graphPane.ensureVisible(nodes.at(number - 1), visibleMargin, visibleMargin);
}
