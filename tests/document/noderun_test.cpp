#include "charts/chartnode.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/notenode.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "support/printers.h"
#include "support/scopedsettings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

// What a run and a copy of an item are, for all kinds alike.

namespace {

class FailingTransform final : public Transform
{
public:
    FailingTransform()
        : Transform("Transpose")
    {
    }
    Dataset run(const QList<DataSource *> &, bool *hasIssues) override
    {
        *hasIssues = true;
        return Dataset();
    }
};

class NodeRunTest : public testing::Test
{
protected:
    NodeRunTest()
    {
        RunControl::reset();
        RunControl::setMemoryReader([] { return 0.0; });
        scene.setAutoRunOn(false);
    }
    ~NodeRunTest() override { RunControl::reset(); }

    template<class Kind>
    Kind *add(Kind *node, Node *source = nullptr)
    {
        scene.insertNode(node, {});
        if (source) {
            scene.insertConnection(source, node);
        }
        return node;
    }

    InputNode *input(const QString &text = QStringLiteral("a,b\n1,x\n2,y\n"), bool hasSchema = false)
    {
        InputOptions options;
        options.medium = Medium::Clipboard;
        options.text = text;
        options.headerMode = InputOptions::FirstRowIsHeader;
        if (hasSchema) {
            options.schema.inUse = true;
            options.schema.columnNames = QStringList{QStringLiteral("a"), QStringLiteral("z")};
            options.schema.missingMode = InputSchema::MissingIsError;
        }
        return add(new InputNode(options));
    }

    InputNode *ranInput(const QString &text = QStringLiteral("a,b\n1,x\n2,y\n"))
    {
        InputNode *node = input(text);
        node->process(false, false);
        return node;
    }

    InputNode *lostInput()
    {
        InputOptions options;
        options.path = folder.filePath(QStringLiteral("none.csv"));
        return add(new InputNode(options));
    }

    TransformNode *transform(Node *source, Transform *kind = Catalogue::create(QStringLiteral("Transpose")))
    {
        auto *node = add(new TransformNode(kind), source);
        kind->createParameters(source ? QList<DataSource *>{source} : QList<DataSource *>(), false);
        return node;
    }

    OutputNode *output(Node *source, const QString &name = QStringLiteral("out.csv"))
    {
        return add(new OutputNode(folder.filePath(name)), source);
    }

    ChartNode *chart(Node *source, bool writes = false)
    {
        ChartOptions options;
        options.type = ChartChoice::Scatter;
        options.writeFile = writes;
        auto *made = new ChartNode(options);
        made->setStoredColumns(QStringLiteral("1*0"), QStringLiteral("1*0"));
        return add(made, source);
    }

    /// Runs a node and gives what its signals found: what it was doing, how large its table, whether its time was
    /// taken, how many columns had ids, and its warnings; last the same after the run.
    static QStringList eventsOf(Node *node)
    {
        QStringList events;
        const auto tell = [&events](const QString &what, const Node *teller) {
            int ids = 0;
            for (int i = 0; i < teller->datasetConst().columnCount(); ++i) {
                ids += !teller->datasetConst().columnId(ColumnIndex(i)).isNull();
            }
            events.append(
                QStringLiteral("%1: %2, %3 rows, %4 ids%5%6")
                    .arg(what, teller->stateText(), QString::number(teller->datasetConst().rowCount()),
                        QString::number(ids), teller->lastProcessed().isValid() ? QStringLiteral(", timed") : QString(),
                        teller->hasWarnings() ? QStringLiteral(", warns") : QString()));
        };
        const QObject listener; // what listens ends with the list
        QObject::connect(node, &Node::processingStart, &listener, [&](Node *at) { tell(QStringLiteral("start"), at); });
        QObject::connect(node, &Node::processingEnd, &listener, [&](Node *at) { tell(QStringLiteral("end"), at); });
        node->process(true, false);
        tell(QStringLiteral("after"), node);
        return events;
    }

