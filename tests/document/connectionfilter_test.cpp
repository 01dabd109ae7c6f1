#include "document/connectionfilter.h"
#include "document/missingtransforms.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

using Ends = std::vector<std::pair<int, int>>;

FilteredConnections filtered(const Ends &ends)
{
    QVector<ConnectionRecord> records;
    for (const auto &[start, end] : ends) {
        records.append({start, end});
    }
    return filterConnections(records);
}

Ends endsOf(const QVector<ConnectionRecord> &records)
{
    Ends ends;
    for (const ConnectionRecord &record : records) {
        ends.emplace_back(record.startId, record.endId);
    }
    return ends;
}

} // namespace

TEST(ConnectionFilter, DropsWhatLeadsBack)
{
    const struct
    {
        const char *what;
        Ends ends;
        Ends kept;
        Ends repeated;
        Ends closing;
        QVector<int> inCircles;
    } cases[] = {
        {"a diamond is no circle", {{1, 2}, {1, 3}, {2, 4}, {3, 4}}, {{1, 2}, {1, 3}, {2, 4}, {3, 4}}, {}, {}, {}},
        {"of a circle behind an input, the way back goes", {{4, 2}, {1, 2}, {2, 3}, {3, 4}}, {{1, 2}, {2, 3}, {3, 4}},
            {}, {{4, 2}}, {2, 3, 4}},
        {"of a circle without an input, one connection goes", {{2, 1}, {1, 2}}, {{1, 2}}, {}, {{2, 1}}, {1, 2}},
        {"two circles through one node", {{1, 2}, {2, 1}, {1, 3}, {3, 1}}, {{1, 2}, {1, 3}}, {}, {{2, 1}, {3, 1}},
            {1, 2, 3}},
        {"a circle that goes partly over a node that was left already", {{1, 2}, {2, 3}, {3, 1}, {2, 4}, {4, 3}},
            {{1, 2}, {2, 3}, {2, 4}, {4, 3}}, {}, {{3, 1}}, {1, 2, 3, 4}},
        {"what lies between two circles isn't in one", {{1, 2}, {2, 1}, {2, 3}, {3, 4}, {4, 5}, {5, 4}},
            {{1, 2}, {2, 3}, {3, 4}, {4, 5}}, {}, {{2, 1}, {5, 4}}, {1, 2, 4, 5}},
        {"a connection of a node to itself", {{1, 1}, {1, 2}}, {{1, 2}}, {}, {{1, 1}}, {1}},
        {"a repeated connection", {{1, 2}, {1, 2}, {2, 3}, {1, 2}}, {{1, 2}, {2, 3}}, {{1, 2}, {1, 2}}, {}, {}},
        {"the order of the rest stays", {{3, 4}, {1, 2}, {2, 3}}, {{3, 4}, {1, 2}, {2, 3}}, {}, {}, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const FilteredConnections result = filtered(c.ends);
        EXPECT_EQ(endsOf(result.kept), c.kept);
        EXPECT_EQ(endsOf(result.repeated), c.repeated);
        EXPECT_EQ(endsOf(result.closingCircles), c.closing);
        EXPECT_EQ(result.idsInCircles, c.inCircles);
    }
}

TEST(ConnectionFilter, TakesAVeryLongRing)
{
    Ends ring;
    const int size = 50000;
    for (int i = 0; i < size; ++i) {
        ring.emplace_back(i, (i + 1) % size);
    }
    const FilteredConnections result = filtered(ring);
    EXPECT_EQ(result.kept.size(), size - 1);
    EXPECT_EQ(result.idsInCircles.size(), size);
}

TEST(MissingTransforms, CountsDeprecatedAndUnknownOnesApart)
{
    MissingTransforms missing;
    EXPECT_EQ(missing.message(), QString());
    missing.add(QStringLiteral("Teleport"));
    EXPECT_EQ(missing.message(),
        QStringLiteral("The following unknown transforms were not added:\n'Teleport' (1 occurrence)"));
    for (const char *name : {"Trim", "Rename", "Trim", "Replace", "Teleport"}) {
        missing.add(QString::fromLatin1(name));
    }
    EXPECT_EQ(missing.message(), QStringLiteral("The following deprecated transforms were not added:\n"
                                                "'Rename' (1 occurrence) - use the newer 'Rename' transform.\n"
                                                "'Replace' (1 occurrence) - use the newer 'Replace' transform.\n"
                                                "'Trim' (2 occurrences) - use the newer 'Whitespace' transform.\n\n"
                                                "The following unknown transforms were not added:\n"
                                                "'Teleport' (2 occurrences)"));
}
