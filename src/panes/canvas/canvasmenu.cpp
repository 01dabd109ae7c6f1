#include "panes/canvas/canvasmenu.h"

#include "graph/graphscene.h"
#include "graph/notenode.h"
#include "graph/pictures.h"
#include "graph/transformnode.h"
#include "panes/canvas/transformchoice.h"
#include "panes/icons.h"
#include "transforms/frame/transform.h"

#include <QMenu>

namespace {

/// Adds those that there are, behind a separator if asked.
void addAll(QMenu &menu, std::initializer_list<QAction *> actions)
{
    for (QAction *action : actions) {
        if (action) {
            menu.addAction(action);
        }
    }
}

} // namespace

CanvasMenu::CanvasMenu(const CanvasActions &actions, GraphScene &scene, const QPointF &scenePos)
    : m_actions(actions)
    , m_scene(scene)
    , m_scenePos(scenePos)
{
}

void CanvasMenu::fill(QMenu &menu) const
{
    const bool hasItem = m_scene.nodes(true).size() == 1;
    menu.setToolTipsVisible(true);
    if (hasItem) {
        addAll(menu, {m_actions.showFullscreen, m_actions.help});
        menu.addSeparator();
    }
    addAll(menu, {m_actions.inputFromFile, m_actions.inputFromClipboard});
    menu.addSeparator();
    addTransforms(menu);
    menu.addSeparator();
    addAll(menu, {m_actions.outputToFile, m_actions.outputToChart});
    addNotes(menu);
    menu.addSeparator();
    addAll(menu, {m_actions.connectTo});
    menu.addSeparator();
    addAll(menu, {m_actions.cut, m_actions.copy, m_actions.paste, m_actions.copyData, m_actions.duplicateBranch,
                     m_actions.remove});
}

void CanvasMenu::addTransforms(QMenu &menu) const
{
    for (int category = Transform::Merge; category <= Transform::Other; ++category) {
        QMenu *submenu = menu.addMenu(QStringLiteral("%1 transforms").arg(Transform::categoryName(category, true)));
        submenu->setToolTipsVisible(true);
        for (const TransformChoice &choice : TransformChoice::all()) {
            if (choice.category != category) {
                continue;
            }
            QAction *action = submenu->addAction(
                Pictures::icon(Pictures::ofTransform(choice.typeName), Icons::areDark()), choice.displayName);
            action->setData(choice.typeName);
            action->setToolTip(choice.description);
            action->setEnabled(choice.fits(m_scene));
            QObject::connect(action, &QAction::triggered, &m_scene, &GraphScene::onAddedTransformFromRightClick);
        }
    }
}

void CanvasMenu::addNotes(QMenu &menu) const
{
    QMenu *submenu = menu.addMenu(QStringLiteral("&Note"));
    const QList<Node *> selected = m_scene.nodes(true);
    GraphScene *scene = &m_scene;
    if (selected.size() != 1 || selected.first()->type() == ItemType::Note) {
        const QPointF place = m_scenePos;
        submenu->addAction(
            QStringLiteral("&Here"), scene, [scene, place] { scene->addNote(place, NoteNode::NoArrow); });
        return;
    }
    const Node *node = selected.first();
    const QPointF centre = node->centre();
    const auto add = [=](const char *text, NoteArrow::Arrow arrow) {
        submenu->addAction(QString::fromLatin1(text), scene, [=] { scene->addNote(centre, arrow); });
    };
    add("Aut&o", scene->autoNoteArrow(node));
    add("&Above", NoteNode::Down);
    add("&Right", NoteNode::Left);
    add("&Below", NoteNode::Up);
    add("&Left", NoteNode::Right);
}
