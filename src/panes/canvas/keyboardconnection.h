#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class GraphScene;
class Node;
class QKeyEvent;

/// Connects an item to another by the keyboard: the arrow keys choose among those that it may be connected to, Enter
/// connects and Esc ends it.
class KeyboardConnection : public QObject
{
    Q_OBJECT

public:
    explicit KeyboardConnection(QObject *parent = nullptr);

    /// Begins at the one selected item; false when there is none, or nothing that it may be connected to.
    bool start(GraphScene &scene);
    bool isActive() const;
    /// The item that Enter would connect to, null while none is being chosen.
    Node *target() const;
    /// True when the key meant something to the connection.
    bool handleKey(const QKeyEvent &event);
    void cancel();

signals:
    /// Another item is being chosen; null at the end.
    void targetChanged(Node *target);
    /// What to tell the user.
    void message(const QString &text);

private:
    void choose(int index);
    void finish(bool connects);

    QPointer<GraphScene> m_scene;
    QPointer<Node> m_from;
    QList<QPointer<Node>> m_targets; ///< from top to bottom
    int m_index = -1;
};
