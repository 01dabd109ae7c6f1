#include "panes/preferences/schemepreview.h"

#include "graph/graphscene.h"
#include "graph/nodeplacement.h"
#include "graph/notenode.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

namespace {

constexpr QSize leastSize(360, 150);
constexpr double margin = 30.0;

} // namespace

SchemePreview::SchemePreview(QWidget *parent)
    : QGraphicsView(parent)
    , m_scene(std::make_unique<GraphScene>())
{
    m_scene->setAutoRunOn(false);
    Node *nodes[] = {new InputNode, new TransformNode(Catalogue::create(QStringLiteral("Case"))), new OutputNode};
    double x = 0;
    for (Node *node : nodes) {
        node->setPreview(true);
        m_scene->insertNode(node, QPointF(x, 0));
        x += NodePlacement::gridWidth;
    }
    m_scene->insertConnection(nodes[0], nodes[1]);
    m_scene->insertConnection(nodes[1], nodes[2]);
    auto *note = new NoteNode(NoteNode::Up);
    note->setComment(QStringLiteral("A note"));
    m_scene->insertNode(note, nodes[1]->pos() + QPointF(0, NodePlacement::gridHeight));
    nodes[1]->setSelected(true);
    m_scene->layOutConnections();
    setScene(m_scene.get());
    setRenderHint(QPainter::Antialiasing);
    setInteractive(false);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumSize(leastSize);
    setToolTip(QStringLiteral("Preview of the selected color scheme."));
    setAccessibleName(QStringLiteral("Preview"));
}

SchemePreview::~SchemePreview()
{
    setScene(nullptr);
}

void SchemePreview::setColors(ColorScheme scheme, const CustomColors &custom)
{
    m_colors.show(scheme, custom);
    m_scene->setColorsOverride(&m_colors);
    viewport()->update();
}

void SchemePreview::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    fitInView(m_scene->itemsBoundingRect().adjusted(-margin, -margin, margin, margin), Qt::KeepAspectRatio);
}
