#include "graphfixture.h"

#include "graph/graphhooks.h"
#include "graph/nodefactory.h"
#include "graph/nodelook.h"
#include "graph/nodeplacement.h"
#include "graph/notenode.h"
#include "graph/undostep.h"
#include "transforms/catalogue.h"
#include "transforms/options/parameter.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QGraphicsSceneMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {

std::unique_ptr<Transform> prototype(const char *typeName)
{
    return std::unique_ptr<Transform>(Catalogue::create(QString::fromLatin1(typeName)));
}

void sendMouse(GraphScene &scene, QEvent::Type type, const QPointF &point)
{
    QGraphicsSceneMouseEvent event(type);
    event.setScenePos(point);
    event.setButtonDownScenePos(Qt::LeftButton, point);
    event.setButton(type == QEvent::GraphicsSceneMouseMove ? Qt::NoButton : Qt::LeftButton);
    event.setButtons(type == QEvent::GraphicsSceneMouseRelease ? Qt::NoButton : Qt::LeftButton);
    QCoreApplication::sendEvent(&scene, &event);
}

void press(GraphScene &scene, const QPointF &point)
{
    sendMouse(scene, QEvent::GraphicsSceneMousePress, point);
}

} // namespace

class SceneTest : public GraphTest
{
protected:
    SceneTest()
    {
        NodeFactory::instance().createInput = [](const QString &path) {
            auto *node = new FakeInput(grid({"a", "1"}));
            node->setPath(path, QString());
            return node;
        };
        NodeFactory::instance().createOutput = [](const QString &path, int fileType) {
            auto *node = new FakeOutput;
            node->setPath(path, QString());
            node->setFileType(fileType);
            return node;
        };
        hooks().beginUndoStep = [this](const QString &hint, bool) { hints.append(hint); };
    }

    GraphHooks &hooks() { return scene.document()->hooks; }

    QString aliasesOf(const QList<Node *> &nodes) const
    {
        QStringList names;
        for (const Node *node : nodes) {
            names.append(node->alias());
        }
        names.sort();
        return names.join(' ');
    }

    QStringList hints;
};

// What may connect to what

