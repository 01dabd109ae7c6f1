#include "graph/nodeadder.h"

#include "files/excellimits.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/ionode.h"
#include "graph/nodefactory.h"
#include "graph/nodeorder.h"
#include "graph/nodeplacement.h"
#include "graph/notenode.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "graph/undostep.h"
#include "platform/waitcursor.h"
#include "settings/product.h"
#include "settings/settings.h"
#include "transforms/frame/transform.h"

#include <QDir>
#include <QFileInfo>
#include <QGraphicsView>
#include <QMap>

namespace {

constexpr int tipMs = 20000;
constexpr int shortcutTipFrom = 6;

QString counted(int count, const char *one, const char *many)
{
    return QStringLiteral("%1 %2").arg(QString::number(count), QString::fromLatin1(count == 1 ? one : many));
}

/// "*.csv" for the extension that most files of the folder have, the first by name of equals.
QString proposedMask(const QString &folder)
{
    QMap<QString, int> counts;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files)) {
        if (!file.suffix().isEmpty()) {
            ++counts[file.suffix().toLower()];
        }
    }
    QString best = QStringLiteral("csv");
    int most = 0;
    for (auto it = counts.constBegin(); it != counts.constEnd(); ++it) {
        if (it.value() > most) {
            most = it.value();
            best = it.key();
        }
    }
    return QStringLiteral("*.") + best;
}

} // namespace

// Transforms

bool NodeAdder::canAddTransform(
    const Transform &transform, int inputs, int transforms, int outputs, int charts, int notes, int connections)
{
    if (notes > 0 || outputs > 0 || charts > 0) {
        return false;
    }
    const int sources = inputs + transforms;
    const bool insertion = connections == 1 && sources == 0 && transform.maxInputs() >= 1;
    return insertion || (sources >= transform.minInputs() && sources <= transform.maxInputs());
}

bool NodeAdder::canAddToSelection(const Transform &transform) const
{
    return canAddTransform(transform, m_scene.inputNodes(true).size(), m_scene.transformNodes(true).size(),
        m_scene.outputNodes(true).size(), m_scene.chartNodes(true).size(), m_scene.noteNodes(true).size(),
        m_scene.connections(true).size());
}

QString NodeAdder::requirement(const Transform &transform) const
{
    const bool onlyInputs = m_scene.transformNodes().isEmpty();
    const QString noun = onlyInputs ? QStringLiteral("Input") : QStringLiteral("Input or Transform");
    const int least = transform.minInputs();
    const int most = transform.maxInputs();
    const QString count = QString::number(least);
    if (least == most && least == 1) {
        return QStringLiteral("just %1 %2 %3")
            .arg(count, onlyInputs ? noun : QStringLiteral("Input, Transform or Connection"), QStringLiteral("item"));
    }
    if (least == most) {
        return QStringLiteral("just %1 %2 %3").arg(count, noun, QStringLiteral("items"));
    }
    if (most == Transform::unlimitedInputs) {
        return QStringLiteral("at least %1 %2 %3")
            .arg(count, noun, least == 1 ? QStringLiteral("item") : QStringLiteral("items"));
    }
    return QStringLiteral("%1 to %2 %3 items").arg(count, QString::number(most), noun);
}

QString NodeAdder::refusal(const Transform &transform) const
{
    struct Kind
    {
        int count;
        const char *one;
        const char *many;
    };
    const Kind kinds[] = {{m_scene.connections(true).size(), "Connection", "Connections"},
        {m_scene.inputNodes(true).size(), "Input", "Inputs"},
        {m_scene.transformNodes(true).size(), "Transform", "Transforms"},
        {m_scene.outputNodes(true).size(), "Output", "Outputs"}};
    QStringList selected;
    for (const Kind &kind : kinds) {
        if (kind.count > 0) {
            selected.append(counted(kind.count, kind.one, kind.many));
        }
    }
    const QString first = selected.isEmpty()
                              ? QStringLiteral("No items selected.")
                              : QStringLiteral("Selected: ") + selected.join(QStringLiteral(", ")) + QLatin1Char('.');
    return first
           + QStringLiteral("\nTo add a '%1' transform you need to first select %2 in the Center pane.")
                 .arg(transform.displayName(), requirement(transform));
}

TransformNode *NodeAdder::addTransform(const Transform &prototype)
{
    if (!canAddToSelection(prototype)) {
        emit m_scene.showWarningMessage(refusal(prototype));
        return nullptr;
    }
    const UndoStep step(m_scene, QStringLiteral("add '%1'").arg(prototype.displayName()));
    const WaitCursor cursor;
    TransformNode *node = buildTransform(prototype);
    finishTransform(node);
    return node;
}

