#include "transforms/options/verifyrules.h"

#include "support/printers.h"

#include <QDate>
#include <gtest/gtest.h>

namespace {

ColumnId idOf(int number)
{
    return ColumnId(1, number);
}

int numberOf(ColumnId id)
{
    return id.nodeId() == 1 ? id.serial() : 0;
}

} // namespace

TEST(VerifyRules, KeepValuesOfEveryTypeInTheirStoredForm)
{
    const QVariant values[] = {QVariant(), QString("a|b%"), QString(), -3, 0.1 + 0.2, QDate(2024, 2, 29), QDate()};
    for (const QVariant &value : values) {
        SCOPED_TRACE(value.typeName() ? value.typeName() : "nothing");
        VerifyRuleSet rules;
        rules.datasetRules = {{5, value, VerifyRule::Information, true}};
        rules.columns.insert(idOf(7), {VerifyColumn::Date, {{53, value, VerifyRule::Error, false}}});
        const QStringList parts = rules.toParts(numberOf);
        QStringList decoded;
        for (const QString &part : parts) {
            decoded.append(QString::fromUtf8(QByteArray::fromPercentEncoding(part.toLatin1())));
        }
        EXPECT_EQ(VerifyRuleSet::fromParts(decoded, idOf), rules);
    }
}

TEST(VerifyRules, LeaveOutColumnsThatAreGone)
{
    VerifyRuleSet rules;
    rules.columns.insert(ColumnId(9, 1), VerifyColumn());
    EXPECT_EQ(rules.toParts(numberOf), QStringList("1"));
}

TEST(VerifyRules, ReadWhatCanBeReadOfDamagedText)
{
    struct Case
    {
        const char *what;
        QStringList parts;
        int datasetRules;
        int columns;
    };
    const Case cases[] = {
        {"nothing", {}, 0, 0},
        {"an unknown layout", {"9", "3", "i1", "1", "1"}, 0, 0},
        {"half a rule", {"1", "3", "i1", "1"}, 0, 0},
        {"an unknown rule is dropped", {"1", "6", "n", "1", "1", "5", "n", "1", "1"}, 1, 0},
        {"a column without a type", {"1", "*Column*", "2"}, 0, 0},
        {"a column without a number", {"1", "*Column*", "x", "0"}, 0, 0},
        {"a column without rules", {"1", "*Column*", "2", "0"}, 0, 1},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const VerifyRuleSet rules = VerifyRuleSet::fromParts(c.parts, idOf);
        EXPECT_EQ(rules.datasetRules.size(), c.datasetRules);
        EXPECT_EQ(rules.columns.size(), c.columns);
    }
    const VerifyRuleSet bounded = VerifyRuleSet::fromParts({"1", "3", "i1", "7", "1", "*Column*", "1", "-4"}, idOf);
    EXPECT_EQ(bounded.datasetRules.first().severity, VerifyRule::Error);
    EXPECT_EQ(bounded.columns.value(idOf(1)).type, VerifyColumn::Text);
}

TEST(VerifyRules, CountWhatIsActive)
{
    VerifyRuleSet rules;
    rules.datasetRules = {{0, {}, 1, true}, {1, 3, 1, false}};
    rules.columns.insert(idOf(1), {0, {{0, {}, 1, true}, {1, {}, 1, true}}});
    rules.columns.insert(idOf(2), {0, {{0, {}, 1, true}}});
    EXPECT_EQ(rules.summary(), "1 dataset rule(s) and 3 column rule(s).");
}

TEST(VerifyRules, AreListsOfFour)
{
    const VerifyRule rule{10, 2.5, VerifyRule::Error, true};
    EXPECT_EQ(rule.toList(), (QVariantList{10, 2.5, 2, true}));
    EXPECT_EQ(VerifyRule::fromList(rule.toList(), 54), rule);
    EXPECT_EQ(VerifyRule::fromList({10, 2.5, 2}, 54), (VerifyRule{54, QVariant(), 1, false}));
}