TEST_F(SceneTest, ConnectableTargets)
{
    Node *in = input("in", 0, 0);
    Node *in2 = input("in2", 0, 1);
    Node *a = probe("a", 1, 0, {in});
    Node *b = probe("b", 2, 0, {a});
    Node *stack = probe("stack", 3, 0, {b}, "Stack");
    Node *join = probe("join", 3, 1, {b}, "Join");
    Node *behind = probe("behind", 4, 1, {join});
    Node *free = probe("free", 4, 0, {});
    output("full", 5, 0, stack);
    Node *out = output("out", 5, 1);
    place(new NoteNode, "note", 9, 9);

    struct Case
    {
        const char *what;
        Node *from;
        const char *targets;
    };
    const Case cases[] = {
        {"full nodes, notes and other inputs aren't offered", in2, "free join out stack"},
        {"no second connection between the same two, and no cycle", b, "free out"},
        {"an ancestor is offered even when it lies two steps down", in, "free join out stack"},
        {"a node behind may not lead back", stack, "free join out"},
        {"nothing leads to itself", free, "join out stack"},
        {"nor back to where it comes from, though there is room", behind, "free out stack"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(aliasesOf(scene.connectableTargets(c.from)), c.targets);
    }
    EXPECT_TRUE(in->canAcceptConnection());
    EXPECT_FALSE(out->canAcceptConnection()) << "outputs give none";
}

TEST_F(SceneTest, DrawingAConnection)
{
    Node *in = input("in", 0, 0);
    TransformNode *pad = transform("Pad", "pad", 2, 0, {});
    FakeOutput *out = output("out", 2, 2);
    QSignalSpy changed(&scene, &GraphScene::nodeParametersChanged);
    select({in, pad});
    scene.onConnectFromSelected();
    EXPECT_FALSE(scene.isConnecting()) << "only with one item selected";

    select({in});
    scene.onConnectFromSelected();
    EXPECT_TRUE(scene.isConnecting());
    EXPECT_TRUE(scene.nodes(true).isEmpty());
    EXPECT_FALSE(in->flags() & QGraphicsItem::ItemIsMovable);
    press(scene, pad->connectionPoint(Direction::Incoming, 0.5));
    EXPECT_FALSE(scene.isConnecting());
    EXPECT_TRUE(in->flags() & QGraphicsItem::ItemIsMovable);
    EXPECT_EQ(edges(), QStringList({"in>pad"}));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(pad->transform()->parameter("Columns")->node(), static_cast<DataSource *>(in));

    in->look().showConnectFromOverlay();
    press(scene, in->connectionPoint(Direction::Outgoing, 0.5));
    EXPECT_TRUE(scene.isConnecting());
    press(scene, {-500, -500});
    EXPECT_FALSE(scene.isConnecting()) << "a press beside ends it";

    scene.startConnection(in);
    scene.connectNodes(pad);
    EXPECT_EQ(edges(), QStringList({"in>pad"})) << "never twice";
    scene.startConnection(in);
    scene.connectNodes(out);
    EXPECT_EQ(edges(), QStringList({"in>out", "in>pad"}));
    EXPECT_EQ(out->refreshes(), 1);
    EXPECT_EQ(hints, QStringList({"add connection", "add connection"}));
}

TEST_F(SceneTest, ANewConnectionMakesDownstreamStaleAndRunsWithAutoRun)
{
    Node *in = input("in", 0, 0);
    TransformNode *a = probe("a", 1, 0, {});
    probe("b", 2, 0, {a});
    run();
    takeProcessed();
    scene.setAutoRunOn(true);
    scene.startConnection(in);
    scene.connectNodes(a);
    EXPECT_EQ(takeProcessed(), QStringList({"a", "b"}));
}

TEST_F(SceneTest, ColumnsAreFoundAgainByNameAfterANewConnection)
{
    FakeInput *old = input("old", 0, 0, grid({"x|y", "1|2"}));
    Node *fresh = input("fresh", 0, 1, grid({"z|y", "5|6"}));
    TransformNode *pad = transform("Pad", "pad", 1, 0, {old}, "2");
    pad->transform()->parameter("Length")->setValue(3);
    run();
    EXPECT_EQ(rows(pad->datasetConst()), QStringList({"1|002"}));
    select({old});
    scene.disconnectSelected(Direction::Outgoing);
    scene.startConnection(fresh);
    scene.connectNodes(pad);
    run(RunMode::Changes);
    EXPECT_EQ(rows(pad->datasetConst()), QStringList({"5|006"}));
    EXPECT_EQ(pad->infos(), QStringList({"Reconnected to column 'y' for 'Columns'"}));
    pad->setState(NodeState::NeedsProcessing, false);
    run(RunMode::Changes);
    EXPECT_TRUE(pad->infos().isEmpty()) << "told once";
}

// Adding transforms

TEST_F(SceneTest, WhatMustBeSelectedForATransform)
{
    struct Case
    {
        const char *what;
        const char *typeName;
        int inputs, transforms, outputs, charts, notes, connections;
        bool allowed;
    };
    const Case cases[] = {
        {"one input for a kind of one", "Pad", 1, 0, 0, 0, 0, 0, true},
        {"two are too many", "Pad", 1, 1, 0, 0, 0, 0, false},
        {"nothing selected", "Pad", 0, 0, 0, 0, 0, 0, false},
        {"into a connection", "Pad", 0, 0, 0, 0, 0, 1, true},
        {"into two connections", "Pad", 0, 0, 0, 0, 0, 2, false},
        {"a connection beside a node doesn't count", "Pad", 0, 1, 0, 0, 0, 1, true},
        {"never with an output", "Pad", 1, 0, 1, 0, 0, 0, false},
        {"never with a chart", "Pad", 1, 0, 0, 1, 0, 0, false},
        {"never with a note", "Pad", 1, 0, 0, 0, 1, 0, false},
        {"a kind of two", "Join", 1, 1, 0, 0, 0, 0, true},
        {"a kind of two with one", "Join", 1, 0, 0, 0, 0, 0, false},
        {"a kind of two goes into a connection", "Join", 0, 0, 0, 0, 0, 1, true},
        {"any number", "Stack", 5, 4, 0, 0, 0, 0, true},
        {"at least two", "Cross", 1, 0, 0, 0, 0, 0, false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(scene.canAddTransform(
                      prototype(c.typeName).get(), c.inputs, c.transforms, c.outputs, c.charts, c.notes, c.connections),
            c.allowed);
    }
}

TEST_F(SceneTest, RefusalsSayWhatIsSelectedAndWhatIsNeeded)
{
    Node *in = input("in", 0, 0);
    Node *in2 = input("in2", 0, 1);
    const auto refusal = [&](const char *typeName, std::initializer_list<QGraphicsItem *> selection) {
        select(selection);
        warnings.clear();
        EXPECT_EQ(scene.addTransform(prototype(typeName).get()), nullptr);
        return warnings.value(0);
    };
    EXPECT_EQ(refusal("Pad", {}),
        "No items selected.\nTo add a 'Pad' transform you need to first select just 1 Input item in the Center pane.");
    EXPECT_EQ(refusal("Join", {in}),
        "Selected: 1 Input.\nTo add a 'Join' transform you need to first select just 2 Input items in the Center "
        "pane.");
    Node *a = probe("a", 1, 0, {in});
    Node *b = probe("b", 2, 0, {a});
    Node *out = output("out", 3, 0, b);
    const QList<Connection *> all = scene.connections();
    EXPECT_EQ(refusal("Pad", {all.at(0), all.at(1), in, in2, a, b, out}),
        "Selected: 2 Connections, 2 Inputs, 2 Transforms, 1 Output.\nTo add a 'Pad' transform you need to first "
        "select just 1 Input, Transform or Connection item in the Center pane.");
    EXPECT_EQ(refusal("Join", {a}),
        "Selected: 1 Transform.\nTo add a 'Join' transform you need to first select just 2 Input or Transform items "
        "in the Center pane.");
    EXPECT_EQ(refusal("Stack", {}),
        "No items selected.\nTo add a 'Stack' transform you need to first select at least 1 Input or Transform item "
        "in the Center pane.");
    EXPECT_EQ(refusal("Cross", {}),
        "No items selected.\nTo add a 'Cross' transform you need to first select at least 2 Input or Transform items "
        "in the Center pane.");
    EXPECT_TRUE(hints.isEmpty());
}

TEST_F(SceneTest, ATransformIsAddedRightOfTheSelection)
{
    Node *top = input("top", 0, 0);
    Node *bottom = input("bottom", 0, 2);
    select({bottom, top});
    QSignalSpy added(&scene, &GraphScene::nodesAdded);
    QSignalSpy byUser(&scene, &GraphScene::transformNodeAddedByUser);
    scene.setAutoRunOn(true);
    TransformNode *stack = scene.addTransform(prototype("Stack").get());
    ASSERT_NE(stack, nullptr);
    stack->setAlias("stack");
    EXPECT_EQ(stack->pos(), QPointF(NodePlacement::gridWidth, NodePlacement::gridHeight));
    EXPECT_EQ(scene.nodes(true), QList<Node *>({stack}));
    EXPECT_EQ(edges(), QStringList({"bottom>stack", "top>stack"}));
    EXPECT_EQ(stack->rowCount(), 4) << "auto run has run it";
    EXPECT_EQ(added.size(), 1);
    EXPECT_EQ(byUser.value(0).value(0).toString(), "Stack");
    EXPECT_EQ(hints, QStringList({"add 'Stack'"}));

    select({top});
    Node *second = scene.addTransform(prototype("Pad").get());
    select({top});
    Node *third = scene.addTransform(prototype("Pad").get());
    EXPECT_FALSE(scene.overlapsAny(second));
    EXPECT_FALSE(scene.overlapsAny(third));
    EXPECT_TRUE(scene.sceneRect().contains(third->sceneBoundingRect()));

    third->setComment("why");
    third->setPos(second->pos() - QPointF(0, Node::boxHeight + 10));
    scene.placeAvoidingOverlap(second, second->centre(), false);
    EXPECT_FALSE(second->sceneBoundingRect().intersects(third->sceneBoundingRect())) << "nor do they lie on a comment";
}

TEST_F(SceneTest, ATransformGoesIntoAConnection)
{
    Node *in = input("in", 0, 0, grid({"x|y", "1|2"}));
    TransformNode *pad = transform("Pad", "pad", 1, 0, {in}, "2");
    pad->transform()->parameter("Length")->setValue(3);
    FakeOutput *out = output("out", 2, 0, pad);
    Node *other = input("other", 1, 1);
    auto *note = new NoteNode(NoteNode::Up);
    place(note, "note", 2, 1);
    run();
    takeProcessed();
    select({in->connections(Direction::Outgoing).first()});
    TransformNode *added = scene.addTransform(prototype("Case").get());
    ASSERT_NE(added, nullptr);
    added->setAlias("case");
    EXPECT_EQ(edges(), QStringList({"case>pad", "in>case", "pad>out"}));
    EXPECT_EQ(added->pos(), QPointF(NodePlacement::gridWidth, 0));
    EXPECT_EQ(pad->x(), 2 * NodePlacement::gridWidth) << "what is downstream makes room";
    EXPECT_EQ(out->x(), 3 * NodePlacement::gridWidth);
    EXPECT_EQ(note->x(), 3 * NodePlacement::gridWidth) << "and takes its notes along";
    EXPECT_EQ(other->x(), NodePlacement::gridWidth);
    run(RunMode::Changes);
    EXPECT_EQ(takeProcessed(), QStringList({"case", "pad", "out"}));
    EXPECT_EQ(out->refreshes(), 1) << "what is below may find its columns by name";
    EXPECT_EQ(rows(pad->datasetConst()), QStringList({"1|002"})) << "the option keeps its column";
    EXPECT_TRUE(pad->warnings().isEmpty());
    EXPECT_TRUE(pad->infos().isEmpty());
}

TEST_F(SceneTest, AnInsertionLeavesWhatHasRoomAndKeepsTheOrderOfInputs)
{
    Node *top = input("top", 0, 0);
    Node *bottom = input("bottom", 0, 1);
    TransformNode *join = probe("join", 4, 3, {top, bottom}, "Join");
    select({top->connections(Direction::Outgoing).first()});
    TransformNode *added = scene.addTransform(prototype("Case").get());
    EXPECT_EQ(join->x(), 4 * NodePlacement::gridWidth);
    EXPECT_EQ(join->upstreamNodes(true), QList<Node *>({added, bottom}));
}

TEST_F(SceneTest, AConnectionAndANodeGiveAPlainAdd)
{
    Node *in = input("in", 0, 0);
    Node *out = output("out", 1, 0, in);
    Node *other = input("other", 0, 3);
    select({in->connections(Direction::Outgoing).first(), other});
    scene.addTransform(prototype("Pad").get())->setAlias("pad");
    EXPECT_EQ(edges(), QStringList({"in>out", "other>pad"}));
    Q_UNUSED(out)
}

TEST_F(SceneTest, ATransformIsAddedByNameFromAMenu)
{
    QAction action(nullptr);
    action.setData("Pad");
    QObject::connect(&action, &QAction::triggered, &scene, &GraphScene::onAddedTransformFromRightClick);
    select({input("in", 0, 0)});
    action.trigger();
    EXPECT_EQ(scene.transformNodes().size(), 1);
    action.setData("nonsense");
    action.trigger();
    EXPECT_EQ(scene.transformNodes().size(), 1);
}

TEST_F(SceneTest, TheShortcutTipComesWithTheSixthTransform)
{
    QStringList tips;
    hooks().showTip = [&](const QString &key, const QString &, const QString &, int) { tips.append(key); };
    Node *in = input("in", 0, 0);
    for (int i = 0; i < 6; ++i) {
        EXPECT_TRUE(tips.isEmpty());
        select({in});
        scene.addTransform(prototype("Pad").get());
    }
    EXPECT_EQ(tips, QStringList({"tip_transform_shortcut"}));
}

// Adding inputs, outputs and notes

TEST_F(SceneTest, DroppedFilesComeInAColumn)
{
    input("there", 1, 1);
    QSignalSpy added(&scene, &GraphScene::nodesAdded);
    const QList<IONode *> nodes = scene.addInputsFromPaths(
        {"/d/one.csv", "/d/two.csv", "/d/three.csv", "/d/four.csv", "/d/five.csv", "/d/six.csv"});
    ASSERT_EQ(nodes.size(), 6);
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(nodes.at(i)->x(), nodes.at(0)->x());
        EXPECT_TRUE(i == 0 || nodes.at(i)->y() > nodes.at(i - 1)->y());
        EXPECT_FALSE(scene.overlapsAny(nodes.at(i)));
    }
    EXPECT_EQ(nodes.at(0)->pos(), QPointF(2 * NodePlacement::gridWidth, NodePlacement::gridHeight));
    EXPECT_EQ(nodes.at(2)->alias(), "three");
    EXPECT_EQ(scene.nodes(true).size(), 6);
    EXPECT_EQ(added.size(), 1);
    EXPECT_EQ(hints, QStringList({"add file(s)"}));
    EXPECT_TRUE(settings->isTipShown("tip_input_button"));
}

TEST_F(SceneTest, BlockedFilesAreReportedTogether)
{
    EXPECT_EQ(scene.addInputsFromPaths({"/d/a.EXE", "/d/b.csv", "/d/c.zip"}).size(), 1);
    EXPECT_EQ(warnings, QStringList({"The files extensions of the following are blocked in 'Preferences>Input "
                                     "Extensions'\n/d/a.EXE\n/d/c.zip"}));
    EXPECT_EQ(scene.addInputFromPath("/d/x.exe"), nullptr);
    EXPECT_EQ(hints, QStringList({"add file(s)"})) << "nothing added, nothing to undo";
}

TEST_F(SceneTest, AFolderProposesItsMostFrequentExtension)
{
    const QTemporaryDir folder;
    QStringList masks;
    NodeFactory::instance().createFolderInput = [&](const QString &, const QString &mask) -> IONode * {
        masks.append(mask);
        return nullptr;
    };
    EXPECT_EQ(scene.addInputFromPath(folder.path()), nullptr) << "cancelled";
    for (const char *name : {"a.TSV", "b.json", "c.tsv", "noextension"}) {
        QFile(folder.filePath(name)).open(QFile::WriteOnly);
    }
    scene.addInputFromPath(folder.path());
    EXPECT_EQ(masks, QStringList({"*.csv", "*.tsv"}));
}

TEST_F(SceneTest, AliasesAreShortAndUnique)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir("some folder");
    const QString longName = "abcdefghijklmnopqrstuvwxyz0123456789abcd";
    struct Case
    {
        const char *what;
        QString path;
        QString alias;
    };
    const Case cases[] = {
        {"base name of a file", "/d/sales.2024.csv", "sales"},
        {"the next one of that name", "/e/sales.csv", "sales1"},
        {"and the next", "/f/sales.xlsx", "sales2"},
        {"the first 30 characters", longName + ".csv", longName.left(30)},
        {"those and a number", longName + "e.csv", longName.left(30) + "1"},
        {"last name of a folder", folder.filePath("some folder"), "some folder"},
        {"the same with a slash behind", folder.filePath("some folder") + "/", "some folder1"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(scene.uniqueAlias(c.path), c.alias);
        input(c.alias, 0, 0);
    }
}

TEST_F(SceneTest, OutputsNeedOneNodeThatGivesATable)
{
    Node *in = input("in", 0, 0);
    EXPECT_EQ(scene.addOutput("/d/x.csv", FileType::Delimited), nullptr);
    select({in});
    IONode *out = scene.addOutput("/d/x.xlsx", FileType::ExcelXlsx);
    ASSERT_NE(out, nullptr);
    EXPECT_EQ(out->alias(), "x");
    EXPECT_EQ(out->sheetName(), "Quillmere");
    EXPECT_EQ(edges(), QStringList({"in>x"}));
    EXPECT_EQ(scene.nodes(true), QList<Node *>({out}));
    EXPECT_EQ(out->pos(), QPointF(NodePlacement::gridWidth, 0));
    EXPECT_EQ(scene.addOutput("/d/y.csv", FileType::Delimited), nullptr) << "an output gives nothing on";
    EXPECT_EQ(hints, QStringList({"add output"}));
    EXPECT_TRUE(warnings.isEmpty());
}

TEST_F(SceneTest, TablesTooBigForExcelAreTold)
{
    Dataset wide;
    wide.setSize(1, 257);
    select({input("in", 0, 0, wide)});
    scene.setAutoRunOn(true);
    scene.addOutput("/d/x.xls", FileType::ExcelXls);
    EXPECT_EQ(warnings,
        QStringList({"The output dataset exceeds the maximum size for an Excel .xls file of 65536 rows x 256 columns. "
                     "It may be truncated."}));
}

TEST_F(SceneTest, NotesStandBesideWhatTheyPointAt)
{
    struct Case
    {
        const char *what;
        NoteArrow::Arrow arrow;
        QPointF steps;
    };
    const Case cases[] = {
        {"below, pointing up", NoteNode::Up, {0, 1}},
        {"left, pointing right", NoteNode::Right, {-1, 0}},
        {"above, pointing down", NoteNode::Down, {0, -1}},
        {"right, pointing left", NoteNode::Left, {1, 0}},
    };
    Node *in = input("in", 0, 0);
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        NoteNode *note = scene.addNote(in->centre(), c.arrow);
        EXPECT_EQ(
            note->pos(), QPointF(c.steps.x() * NodePlacement::gridWidth, c.steps.y() * NodePlacement::gridHeight));
        EXPECT_EQ(NodePlacement::attachedNotes({in}, scene.nodes()), QSet<Node *>({note}));
        delete note;
    }
    EXPECT_EQ(scene.autoNoteArrow(in), NoteNode::Down);
    scene.addNote(in->centre(), NoteNode::Down);
    EXPECT_EQ(scene.autoNoteArrow(in), NoteNode::Left) << "above is taken, right is next";
    NoteNode *second = scene.addNote(in->centre(), NoteNode::Down);
    EXPECT_FALSE(scene.overlapsAny(second)) << "a second one in the same place finds a free one";
}

