#include "graph/node.h"

#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/nodedrag.h"
#include "graph/nodelook.h"

namespace {

/// The id of a new node that isn't in a scene yet. Not -1, which is that of no column in a ColumnId.
constexpr int unnumbered = -2;

} // namespace

Node::Node(int id)
    : NodeEdges(*this)
    , m_id(id == -1 ? unnumbered : id)
    , m_look(std::make_unique<NodeLook>(*this))
    , m_drag(std::make_unique<NodeDrag>(*this))
{
    setFlags(ItemIsMovable | ItemIsSelectable | ItemSendsGeometryChanges);
    setAcceptHoverEvents(true);
    setZValue(0);
}

Node::~Node()
{
    if (GraphScene *owner = graphScene()) {
        owner->boxes().remove(this);
    }
    for (Connection *connection : connections(Direction::Both)) {
        connection->forget(this);
    }
    // Its items are children of this one.
    m_look.reset();
}

void Node::setId(int id)
{
    m_id = id == -1 ? unnumbered : id;
    takeNumber();
}

/// In a scene: takes the document's next id if it has none, and keeps later ones larger than its own.
void Node::takeNumber()
{
    const GraphScene *owner = graphScene();
    if (!owner) {
        return;
    }
    int &next = owner->document()->nextId;
    if (m_id == unnumbered) {
        m_id = next;
    }
    next = qMax(next, m_id + 1);
}

void Node::takeColumnsAsText(const Node &) {}

void Node::goToRest()
{
    clearDataset();
    setState(NodeState::NeedsProcessing, false);
}

QString Node::kindName() const
{
    switch (type()) {
    case ItemType::Input:
        return QStringLiteral("Input");
    case ItemType::Transform:
        return QStringLiteral("Transform");
    case ItemType::Output:
        return QStringLiteral("Output");
    case ItemType::Note:
        return QStringLiteral("Note");
    case ItemType::Chart:
        return QStringLiteral("Chart");
    default:
        return QString();
    }
}

QString Node::labelWithId() const
{
    return QStringLiteral("%1 (%2)").arg(name(), QString::number(m_id));
}

void Node::setComment(const QString &text)
{
    if (text != m_comment) {
        prepareGeometryChange();
        m_comment = text;
        update();
    }
}

void Node::connectToScene(GraphScene *scene)
{
    connect(this, &Node::nodePosChanged, scene, &GraphScene::onPosChanged);
    connect(this, &Node::processingStart, scene, &GraphScene::onProcessingStart);
    connect(this, &Node::processed, scene, &GraphScene::onProcessed);
    connect(this, &Node::processingEnd, scene, &GraphScene::onProcessingEnd);
}

// State

void Node::setState(NodeState state, bool propagate)
{
    applyState(state);
    if (propagate) {
        // Each node once: walking the paths would double the work at every fork that joins again.
        for (Node *node : allDownstream(false)) {
            node->applyState(state);
        }
    }
}

void Node::applyState(NodeState state)
{
    if (state == m_state) {
        return;
    }
    m_state = state;
    update();
    for (Connection *connection : connections(Direction::Outgoing)) {
        connection->update();
    }
}

// Columns and copies

void Node::refreshColumnOptions()
{
    for (Node *node : allDownstream(false)) {
        node->allowReconnect();
    }
}

int Node::columnOptionsInUse(const Node *) const
{
    return 0;
}

Node *Node::clone() const
{
    Node *copy = cloneKind();
    copy->setPos(pos());
    copy->setComment(comment());
    if (type() != ItemType::Transform) {
        copy->setAlias(alias());
    }
    return copy;
}

void Node::deleteNode()
{
    for (Node *node : downstreamNodes(true)) {
        node->setState(NodeState::NeedsProcessing, true);
    }
    deleteConnections(Direction::Both);
    delete this;
}
