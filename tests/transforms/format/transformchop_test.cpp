#include "support/grid.h"
#include "support/runon.h"

#include <gtest/gtest.h>

namespace {

struct ChopCase
{
    const char *what;
    const char *cell;
    int length;
    const char *from;
    const char *chopped;
    const char *resultText;
};

} // namespace

TEST(TransformChop, RemovesFromOneEnd)
{
    const ChopCase cases[] = {
        {"from the start", "abcd", 1, "Start", "bcd", "1 changed, 0 unchanged"},
        {"from the end", "abcd", 3, "End", "a", "1 changed, 0 unchanged"},
        {"all of it", "abcd", 4, "Start", "", "1 changed, 0 unchanged"},
        {"more than there is leaves an empty cell", "ab", 3, "End", "", "1 changed, 0 unchanged"},
        {"characters, not bytes", "éàü", 1, "Start", "àü", "1 changed, 0 unchanged"},
        {"an empty cell has nothing to lose", "", 2, "Start", "", "No changes"},
        {"a length of 0 does nothing", "abcd", 0, "Start", "abcd", "No changes"},
        {"a length below the limit of a damaged document does nothing", "abcd", -5, "End", "abcd", "No changes"},
    };
    for (const ChopCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Chop", {{"Length", c.length}, {"From", c.from}}, {column(c.cell)});
        EXPECT_EQ(rows(run.result), QStringList(c.chopped));
        EXPECT_EQ(run.resultText(), c.resultText);
    }
}
