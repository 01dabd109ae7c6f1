#include "panes/canvas/nodeaccessible.h"

#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/canvas/graphpane.h"

namespace {

const QString selectAction = QStringLiteral("Select");
const QString runAction = QStringLiteral("Run");
const QString optionsAction = QStringLiteral("Show options");

} // namespace

NodeAccessible::NodeAccessible(Node *node)
    : QAccessibleObject(node)
{
}

Node *NodeAccessible::node() const
{
    return static_cast<Node *>(object());
}

GraphPane *NodeAccessible::pane() const
{
    const GraphScene *scene = node() ? node()->graphScene() : nullptr;
    return scene && !scene->views().isEmpty() ? qobject_cast<GraphPane *>(scene->views().first()) : nullptr;
}

QString NodeAccessible::nameOf(const Node &node)
{
    if (node.type() == ItemType::Note) {
        return QStringLiteral("Note, %1").arg(node.comment());
    }
    QStringList parts{node.name(), node.displaySizeText(), node.stateText().toLower()};
    const int warnings = node.warningCount();
    if (warnings > 0) {
        parts.append(QStringLiteral("%1 %2").arg(
            formatInteger(warnings, true), warnings == 1 ? QStringLiteral("warning") : QStringLiteral("warnings")));
    }
    return parts.join(QStringLiteral(", "));
}

QAccessibleInterface *NodeAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(pane());
}

QString NodeAccessible::text(QAccessible::Text type) const
{
    if (!node()) {
        return {};
    }
    switch (type) {
    case QAccessible::Name:
        return nameOf(*node());
    case QAccessible::Description:
        return node()->comment().isEmpty() ? node()->description() : node()->comment();
    case QAccessible::Help:
        return node()->warningsText();
    default:
        return {};
    }
}

QRect NodeAccessible::rect() const
{
    const GraphPane *view = pane();
    if (!view) {
        return {};
    }
    const QRect area = view->mapFromScene(node()->mapRectToScene(node()->boxRect())).boundingRect();
    return {view->viewport()->mapToGlobal(area.topLeft()), area.size()};
}

QAccessible::State NodeAccessible::state() const
{
    QAccessible::State state;
    const GraphPane *view = pane();
    if (!view) {
        state.invalid = true;
        return state;
    }
    state.focusable = state.selectable = state.multiSelectable = true;
    state.selected = node()->isSelected();
    state.focused = node()->isSelected() && view->hasFocus() && view->graph()->nodes(true).size() == 1;
    state.busy = node()->state() == NodeState::Processing;
    state.offscreen = !view->viewport()->rect().intersects(
        view->mapFromScene(node()->mapRectToScene(node()->boxRect())).boundingRect());
    return state;
}

QVector<QPair<QAccessibleInterface *, QAccessible::Relation>> NodeAccessible::relations(
    QAccessible::Relation match) const
{
    QVector<QPair<QAccessibleInterface *, QAccessible::Relation>> found;
    const auto add = [&](const QList<Node *> &nodes, QAccessible::Relation relation) {
        for (Node *other : nodes) {
            if (match & relation) {
                found.append({QAccessible::queryAccessibleInterface(other), relation});
            }
        }
    };
    if (node()) {
        add(node()->upstreamNodes(true), QAccessible::Controller);
        add(node()->downstreamNodes(true), QAccessible::Controlled);
    }
    return found;
}

void *NodeAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList NodeAccessible::actionNames() const
{
    return {selectAction, runAction, optionsAction};
}

void NodeAccessible::doAction(const QString &name)
{
    GraphPane *view = pane();
    if (!view || !view->isInteractive()) {
        return;
    }
    view->graph()->clearSelection();
    node()->setSelected(true);
    view->ensureVisible(node());
    if (name == runAction) {
        emit view->runSelectedRequested();
    } else if (name == optionsAction) {
        emit view->optionsRequested();
    }
}
