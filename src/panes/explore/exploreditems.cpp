#include "panes/explore/exploreditems.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/notenode.h"

ExploredItems::ExploredItems(QObject *parent)
    : QObject(parent)
{
    m_change.setSingleShot(true);
    connect(&m_change, &QTimer::timeout, this, [this] {
        if (!isRunning()) {
            emit changed();
        }
    });
}

void ExploredItems::setScene(GraphScene *scene)
{
    if (m_scene) {
        m_scene->disconnect(this);
    }
    m_scene = scene;
    const auto tell = [this] { m_change.start(); };
    connect(scene, &GraphScene::nodesAdded, this, tell);
    connect(scene, &GraphScene::nodesDeleted, this, tell);
    connect(scene, &GraphScene::nodeDataChanged, this, tell);
    connect(scene, &GraphScene::completedTransforms, this, tell);
    connect(scene, &GraphScene::allowUserInteraction, this, &ExploredItems::onInteractionAllowed);
    m_change.start();
}

void ExploredItems::onInteractionAllowed(bool allow)
{
    if (allow) {
        m_change.start();
    } else {
        emit runStarted();
    }
}

Node *ExploredItems::node(int id) const
{
    return m_scene ? m_scene->nodeById(id) : nullptr;
}

bool ExploredItems::isRunning() const
{
    return m_scene && m_scene->isProcessing();
}

QList<Node *> ExploredItems::withTable(const QList<Node *> &items)
{
    QList<Node *> result;
    for (Node *item : items) {
        if (!qgraphicsitem_cast<NoteNode *>(item)) {
            result.append(item);
        }
    }
    return result;
}

QString ExploredItems::label(const Node &node)
{
    return QStringLiteral("'%1', Id=%2, %3").arg(node.name(), QString::number(node.id()), node.kindName());
}
