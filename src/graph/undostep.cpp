#include "graph/undostep.h"

#include "graph/documentstate.h"
#include "graph/graphscene.h"
#include "graph/node.h"

UndoStep::UndoStep(const GraphScene &scene, const QString &hint)
    : UndoStep(scene.document(), hint, Single)
{
}

UndoStep::UndoStep(const Node &node, const QString &hint, Kind kind)
    : UndoStep(node.graphScene() ? node.graphScene()->document() : nullptr, hint, kind)
{
}

UndoStep::UndoStep(std::shared_ptr<DocumentState> document, const QString &hint, Kind kind)
    : m_document(std::move(document))
    , m_isOutermost(m_document && !m_document->isUndoStepOpen)
{
    if (!m_isOutermost) {
        return;
    }
    if (m_document->hooks.beginUndoStep) {
        m_document->hooks.beginUndoStep(hint, kind == Typing);
    }
    m_document->isUndoStepOpen = true;
}

UndoStep::~UndoStep()
{
    if (!m_isOutermost) {
        return;
    }
    m_document->isUndoStepOpen = false;
    if (m_document->hooks.endUndoStep) {
        m_document->hooks.endUndoStep();
    }
}