    ScopedSettings settings;
    QTemporaryDir folder;
    GraphScene scene;
};

} // namespace

TEST_F(NodeRunTest, RunsOfAllKindsSignalAlike)
{
    const struct
    {
        const char *what;
        std::function<Node *()> make;
        QStringList events;
        quint64 counted; // rows
    } cases[] = {
        {"an input reads", [this] { return input(); },
            {"start: Updating, 0 rows, 0 ids", "end: Up to date, 2 rows, 2 ids, timed",
                "after: Up to date, 2 rows, 2 ids, timed"},
            2},
        {"an input warns of names before it ends", [this] { return input(QStringLiteral("a,a\n1,2\n")); },
            {"start: Updating, 0 rows, 0 ids", "end: Up to date, 1 rows, 2 ids, timed, warns",
                "after: Up to date, 1 rows, 2 ids, timed, warns"},
            1},
        {"an input whose schema is broken keeps its table",
            [this] { return input(QStringLiteral("a,b\n1,x\n"), true); },
            {"start: Updating, 0 rows, 0 ids", "end: Error, 1 rows, 2 ids, timed, warns",
                "after: Error, 1 rows, 2 ids, timed, warns"},
            1},
        {"an input without a text is up to date", [this] { return input(QString()); },
            {"start: Updating, 0 rows, 0 ids", "end: Up to date, 0 rows, 0 ids, timed",
                "after: Up to date, 0 rows, 0 ids, timed"},
            0},
        {"an input without its file fails", [this] { return lostInput(); },
            {"start: Updating, 0 rows, 0 ids", "end: Error, 0 rows, 0 ids, timed, warns",
                "after: Error, 0 rows, 0 ids, timed, warns"},
            0},
        {"a transform runs", [this] { return transform(ranInput()); },
            {"start: Updating, 0 rows, 0 ids", "end: Up to date, 2 rows, 3 ids, timed",
                "after: Up to date, 2 rows, 3 ids, timed"},
            2 + 2},
        {"a transform fails", [this] { return transform(ranInput(), new FailingTransform); },
            {"start: Updating, 0 rows, 0 ids", "end: Error, 0 rows, 0 ids, timed",
                "after: Error, 0 rows, 0 ids, timed"},
            2},
        {"a transform without an input runs and warns", [this] { return transform(nullptr); },
            {"start: Updating, 0 rows, 0 ids", "end: Up to date, 0 rows, 0 ids, timed, warns",
                "after: Up to date, 0 rows, 0 ids, timed, warns"},
            0},
        {"a transform waits for its input", [this] { return transform(input()); },
            {"after: Needs updating, 0 rows, 0 ids"}, 0},
        {"an output writes; its rows were counted already", [this] { return output(ranInput()); },
            {"start: Updating, 0 rows, 0 ids", "end: Up to date, 2 rows, 2 ids, timed",
                "after: Up to date, 2 rows, 2 ids, timed"},
            2},
        {"an output warns of names before it ends", [this] { return output(ranInput(QStringLiteral("a,a\n1,2\n"))); },
            {"start: Updating, 0 rows, 0 ids", "end: Up to date, 1 rows, 2 ids, timed, warns",
                "after: Up to date, 1 rows, 2 ids, timed, warns"},
            1},
        {"an output that can't write fails",
            [this] { return output(ranInput(), QStringLiteral("no/such/folder/out.csv")); },
            {"start: Updating, 0 rows, 0 ids", "end: Error, 2 rows, 2 ids, timed, warns",
                "after: Error, 2 rows, 2 ids, timed, warns"},
            2},
        {"an output without an input doesn't start", [this] { return output(nullptr); },
            {"after: Up to date, 0 rows, 0 ids, warns"}, 0},
        {"an output with a blocked ending doesn't start",
            [this] { return output(ranInput(), QStringLiteral("out.exe")); }, {"after: Error, 0 rows, 0 ids, warns"},
            2},
        {"a chart draws and has no table", [this] { return chart(ranInput()); },
            {"start: Updating, 0 rows, 0 ids", "end: Up to date, 0 rows, 0 ids, timed",
                "after: Up to date, 0 rows, 0 ids, timed"},
            2},
        {"a chart that can't write fails", [this] { return chart(ranInput(), true); },
            {"start: Updating, 0 rows, 0 ids", "end: Error, 0 rows, 0 ids, timed, warns",
                "after: Error, 0 rows, 0 ids, timed, warns"},
            2},
        {"a chart without an input doesn't start", [this] { return chart(nullptr); },
            {"after: Up to date, 0 rows, 0 ids, warns"}, 0},
        {"a note has nothing to run", [this] { return add(new NoteNode); }, {"after: Up to date, 0 rows, 0 ids"}, 0},
    };
    settings->setBlockedOutputExtensions(QStringLiteral("exe"));
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const quint64 before = settings->totalRowsProcessed();
        Node *node = c.make();
        EXPECT_EQ(eventsOf(node), c.events);
        EXPECT_EQ(settings->totalRowsProcessed() - before, c.counted);
        const QStringList again = eventsOf(node);
        const bool isDone = node->state() == NodeState::Processed || !node->canProcess();
        EXPECT_EQ(again.size() == 1, isDone || c.events.size() == 1) << "only what is stale runs again";
        scene.clearAll();
    }
}

