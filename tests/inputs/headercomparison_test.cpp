#include "inputs/headercomparison.h"

#include "support/printers.h"

#include <gtest/gtest.h>

TEST(HeaderComparison, TellsFiveDifferencesOfAKind)
{
    struct Case
    {
        const char *what;
        QStringList first;
        QStringList item;
        QStringList lines;
    };
    const Case cases[] = {
        {"equal names say nothing", {"a", "b"}, {"a", "b"}, {}},
        {"none on either side", {}, {}, {}},
        {"case and blanks count", {"a", "b"}, {"A", "b "},
            {"'x' header mismatch:", "  Column name difference at column 1: 'a' -> 'A'",
                "  Column name difference at column 2: 'b' -> 'b '"}},
        {"missing at the end, and a difference before it", {"a", "b", "c"}, {"a", "%2"},
            {"'x' header mismatch:", "  Missing column 3: 'c'", "  Column name difference at column 2: 'b' -> '%2'"}},
        {"six missing are five and one other", {"a", "b", "c", "d", "e", "f", "g"}, {"a"},
            {"'x' header mismatch:", "  Missing column 2: 'b'", "  Missing column 3: 'c'", "  Missing column 4: 'd'",
                "  Missing column 5: 'e'", "  Missing column 6: 'f'", "  + 1 other"}},
        {"seven too many are five and two others", {"a"}, {"z", "b", "c", "d", "e", "f", "g", "h"},
            {"'x' header mismatch:", "  Column name difference at column 1: 'a' -> 'z'", "  Extra column 2: 'b'",
                "  Extra column 3: 'c'", "  Extra column 4: 'd'", "  Extra column 5: 'e'", "  Extra column 6: 'f'",
                "  + 2 others"}},
        {"five of a kind are all there are", {"a", "b", "c", "d", "e"}, {"e", "d", "C", "b", "a"},
            {"'x' header mismatch:", "  Column name difference at column 1: 'a' -> 'e'",
                "  Column name difference at column 2: 'b' -> 'd'", "  Column name difference at column 3: 'c' -> 'C'",
                "  Column name difference at column 4: 'd' -> 'b'",
                "  Column name difference at column 5: 'e' -> 'a'"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(headerMismatch("x", c.first, c.item), c.lines.join('\n'));
    }
}
