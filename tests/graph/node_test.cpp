#include "graphfixture.h"

#include "graph/notenode.h"
#include "transforms/options/parameter.h"

using NodeTest = GraphTest;

TEST_F(NodeTest, IdsAreCountedUnlessGiven)
{
    const auto added = [this](int id) {
        Node *node = new FakeInput(Dataset(), id);
        scene.insertNode(node, {});
        return node;
    };
    scene.document()->nextId = 7;
    EXPECT_EQ(added(-1)->id(), 7);
    EXPECT_EQ(added(3)->id(), 3);
    Node *second = added(-1);
    EXPECT_EQ(second->id(), 8);
    EXPECT_EQ(added(20)->id(), 20);
    second->setId(-1);
    EXPECT_EQ(second->id(), 21) << "behind the largest of the document";
    GraphScene other;
    Node *elsewhere = new FakeInput;
    other.insertNode(elsewhere, {});
    EXPECT_EQ(elsewhere->id(), 0) << "each document counts for itself";
    EXPECT_EQ(added(-1)->id(), 22);
}

TEST_F(NodeTest, StatePropagatesThroughUnchangedNodes)
{
    Node *in = input("in", 0, 0);
    Node *a = probe("a", 1, 0, {in});
    Node *b = probe("b", 2, 0, {a});
    Node *beside = probe("beside", 1, 1, {in});
    run();
    a->setState(NodeState::NeedsProcessing, false);
    EXPECT_EQ(b->state(), NodeState::Processed);
    a->setState(NodeState::NeedsProcessing, true);
    EXPECT_EQ(b->state(), NodeState::NeedsProcessing);
    EXPECT_EQ(beside->state(), NodeState::Processed);
    EXPECT_EQ(in->state(), NodeState::Processed);
}

TEST_F(NodeTest, IconsFollowStateWarningsAndData)
{
    TransformNode *a = probe("a", 1, 0, {input("in", 0, 0)});
    EXPECT_EQ(a->statusIcon(), NodeStatusIcon::NeedsUpdate);
    probeOf(a)->during = [a] { EXPECT_EQ(a->statusIcon(), NodeStatusIcon::Processing); };
    run();
    EXPECT_EQ(a->statusIcon(), NodeStatusIcon::UpToDate);
    probeOf(a)->during = [a] { probeOf(a)->addWarning("w"); };
    run();
    EXPECT_EQ(a->statusIcon(), NodeStatusIcon::Warning);
    settings->setShowWarnings(false);
    EXPECT_EQ(a->statusIcon(), NodeStatusIcon::UpToDate);
    a->clearDataset();
    EXPECT_EQ(a->statusIcon(), NodeStatusIcon::Empty);
    a->setState(NodeState::Failed, false);
    EXPECT_EQ(a->statusIcon(), NodeStatusIcon::Error);
    a->setPreview(true);
    EXPECT_EQ(a->statusIcon(), NodeStatusIcon::UpToDate);
    EXPECT_EQ(a->sizeText(), "100,000 rows x 100 cols");
    const NoteNode note;
    EXPECT_EQ(note.statusIcon(), NodeStatusIcon::None);
}

TEST_F(NodeTest, LogLines)
{
    FakeInput *in = input("in", 0, 0, grid({"a", "1"}));
    EXPECT_EQ(in->logLine(false), "  Input: 'data.csv', Id=0, Needs updating");
    run();
    EXPECT_EQ(in->logLine(false), "  Input: 'data.csv', Id=0, [Read], Up to date");
    EXPECT_EQ(in->logLine(true),
        "  Input: 'data.csv', Id=0, 1 row x 1 col, <0.001 second(s), 0 warning(s), [Read], Up to date");
    in->setTable(Dataset());
    run();
    EXPECT_EQ(in->logLine(false), "  Input: 'data.csv', Id=0, [Read], Up to date") << "why it is empty";
    in->setFailing(true);
    run();
    EXPECT_EQ(in->logLine(false), "  Input: 'data.csv', Id=0, [Error reading], Error");
}

TEST_F(NodeTest, SizesAreRoundedFromAThousandOn)
{
    struct Case
    {
        const char *what;
        int rows;
        const char *exact;
        const char *rounded;
    };
    const Case cases[] = {
        {"small counts stand", 999, "999 rows x 2 cols", "999 rows x 2 cols"},
        {"rounded down", 12499, "12,499 rows x 2 cols", "12,000 rows x 2 cols"},
        {"rounded up", 1500, "1,500 rows x 2 cols", "2,000 rows x 2 cols"},
    };
    FakeInput node;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        node.dataset().setSize(c.rows, 2);
        EXPECT_EQ(node.sizeText(), c.exact);
        EXPECT_EQ(node.roundedSizeText(), c.rounded);
    }
}

TEST_F(NodeTest, NeighboursAndClosures)
{
    Node *in = input("in", 0, 0);
    Node *a = probe("a", 1, 1, {in});
    Node *b = probe("b", 1, 0, {in});
    Node *join = probe("join", 2, 0, {a, b}, "Join");
    Node *out = output("out", 3, 0, join);
    Node *other = input("other", 0, 5);
    EXPECT_EQ(in->downstreamNodes(true), QList<Node *>({b, a}));
    EXPECT_EQ(join->allUpstream(false), QSet<Node *>({in, a, b}));
    EXPECT_EQ(in->allDownstream(true), QSet<Node *>({in, a, b, join, out}));
    EXPECT_EQ(in->allDownstreamOfKind(ItemType::Output, false), QSet<Node *>({out}));
    EXPECT_EQ(in->outputsFed(false), QSet<Node *>({a, b, join}));
    EXPECT_TRUE(out->isUpstreamOf(in)) << "the input lies upstream of the output";
    EXPECT_FALSE(in->isUpstreamOf(out));
    EXPECT_TRUE(a->isDirectlyConnectedTo(in));
    EXPECT_FALSE(in->isDirectlyConnectedTo(a));
    EXPECT_EQ(out->depth(), 3);
    EXPECT_EQ(other->depth(), 0);
    EXPECT_EQ(a->siblings(false), QList<Node *>({b}));
    EXPECT_EQ(b->nextSibling(), a);
    EXPECT_EQ(a->previousSibling(), b);
    EXPECT_EQ(a->nextSibling(), nullptr);
    EXPECT_EQ(b->previousSibling(), nullptr);
}