TransformNode *NodeAdder::buildTransform(const Transform &prototype)
{
    QList<Node *> sources = m_scene.nodes(true);
    QPointF centre = m_scene.newNodePosition();
    Node *target = nullptr;
    QList<Node *> moved;
    const QList<Connection *> selected = m_scene.connections(true);
    if (sources.isEmpty() && selected.size() == 1) {
        Connection *cut = selected.first();
        centre = NodePlacement::insertionCentre(*cut);
        sources = {cut->from()};
        target = cut->to();
        target->setState(NodeState::NeedsProcessing, true);
        cut->deleteConnection();
        moved = makeRoom(centre, target);
    }
    NodeOrder::sortTopToBottom(sources);
    m_scene.clearSelection();
    Transform *transform = prototype.clone();
    QList<DataSource *> inputs;
    for (Node *source : qAsConst(sources)) {
        inputs.append(source);
    }
    transform->createParameters(inputs, true);
    auto *node = new TransformNode(transform);
    m_scene.addItem(node);
    m_scene.placeAvoidingOverlap(node, centre, false);
    for (Node *source : qAsConst(sources)) {
        m_scene.insertConnection(source, node);
    }
    if (target) {
        m_scene.insertConnection(node, target);
        if (auto *fed = qgraphicsitem_cast<TransformNode *>(target)) {
            fed->setInputsChanged(false);
        }
        target->refreshColumnOptions();
    }
    if (!moved.isEmpty()) {
        m_scene.onPosChanged(moved);
    }
    m_scene.layOutConnections();
    return node;
}

/// Moves `target` and what is downstream of it a column to the right when `centre` is taken; returns what moved.
QList<Node *> NodeAdder::makeRoom(const QPointF &centre, Node *target)
{
    QRectF box = target->boxRect();
    box.moveCenter(centre);
    if (m_scene.snapToGrid()) {
        box.moveTopLeft(NodePlacement::snapped(box.topLeft()));
    }
    const QList<Node *> all = m_scene.nodes();
    const bool taken = std::any_of(all.begin(), all.end(), [&](const Node *node) {
        return node->type() != ItemType::Note && node->boxRect().translated(node->pos()).intersects(box);
    });
    if (!taken) {
        return {};
    }
    QList<Node *> moved = target->allDownstream(true).values();
    if (Settings::current().autoMoveNotes()) {
        moved += NodePlacement::attachedNotes(moved, all).values();
    }
    NodeOrder::sortById(moved);
    for (Node *node : qAsConst(moved)) {
        node->setX(node->x() + NodePlacement::gridWidth);
    }
    return moved;
}

void NodeAdder::finishTransform(TransformNode *node)
{
    node->setSelected(true);
    m_scene.updateSceneRect();
    node->connectToScene(&m_scene);
    emit m_scene.nodesAdded();
    emit m_scene.transformNodeAddedByUser(node->typeName());
    RunControl::keepAlive();
    m_scene.runChangesIfAuto();
    if (m_scene.transformNodes().size() >= shortcutTipFrom) {
        m_scene.document()->hooks.tip(QStringLiteral("tip_transform_shortcut"), QStringLiteral("Keyboard shortcut"),
            QStringLiteral("Add a new transform quickly by typing a few letters of it's name."), tipMs);
    }
    focusCanvas();
}

void NodeAdder::focusCanvas()
{
    for (QGraphicsView *view : m_scene.views()) {
        view->setFocus();
    }
}

// Inputs

QList<IONode *> NodeAdder::addInputs(const QStringList &paths, const QPointF &scenePos)
{
    const QString blockedList = Settings::current().blockedInputExtensions();
    QStringList blocked;
    QStringList accepted;
    QStringList files;
    for (const QString &path : paths) {
        const QFileInfo info(path);
        if (!info.isDir() && Settings::isExtensionBlocked(info.suffix(), blockedList)) {
            blocked.append(QDir::toNativeSeparators(path));
        } else {
            accepted.append(path);
            if (!info.isDir()) {
                files.append(path);
            }
        }
    }
    QList<IONode *> added;
    if (!accepted.isEmpty()) {
        m_scene.document()->hooks.askInputTypes(files);
        const UndoStep step(m_scene, files.isEmpty() ? QStringLiteral("add folder(s)") : QStringLiteral("add file(s)"));
        QPointF centre = scenePos.isNull() ? NodePlacement::newInputCentre(m_scene.nodes()) : scenePos;
        m_scene.clearSelection();
        for (const QString &path : qAsConst(accepted)) {
            if (IONode *node = makeInput(path)) {
                placeInput(node, centre);
                centre = node->centre() + QPointF(0, NodePlacement::gridWidth);
                added.append(node);
            }
        }
        if (!added.isEmpty()) {
            Settings::current().isTipShown(QStringLiteral("tip_input_button"));
            m_scene.updateSceneRect();
            emit m_scene.nodesAdded();
            m_scene.runChangesIfAuto();
        }
    }
    if (!blocked.isEmpty()) {
        emit m_scene.showWarningMessage(
            QStringLiteral("The files extensions of the following are blocked in 'Preferences>Input Extensions'\n%1")
                .arg(blocked.join(QLatin1Char('\n'))));
    }
    return added;
}

