#include "graphfixture.h"

#include "graph/nodefactory.h"
#include "graph/nodeplacement.h"
#include "transforms/catalogue.h"
#include "transforms/options/parameter.h"

GraphTest::GraphTest()
{
    qRegisterMetaType<TransformNode *>();
    RunControl::reset();
    RunControl::setMemoryReader([] { return 0.0; });
    scene.setAutoRunOn(false);
    QObject::connect(&scene, &GraphScene::nodeProcessed, [this](Node *node) { processed.append(node->alias()); });
    QObject::connect(&scene, &GraphScene::showLogMessage, [this](const QString &line) { log.append(line); });
    QObject::connect(&scene, &GraphScene::showWarningMessage, [this](const QString &text) { warnings.append(text); });
}

GraphTest::~GraphTest()
{
    RunControl::reset();
    NodeFactory::instance() = NodeFactory();
}

void GraphTest::place(Node *node, const QString &name, double column, double row)
{
    node->setAlias(name);
    scene.insertNode(node, {column * NodePlacement::gridWidth, row * NodePlacement::gridHeight});
}

FakeInput *GraphTest::input(const QString &name, double column, double row, const Dataset &table)
{
    auto *node = new FakeInput(table);
    place(node, name, column, row);
    return node;
}

FakeOutput *GraphTest::output(const QString &name, double column, double row, Node *source)
{
    auto *node = new FakeOutput;
    place(node, name, column, row);
    if (source) {
        scene.insertConnection(source, node);
    }
    return node;
}

TransformNode *GraphTest::transform(const QString &type, const QString &name, double column, double row,
    std::initializer_list<Node *> sources, const char *firstOption)
{
    auto *node = new TransformNode(Catalogue::create(type));
    place(node, name, column, row);
    QList<DataSource *> inputs;
    for (Node *source : sources) {
        scene.insertConnection(source, node);
        inputs.append(source);
    }
    node->transform()->createParameters(inputs, false);
    if (firstOption) {
        node->transform()->parameters().first()->setDeferredText(QString::fromLatin1(firstOption), 86);
    }
    return node;
}

TransformNode *GraphTest::probe(
    const QString &name, double column, double row, std::initializer_list<Node *> sources, const char *typeName)
{
    auto *node = new TransformNode(new ProbeTransform(typeName));
    place(node, name, column, row);
    for (Node *source : sources) {
        scene.insertConnection(source, node);
    }
    return node;
}

ProbeTransform *GraphTest::probeOf(TransformNode *node)
{
    return static_cast<ProbeTransform *>(node->transform());
}

void GraphTest::select(std::initializer_list<QGraphicsItem *> items)
{
    scene.clearSelection();
    for (QGraphicsItem *item : items) {
        item->setSelected(true);
    }
}

QStringList GraphTest::takeProcessed()
{
    QStringList taken;
    taken.swap(processed);
    return taken;
}

QStringList GraphTest::edges() const
{
    QStringList found;
    for (const Connection *connection : scene.connections()) {
        found.append(connection->from()->alias() + QLatin1Char('>') + connection->to()->alias());
    }
    found.sort();
    return found;
}