// Removing

TEST_F(SceneTest, DeletingTheMiddleBridges)
{
    Node *in = input("in", 0, 0, grid({"x|y", "1|2"}));
    TransformNode *upper = transform("Case", "upper", 1, 0, {in}, "1");
    TransformNode *d1 = transform("Pad", "d1", 2, 0, {upper}, "2");
    Node *d2 = output("d2", 2, 1, upper);
    d1->transform()->parameter("Length")->setValue(4);
    run();
    takeProcessed();
    select({upper});
    QSignalSpy deleted(&scene, &GraphScene::nodesDeleted);
    scene.deleteSelected();
    EXPECT_EQ(edges(), QStringList({"in>d1", "in>d2"}));
    EXPECT_EQ(deleted.size(), 1);
    EXPECT_EQ(d1->transform()->parameter("Columns")->node(), static_cast<DataSource *>(in));
    run(RunMode::Changes);
    EXPECT_EQ(takeProcessed(), QStringList({"d1", "d2"}));
    EXPECT_EQ(rows(d1->datasetConst()), QStringList({"1|0002"}));
    Q_UNUSED(d2)
}

TEST_F(SceneTest, ABridgeBesideAConnectionKeepsTheOptionsOfTheOneThatStays)
{
    Node *in = input("in", 0, 0);
    TransformNode *upper = transform("Case", "upper", 1, 1, {in});
    TransformNode *join = transform("Join", "join", 2, 0, {in, upper});
    ASSERT_EQ(join->transform()->parameter("Column_2")->node(), static_cast<DataSource *>(upper));
    select({upper});
    scene.deleteSelected();
    EXPECT_EQ(edges(), QStringList({"in>join"}));
    EXPECT_EQ(join->transform()->parameter("Column_1")->node(), static_cast<DataSource *>(in));
}

