#include "graph/transformexample.h"
#include "graphfixture.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

namespace {

class TransformExampleTest : public GraphTest
{
protected:
    void set(const TransformNode *node, const char *option, const char *text) const
    {
        node->transform()->parameter(QString::fromLatin1(option))->setDeferredText(QString::fromLatin1(text), 86);
        node->transform()->parameter(QString::fromLatin1(option))->resolveDeferred();
    }
};

} // namespace

TEST_F(TransformExampleTest, ShowsTheFirstRowThatChanges)
{
    const struct
    {
        const char *shows;
        const char *type;
        std::initializer_list<std::pair<const char *, const char *>> options;
        const char *line;
    } cases[] = {
        {"a cell that changes", "Case", {{"Columns", "1"}}, "Row 2, 'a': 'Bob' becomes 'bob'"},
        {"a new column", "Concat",
            {{"Columns", "1\x1f"
                         "2"},
                {"Delimiter", "-"}},
            "Row 1, 'a + b' is 'ann-5'"},
        {"nothing changes", "Chop", {{"Columns", "2"}, {"Length", "0"}}, "No change in the first 3 rows"},
    };
    Node *in = input("in", 0, 0, grid({"a|b", "ann|5", "Bob|6", "CY|7"}));
    run();
    for (const auto &c : cases) {
        SCOPED_TRACE(c.shows);
        const TransformNode *node = transform(c.type, "t", 1, 0, {in});
        for (const auto &option : c.options) {
            ASSERT_TRUE(node->transform()->parameter(QString::fromLatin1(option.first))) << option.first;
            set(node, option.first, option.second);
        }
        EXPECT_EQ(TransformExample::lineFor(*node), c.line);
        EXPECT_EQ(node->state(), NodeState::NeedsProcessing) << "the item itself hasn't run";
    }
}

TEST_F(TransformExampleTest, SaysNothingWhereAFewRowsCantTell)
{
    Node *in = input("in", 0, 0);
    Node *empty = input("empty", 0, 3, grid({"a|b"}));
    run();
    EXPECT_EQ(TransformExample::lineFor(*transform("Sort", "sort", 1, 0, {in}, "1")), "");
    EXPECT_EQ(TransformExample::lineFor(*transform("Impute", "impute", 1, 1, {in}, "1")), "");
    EXPECT_EQ(TransformExample::lineFor(*transform("Case", "alone", 1, 2, {})), "");
    EXPECT_EQ(TransformExample::lineFor(*transform("Case", "empty", 1, 3, {empty}, "1")), "");
}
