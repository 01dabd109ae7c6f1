#pragma once

#include <QAccessibleObject>

class GraphPane;
class Node;

/// An item of the canvas as screen readers see it.
class NodeAccessible : public QAccessibleObject, public QAccessibleActionInterface
{
public:
    explicit NodeAccessible(Node *node);

    /// Such as "Join, 1,000 rows x 12 cols, up to date, 2 warnings".
    static QString nameOf(const Node &node);

    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text type) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    /// What feeds it is its controller, what it feeds is controlled.
    QVector<QPair<QAccessibleInterface *, QAccessible::Relation>> relations(
        QAccessible::Relation match = QAccessible::AllRelations) const override;

    void *interface_cast(QAccessible::InterfaceType type) override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    Node *node() const;
    GraphPane *pane() const;
};