TEST_F(SceneTest, WhatDeletingLeaves)
{
    struct Case
    {
        const char *what;
        QStringList selection;
        QStringList edges;
    };
    // in > a > b > join > out, in2 > join, a > join2, in > join2
    const Case cases[] = {
        {"a chain of two isn't bridged", {"a", "b"}, {"in2>join", "in>join2", "join>out"}},
        {"two inputs aren't bridged", {"join"}, {"a>b", "a>join2", "in>a", "in>join2"}},
        {"a bridge beside a connection leaves one", {"a"}, {"b>join", "in2>join", "in>b", "in>join2", "join>out"}},
        {"an input goes with its connections", {"in"}, {"a>b", "a>join2", "b>join", "in2>join", "join>out"}},
        {"not to a neighbour that goes too", {"b", "join"}, {"a>join2", "in>a", "in>join2"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        scene.clearAll();
        Node *in = input("in", 0, 0);
        Node *in2 = input("in2", 0, 3);
        Node *a = probe("a", 1, 0, {in});
        Node *b = probe("b", 2, 0, {a});
        Node *join = probe("join", 3, 0, {b, in2}, "Join");
        output("out", 4, 0, join);
        probe("join2", 4, 2, {in, a}, "Join");
        for (Node *node : scene.nodes()) {
            node->setSelected(c.selection.contains(node->alias()));
        }
        scene.deleteSelected();
        EXPECT_EQ(edges(), c.edges);
    }
}

TEST_F(SceneTest, DeletingOnlyConnectionsGivesATip)
{
    QStringList tips;
    hooks().showTip = [&](const QString &key, const QString &, const QString &, int ms) {
        tips.append(key + ' ' + QString::number(ms));
    };
    Node *in = input("in", 0, 0);
    Node *a = probe("a", 1, 0, {in});
    Node *b = probe("b", 2, 0, {a});
    run();
    select({a->connections(Direction::Incoming).first(), b});
    scene.deleteSelected();
    EXPECT_TRUE(tips.isEmpty());
    EXPECT_EQ(a->state(), NodeState::NeedsProcessing);
    EXPECT_TRUE(edges().isEmpty());
    scene.startConnection(in);
    scene.connectNodes(a);
    select({a->connections(Direction::Incoming).first()});
    scene.deleteSelected();
    EXPECT_EQ(tips, QStringList({"tip_delete_connection 20000"}));
}

TEST_F(SceneTest, DisconnectingAsksWhenColumnOptionsAreAtStake)
{
    Node *in = input("in", 0, 0, grid({"x|y", "1|2"}));
    TransformNode *pad = transform("Pad", "pad", 1, 0, {in}, "2");
    TransformNode *below = transform("Case", "below", 2, 0, {pad}, "1");
    transform("Case", "unset", 2, 1, {pad});
    run();
    QStringList questions;
    bool answer = false;
    hooks().ask = [&](const QString &text) {
        questions.append(text);
        return answer;
    };
    select({in});
    EXPECT_EQ(scene.columnDependentOptionsDownstream(Direction::Outgoing), 2);
    EXPECT_EQ(scene.columnDependentOptionsDownstream(Direction::Incoming), 0);
    scene.disconnectSelected(Direction::Outgoing);
    EXPECT_EQ(questions,
        QStringList(
            {"This disconnection may reset 2 column related option(s) downstream. Are you sure you want to do that?\n\n"
             "Note that you can insert a transform by selecting an exiting connection then adding a transform."}));
    EXPECT_EQ(edges().size(), 3) << "cancelled";
    EXPECT_TRUE(hints.isEmpty());

    answer = true;
    scene.disconnectSelected(Direction::Outgoing);
    EXPECT_EQ(edges(), QStringList({"pad>below", "pad>unset"}));
    EXPECT_EQ(pad->transform()->parameter("Columns")->node(), nullptr);
    EXPECT_EQ(below->state(), NodeState::NeedsProcessing);
    EXPECT_EQ(hints, QStringList({"disconnect"}));
}

TEST_F(SceneTest, DisconnectingOneSide)
{
    struct Case
    {
        const char *what;
        Direction direction;
        QStringList edges;
        QStringList stale;
    };
    const Case cases[] = {
        {"outgoing", Direction::Outgoing, {"in>a"}, {"b"}},
        {"incoming", Direction::Incoming, {"a>b"}, {"a", "b"}},
        {"both", Direction::Both, {}, {"a", "b"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        scene.clearAll();
        Node *a = probe("a", 1, 0, {input("in", 0, 0)});
        probe("b", 2, 0, {a});
        run();
        select({a});
        scene.disconnectSelected(c.direction);
        EXPECT_EQ(edges(), c.edges);
        QStringList stale;
        for (const Node *node : scene.nodesInState(NodeState::NeedsProcessing)) {
            stale.append(node->alias());
        }
        EXPECT_EQ(stale, c.stale);
    }
}

TEST_F(SceneTest, ClearingIsSilent)
{
    probe("a", 1, 0, {input("in", 0, 0)});
    QSignalSpy deleted(&scene, &GraphScene::nodesDeleted);
    scene.clearAll();
    EXPECT_TRUE(scene.nodes().isEmpty());
    EXPECT_TRUE(scene.items().isEmpty());
    EXPECT_EQ(deleted.size(), 0);
    EXPECT_FALSE(scene.signalsBlocked());
}

// Moving

TEST_F(SceneTest, MovingABoxChangesTheOrderOfInputs)
{
    Node *top = input("top", 0, 0, grid({"a", "1"}));
    Node *bottom = input("bottom", 0, 2, grid({"a", "2"}));
    TransformNode *stack = transform("Stack", "stack", 1, 0, {top, bottom});
    scene.setAutoRunOn(true);
    run();
    EXPECT_EQ(rows(stack->datasetConst()), QStringList({"1", "2"}));
    QSignalSpy moved(&scene, &GraphScene::nodesPosChanged);
    QSignalSpy changed(&scene, &GraphScene::nodeParametersChanged);
    top->setY(3 * NodePlacement::gridHeight);
    scene.onPosChanged({top});
    EXPECT_EQ(rows(stack->datasetConst()), QStringList({"2", "1"}));
    top->setX(-NodePlacement::gridWidth);
    scene.onPosChanged({top});
    EXPECT_EQ(moved.size(), 2);
    EXPECT_EQ(changed.size(), 1) << "only when the order changed";
}

TEST_F(SceneTest, DraggingMovesTheSelectionAndItsNotesInOneStep)
{
    Node *in = input("in", 0, 0);
    NoteNode *note = scene.addNote(in->centre(), NoteNode::Up);
    Node *far = input("far", 3, 3);
    hints.clear();
    scene.clearSelection();
    QSignalSpy moved(&scene, &GraphScene::nodesPosChanged);
    press(scene, {90, 45});
    EXPECT_TRUE(hints.isEmpty()) << "a click is no move";
    for (double x : {120.0, 200.0, 350.0}) {
        QGraphicsSceneMouseEvent event(QEvent::GraphicsSceneMouseMove);
        event.setButtonDownScenePos(Qt::LeftButton, {90, 45});
        event.setScenePos({x, 45});
        event.setButtons(Qt::LeftButton);
        QCoreApplication::sendEvent(&scene, &event);
    }
    sendMouse(scene, QEvent::GraphicsSceneMouseRelease, {350, 45});
    EXPECT_EQ(hints, QStringList({"move item(s)"}));
    EXPECT_FALSE(scene.document()->isUndoStepOpen);
    EXPECT_EQ(moved.size(), 1);
    EXPECT_EQ(in->pos(), QPointF(NodePlacement::gridWidth, 0));
    EXPECT_EQ(note->pos(), QPointF(NodePlacement::gridWidth, NodePlacement::gridHeight));
    EXPECT_EQ(far->pos(), QPointF(3 * NodePlacement::gridWidth, 3 * NodePlacement::gridHeight));
}

TEST_F(SceneTest, ADoubleClickOpensTheSelectedItem)
{
    Node *in = input("in", 0, 0);
    QSignalSpy opened(&scene, &GraphScene::doubleClickNode);
    press(scene, in->centre());
    sendMouse(scene, QEvent::GraphicsSceneMouseRelease, in->centre());
    EXPECT_EQ(opened.size(), 0);
    sendMouse(scene, QEvent::GraphicsSceneMouseDoubleClick, in->centre());
    sendMouse(scene, QEvent::GraphicsSceneMouseRelease, in->centre());
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(SceneTest, SnapPutsCloseNodesOnDifferentPoints)
{
    Node *a = input("a", 0, 0);
    Node *b = input("b", 0, 0);
    a->setPos(-30, 50);
    b->setPos(30, -50);
    QSignalSpy moved(&scene, &GraphScene::nodesPosChanged);
    scene.snapAllNodes();
    EXPECT_EQ(a->pos(), QPointF(0, 0));
    EXPECT_EQ(b->pos(), QPointF(0, NodePlacement::gridHeight));
    EXPECT_EQ(moved.size(), 1);
    scene.snapAllNodes();
    EXPECT_EQ(moved.size(), 1) << "nothing left to move";
    a->setPos(-0.5 * NodePlacement::gridWidth, -0.4 * NodePlacement::gridHeight);
    scene.snapNodes({a});
    EXPECT_EQ(a->pos(), QPointF(-NodePlacement::gridWidth, 0)) << "halves go away from zero";
}

TEST_F(SceneTest, PlacesOfNewNodes)
{
    EXPECT_EQ(scene.newNodePosition(), QPointF(0, 0));
    Node *a = input("a", 0, 0);
    Node *b = input("b", 2, 3);
    EXPECT_EQ(scene.newNodePosition(), QPointF(a->centre().x(), b->centre().y() + NodePlacement::gridHeight))
        << "under the lowest, at the left";
    select({a, b});
    EXPECT_EQ(scene.newNodePosition(),
        QPointF(b->centre().x() + NodePlacement::gridWidth, (a->centre().y() + b->centre().y()) / 2));
}

TEST_F(SceneTest, AChangedSourceRunsWithAutoRun)
{
    FakeInput *in = input("in", 0, 0);
    run();
    scene.onSourceChanged(in);
    EXPECT_EQ(in->state(), NodeState::NeedsProcessing);
    EXPECT_EQ(in->runs(), 1);
    scene.setAutoRunOn(true);
    scene.onSourceChanged(in);
    EXPECT_EQ(in->runs(), 2);
}

TEST_F(SceneTest, UndoStepsNest)
{
    int ends = 0;
    hooks().endUndoStep = [&] { ++ends; };
    {
        const UndoStep outer(scene, "outer");
        const UndoStep inner(scene, "inner");
        EXPECT_TRUE(scene.document()->isUndoStepOpen);
    }
    EXPECT_FALSE(scene.document()->isUndoStepOpen);
    EXPECT_EQ(hints, QStringList({"outer"}));
    EXPECT_EQ(ends, 1);
}
