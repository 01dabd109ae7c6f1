#include "panes/actions/transformusage.h"
#include "support/printers.h"
#include "support/scopedsettings.h"

#include <gtest/gtest.h>

TEST(TransformUsage, RemembersTheLastOnesAndHowOften)
{
    const ScopedSettings settings;
    const QSet<QString> known{"Sort", "Join", "Case"};
    {
        TransformUsage usage(known);
        for (const char *name : {"Sort", "Join", "Sort", "Case", "Case", "Case"}) {
            usage.record(QString::fromLatin1(name));
        }
        EXPECT_EQ(usage.lastUsed(10), QStringList({"Case", "Sort", "Join"}));
        EXPECT_EQ(usage.mostUsed(2), QStringList({"Case", "Sort"}));
    }
    const TransformUsage again(known);
    EXPECT_EQ(again.lastUsed(2), QStringList({"Case", "Sort"})) << "as the settings keep it";
    EXPECT_EQ(again.usedCount(), 3);
}

TEST(TransformUsage, KeepsThirty)
{
    const ScopedSettings settings;
    QSet<QString> known;
    for (int i = 0; i < 40; ++i) {
        known.insert(QString::number(i));
    }
    TransformUsage usage(known);
    for (int i = 0; i < 40; ++i) {
        usage.record(QString::number(i));
    }
    EXPECT_EQ(usage.recentCount(), TransformUsage::mostRecent);
    EXPECT_EQ(usage.lastUsed(1), QStringList{"39"});
    EXPECT_EQ(usage.usedCount(), 40);
}

TEST(TransformUsage, PassesOverNamesThatNoTransformHas)
{
    ScopedSettings settings;
    settings->setRecentTransformsAdded({"Later", "Sort", "Gone", "Join"});
    settings->setAllTransformsAddedCount({{"Later", 9}, {"Join", 2}, {"Sort", 1}});
    TransformUsage usage({"Sort", "Join", "Case"});
    EXPECT_EQ(usage.lastUsed(2), QStringList({"Sort", "Join"})) << "they take no place in the list";
    EXPECT_EQ(usage.mostUsed(2), QStringList({"Join", "Sort"}));
    EXPECT_EQ(usage.recentCount(), 2);
    EXPECT_EQ(usage.usedCount(), 2);
    usage.record(QStringLiteral("Case"));
    EXPECT_EQ(settings->recentTransformsAdded(), QStringList({"Case", "Later", "Sort", "Gone", "Join"}))
        << "a later program knows them again";
}
