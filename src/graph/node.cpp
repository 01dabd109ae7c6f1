#include "graph/node.h"

#include "graph/colors.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/nodelook.h"
#include "graph/undostep.h"
#include "settings/settings.h"

namespace {

/// The id of a new node that isn't in a scene yet. Not -1, which is that of no column in a ColumnId.
constexpr int unnumbered = -2;

} // namespace

Node::Node(int id)
    : m_id(id == -1 ? unnumbered : id)
    , m_look(std::make_unique<NodeLook>(*this))
{
    setFlags(ItemIsMovable | ItemIsSelectable | ItemSendsGeometryChanges);
    setAcceptHoverEvents(true);
    setZValue(0);
}

Node::~Node()
{
    for (Connection *connection : qAsConst(m_connections)) {
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

GraphScene *Node::graphScene() const
{
    return qobject_cast<GraphScene *>(scene());
}

const Colors &Node::colors() const
{
    const GraphScene *owner = graphScene();
    return owner ? owner->colors() : Colors::current();
}

int Node::gradientEffect() const
{
    return colors().gradientEffect();
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

QString Node::stateText(NodeState state)
{
    switch (state) {
    case NodeState::NeedsProcessing:
        return QStringLiteral("Needs updating");
    case NodeState::Processing:
        return QStringLiteral("Updating");
    case NodeState::Processed:
        return QStringLiteral("Up to date");
    case NodeState::Failed:
        return QStringLiteral("Error");
    }
    return QString();
}

NodeStatusIcon Node::statusIcon() const
{
    if (m_isPreview) {
        return NodeStatusIcon::UpToDate;
    }
    switch (state()) {
    case NodeState::NeedsProcessing:
        return NodeStatusIcon::NeedsUpdate;
    case NodeState::Processing:
        return NodeStatusIcon::Processing;
    case NodeState::Failed:
        return NodeStatusIcon::Error;
    case NodeState::Processed:
        break;
    }
    // A warning on an empty result tells more than its emptiness.
    if (hasWarnings() && Settings::current().showWarnings()) {
        return NodeStatusIcon::Warning;
    }
    return isEmpty() ? NodeStatusIcon::Empty : NodeStatusIcon::UpToDate;
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