/// Null when there is no maker or the user cancelled.
IONode *NodeAdder::makeInput(const QString &path)
{
    const NodeFactory &factory = NodeFactory::instance();
    IONode *node = nullptr;
    if (QFileInfo(path).isDir()) {
        node = factory.createFolderInput ? factory.createFolderInput(path, proposedMask(path)) : nullptr;
    } else {
        node = factory.createInput ? factory.createInput(path) : nullptr;
    }
    if (node) {
        node->setAlias(m_scene.uniqueAlias(path));
    }
    return node;
}

void NodeAdder::placeInput(IONode *node, const QPointF &centre)
{
    m_scene.addItem(node);
    m_scene.placeAvoidingOverlap(node, centre, false);
    node->connectToScene(&m_scene);
    node->setSelected(true);
    RunControl::keepAlive();
}

IONode *NodeAdder::addClipboardInput(const QString &text, const QPointF &scenePos)
{
    if (!NodeFactory::instance().createClipboardInput) {
        return nullptr;
    }
    const UndoStep step(m_scene, QStringLiteral("add clipboard"));
    IONode *node = NodeFactory::instance().createClipboardInput(text);
    if (!node) {
        return nullptr;
    }
    m_scene.clearSelection();
    placeInput(node, scenePos.isNull() ? NodePlacement::newInputCentre(m_scene.nodes()) : scenePos);
    m_scene.updateSceneRect();
    emit m_scene.nodesAdded();
    m_scene.runChangesIfAuto();
    return node;
}

// Outputs and charts

IONode *NodeAdder::addOutput(const QString &path, int fileType)
{
    const QList<Node *> selected = m_scene.nodes(true);
    if (selected.size() != 1 || selected.first()->maxOutputs() == 0 || !NodeFactory::instance().createOutput) {
        return nullptr;
    }
    const UndoStep step(m_scene, QStringLiteral("add output"));
    IONode *node = NodeFactory::instance().createOutput(path, fileType);
    if (!node) {
        return nullptr;
    }
    node->setAlias(m_scene.uniqueAlias(path));
    if (FileType::isExcel(node->fileType())) {
        node->setPath(path, QString::fromLatin1(Product::name));
    }
    addLeaf(node, selected.first());
    warnOfExcelLimits(*node);
    return node;
}

void NodeAdder::warnOfExcelLimits(const IONode &output)
{
    const QString warning = ExcelLimits::warning(output.fileType(), output.rowCount(), output.columnCount());
    if (!warning.isEmpty()) {
        emit m_scene.showWarningMessage(warning);
    }
}

Node *NodeAdder::addChart()
{
    const QList<Node *> selected = m_scene.nodes(true);
    if (selected.size() != 1 || selected.first()->maxOutputs() == 0 || !NodeFactory::instance().createChart) {
        return nullptr;
    }
    const UndoStep step(m_scene, QStringLiteral("add chart"));
    Node *node = NodeFactory::instance().createChart();
    if (!node) {
        return nullptr;
    }
    node->setAlias(m_scene.uniqueAlias(QStringLiteral("chart")));
    addLeaf(node, selected.first());
    return node;
}

void NodeAdder::addLeaf(Node *node, Node *source)
{
    const QPointF centre = m_scene.newNodePosition();
    m_scene.clearSelection();
    m_scene.addItem(node);
    node->connectToScene(&m_scene);
    m_scene.placeAvoidingOverlap(node, centre, false);
    m_scene.insertConnection(source, node);
    m_scene.layOutConnections({source, node});
    node->setSelected(true);
    m_scene.updateSceneRect();
    emit m_scene.nodesAdded();
    m_scene.runChangesIfAuto();
}

// Notes

NoteNode *NodeAdder::addNote(const QPointF &pos, NoteArrow::Arrow arrow)
{
    const UndoStep step(m_scene, QStringLiteral("add note"));
    m_scene.clearSelection();
    auto *node = new NoteNode(arrow);
    const QPointF centre = pos + NodePlacement::noteOffset(arrow);
    m_scene.addItem(node);
    if (m_scene.snapToGrid()) {
        m_scene.placeAvoidingOverlap(node, centre, false);
    } else {
        node->setCentre(centre);
    }
    node->connectToScene(&m_scene);
    node->setSelected(true);
    m_scene.updateSceneRect();
    emit m_scene.nodesAdded();
    return node;
}
