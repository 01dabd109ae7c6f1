#include "panes/canvas/keyboardconnection.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodelook.h"
#include "graph/nodeorder.h"

#include <QKeyEvent>

KeyboardConnection::KeyboardConnection(QObject *parent)
    : QObject(parent)
{
}

bool KeyboardConnection::start(GraphScene &scene)
{
    cancel();
    const QList<Node *> selected = scene.nodes(true);
    if (selected.size() != 1 || scene.isProcessing() || !selected.first()->canAcceptConnection()) {
        emit message(QStringLiteral("Nothing to connect to"));
        return false;
    }
    m_scene = &scene;
    m_from = selected.first();
    QList<Node *> targets = scene.connectableTargets(m_from);
    NodeOrder::sortTopToBottom(targets);
    m_targets.clear();
    for (Node *target : qAsConst(targets)) {
        m_targets.append(target);
    }
    scene.startConnection(m_from);
    choose(0);
    return true;
}

bool KeyboardConnection::isActive() const
{
    return m_scene;
}

Node *KeyboardConnection::target() const
{
    return m_index >= 0 ? m_targets.at(m_index).data() : nullptr;
}

void KeyboardConnection::choose(int index)
{
    if (Node *old = target()) {
        old->look().setHighlighted(false);
    }
    m_index = index;
    Node *chosen = target();
    if (!chosen) {
        cancel();
        return;
    }
    chosen->look().setHighlighted(true);
    m_scene->setConnectionEnd(chosen->connectionPoint(Direction::Incoming, 0.5));
    emit targetChanged(chosen);
    emit message(QStringLiteral("Connect '%1' to '%2': Enter connects, arrow keys choose, Esc ends")
                     .arg(m_from->name(), chosen->name()));
}

bool KeyboardConnection::handleKey(const QKeyEvent &event)
{
    if (!isActive() || !m_from || !m_scene->isConnecting()) {
        cancel();
        return false;
    }
    const int count = m_targets.size();
    switch (event.key()) {
    case Qt::Key_Down:
    case Qt::Key_Right:
        choose((m_index + 1) % count);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Left:
        choose((m_index + count - 1) % count);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        finish(true);
        return true;
    case Qt::Key_Escape:
        finish(false);
        return true;
    default:
        return false;
    }
}

void KeyboardConnection::cancel()
{
    if (isActive()) {
        finish(false);
    }
}

void KeyboardConnection::finish(bool connects)
{
    const QPointer<GraphScene> scene = m_scene;
    const QPointer<Node> from = m_from;
    const QPointer<Node> chosen = target();
    if (chosen) {
        chosen->look().setHighlighted(false);
    }
    m_scene.clear();
    m_targets.clear();
    m_index = -1;
    emit targetChanged(nullptr);
    if (!scene) {
        return;
    }
    connects &&chosen ? scene->connectNodes(chosen) : scene->endConnection();
    // The focus stays with what the person is working on.
    Node *next = connects ? chosen.data() : from.data();
    if (next) {
        next->setSelected(true);
    }
}
