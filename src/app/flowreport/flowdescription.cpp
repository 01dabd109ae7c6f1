#include "app/flowreport/flowdescription.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodeorder.h"
#include "graph/notenode.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <algorithm>

namespace {

constexpr int largestSide = 2400; // pixels of the picture
constexpr double pictureMargin = 30.0;
constexpr double pictureScale = 2.0;

FlowItem itemOf(const Node &node)
{
    FlowItem item;
    item.id = node.id();
    item.kind = node.kindName();
    item.name = node.name();
    item.description = node.description();
    item.state = node.state() == NodeState::Processed ? QString() : node.stateText();
    for (const Node *source : node.upstreamNodes(true)) {
        item.sources.append(source->name());
        item.sourceIds.append(source->id());
        item.rowsBefore.append(source->rowCount());
        item.columnsBefore.append(source->columnCount());
    }
    for (const InfoRow &row : node.optionRows()) {
        if (!row.second.isEmpty()) {
            item.options.append(row);
        }
    }
    item.hasRun = node.hasRun();
    item.rowsAfter = node.rowCount();
    item.columnsAfter = node.columnCount();
    item.comment = node.comment();
    item.warnings = node.warnings();
    return item;
}

/// From left to right, but each behind those that it reads.
QList<Node *> nodesInOrder(const GraphScene &scene)
{
    QList<Node *> waiting;
    for (Node *node : scene.nodes()) {
        if (node->type() != ItemType::Note) {
            waiting.append(node);
        }
    }
    NodeOrder::sortLeftToRight(waiting);
    QList<Node *> ordered;
    QSet<Node *> placed;
    const auto isReady = [&placed](const Node *node) {
        const QList<Node *> sources = node->upstreamNodes(false);
        return std::all_of(
            sources.cbegin(), sources.cend(), [&placed](Node *source) { return placed.contains(source); });
    };
    while (!waiting.isEmpty()) {
        auto next = std::find_if(waiting.begin(), waiting.end(), isReady);
        next = next == waiting.end() ? waiting.begin() : next; // a circle, which there can't be
        placed.insert(*next);
        ordered.append(*next);
        waiting.erase(next);
    }
    return ordered;
}

QByteArray pictureOf(GraphScene &scene)
{
    const QRectF area = scene.itemsBoundingRect().adjusted(
        -pictureMargin, -pictureMargin, pictureMargin, pictureMargin);
    if (scene.nodes().isEmpty() || area.isEmpty()) {
        return QByteArray();
    }
    const double scale = std::min(pictureScale, largestSide / std::max(area.width(), area.height()));
    const QSize size = (area.size() * scale).toSize().expandedTo(QSize(1, 1));
    QImage image(size, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        scene.render(&painter, QRectF(QPointF(), QSizeF(size)), area, Qt::IgnoreAspectRatio);
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

} // namespace

FlowDescription describeFlow(GraphScene &scene, const QString &notes)
{
    FlowDescription flow;
    flow.name = QFileInfo(scene.documentPath()).fileName();
    flow.notes = notes;
    for (const Node *node : nodesInOrder(scene)) {
        flow.items.append(itemOf(*node));
    }
    for (const NoteNode *note : scene.noteNodes()) {
        if (!note->comment().isEmpty()) {
            flow.noteTexts.append(note->comment());
        }
    }
    flow.picture = pictureOf(scene);
    return flow;
}
