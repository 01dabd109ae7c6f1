#include "panes/canvas/canvasaccessible.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodeorder.h"
#include "panes/canvas/graphpane.h"
#include "panes/canvas/nodeaccessible.h"

#include <QAccessibleWidget>

namespace {

/// The canvas itself: a list of its items, from left to right; an empty one has the button that it shows.
class CanvasInterface : public QAccessibleWidget
{
public:
    explicit CanvasInterface(GraphPane *pane)
        : QAccessibleWidget(pane, QAccessible::List, QStringLiteral("Center pane"))
    {
    }

    int childCount() const override { return children().size(); }
    QAccessibleInterface *child(int index) const override
    {
        return QAccessible::queryAccessibleInterface(children().value(index));
    }
    int indexOfChild(const QAccessibleInterface *child) const override { return children().indexOf(child->object()); }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        for (QObject *object : children()) {
            QAccessibleInterface *item = QAccessible::queryAccessibleInterface(object);
            if (item->rect().contains(x, y)) {
                return item;
            }
        }
        return nullptr;
    }
    QAccessibleInterface *focusChild() const override
    {
        const QList<Node *> selected = pane()->graph() ? pane()->graph()->nodes(true) : QList<Node *>();
        return selected.size() == 1 ? QAccessible::queryAccessibleInterface(selected.first()) : nullptr;
    }

private:
    GraphPane *pane() const { return static_cast<GraphPane *>(object()); }
    QList<QObject *> children() const
    {
        if (QObject *button = pane()->emptyCanvas().shownButton()) {
            return {button};
        }
        QList<Node *> nodes = pane()->graph() ? pane()->graph()->nodes() : QList<Node *>();
        NodeOrder::sortLeftToRight(nodes);
        QList<QObject *> objects;
        for (Node *node : nodes) {
            objects.append(node);
        }
        return objects;
    }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    if (auto *pane = qobject_cast<GraphPane *>(object)) {
        return new CanvasInterface(pane);
    }
    auto *node = qobject_cast<Node *>(object);
    return node ? new NodeAccessible(node) : nullptr;
}

} // namespace

void CanvasAccessible::install()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

void CanvasAccessible::notifySelection(GraphPane &pane)
{
    const QList<Node *> selected = pane.graph()->nodes(true);
    QAccessibleEvent changed(&pane, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&changed);
    if (selected.size() == 1 && pane.hasFocus()) {
        QAccessibleEvent focus(selected.first(), QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
}

void CanvasAccessible::notifyItems(GraphPane &pane)
{
    QAccessibleEvent reordered(&pane, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&reordered);
}