TEST_F(NodeRunTest, AStopKeepsAllKindsFromRunning)
{
    InputNode *source = ranInput();
    const QList<Node *> nodes{input(), transform(source), output(source), chart(source)};
    stopRequested = true;
    for (Node *node : nodes) {
        EXPECT_EQ(eventsOf(node), QStringList("after: Needs updating, 0 rows, 0 ids")) << qPrintable(node->kindName());
    }
}

TEST_F(NodeRunTest, DownstreamLooksAtTheNewResultAndUpstreamIsLetGo)
{
    InputNode *source = input();
    TransformNode *middle = transform(source);
    TransformNode *pad = transform(middle, Catalogue::create(QStringLiteral("Pad")));
    Parameter *columns = pad->transform()->parameters().first();
    columns->setDeferredText(QStringLiteral("0"), 86);
    source->process(false, false);
    middle->process(false, true);
    EXPECT_TRUE(source->isEmpty()) << "nobody else waits for it";
    EXPECT_FALSE(columns->hasDeferredText());
    OutputNode *written = output(pad);
    ChartNode *drawn = chart(pad);
    pad->process(false, false);
    drawn->process(false, true);
    EXPECT_FALSE(pad->isEmpty()) << "the output waits for it";
    written->process(false, true);
    EXPECT_TRUE(pad->isEmpty());
    EXPECT_TRUE(written->datasetConst().isEmpty());
}

TEST_F(NodeRunTest, ClonesOfAllKindsKeepTheSame)
{
    InputNode *source = ranInput();
    const QList<Node *> nodes{
        source, transform(source), output(source), chart(source), add(new NoteNode(NoteNode::Right))};
    for (Node *node : nodes) {
        SCOPED_TRACE(qPrintable(node->kindName()));
        node->setAlias(QStringLiteral("mine"));
        node->setComment(QStringLiteral("why"));
        node->setPos(30, 60);
        node->process(false, false);
        const std::unique_ptr<Node> copy(node->clone());
        EXPECT_EQ(copy->type(), node->type());
        EXPECT_EQ(copy->id(), node->id());
        EXPECT_EQ(copy->pos(), node->pos());
        EXPECT_EQ(copy->comment(), QStringLiteral("why"));
        EXPECT_EQ(copy->alias(), node->type() == ItemType::Transform ? QString() : QStringLiteral("mine"));
        EXPECT_EQ(copy->optionRows().size(), node->optionRows().size());
        EXPECT_TRUE(copy->datasetConst().isEmpty());
        EXPECT_TRUE(copy->connections(Direction::Both).isEmpty());
        EXPECT_FALSE(copy->graphScene());
    }
}
