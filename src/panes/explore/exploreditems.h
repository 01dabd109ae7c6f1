#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class GraphScene;
class Node;

/// The items that windows beside the canvas show, by their ids: undo replaces items, and a person deletes them or runs
/// them anew while such a window is open.
class ExploredItems : public QObject
{
    Q_OBJECT

public:
    explicit ExploredItems(QObject *parent = nullptr);

    /// The scene that is live from now on.
    void setScene(GraphScene *scene);
    /// Null for an item that isn't there any more.
    Node *node(int id) const;
    bool isRunning() const;
    /// Those of the items that can have a table, which notes can't.
    static QList<Node *> withTable(const QList<Node *> &items);
    /// "'name', Id=7, Transform".
    static QString label(const Node &node);

signals:
    /// Tables are about to change: who holds one lets go of it, or the old one stays in memory.
    void runStarted();
    /// Items have gone, come or have other tables; at most once each time that events are let in.
    void changed();

private:
    void onInteractionAllowed(bool allow);

    QPointer<GraphScene> m_scene;
    QTimer m_change;
};
