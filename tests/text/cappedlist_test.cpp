#include "support/scopedlocale.h"
#include "text/cappedlist.h"

#include <gtest/gtest.h>

TEST(CappedList, EndsWithTheNumberOfTheOthers)
{
    const ScopedLocale locale("en_US");
    const struct
    {
        const char *what;
        int limit;
        int added;
        QStringList lines;
    } cases[] = {
        {"nothing", 2, 0, {}},
        {"up to the limit all stand there", 2, 2, {"0", "1"}},
        {"one other is told of in the singular", 2, 3, {"0", "1", "+ 1 other"}},
        {"many in the plural, grouped", 1, 1235, {"0", "+ 1,234 others"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        CappedList list(c.limit);
        int made = 0;
        for (int i = 0; i < c.added; ++i) {
            list.add([&] {
                ++made;
                return QString::number(i);
            });
        }
        EXPECT_EQ(list.lines(), c.lines);
        EXPECT_EQ(list.count(), c.added);
        EXPECT_EQ(made, list.texts().size()) << "no text is made that isn't shown";
    }
}

TEST(CappedList, ForgetsTheLast)
{
    CappedList list(2);
    for (const char *text : {"a", "b", "c"}) {
        list.add(QString(text));
    }
    list.truncate(1);
    EXPECT_EQ(list.lines(), QStringList("a"));
    list.add(QStringLiteral("d"));
    EXPECT_EQ(list.lines(), QStringList({"a", "d"}));
}
