#include "document/connectionfilter.h"
#include "document/missingtransforms.h"
#include "support/printers.h"

#include <gtest/gtest.h>

namespace {

using Ends = std::vector<std::pair<int, int>>;

Ends filtered(const Ends &ends)
{
    QVector<ConnectionRecord> records;
    for (const auto &[start, end] : ends) {
        records.append({start, end});
    }
    Ends kept;
    for (const ConnectionRecord &record : withoutRepeatsAndCycles(records)) {
        kept.emplace_back(record.startId, record.endId);
    }
    return kept;
}

} // namespace

TEST(ConnectionFilter, DropsWhatLeadsBack)
{
    const struct
    {
        const char *what;
        Ends ends;
        Ends kept;
    } cases[] = {
        {"a diamond is no cycle", {{1, 2}, {1, 3}, {2, 4}, {3, 4}}, {{1, 2}, {1, 3}, {2, 4}, {3, 4}}},
        {"of a cycle behind an input, the way back goes", {{4, 2}, {1, 2}, {2, 3}, {3, 4}}, {{1, 2}, {2, 3}, {3, 4}}},
        {"of a cycle without an input, one connection goes", {{2, 1}, {1, 2}}, {{1, 2}}},
        {"two cycles through one node", {{1, 2}, {2, 1}, {1, 3}, {3, 1}}, {{1, 2}, {1, 3}}},
        {"a connection of a node to itself", {{1, 1}, {1, 2}}, {{1, 2}}},
        {"a repeated connection", {{1, 2}, {1, 2}, {2, 3}}, {{1, 2}, {2, 3}}},
        {"the order of the rest stays", {{3, 4}, {1, 2}, {2, 3}}, {{3, 4}, {1, 2}, {2, 3}}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(filtered(c.ends), c.kept);
    }
}

TEST(ConnectionFilter, TakesAVeryLongRing)
{
    Ends ring;
    const int size = 50000;
    for (int i = 0; i < size; ++i) {
        ring.emplace_back(i, (i + 1) % size);
    }
    EXPECT_EQ(filtered(ring).size(), ring.size() - 1);
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
