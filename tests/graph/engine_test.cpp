#include "graphfixture.h"

#include "graph/nodetext.h"
#include "graph/notenode.h"
#include "support/scopedlocale.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QSignalSpy>

using EngineTest = GraphTest;

// Order

TEST_F(EngineTest, RootsRunFromLeftToRight)
{
    struct Case
    {
        const char *what;
        QPointF first;
        QPointF second;
        QStringList order;
    };
    const Case cases[] = {
        {"the left one first, however low", {0, 900}, {10, 0}, {"first", "second"}},
        {"at the same x the higher one first", {50, 100}, {50, 20}, {"second", "first"}},
        {"half a unit apart counts as the same x", {50.5, 20}, {50, 100}, {"first", "second"}},
        {"a whole unit apart doesn't", {51, 20}, {50, 100}, {"second", "first"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        scene.clearAll();
        input("first", 0, 0)->setPos(c.first);
        input("second", 0, 0)->setPos(c.second);
        run();
        EXPECT_EQ(takeProcessed(), c.order);
    }
}

TEST_F(EngineTest, ABranchRunsToItsEndBeforeTheNext)
{
    Node *in = input("in", 0, 0);
    Node *low = probe("low", 1, 1, {in});
    Node *high = probe("high", 1, 0, {in});
    probe("high2", 2, 5, {high});
    probe("low2", 2, 0, {low});
    run();
    EXPECT_EQ(takeProcessed(), QStringList({"in", "high", "high2", "low", "low2"}));
}

TEST_F(EngineTest, ADiamondJoinsOnceAfterBothSides)
{
    Node *in = input("in", 0, 0);
    Node *b = probe("b", 1, 2, {in});
    Node *a = probe("a", 1, 1, {in});
    TransformNode *join = probe("join", 2, 0, {b, a}, "Join");
    run();
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a", "b", "join"}));
    EXPECT_EQ(probeOf(join)->runs, 1);
    EXPECT_EQ(probeOf(join)->inputIds, QList<int>({a->id(), b->id()})) << "inputs come from top to bottom";
}

TEST_F(EngineTest, InputsAtTheSameHeightComeFromLeftToRight)
{
    Node *right = input("right", 1, 0);
    Node *left = input("left", 0, 0);
    left->setY(0.9);
    TransformNode *stack = probe("stack", 2, 0, {right, left}, "Stack");
    run();
    EXPECT_EQ(probeOf(stack)->inputIds, QList<int>({left->id(), right->id()}));
}

TEST_F(EngineTest, ChainsOfDiamondsDontMultiplyTheWalk)
{
    Node *in = input("in", 0, 0);
    Node *tip = in;
    QList<TransformNode *> joins;
    for (int i = 0; i < 40; ++i) {
        Node *a = probe("a", 2 * i + 1, 0, {tip});
        Node *b = probe("b", 2 * i + 1, 1, {tip});
        joins.append(probe("join", 2 * i + 2, 0, {a, b}, "Join"));
        tip = joins.last();
    }
    run();
    EXPECT_EQ(takeProcessed().size(), 121);
    EXPECT_EQ(joins.last()->depth(), 80);
    in->refreshColumnOptions();
    in->setState(NodeState::NeedsProcessing, true);
    EXPECT_EQ(joins.last()->state(), NodeState::NeedsProcessing);
    run(RunMode::Changes);
    EXPECT_EQ(takeProcessed().size(), 121);
    joins.last()->setState(NodeState::NeedsProcessing, true);
    run(RunMode::Changes);
    EXPECT_EQ(takeProcessed(), QStringList({"join"}));
}

// Modes

TEST_F(EngineTest, ChangesRunOnlyWhatIsStale)
{
    FakeInput *in = input("in", 0, 0);
    Node *a = probe("a", 1, 0, {in});
    probe("a2", 2, 0, {a});
    probe("b", 1, 1, {in});
    run(RunMode::Changes);
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a", "a2", "b"}));
    a->setState(NodeState::NeedsProcessing, true);
    run(RunMode::Changes);
    EXPECT_EQ(takeProcessed(), QStringList({"a", "a2"}));
    EXPECT_EQ(in->runs(), 1);
    run(RunMode::Everything);
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a", "a2", "b"}));
}

TEST_F(EngineTest, NothingStaleLogsOnlyStartAndEnd)
{
    input("in", 0, 0);
    run();
    log.clear();
    run(RunMode::Changes);
    ASSERT_EQ(log.size(), 2);
    EXPECT_TRUE(log.at(0).startsWith("Started: "));
    EXPECT_TRUE(log.at(1).startsWith("Finished: "));
}

TEST_F(EngineTest, SelectedRunsTheSelectionAndWhatItNeeds)
{
    Node *in = input("in", 0, 0);
    Node *other = input("other", 0, 5);
    Node *a = probe("a", 1, 0, {in});
    Node *b = probe("b", 2, 0, {a});
    Node *after = probe("after", 3, 0, {b});
    select({b});
    run(RunMode::Selected);
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a", "b"}));
    EXPECT_EQ(after->state(), NodeState::NeedsProcessing);
    EXPECT_EQ(other->state(), NodeState::NeedsProcessing);

    run(RunMode::Changes);
    takeProcessed();
    run(RunMode::Selected);
    EXPECT_EQ(takeProcessed(), QStringList({"b"})) << "up to date upstream nodes are left alone";
    EXPECT_EQ(after->state(), NodeState::NeedsProcessing) << "what is downstream goes stale and isn't run";
}

TEST_F(EngineTest, SelectedRunsInOrderOfNeedEvenWhenTheLayoutRunsBackwards)
{
    Node *in = input("in", 5, 0);
    Node *a = probe("a", 3, 0, {in});
    Node *b = probe("b", 1, 0, {a});
    select({b});
    run(RunMode::Selected);
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a", "b"}));
}

TEST_F(EngineTest, SelectedTriesAFailedNodeAgainAndGivesUpBehindIt)
{
    FakeInput *in = input("in", 0, 0);
    in->setFailing(true);
    Node *a = probe("a", 1, 0, {in});
    Node *b = probe("b", 2, 0, {a});
    Node *c = probe("c", 3, 0, {b});
    select({c});
    run(RunMode::Selected);
    EXPECT_EQ(takeProcessed(), QStringList({"in"}));
    EXPECT_EQ(b->state(), NodeState::NeedsProcessing);
    in->setFailing(false);
    run(RunMode::Selected);
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a", "b", "c"}));
}

// Stop

TEST_F(EngineTest, StopLetsTheRunningTransformFinish)
{
    Node *in = input("in", 0, 0);
    input("in2", 1, 5);
    TransformNode *a = probe("a", 1, 0, {in});
    Node *b = probe("b", 2, 0, {a});
    probeOf(a)->during = [] { stopRequested = true; };
    run();
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a"}));
    EXPECT_EQ(a->state(), NodeState::Processed);
    EXPECT_EQ(a->rowCount(), 2);
    EXPECT_EQ(b->state(), NodeState::NeedsProcessing);
    EXPECT_EQ(log.count("  Stopped by user"), 1);
    EXPECT_TRUE(log.at(log.indexOf("  Stopped by user") + 1).startsWith("Finished: "));

    stopRequested = false;
    probeOf(a)->during = nullptr;
    run(RunMode::Changes);
    EXPECT_EQ(takeProcessed(), QStringList({"b", "in2"}));
}

TEST_F(EngineTest, StopEndsARunOfTheSelection)
{
    Node *in = input("in", 3, 0);
    TransformNode *a = probe("a", 2, 0, {in});
    Node *b = probe("b", 1, 0, {a});
    probeOf(a)->during = [] { stopRequested = true; };
    select({b});
    run(RunMode::Selected);
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a"}));
    EXPECT_EQ(log.count("  Stopped by user"), 1);
}

TEST_F(EngineTest, AutoRunForgetsAnOldStopButKeepsOneOfTheRunUnderWay)
{
    TransformNode *a = probe("a", 1, 0, {input("in", 0, 0)});
    Node *b = probe("b", 2, 0, {a});
    scene.setAutoRunOn(true);
    stopRequested = true;
    probeOf(a)->during = [this] {
        stopRequested = true;
        scene.runChangesIfAuto();
        EXPECT_TRUE(stopRequested);
    };
    scene.runChangesIfAuto();
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a"}));
    EXPECT_EQ(b->state(), NodeState::NeedsProcessing);
    EXPECT_FALSE(stopRequested);
}

// Failure

TEST_F(EngineTest, AFailureEndsOnlyItsBranch)
{
    Node *in = input("in", 0, 0);
    TransformNode *bad = probe("bad", 1, 0, {in});
    probeOf(bad)->failing = true;
    Node *behind = probe("behind", 2, 0, {bad});
    probe("behind2", 3, 0, {behind});
    probe("good", 1, 1, {in});
    run();
    EXPECT_EQ(takeProcessed(), QStringList({"in", "bad", "good"}));
    EXPECT_EQ(log.last(), "Up to date: 2, Needs updating: 2, Error: 1\n");
    EXPECT_FALSE(bad->datasetConst().isEmpty()) << "a verification that failed still has its table";

    probeOf(bad)->failing = false;
    run(RunMode::Changes);
    EXPECT_EQ(takeProcessed(), QStringList({"bad", "behind", "behind2"})) << "a run of changes tries it again";
}

TEST_F(EngineTest, TooFewInputsAreToldAndDontStopTheRun)
{
    struct Case
    {
        const char *what;
        const char *typeName;
        bool connected;
        QStringList warnings;
    };
    const Case cases[] = {
        {"one of two", "Join", true, {"2 upstream connections expected"}},
        {"none of one", "Transpose", false, {"1 upstream connection expected"}},
        {"at least so many", "Cross", true, {"At least 2 upstream connections expected"}},
        {"enough", "Stack", true, {}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        scene.clearAll();
        TransformNode *node = c.connected ? probe("t", 1, 0, {input("in", 0, 0)}, c.typeName)
                                          : probe("t", 1, 0, {}, c.typeName);
        run();
        EXPECT_EQ(node->warnings(), c.warnings);
        EXPECT_EQ(node->state(), NodeState::Processed);
    }
}

TEST_F(EngineTest, TooManyInputsAreTold)
{
    Node *a = input("a", 0, 0);
    Node *b = input("b", 0, 1);
    Node *c = input("c", 0, 2);
    const TransformNode *join = probe("t", 1, 0, {a, b, c}, "Join");
    run();
    EXPECT_EQ(join->warnings(), QStringList{"2 upstream connections expected"});
}

// What a run tells

TEST_F(EngineTest, TheLogCountsItemsWarningsAndStates)
{
    Node *in = input("in", 0, 0);
    TransformNode *a = probe("a", 1, 0, {in});
    probeOf(a)->during = [a] { probeOf(a)->addWarning("look here"); };
    QSignalSpy temporary(&scene, &GraphScene::showTempMessage);
    run();
    ASSERT_EQ(log.size(), 5);
    const QRegularExpression summary("^2 item\\(s\\) processed in <?0\\.\\d+ second\\(s\\)$");
    EXPECT_TRUE(summary.match(log.at(2)).hasMatch()) << log.at(2).toStdString();
    EXPECT_EQ(temporary.value(0).value(0).toString(), log.at(2));
    EXPECT_EQ(log.at(3), "1 item(s) with warnings");
    EXPECT_EQ(log.at(4), "Up to date: 2, Needs updating: 0, Error: 0\n");
}

TEST_F(EngineTest, DurationsAreWrittenByTheLocale)
{
    EXPECT_EQ(NodeText::duration(0), "<0.001 second(s)");
    EXPECT_EQ(NodeText::duration(1), "0.001 second(s)");
    EXPECT_EQ(NodeText::duration(1234567), "1,234.57 second(s)") << "six digits";
    const ScopedLocale german("de_DE");
    EXPECT_EQ(NodeText::duration(1500), "1,5 second(s)");
}

TEST_F(EngineTest, ProgressCountsFinishedItems)
{
    Node *a = probe("a", 1, 0, {input("in", 0, 0)});
    probe("b", 2, 0, {a});
    QList<int> percents;
    QObject::connect(&scene, &GraphScene::showProgress, [&](int percent) { percents.append(percent); });
    run();
    EXPECT_EQ(percents, QList<int>({0, 33, 66, 100, 100}));
}

TEST_F(EngineTest, InteractionIsOffDuringARunAndOnlyOneRunGoes)
{
    TransformNode *a = probe("a", 1, 0, {input("in", 0, 0)});
    QStringList events;
    QObject::connect(
        &scene, &GraphScene::allowUserInteraction, [&](bool allow) { events.append(allow ? "allowed" : "forbidden"); });
    probeOf(a)->during = [&] {
        EXPECT_TRUE(scene.isProcessing());
        events.append("nested");
        scene.runTransforms(RunMode::Everything, true);
        scene.onSourceChanged(a);
    };
    run();
    EXPECT_EQ(events, QStringList({"forbidden", "nested", "allowed"}));
    EXPECT_EQ(probeOf(a)->runs, 1);
    EXPECT_EQ(a->state(), NodeState::Processed) << "a change of the source during a run is dropped";
    EXPECT_FALSE(scene.isProcessing());
}

TEST_F(EngineTest, TheWindowIsKeptAliveAtEachNode)
{
    probe("a", 1, 0, {input("in", 0, 0)});
    int pumps = 0;
    RunControl::setKeepAlive([&] { ++pumps; });
    run();
    EXPECT_GE(pumps, 3) << "once at the start and at each node's end";
}

TEST_F(EngineTest, ProgressReachesTheScreenOnlyWhenItMoves)
{
    TransformNode *a = probe("a", 1, 0, {input("in", 0, 0)});
    QList<double> shown;
    QObject::connect(a, &Node::processed, [&](Node *, double fraction) { shown.append(fraction); });
    a->onProcessed(0.0);
    a->onProcessed(0.5);
    a->onProcessed(1.0);
    a->reportProgress(1, 0, 1);
    a->reportProgress(3, 3, 2);
    EXPECT_EQ(shown, QList<double>({0.0, 1.0})) << "0.5 came too soon, a total of 0 and a step between are nothing";
    EXPECT_EQ(a->fraction(), 1.0);
}

TEST_F(EngineTest, NotesTakeNoPartInRuns)
{
    auto *note = new NoteNode;
    place(note, "note", 0, 9);
    input("in", 0, 0);
    run();
    EXPECT_EQ(takeProcessed(), QStringList({"in"}));
    EXPECT_EQ(note->state(), NodeState::Processed);
}

TEST_F(EngineTest, RowsAreCountedOnceARun)
{
    settings->setTotalRowsProcessed(10);
    Node *a = probe("a", 1, 0, {input("in", 0, 0)});
    TransformNode *b = probe("b", 2, 0, {a});
    probeOf(b)->during = [this] { EXPECT_EQ(settings->totalRowsProcessed(), 10u) << "each write goes to the disk"; };
    quint64 atTheEnd = 0;
    QObject::connect(&scene, &GraphScene::completedTransforms, [&] { atTheEnd = settings->totalRowsProcessed(); });
    run();
    EXPECT_EQ(atTheEnd, 16u) << "two of each item";
    EXPECT_EQ(settings->totalRowsProcessed(), 16u);
}

// Memory

TEST_F(EngineTest, ReleasingDropsATableOnceAllItsConsumersHaveRun)
{
    Node *in = input("in", 0, 0);
    TransformNode *a = probe("a", 1, 0, {in});
    TransformNode *b = probe("b", 1, 1, {in});
    Node *out = output("out", 2, 0, a);
    bool thereForB = false;
    probeOf(b)->during = [&] { thereForB = !in->datasetConst().isEmpty(); };
    run(RunMode::EverythingReleasing);
    EXPECT_TRUE(thereForB);
    EXPECT_TRUE(in->datasetConst().isEmpty());
    EXPECT_TRUE(a->datasetConst().isEmpty());
    EXPECT_EQ(b->rowCount(), 2) << "nobody takes it";
    EXPECT_TRUE(out->datasetConst().isEmpty()) << "it has been reported";
    EXPECT_EQ(in->state(), NodeState::Processed);

    run(RunMode::Everything);
    EXPECT_EQ(in->rowCount(), 2) << "other runs keep all";
}

TEST_F(EngineTest, TheMemoryCeilingAsksAndThenEndsOrGoesOn)
{
    settings->setMaxMemoryUsage(1.0);
    probe("a", 1, 0, {input("in", 0, 0)});
    RunControl::setMemoryReader([] { return 1.5; });
    EXPECT_THROW(run(), MaxMemoryException) << "without anybody to ask the run ends";
    EXPECT_FALSE(scene.isProcessing());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);

    QList<double> asked;
    RunControl::setMemoryCeilingHook([&](double used, double limit) {
        asked = {used, limit};
        settings->setMaxMemoryUsage(2.0);
        return true;
    });
    run();
    EXPECT_EQ(asked, QList<double>({1.5, 1.0}));
    EXPECT_EQ(takeProcessed(), QStringList({"in", "a"}));
}

TEST_F(EngineTest, TheMemoryCeilingIsKeptInTheMiddleOfATransform)
{
    settings->setMaxMemoryUsage(1.0);
    TransformNode *a = probe("a", 1, 0, {input("in", 0, 0)});
    double used = 0.5;
    RunControl::setMemoryReader([&] { return used; });
    probeOf(a)->during = [&] {
        emit a->transform()->processed(0.1);
        used = 1.5;
        emit a->transform()->processed(0.11);
        ADD_FAILURE() << "the second report must not come back";
    };
    EXPECT_THROW(run(), MaxMemoryException);
}

TEST_F(EngineTest, TheRealFigureIsThatOfThisProcess)
{
    RunControl::reset();
    EXPECT_GT(RunControl::memoryUsedGiB(), 0.0);
    EXPECT_LT(RunControl::memoryUsedGiB(), 64.0);
}
