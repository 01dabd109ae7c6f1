#include "panes/actions/transformusage.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <gtest/gtest.h>

TEST(TransformUsage, RemembersTheLastOnesAndHowOften)
{
    const ScopedSettings settings;
    {
        TransformUsage usage;
        for (const char *name : {"Sort", "Join", "Sort", "Case", "Case", "Case"}) {
            usage.record(QString::fromLatin1(name));
        }
        EXPECT_EQ(usage.lastUsed(10), QStringList({"Case", "Sort", "Join"}));
        EXPECT_EQ(usage.mostUsed(2), QStringList({"Case", "Sort"}));
    }
    const TransformUsage again;
    EXPECT_EQ(again.lastUsed(2), QStringList({"Case", "Sort"})) << "as the settings keep it";
    EXPECT_EQ(again.usedCount(), 3);
}

TEST(TransformUsage, KeepsThirty)
{
    const ScopedSettings settings;
    TransformUsage usage;
    for (int i = 0; i < 40; ++i) {
        usage.record(QString::number(i));
    }
    EXPECT_EQ(usage.recentCount(), TransformUsage::mostRecent);
    EXPECT_EQ(usage.lastUsed(1), QStringList{"39"});
    EXPECT_EQ(usage.usedCount(), 40);
}
