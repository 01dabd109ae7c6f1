#include "graph/nodeplacement.h"
#include "graph/notenode.h"
#include "graph/tidyup.h"
#include "graphfixture.h"

namespace {

class TidyUpTest : public GraphTest
{
protected:
    /// "name column,row" of each item, in cells of the grid, sorted.
    QStringList cells() const
    {
        QStringList texts;
        for (const Node *node : scene.nodes()) {
            const QPointF cell(node->x() / NodePlacement::gridWidth, node->y() / NodePlacement::gridHeight);
            texts.append(QStringLiteral("%1 %2,%3").arg(node->alias()).arg(cell.x()).arg(cell.y()));
        }
        texts.sort();
        return texts;
    }
};

} // namespace

TEST_F(TidyUpTest, ArrangesAllAndKeepsTheOrderOfInputs)
{
    Node *left = input("left", 3.3, 4.4);
    Node *right = input("right", 0.2, 5.1);
    Node *step = transform("Transpose", "step", 1.7, 0.3, {left}); // above what it comes from
    Node *join = transform("Stack", "stack", 0.4, 1.2, {step, right});
    const QList<Node *> inputs = join->upstreamNodes(true);
    EXPECT_TRUE(TidyUp::arrange(scene, scene.nodes()));
    EXPECT_EQ(cells(), (QStringList{"left 0,0", "right 0,1", "stack 2,0", "step 1,0"}));
    EXPECT_EQ(join->upstreamNodes(true), inputs);
}

TEST_F(TidyUpTest, TakesNotesAlong)
{
    Node *from = input("in", 0, 0);
    transform("Transpose", "step", 0.4, 2.6, {from});
    const auto note = [&](const char *name, double column, double row, NoteNode::Arrow arrow) {
        auto *node = new NoteNode(arrow);
        place(node, QString::fromLatin1(name), column, row);
        node->setAlias(QString::fromLatin1(name));
    };
    note("about step", 0.4, 1.6, NoteNode::Down);
    note("title", 6, 7, NoteNode::NoArrow);
    EXPECT_TRUE(TidyUp::arrange(scene, scene.nodes()));
    EXPECT_EQ(cells(), (QStringList{"about step 1,1", "in 0,2", "step 1,2", "title 0,0"}));
}

TEST_F(TidyUpTest, ASelectionKeepsClearOfTheOthers)
{
    Node *a = input("a", 0, 0);
    Node *b = transform("Transpose", "b", 0.3, 3, {a});
    input("other", 1, 0);
    EXPECT_TRUE(TidyUp::arrange(scene, {a, b}));
    EXPECT_EQ(cells(), (QStringList{"a 0,-1", "b 1,-1", "other 1,0"}));
}

TEST_F(TidyUpTest, ASelectionThatWouldReorderInputsStays)
{
    // Of the four inputs two are chosen that have others between and around them; they can't become neighbours.
    Node *a = input("a", 0, 0);
    Node *b = input("b", 0, 1);
    Node *c = input("c", 0, 2);
    transform("Stack", "stack", 1, 0, {a, b, c});
    const QStringList before = cells();
    EXPECT_FALSE(TidyUp::arrange(scene, {a, c}));
    EXPECT_EQ(cells(), before);
}