TEST_F(NodeTest, ColumnsGetTheIdOfTheNodeThatMadeThem)
{
    Node *in = input("in", 0, 0);
    TransformNode *a = probe("a", 1, 0, {in});
    TransformNode *b = probe("b", 2, 0, {a});
    probeOf(b)->addsColumn = true;
    run();
    EXPECT_EQ(b->datasetConst().columnId(ColumnIndex(2)), ColumnId(b->id(), 1)) << "a new one has its maker's";
    EXPECT_EQ(in->datasetConst().columnIds(), QList<ColumnId>({{in->id(), 1}, {in->id(), 2}}));
    EXPECT_EQ(a->datasetConst().columnIds(), in->datasetConst().columnIds()) << "columns that pass keep theirs";
    EXPECT_EQ(a->columnsDescription({{in->id(), 2}, {99, 1}, {in->id(), 1}}, 3), "b, a");
    EXPECT_EQ(a->columnsDescription({{in->id(), 1}, {in->id(), 2}}, 1), "a, ...");
}

TEST_F(NodeTest, DuplicateHeaderNamesAreListedInAlphabeticalOrder)
{
    FakeOutput node;
    node.dataset() = grid({"z|a|z|A|a|z", "1|2|3|4|5|6"});
    node.warnOfDuplicateHeaderNames();
    EXPECT_EQ(
        node.warnings(), QStringList({"Duplicate column header names:", "'a' occurs 2 times", "'z' occurs 3 times"}));
    FakeOutput unique;
    unique.dataset() = grid({"a|A", "1|2"});
    unique.warnOfDuplicateHeaderNames();
    EXPECT_TRUE(unique.warnings().isEmpty());
}

TEST_F(NodeTest, ClonesKeepIdPlaceAndCommentButNoAlias)
{
    TransformNode *pad = transform("Pad", "mine", 2, 3, {input("in", 0, 0)}, "2");
    pad->setComment("why");
    const std::unique_ptr<TransformNode> copy(static_cast<TransformNode *>(pad->clone()));
    EXPECT_EQ(copy->id(), pad->id());
    EXPECT_EQ(copy->pos(), pad->pos());
    EXPECT_EQ(copy->comment(), "why");
    EXPECT_EQ(copy->alias(), "");
    EXPECT_EQ(copy->transform()->parameter("Length")->toInt(), 10);
    EXPECT_TRUE(copy->connections(Direction::Both).isEmpty());
}

TEST_F(NodeTest, UnsetOptionsAreToldBehindTheNodesOwnWarnings)
{
    TransformNode *pad = transform("Pad", "", 1, 0, {});
    run();
    EXPECT_EQ(pad->warnings(), QStringList({"1 upstream connection expected", "1 option not set ('Columns')"}));
    EXPECT_EQ(pad->warningCount(), 2);
}

TEST_F(NodeTest, SummaryRowsTellOptionsApart)
{
    TransformNode *pad = transform("Pad", "", 1, 0, {input("in", 0, 0)});
    run();
    const QVariantList before = pad->summaryRow();
    EXPECT_EQ(pad->summaryRow(), before);
    pad->transform()->parameter("Columns")->setValue(QVariant::fromValue(QList<ColumnId>{{0, 1}}));
    const QVariantList chosen = pad->summaryRow();
    EXPECT_NE(chosen, before);
    pad->transform()->parameter("Columns")->setValue(QVariant::fromValue(QList<ColumnId>{{0, 1}}));
    EXPECT_EQ(pad->summaryRow(), chosen) << "equal lists of columns are equal";
    pad->setComment("c");
    EXPECT_NE(pad->summaryRow(), chosen);
}

TEST_F(NodeTest, ToolTipsEscapeWhatTheyShow)
{
    Node *in = input("in", 0, 0, grid({"<h>", "<b>&"}));
    in->setComment("a < b\nc");
    run();
    const QString tip = in->toolTipHtml(true);
    EXPECT_TRUE(tip.contains("<th>&lt;h&gt;</th>"));
    EXPECT_TRUE(tip.contains("<td>&lt;b&gt;&amp;</td>"));
    EXPECT_TRUE(tip.contains("a &lt; b<br/>c"));
    EXPECT_FALSE(in->toolTipHtml(false).contains("&lt;h&gt;")) << "the brief one shows no data";
}

TEST_F(NodeTest, DataPreviewsAreBounded)
{
    FakeInput node;
    node.dataset().setSize(5000, 300);
    node.dataset().setValue(RowIndex(0), ColumnIndex(0), QString(3000, 'x'));
    const QString html = node.dataHtml(false, 20, 500);
    EXPECT_LT(html.size(), 600);
    EXPECT_TRUE(html.endsWith("</tr></table>"));
    EXPECT_FALSE(html.contains(QString(21, 'x')));
}
