#include "graph/graphcopy.h"

#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodecopies.h"
#include "graph/nodeplacement.h"
#include "graph/undostep.h"
#include "platform/waitcursor.h"

#include <algorithm>

namespace {

constexpr double sceneMargin = 45.0;
constexpr double gapRight = 90.0;
constexpr double gapBelow = 45.0;
/// A scene this much wider than high takes what is pasted below, else to its right.
constexpr double wideRatio = 1.3;

/// Where the state stands in Node::summaryRow().
constexpr int stateField = 4;

QRectF areaOf(const QList<Node *> &nodes)
{
    QRectF area;
    for (const Node *node : nodes) {
        area = area.united(node->mapRectToScene(node->boundingRect()));
    }
    return area;
}

void updateWholeRect(GraphScene &scene)
{
    scene.setSceneRect(areaOf(scene.nodes()).adjusted(-sceneMargin, -sceneMargin, sceneMargin, sceneMargin));
}

QVariantList optionsOf(const Node &node)
{
    QVariantList row = node.summaryRow();
    row.removeAt(stateField);
    return row;
}

QSet<int> sourceIds(const Node &node)
{
    QSet<int> ids;
    for (const Node *source : node.upstreamNodes(false)) {
        ids.insert(source->id());
    }
    return ids;
}

bool areSameNodes(const Node &a, const Node &b)
{
    return a.pos() == b.pos() && sourceIds(a) == sourceIds(b) && optionsOf(a) == optionsOf(b);
}

/// Of two items with one alias the copy gets another.
void tellAliasesApart(GraphScene &scene, const QList<Node *> &copies)
{
    const QList<Node *> all = scene.nodes();
    for (Node *copy : copies) {
        const QString alias = copy->alias();
        const bool isTaken = !alias.isEmpty() && std::any_of(all.cbegin(), all.cend(), [&](const Node *node) {
            return node != copy && node->alias() == alias;
        });
        if (isTaken) {
            copy->setAlias(QString());
            copy->setAlias(scene.uniqueAlias(alias));
        }
    }
}

/// What follows when copies have come into the live scene.
void finish(GraphScene &scene, NodeCopies &copies)
{
    const QList<Node *> nodes = copies.all();
    tellAliasesApart(scene, nodes);
    if (scene.snapToGrid()) {
        scene.snapNodes(nodes);
    }
    copies.bindOptions();
    for (Node *node : nodes) {
        node->setSelected(true);
    }
    scene.layOutConnections();
    updateWholeRect(scene);
}

QPointF pastePosition(const GraphScene &scene)
{
    const QRectF there = areaOf(scene.nodes());
    const bool isWide = there.width() > 0 && there.width() / there.height() > wideRatio;
    return isWide ? QPointF(there.x(), there.bottom() + gapBelow) : QPointF(there.right() + gapRight, there.y());
}

QPointF topLeftOf(const QList<Node *> &nodes)
{
    QPointF corner = nodes.first()->pos();
    for (const Node *node : nodes) {
        corner = {qMin(corner.x(), node->x()), qMin(corner.y(), node->y())};
    }
    return corner;
}

QList<Node *> branchOf(const QList<Node *> &roots)
{
    QList<Node *> branch = roots;
    for (const Node *root : roots) {
        for (Node *node : root->allDownstream(false)) {
            if (!branch.contains(node)) {
                branch.append(node);
            }
        }
    }
    std::sort(branch.begin(), branch.end(), [](const Node *a, const Node *b) { return a->id() < b->id(); });
    return branch;
}

/// Below the branch, or above it where that is nearer to the middle of the scene.
QPointF branchOffset(const QList<Node *> &branch, const QList<Node *> &all)
{
    const QRectF area = areaOf(branch);
    const QRectF whole = areaOf(all);
    const double step = area.height() + NodePlacement::gridHeight;
    const bool isLow = whole.bottom() - area.bottom() < area.top() - whole.top();
    return {0, isLow ? -step : step};
}

void insertCopies(const GraphScene &original, GraphScene &copy)
{
    NodeCopies copies(original.nodes(), NodeCopies::Ids::Kept);
    copies.insertInto(copy, {});
    copies.bindOptions();
}

} // namespace

std::unique_ptr<GraphScene> GraphCopy::sceneForRun(const GraphScene &scene)
{
    // No window shows it, but a person who wants to be asked before many files are written still is.
    const auto document = std::make_shared<DocumentState>();
    document->path = scene.documentPath();
    document->snapToGrid = scene.snapToGrid();
    document->hooks.askAboutFiles = scene.document()->hooks.askAboutFiles;
    auto copy = std::make_unique<GraphScene>(document);
    insertCopies(scene, *copy);
    return copy;
}

std::unique_ptr<GraphScene> GraphCopy::sceneCopy(const GraphScene &scene)
{
    auto copy = std::make_unique<GraphScene>(scene.document(), scene.parent());
    insertCopies(scene, *copy);
    updateWholeRect(*copy);
    return copy;
}

bool GraphCopy::areSame(const GraphScene &a, const GraphScene &b)
{
    const QList<Node *> nodes = a.nodes();
    if (nodes.size() != b.nodes().size()) {
        return false;
    }
    return std::all_of(nodes.cbegin(), nodes.cend(), [&b](const Node *node) {
        const Node *other = b.nodeById(node->id());
        return other && areSameNodes(*node, *other);
    });
}

void GraphCopy::paste(GraphScene &scene, const GraphScene &source, const QPointF *position)
{
    QList<Node *> originals = source.nodes();
    if (originals.isEmpty()) {
        return;
    }
    std::sort(originals.begin(), originals.end(), [](const Node *a, const Node *b) { return a->id() < b->id(); });
    const QPointF target = position ? *position : pastePosition(scene);
    NodeCopies copies(originals, NodeCopies::Ids::New);
    copies.insertInto(scene, target - topLeftOf(originals));
    finish(scene, copies);
    emit scene.nodesAdded();
    scene.runChangesIfAuto();
}

void GraphCopy::duplicateBranch(GraphScene &scene)
{
    const QList<Node *> roots = scene.nodes(true);
    if (scene.isProcessing() || roots.isEmpty()) {
        return;
    }
    const UndoStep step(scene, QStringLiteral("duplicate branch"));
    const WaitCursor cursor;
    scene.clearSelection();
    const QList<Node *> branch = branchOf(roots);
    const QPointF offset = branchOffset(branch, scene.nodes());
    NodeCopies copies(branch, NodeCopies::Ids::New);
    copies.insertInto(scene, offset);
    for (const Node *root : roots) {
        for (Node *source : root->upstreamNodes(true)) {
            if (!branch.contains(source)) {
                scene.insertConnection(source, copies.of(root));
            }
        }
    }
    finish(scene, copies);
    emit scene.nodesAdded();
    scene.runChangesIfAuto();
}
